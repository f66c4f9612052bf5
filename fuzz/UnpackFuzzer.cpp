// Unpacks arbitrary bytes as a package, in memory-backed folders. Nothing may be written outside
// the unpack folder, nothing may become a symbolic link, and what was unpacked must pack and unpack
// again to the same files.

#include "document/DashboardPackage.h"
#include "fuzz/FuzzTarget.h"
#include "tests/support/AwkwardArchives.h"
#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"

#include <QDir>
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

void requireSavesTheSame(const QString& unpacked, const QString& archive, const QString& again)
{
    const auto files = FolderTools::visible(FolderTools::contents(unpacked));
    qsizetype total = 0;
    for (const auto& [path, content] : files)
        total += content.size() + path.size();
    if (!DashboardPackage::packDirectory(unpacked, archive)) {
        FUZZ_REQUIRE(total > static_cast<qsizetype>(kLargestFile / 4));
        return;
    }
    FUZZ_REQUIRE(DashboardPackage::unpackArchive(archive, again));
    FUZZ_REQUIRE(FolderTools::contents(again) == files);
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

    const bool unpacked = DashboardPackage::unpackArchive(archive, out);
    FUZZ_REQUIRE(FolderTools::names(folder.path()).size() == 2);
    FUZZ_REQUIRE(!FolderTools::holdsSymbolicLink(out));
    if (unpacked) {
        const QString again = folder.filePath(QStringLiteral("again"));
        FUZZ_REQUIRE(QDir().mkdir(again));
        requireSavesTheSame(out, folder.filePath(QStringLiteral("saved")), again);
    }
    return 0;
}
