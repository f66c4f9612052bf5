#include "telemetry/XrkLibrary.h"

#include <string>
#include <tuple>

#ifdef _WIN32
#include <array>
#include <string_view>
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace {

#ifdef _WIN32

void* loadModule(const char* path)
{
    DWORD mode = 0;
    SetThreadErrorMode(SEM_FAILCRITICALERRORS, &mode); // or the loader shows a box of its own
    const HMODULE module = LoadLibraryA(path);
    const DWORD error = GetLastError();
    SetThreadErrorMode(mode, nullptr);
    SetLastError(error);
    return module;
}

/// The system's text for an error, in UTF-8 and without the full stop; empty where it has none.
std::string systemText(DWORD error)
{
    constexpr DWORD kFlags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    std::array<wchar_t, 1024> text{};
    const auto size = static_cast<DWORD>(text.size());
    const DWORD length = FormatMessageW(kFlags, nullptr, error, 0, text.data(), size, nullptr);
    const std::wstring_view words(text.data(), length);
    const auto end = words.find_last_not_of(L". \r\n"); // npos + 1 is 0
    std::array<char, 4 * text.size()> bytes{};
    const int count =
        WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(end + 1), bytes.data(),
                            static_cast<int>(bytes.size()), nullptr, nullptr);
    return {bytes.data(), static_cast<std::size_t>(count)};
}

std::string lastLoadError(const char* path)
{
    const DWORD error = GetLastError();
    std::string words = systemText(error);
    if (words.empty())
        return "error " + std::to_string(error);
    // "%1 is not a valid Win32 application": the system leaves the path to the caller.
    constexpr std::string_view kInsert = "%1";
    const auto insert = words.find(kInsert);
    if (insert != std::string::npos && path != nullptr)
        words.replace(insert, kInsert.size(), path);
    return words;
}

void* findSymbol(void* module, const char* name)
{
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(module), name));
}

void unloadModule(void* module)
{
    FreeLibrary(static_cast<HMODULE>(module));
}

#else

void* loadModule(const char* path)
{
    if (path == nullptr || *path == '\0')
        return nullptr; // to the loader, no path means the running program itself
    return dlopen(path, RTLD_NOW | RTLD_LOCAL);
}

std::string lastLoadError(const char* /*path*/)
{
    const char* const words = dlerror();
    return words != nullptr ? words : "";
}

void* findSymbol(void* module, const char* name)
{
    return dlsym(module, name);
}

void unloadModule(void* module)
{
    dlclose(module);
}

#endif

template <typename Function>
struct Export
{
    const char* name;
    Function XrkLibrary::*slot;
};

template <typename Function>
Export(const char*, Function XrkLibrary::*) -> Export<Function>;

constexpr std::tuple kExports{
    Export{"open_file", &XrkLibrary::open_file},
    Export{"close_file_i", &XrkLibrary::close_file_i},
    Export{"get_vehicle_name", &XrkLibrary::get_vehicle_name},
    Export{"get_racer_name", &XrkLibrary::get_racer_name},
    Export{"get_laps_count", &XrkLibrary::get_laps_count},
    Export{"get_channels_count", &XrkLibrary::get_channels_count},
    Export{"get_channel_name", &XrkLibrary::get_channel_name},
    Export{"get_channel_units", &XrkLibrary::get_channel_units},
    Export{"get_channel_samples_count", &XrkLibrary::get_channel_samples_count},
    Export{"get_channel_samples", &XrkLibrary::get_channel_samples},
    Export{"get_GPS_channels_count", &XrkLibrary::get_GPS_channels_count},
    Export{"get_GPS_channel_name", &XrkLibrary::get_GPS_channel_name},
    Export{"get_GPS_channel_units", &XrkLibrary::get_GPS_channel_units},
    Export{"get_GPS_channel_samples_count", &XrkLibrary::get_GPS_channel_samples_count},
    Export{"get_GPS_channel_samples", &XrkLibrary::get_GPS_channel_samples},
    Export{"get_GPS_raw_channels_count", &XrkLibrary::get_GPS_raw_channels_count},
    Export{"get_GPS_raw_channel_name", &XrkLibrary::get_GPS_raw_channel_name},
    Export{"get_GPS_raw_channel_units", &XrkLibrary::get_GPS_raw_channel_units},
    Export{"get_GPS_raw_channel_samples_count", &XrkLibrary::get_GPS_raw_channel_samples_count},
    Export{"get_GPS_raw_channel_samples", &XrkLibrary::get_GPS_raw_channel_samples},
};

} // namespace

XrkLibrary::XrkLibrary(const char* path, std::string* loadError) : m_module(loadModule(path))
{
    if (!isLoaded()) {
        if (loadError != nullptr)
            *loadError = lastLoadError(path);
        return;
    }
    const auto resolve = [this]<typename Function>(const Export<Function>& entry) {
        this->*entry.slot = reinterpret_cast<Function>(findSymbol(m_module, entry.name));
    };
    std::apply([&resolve](const auto&... entries) { (resolve(entries), ...); }, kExports);
}

XrkLibrary::~XrkLibrary()
{
    if (isLoaded())
        unloadModule(m_module);
}
