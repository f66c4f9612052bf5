#include "tests/support/ScriptedReader.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>

namespace {

constexpr std::array<const char*, ReaderHost::kFamilies> kPrefixes = {"get_", "get_GPS_",
                                                                      "get_GPS_raw_"};

void setHostAddress(const std::string& address)
{
#ifdef _WIN32
    _putenv_s(ReaderHost::kAddressVariable, address.c_str());
#else
    setenv(ReaderHost::kAddressVariable, address.c_str(), 1);
#endif
}

std::string call(ReaderHost::Family family, const char* name, int file)
{
    return std::string(kPrefixes[family]) + name + "(" + std::to_string(file) + ")";
}

std::string call(ReaderHost::Family family, const char* name, int file, int channel)
{
    return std::string(kPrefixes[family]) + name + "(" + std::to_string(file) + "," +
           std::to_string(channel) + ")";
}

std::string readAll(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// Loaders find an export by comparing whole names. The last letter becomes a byte below every
// letter, so that a table sorted by name stays sorted.
void hideExport(std::string& image, const std::string& name)
{
    const std::string entry = '\0' + name + '\0';
    for (std::size_t at = image.find(entry); at != std::string::npos;
         at = image.find(entry, at + 1))
        image[at + name.size()] = '\x01';
}

} // namespace

ScriptedReader::ScriptedReader()
{
    std::array<char, 32> address{};
    std::snprintf(address.data(), address.size(), "%p",
                  static_cast<void*>(static_cast<ReaderHost*>(this)));
    setHostAddress(address.data());
}

ScriptedReader::~ScriptedReader()
{
    setHostAddress({});
    std::error_code ignored;
    if (!m_copies.empty())
        std::filesystem::remove_all(m_copies, ignored);
}

std::ptrdiff_t ScriptedReader::calls(const std::string& entry) const
{
    return std::count(log.begin(), log.end(), entry);
}

std::string ScriptedReader::path()
{
    return SCRIPTED_READER_LIBRARY;
}

std::string ScriptedReader::libraryWithout(const std::vector<std::string>& exports)
{
    namespace fs = std::filesystem;
    if (m_copies.empty()) {
        m_copies = fs::temp_directory_path() /
                   ("scripted-reader-" + std::to_string(std::random_device()()));
        fs::create_directories(m_copies);
    }
    std::string image = readAll(path());
    for (const std::string& name : exports)
        hideExport(image, name);

    const fs::path copy =
        m_copies / (std::to_string(m_copyCount++) + fs::path(path()).extension().string());
    std::ofstream(copy, std::ios::binary)
        .write(image.data(), static_cast<std::streamsize>(image.size()));
    return copy.generic_string();
}

void ScriptedReader::loaded()
{
    log.emplace_back("loaded");
}

void ScriptedReader::unloaded()
{
    log.emplace_back("unloaded");
}

void ScriptedReader::unexpectedCall()
{
    log.emplace_back("unexpected");
}

int ScriptedReader::openFile(const char* path)
{
    logCall(std::string("open_file(") + path + ")");
    return fileIndex;
}

int ScriptedReader::closeFile(int file)
{
    logCall("close_file_i(" + std::to_string(file) + ")");
    return 0;
}

int ScriptedReader::channelCount(Family family, int file)
{
    logCall(call(family, "channels_count", file));
    return claimedChannelCounts[family].value_or(static_cast<int>(channels[family].size()));
}

const char* ScriptedReader::channelName(Family family, int file, int channel)
{
    logCall(call(family, "channel_name", file, channel));
    const ScriptedChannel* const found = find(family, channel);
    return found != nullptr ? text(found->name) : nullptr;
}

const char* ScriptedReader::channelUnits(Family family, int file, int channel)
{
    logCall(call(family, "channel_units", file, channel));
    const ScriptedChannel* const found = find(family, channel);
    return found != nullptr ? text(found->units) : nullptr;
}

int ScriptedReader::sampleCount(Family family, int file, int channel)
{
    logCall(call(family, "channel_samples_count", file, channel));
    const ScriptedChannel* const found = find(family, channel);
    if (found == nullptr)
        return -1;
    return found->claimedCount.value_or(static_cast<int>(found->times.size()));
}

int ScriptedReader::samples(Family family, int file, int channel, double* times, double* values,
                            int count)
{
    logCall(call(family, "channel_samples", file, channel));
    const ScriptedChannel* const found = find(family, channel);
    if (found == nullptr)
        return -1;
    const auto delivered = std::min<std::ptrdiff_t>(count, std::ssize(found->times));
    std::copy_n(found->times.begin(), delivered, times);
    std::copy_n(found->values.begin(), delivered, values);
    return static_cast<int>(delivered);
}

const ScriptedChannel* ScriptedReader::find(Family family, int channel) const
{
    const std::vector<ScriptedChannel>& all = channels[family];
    return channel >= 0 && channel < std::ssize(all) ? &all[static_cast<std::size_t>(channel)]
                                                     : nullptr;
}

const char* ScriptedReader::text(const std::optional<std::string>& text)
{
    if (!text || !sharesOneTextBuffer)
        return text ? text->c_str() : nullptr;
    text->copy(m_textBuffer.data(), m_textBuffer.size() - 1);
    return m_textBuffer.data();
}

void ScriptedReader::logCall(const std::string& entry)
{
    m_textBuffer.fill('\0');
    log.push_back(entry);
}
