#include "telemetry/XrkLibrary.h"

#include <tuple>

#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace {

#ifdef _WIN32

void* loadModule(const char* path)
{
    return LoadLibraryA(path);
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

XrkLibrary::XrkLibrary(const char* path) : m_module(loadModule(path))
{
    if (!isLoaded())
        return;
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
