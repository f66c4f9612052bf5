// Unpacks arbitrary bytes as a package, in memory-backed folders. Nothing may be written outside
// the unpack folder, nothing may become a symbolic link, and a save must make a package that
// unpacks to the same files.

#include "document/archive/OpenedPackage.h"
#include "fuzz/FuzzTarget.h"
#include "tests/support/AwkwardArchives.h"
#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <sys/resource.h>

namespace {

constexpr rlim_t kLargestFile = rlim_t{256} * 1024;

/// Keeps an input that inflates to gigabytes from filling the memory; the writes fail instead.
void limitFileSize()
{
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{kLargestFile, kLargestFile};
    setrlimit(RLIMIT_FSIZE, &limit);
}

/// The most that a save can write; members may share their data in the archive, but not in what is
/// saved.
quint64 largestSave(const QString& archive)
{
    constexpr quint64 kRecords = 200;
    QFile file(archive);
    ArchiveDirectory directory;
    FUZZ_REQUIRE(file.open(QIODevice::ReadOnly) && readDirectory(file, directory));
    quint64 total = 0;
    for (const ArchiveMember& member : directory.members)
        total += kRecords + 3 * static_cast<quint64>(member.rawName.size()) + member.packedSize +
                 member.size;
    return total;
}

void requireSavesTheSame(OpenedPackage& package, const QString& unpacked, const QString& archive,
                         const QString& saved, const QString& again)
{
    if (!package.save(unpacked, saved)) {
        FUZZ_REQUIRE(largestSave(archive) > static_cast<quint64>(kLargestFile / 4));
        return;
    }
    FUZZ_REQUIRE(bool(OpenedPackage().unpack(saved, again)));
    FUZZ_REQUIRE(FolderTools::contents(again) == FolderTools::contents(unpacked));
}

} // namespace

std::vector<QByteArray> fuzzSeeds()
{
    std::vector<QByteArray> seeds;
    for (const AwkwardArchive& archive : awkwardArchives())
        seeds.push_back(archive.bytes);
    return seeds;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const bool limited = (limitFileSize(), true);
    Q_UNUSED(limited);
    const QTemporaryDir folder(FolderTools::memoryTemplate());
    const QString archive = folder.filePath(QStringLiteral("input"));
    const QString out = folder.filePath(QStringLiteral("out"));
    FUZZ_REQUIRE(TestPackage::writeFile(
        archive, QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size))));
    FUZZ_REQUIRE(QDir().mkdir(out));

    OpenedPackage package;
    const bool unpacked = bool(package.unpack(archive, out));
    FUZZ_REQUIRE(FolderTools::names(folder.path()).size() == 2);
    FUZZ_REQUIRE(!FolderTools::holdsSymbolicLink(out));
    if (unpacked) {
        const QString again = folder.filePath(QStringLiteral("again"));
        FUZZ_REQUIRE(QDir().mkdir(again));
        requireSavesTheSame(package, out, archive, folder.filePath(QStringLiteral("saved")), again);
    }
    return 0;
}
