#pragma once

/// The receiving end of the scripted reader library: an object of the test's own process to which
/// the library forwards every call, so that a test scripts a whole reader without leaving its own
/// source file. The library finds it through an environment variable at the moment it is loaded;
/// the object must outlive the library. Needs no Qt.
class ReaderHost
{
public:
    enum Family
    {
        kPlain,
        kGps,
        kGpsRaw,
        kFamilies
    };

    /// Holds the object's address, as printf writes a pointer, while a library may be loaded.
    static constexpr const char* kAddressVariable = "GAUGEWRIGHT_READER_HOST";

    virtual ~ReaderHost() = default;

    virtual void loaded() = 0;         ///< the library was loaded
    virtual void unloaded() = 0;       ///< the library is being unloaded
    virtual void unexpectedCall() = 0; ///< an export was called that the editor only resolves

    virtual int openFile(const char* path) = 0;
    virtual int closeFile(int file) = 0;
    virtual int channelCount(Family family, int file) = 0;
    virtual const char* channelName(Family family, int file, int channel) = 0;
    virtual const char* channelUnits(Family family, int file, int channel) = 0;
    virtual int sampleCount(Family family, int file, int channel) = 0;
    virtual int samples(Family family, int file, int channel, double* times, double* values,
                        int count) = 0;
};
