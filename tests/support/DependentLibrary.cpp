// A reader library that does not load without another library.

#ifdef _WIN32
extern "C" __declspec(dllimport) int dependency();
extern "C" __declspec(dllexport) int open_file(const char* path);
#else
extern "C" int dependency();
extern "C" int open_file(const char* path);
#endif

int open_file(const char* /*path*/)
{
    return dependency();
}
