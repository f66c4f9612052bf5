// Holds a file open, as another program does:
//
//     file_holder FILE SHARED
//
// SHARED is what other programs may do meanwhile: the sum of FILE_SHARE_READ and so on. Writes
// "held" once it has the file and ends with its standard input.

#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <windows.h>

int main()
{
    int count = 0;
    wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    if (!arguments || count != 3)
        return EXIT_FAILURE;
    const HANDLE file =
        CreateFileW(arguments[1], GENERIC_READ, std::wcstoul(arguments[2], nullptr, 10), nullptr,
                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return EXIT_FAILURE;
    std::puts("held");
    std::fflush(stdout);
    while (std::getchar() != EOF)
        continue;
    return EXIT_SUCCESS;
}
