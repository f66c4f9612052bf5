; The file type *.zconf2: its name and icon. No command, because the program takes no arguments.
; A type that another program has registered stays that program's.

!macro NotifyShell
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

!macro RegisterFileType
  ReadRegStr $0 HKCR ".zconf2" ""
  StrCmp $0 "" +2
  StrCmp $0 "Gaugewright.zconf2" 0 fileTypeTaken
  WriteRegStr SHCTX "Software\Classes\.zconf2" "" "Gaugewright.zconf2"
  WriteRegStr SHCTX "Software\Classes\Gaugewright.zconf2" "" "Dashboard package"
  WriteRegStr SHCTX "Software\Classes\Gaugewright.zconf2\DefaultIcon" "" "$INSTDIR\bin\gaugewright.exe,1"
  !insertmacro NotifyShell
  fileTypeTaken:
!macroend

!macro UnregisterFileType
  DeleteRegKey SHCTX "Software\Classes\Gaugewright.zconf2"
  ReadRegStr $0 SHCTX "Software\Classes\.zconf2" ""
  StrCmp $0 "Gaugewright.zconf2" 0 fileTypeNotOurs
  DeleteRegValue SHCTX "Software\Classes\.zconf2" ""
  DeleteRegKey /ifempty SHCTX "Software\Classes\.zconf2"
  fileTypeNotOurs:
  !insertmacro NotifyShell
!macroend
