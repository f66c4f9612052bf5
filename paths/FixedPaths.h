#pragma once

#include <QCoreApplication>
#include <QDir>
#include <QString>

/// Every path that is built into the program. The logger maker's tools fix the Windows ones.
namespace FixedPaths {

/// Folder below which the maker's tools keep page images; a page's image path is appended as it is.
inline QString imageRoot()
{
    return QStringLiteral("C:/AIM_SPORT/RaceStudio3/");
}

/// Where the matching of layout channels to recorded channels is traced. The folder is not created.
inline QString channelTraceFile()
{
    return QStringLiteral("C:/temp/Gaugewright/channel_debug.txt");
}

/// The logger maker's reader library. The two spellings of the folder and the file differ on
/// Windows, and must. Elsewhere the path is absolute, so that no code is ever loaded from the
/// working directory.
inline QString readerLibrary()
{
#ifdef Q_OS_WIN
    return QStringLiteral("C:/temp/MathLabXRK/DLL-2017/MatLabXRK-2017-64-ReleaseU.dll");
#else
    return QCoreApplication::applicationDirPath() +
           QStringLiteral("/reader/MatLabXRK-2017-64-ReleaseU.so");
#endif
}

/// Where the dialog that asks for a recording starts.
inline QString recordingFolder()
{
#ifdef Q_OS_WIN
    return QStringLiteral("C:/AIM_SPORT/RaceStudio3/user/data");
#else
    return QDir::homePath();
#endif
}

/// The window icon, beside the executable.
inline QString windowIcon()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/assets/icon.png");
}

} // namespace FixedPaths
