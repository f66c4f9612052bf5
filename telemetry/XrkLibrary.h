#pragma once

/// Binding to the logger maker's closed reader library for recordings, loaded at run time.
///
/// The library is found by path and its twenty exports by name. A missing library leaves everything
/// null, a missing export leaves its slot null; neither is an error here. The object owns the
/// module and unloads it when destroyed: no pointer may be called after that. Needs no Qt.
///
/// Types, from the maker's interface: integers are 32-bit signed, strings NUL-terminated UTF-8
/// owned by the library and to be copied at once, sample arrays are supplied by the caller and hold
/// count doubles each. C calling convention.
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
    explicit XrkLibrary(const char* path);
    ~XrkLibrary();
    XrkLibrary(const XrkLibrary&) = delete;
    XrkLibrary& operator=(const XrkLibrary&) = delete;

    [[nodiscard]] bool isLoaded() const { return m_module != nullptr; }

private:
    void* m_module = nullptr;

public:
    // One slot an export, named and ordered as the library exports them.
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
