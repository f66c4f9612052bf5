// A reader library without a mind of its own: twenty exports that forward to the test's ReaderHost.
#include "tests/support/ReaderHost.h"

#include <cstdio>
#include <cstdlib>

#ifdef _WIN32
#define READER_EXPORT extern "C" __declspec(dllexport)
#else
#define READER_EXPORT extern "C" __attribute__((visibility("default")))
#endif

namespace {

/// Lives from the loading of the library to its unloading, and says so.
class Connection
{
public:
    Connection()
    {
        const char* const address = std::getenv(ReaderHost::kAddressVariable);
        void* host = nullptr;
        if (address == nullptr || std::sscanf(address, "%p", &host) != 1)
            std::abort(); // loaded by a test that has no host
        m_host = static_cast<ReaderHost*>(host);
        m_host->loaded();
    }
    ~Connection() { m_host->unloaded(); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    ReaderHost* operator->() const { return m_host; }

private:
    ReaderHost* m_host;
};

const Connection kHost;

} // namespace

// NOLINTBEGIN(readability-identifier-naming): exports are found by these very names

READER_EXPORT int open_file(const char* path)
{
    return kHost->openFile(path);
}

READER_EXPORT int close_file_i(int file)
{
    return kHost->closeFile(file);
}

#define UNEXPECTED(name)                                                                           \
    READER_EXPORT void name()                                                                      \
    {                                                                                              \
        kHost->unexpectedCall();                                                                   \
    }

UNEXPECTED(get_vehicle_name)
UNEXPECTED(get_racer_name)
UNEXPECTED(get_laps_count)

#define FAMILY(prefix, family)                                                                     \
    READER_EXPORT int prefix##channels_count(int file)                                             \
    {                                                                                              \
        return kHost->channelCount(family, file);                                                  \
    }                                                                                              \
    READER_EXPORT const char* prefix##channel_name(int file, int channel)                          \
    {                                                                                              \
        return kHost->channelName(family, file, channel);                                          \
    }                                                                                              \
    READER_EXPORT const char* prefix##channel_units(int file, int channel)                         \
    {                                                                                              \
        return kHost->channelUnits(family, file, channel);                                         \
    }                                                                                              \
    READER_EXPORT int prefix##channel_samples_count(int file, int channel)                         \
    {                                                                                              \
        return kHost->sampleCount(family, file, channel);                                          \
    }                                                                                              \
    READER_EXPORT int prefix##channel_samples(int file, int channel, double* times,                \
                                              double* values, int count)                           \
    {                                                                                              \
        return kHost->samples(family, file, channel, times, values, count);                        \
    }

FAMILY(get_, ReaderHost::kPlain)
FAMILY(get_GPS_, ReaderHost::kGps)
FAMILY(get_GPS_raw_, ReaderHost::kGpsRaw)

// NOLINTEND(readability-identifier-naming)
