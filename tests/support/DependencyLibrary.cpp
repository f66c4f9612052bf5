// What DependentLibrary.cpp needs in order to load.

#ifdef _WIN32
extern "C" __declspec(dllexport) int dependency();
#else
extern "C" int dependency();
#endif

int dependency()
{
    return 0;
}
