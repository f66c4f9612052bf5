// Raises an event in the console of another process, as Ctrl+C and Ctrl+Break do:
//
//     console_event PROCESS EVENT
//
// EVENT is the number of CTRL_C_EVENT or CTRL_BREAK_EVENT.

#include <cstdlib>
#include <windows.h>

int main(int argc, char** argv)
{
    if (argc != 3)
        return EXIT_FAILURE;
    FreeConsole(); // a process has only one
    const bool raised = AttachConsole(std::strtoul(argv[1], nullptr, 10)) != 0 &&
                        SetConsoleCtrlHandler(nullptr, TRUE) != 0 && // ignores Ctrl+C itself
                        GenerateConsoleCtrlEvent(std::strtoul(argv[2], nullptr, 10), 0) != 0;
    return raised ? EXIT_SUCCESS : EXIT_FAILURE;
}
