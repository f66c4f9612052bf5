#pragma once

#include <string>

/// Binding to the logger maker's closed reader library for recordings, loaded at run time.
///
/// The library is found by path and its twenty exports by name. A missing library leaves all slots
/// null, a missing export its own. The object owns the module and unloads it when destroyed: no
/// slot may be called after that. Needs no Qt.
///
/// Types, from the maker's interface: integers are 32-bit signed. Strings are NUL-terminated UTF-8
/// owned by the library: copy one before the next call, which may overwrite it. The caller supplies
/// the sample arrays, of count doubles each. C calling convention.
class XrkLibrary
{
public:
    using OpenFile = int (*)(const char* path);          ///< file index, negative on failure
    using CloseFile = int (*)(int file);                 ///< result ignored
    using Unused = void (*)();                           ///< resolved, never called
    using Count = int (*)(int file);                     ///< number of channels
    using Text = const char* (*)(int file, int channel); ///< may be null
    using SampleCount = int (*)(int file, int channel);
    using Samples = int (*)(int file, int channel, double* times, double* values, int count);

    /// Loads the library at path, an 8-bit string in the loader's encoding.
    /// @param loadError where given, receives the loader's own words (UTF-8) when it refuses
    explicit XrkLibrary(const char* path, std::string* loadError = nullptr);
    ~XrkLibrary();
    XrkLibrary(const XrkLibrary&) = delete;
    XrkLibrary& operator=(const XrkLibrary&) = delete;

    [[nodiscard]] bool isLoaded() const { return m_module != nullptr; }

private:
    void* m_module = nullptr;

public:
    // One slot per export, named and ordered as the library exports them.
    OpenFile open_file = nullptr;
    CloseFile close_file_i = nullptr;
    Unused get_vehicle_name = nullptr;
    Unused get_racer_name = nullptr;
    Unused get_laps_count = nullptr;
    Count get_channels_count = nullptr;
    Text get_channel_name = nullptr;
    Text get_channel_units = nullptr;
    SampleCount get_channel_samples_count = nullptr;
    Samples get_channel_samples = nullptr;
    Count get_GPS_channels_count = nullptr;
    Text get_GPS_channel_name = nullptr;
    Text get_GPS_channel_units = nullptr;
    SampleCount get_GPS_channel_samples_count = nullptr;
    Samples get_GPS_channel_samples = nullptr;
    Count get_GPS_raw_channels_count = nullptr;
    Text get_GPS_raw_channel_name = nullptr;
    Text get_GPS_raw_channel_units = nullptr;
    SampleCount get_GPS_raw_channel_samples_count = nullptr;
    Samples get_GPS_raw_channel_samples = nullptr;
};
