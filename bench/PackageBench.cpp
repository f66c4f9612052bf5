// Opening, showing and saving the large sample, next to the least that any program would have to do
// with the same libraries. Runs in memory-backed folders where there are any, so that the processor
// is measured and not the disk.

#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "document/DashboardDocument.h"
#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QPixmap>
#include <QProcess>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <pugixml.hpp>
#include <unzip.h>
#include <zip.h>
#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

namespace {

/// The large sample, and what a floor needs to know about it.
struct Material
{
    QTemporaryDir folder;
    QString package = folder.filePath(QStringLiteral("large.zconf2"));
    QString overlay;    ///< path below the unpack folder
    QStringList images; ///< likewise, of the pages that have one
    std::map<QString, QByteArray>
        savedMembers; ///< as the editor writes them: the XML is re-indented

    Material()
    {
        DashboardDocument document;
        const QString resaved = folder.filePath(QStringLiteral("resaved.zconf2"));
        if (!QFile::copy(QStringLiteral(LARGE_SAMPLE), package) || !document.open(package) ||
            !document.save(resaved))
            qFatal("the large sample cannot be used");
        const QDir root(document.tempDir());
        overlay = root.relativeFilePath(document.overlayPath());
        for (const DashPage& page : document.pages()) {
            if (!page.imagePath.isEmpty())
                images.append(root.relativeFilePath(page.imagePath));
        }
        savedMembers = TestPackage::readPackage(resaved);
        FolderTools::remove(document.tempDir());
    }
};

const Material& material()
{
    static const Material instance;
    return instance;
}

/// With the least of all repetitions beside their median: what else the machine does only adds
/// time.
void inMilliseconds(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Unit(benchmark::kMillisecond)
        ->ComputeStatistics("least", [](const std::vector<double>& times) {
            return *std::min_element(times.begin(), times.end());
        });
}

/// The name of the current member.
QByteArray currentName(unzFile archive)
{
    std::array<char, 512> name{};
    unzGetCurrentFileInfo64(archive, nullptr, name.data(), name.size() - 1, nullptr, 0, nullptr, 0);
    return name.data();
}

void inflateCurrent(unzFile archive, const std::string& folder)
{
    unzOpenCurrentFile(archive);
    const std::string path = folder + '/' + currentName(archive).toStdString();
    QDir().mkpath(QFileInfo(QString::fromStdString(path)).path());
    std::FILE* file = std::fopen(path.c_str(), "wb");
    std::array<char, 8192> chunk{};
    for (int count = 0; (count = unzReadCurrentFile(archive, chunk.data(), chunk.size())) > 0;)
        std::fwrite(chunk.data(), 1, static_cast<std::size_t>(count), file);
    std::fclose(file);
    unzCloseCurrentFile(archive);
}

void openFloor(benchmark::State& state)
{
    const QByteArray package = QFile::encodeName(material().package);
    for ([[maybe_unused]] const auto iteration : state) {
        const QTemporaryDir folder;
        const std::string path = folder.path().toStdString();
        unzFile archive = unzOpen64(package.constData());
        for (int status = unzGoToFirstFile(archive); status == UNZ_OK;
             status = unzGoToNextFile(archive))
            inflateCurrent(archive, path);
        unzClose(archive);
        pugi::xml_document overlay;
        if (!overlay.load_file(folder.filePath(material().overlay).toLocal8Bit().constData()))
            state.SkipWithError("the overlay does not parse");
        std::vector<QPixmap> images;
        for (const QString& image : material().images)
            images.emplace_back(folder.filePath(image));
        benchmark::DoNotOptimize(images);
        state.PauseTiming();
        FolderTools::remove(folder.path());
        state.ResumeTiming();
    }
}
BENCHMARK(openFloor)->Apply(inMilliseconds);

void openPackage(benchmark::State& state)
{
    for ([[maybe_unused]] const auto iteration : state) {
        DashboardDocument document;
        if (!document.open(material().package))
            state.SkipWithError("the package does not open");
        state.PauseTiming();
        FolderTools::remove(document.tempDir());
        state.ResumeTiming();
    }
}
BENCHMARK(openPackage)->Apply(inMilliseconds);

/// The subcommand in this process: opens as openPackage does, with the images, and removes the
/// folder.
void showPackage(benchmark::State& state)
{
    for ([[maybe_unused]] const auto iteration : state) {
        QBuffer answer;
        QBuffer errors;
        answer.open(QIODevice::WriteOnly);
        errors.open(QIODevice::WriteOnly);
        Console console(answer, errors, false);
        if (CommandLine::run({QStringLiteral("show"), material().package}, console) !=
                ExitStatus::Clean ||
            !console.flush())
            state.SkipWithError("the package cannot be shown");
    }
}
BENCHMARK(showPackage)->Apply(inMilliseconds);

/// What a script waits for: the program from start to end. It decodes no images.
void showProgram(benchmark::State& state)
{
    QProcess program;
    program.setStandardOutputFile(QProcess::nullDevice());
    for ([[maybe_unused]] const auto iteration : state) {
        program.start(QStringLiteral(CLI_PROGRAM), {QStringLiteral("show"), material().package});
        if (!program.waitForFinished() || program.exitCode() != 0)
            state.SkipWithError("the program fails");
    }
}
BENCHMARK(showProgram)->Apply(inMilliseconds)->UseRealTime();

void deflate(zipFile archive, const QByteArray& name, const QByteArray& content)
{
    const zip_fileinfo info{};
    zipOpenNewFileInZip(archive, name.constData(), &info, nullptr, 0, nullptr, 0, nullptr,
                        Z_DEFLATED, Z_DEFAULT_COMPRESSION);
    zipWriteInFileInZip(archive, content.constData(), static_cast<unsigned>(content.size()));
    zipCloseFileInZip(archive);
}

/// Deflates everything, as a program must that does not know what has changed.
void saveFloorDeflatingAll(benchmark::State& state)
{
    const QByteArray path =
        QFile::encodeName(material().folder.filePath(QStringLiteral("floor.zconf2")));
    for ([[maybe_unused]] const auto iteration : state) {
        zipFile archive = zipOpen64(path.constData(), APPEND_STATUS_CREATE);
        for (const auto& [name, content] : material().savedMembers)
            deflate(archive, name.toUtf8(), content);
        if (zipClose(archive, nullptr) != ZIP_OK)
            state.SkipWithError("the archive cannot be written");
    }
}
BENCHMARK(saveFloorDeflatingAll)->Apply(inMilliseconds);

/// Writes the overlay's XML, deflates it and copies the archive's other bytes.
void saveFloorCopying(benchmark::State& state)
{
    const QByteArray xmlPath =
        QFile::encodeName(material().folder.filePath(QStringLiteral("floor.xml")));
    const QByteArray path =
        QFile::encodeName(material().folder.filePath(QStringLiteral("floor.zconf2")));
    const QByteArray xml = material().savedMembers.at(material().overlay);
    pugi::xml_document overlay;
    overlay.load_buffer(xml.constData(), static_cast<std::size_t>(xml.size()));
    for ([[maybe_unused]] const auto iteration : state) {
        if (!overlay.save_file(xmlPath.constData(), "  "))
            state.SkipWithError("the overlay cannot be written");
        const QByteArray written = TestPackage::readFile(QFile::decodeName(xmlPath));
        uLongf packed = compressBound(static_cast<uLong>(written.size()));
        std::vector<Bytef> deflated(packed);
        compress(deflated.data(), &packed, reinterpret_cast<const Bytef*>(written.constData()),
                 static_cast<uLong>(written.size()));
        const QByteArray archive = TestPackage::readFile(material().package);
        std::FILE* file = std::fopen(path.constData(), "wb");
        std::fwrite(archive.constData(), 1, static_cast<std::size_t>(archive.size()) - packed,
                    file);
        std::fwrite(deflated.data(), 1, packed, file);
        std::fclose(file);
    }
}
BENCHMARK(saveFloorCopying)->Apply(inMilliseconds);

/// One edit and a save. False when that fails.
bool editAndSave(DashboardDocument& document)
{
    ++document.pageAt(0)->elements.at(0).x;
    return document.save(material().folder.filePath(QStringLiteral("saved.zconf2")));
}

/// The first save after opening, which has to deflate the whole overlay.
void saveFirst(benchmark::State& state)
{
    for ([[maybe_unused]] const auto iteration : state) {
        state.PauseTiming();
        DashboardDocument document;
        const bool opened = document.open(material().package);
        state.ResumeTiming();
        if (!opened || !editAndSave(document))
            state.SkipWithError("the package cannot be saved");
        state.PauseTiming();
        FolderTools::remove(document.tempDir());
        state.ResumeTiming();
    }
}
BENCHMARK(saveFirst)->Apply(inMilliseconds);

/// Every further one.
void saveAgain(benchmark::State& state)
{
    DashboardDocument document;
    if (!document.open(material().package) || !editAndSave(document))
        state.SkipWithError("the package cannot be saved");
    for ([[maybe_unused]] const auto iteration : state) {
        if (!editAndSave(document))
            state.SkipWithError("the package cannot be saved");
    }
    FolderTools::remove(document.tempDir());
}
BENCHMARK(saveAgain)->Apply(inMilliseconds);

} // namespace

int main(int argc, char** argv)
{
    if (QFileInfo(QStringLiteral("/dev/shm")).isWritable())
        qputenv("TMPDIR", "/dev/shm");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
