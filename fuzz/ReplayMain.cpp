// Runs a fuzz target on its seeds and on recorded inputs, or writes the seeds for a fuzzer.
//
//     TARGET_replay [FILE OR FOLDER]...      run the seeds, then the files
//     TARGET_replay --write-seeds FOLDER     write every seed into the folder

#include "fuzz/FuzzTarget.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstring>

namespace {

void run(const QByteArray& input)
{
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.constData()),
                           static_cast<std::size_t>(input.size()));
}

int writeSeeds(const QDir& folder)
{
    int number = 0;
    for (const QByteArray& seed : fuzzSeeds()) {
        QFile file(folder.filePath(QStringLiteral("seed-%1").arg(number++)));
        if (!file.open(QIODevice::WriteOnly) || file.write(seed) != seed.size())
            return 1;
    }
    return 0;
}

bool replayFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    std::printf("%s\n", qPrintable(path));
    std::fflush(stdout); // names the culprit when the next line ends the process
    run(file.readAll());
    return true;
}

/// A folder that does not exist holds no recorded inputs yet.
bool replay(const QString& path)
{
    if (!QFileInfo(path).isDir())
        return !QFileInfo::exists(path) || replayFile(path);
    bool ok = true;
    const QDir folder(path);
    for (const QString& name : folder.entryList(QDir::Files, QDir::Name))
        ok = replayFile(folder.filePath(name)) && ok;
    return ok;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 3 && std::strcmp(argv[1], "--write-seeds") == 0)
        return writeSeeds(QDir(QFile::decodeName(argv[2])));
    for (const QByteArray& seed : fuzzSeeds())
        run(seed);
    bool ok = true;
    for (int i = 1; i < argc; ++i)
        ok = replay(QFile::decodeName(argv[i])) && ok;
    return ok ? 0 : 1;
}
