// Packages that other tools wrote, saved and read back by other tools.

#include "document/DashboardDocument.h"
#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"

#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <random>

namespace {

struct Writer
{
    std::string title;
    QString program;
    QStringList arguments; ///< "@" is the archive; it runs in the folder to pack
};

std::ostream& operator<<(std::ostream& out, const Writer& writer)
{
    return out << writer.title;
}

/// Packs a folder with all that the format can say about a member.
const char* const kPythonWriter = R"(
import os, random, sys, zipfile
random.seed(len(sys.argv[1]))
with zipfile.ZipFile(sys.argv[1], 'w') as package:
    for folder, _, files in os.walk('.'):
        for name in files + ['.']:
            path = os.path.normpath(os.path.join(folder, name))
            date = (random.randint(1980, 2107), 2, 28, 23, 59, 58)
            info = zipfile.ZipInfo(path + '/' if name == '.' else path, date)
            info.compress_type = random.choice([zipfile.ZIP_STORED, zipfile.ZIP_DEFLATED])
            info.external_attr = random.choice([0, 0o100640 << 16, 1])
            info.comment = random.choice([b'', b'note', b'a\0b'])
            info.extra = random.choice([b'', b'xx\4\0data'])
            content = b'' if name == '.' else open(path, 'rb').read()
            if path != '.':
                with package.open(info, 'w', force_zip64=random.random() < 0.5) as member:
                    member.write(content)
    package.comment = b'comment\0of the package'
)";

/// Prints what the archive says about every member, the overlay apart.
const char* const kPythonReader = R"(
import struct, sys, zipfile
def without_wide_sizes(extra):
    kept = b''
    while len(extra) >= 4:
        kind, size = struct.unpack('<HH', extra[:4])
        kept += extra[:4 + size] if kind != 1 else b''
        extra = extra[4 + size:]
    return kept + extra
with zipfile.ZipFile(sys.argv[1]) as package:
    print(package.testzip(), package.comment)
    for i in package.infolist():
        overlay = i.filename.endswith('overlay.ov3.xml')
        print(i.orig_filename, i.create_system, i.create_version, i.external_attr, i.comment)
        if not overlay:
            print(i.date_time, i.internal_attr, i.compress_type, i.flag_bits & ~8, i.CRC,
                  i.compress_size, i.file_size, without_wide_sizes(i.extra))
)";

std::vector<Writer> writers()
{
    const QString archive = QStringLiteral("@");
    const auto words = [](const char* text) { return QString::fromLatin1(text).split(u' '); };
    return {{"Python",
             QStringLiteral("python3"),
             {QStringLiteral("-c"), QString::fromLatin1(kPythonWriter), archive}},
            {"Zip", QStringLiteral("zip"), words("-q -r @ .")},
            {"ZipStoresOnly", QStringLiteral("zip"), words("-q -r -0 -X @ .")},
            {"ZipWithWideSizes", QStringLiteral("zip"), words("-q -r -fz -9 @ .")},
            {"SevenZip", QStringLiteral("7z"), words("a -tzip -bd -mx=9 @ .")},
            {"Bsdtar", QStringLiteral("bsdtar"), words("-c --format zip -f @ .")}};
}

/// So many that the overlay is deflated in several blocks.
std::vector<TestPackage::Object> manyElements()
{
    std::vector<TestPackage::Object> elements;
    for (int i = 0; i < 600; ++i)
        elements.push_back(
            TestPackage::digitElement("mask." + QByteArray::number(i), i, i * i % 400, 30, 10));
    return elements;
}

class OtherToolsTest : public testing::TestWithParam<Writer>
{
protected:
    void SetUp() override
    {
        for (const char* const tool : {"python3", "zip", "unzip", "7z", "bsdtar"}) {
            if (QStandardPaths::findExecutable(QString::fromLatin1(tool)).isEmpty())
                GTEST_SKIP() << tool << " is not installed";
        }
    }

    /// Runs a program in a folder. @return its output
    static QByteArray run(const QString& folder, const QString& program, QStringList arguments,
                          const QString& archive)
    {
        for (QString& argument : arguments) {
            if (argument == QStringLiteral("@"))
                argument = archive;
        }
        QProcess process;
        process.setWorkingDirectory(folder);
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForFinished());
        const QByteArray output = process.readAllStandardOutput();
        EXPECT_EQ(process.exitCode(), 0)
            << output.toStdString() << process.readAllStandardError().toStdString();
        return output;
    }

    [[nodiscard]] QByteArray described(const QString& archive) const
    {
        return run(m_world.path(), QStringLiteral("python3"),
                   {QStringLiteral("-c"), QString::fromLatin1(kPythonReader), archive}, {});
    }

    void expectToolsAccept(const QString& archive) const
    {
        const QString folder = m_world.path();
        run(folder, QStringLiteral("unzip"), {QStringLiteral("-tqq"), archive}, {});
        run(folder, QStringLiteral("7z"), {QStringLiteral("t"), archive}, {});
        run(folder, QStringLiteral("zip"), {QStringLiteral("-T"), archive}, {});
        run(folder, QStringLiteral("bsdtar"), {QStringLiteral("-tf"), archive}, {});
    }

    /// Files of any content in folders of any depth, hidden ones and an empty folder too.
    void makeFolder(unsigned seed)
    {
        std::minstd_rand random(seed);
        const QStringList names{QStringLiteral("a.png"), QStringLiteral(".hidden"),
                                QStringLiteral("f/b"),   QString::fromUtf8("f/\xC3\xA9 x/c"),
                                QStringLiteral(".g/d"),  QStringLiteral("empty")};
        for (const QString& name : names) {
            QByteArray content(static_cast<qsizetype>(random() % 3000), 'x');
            for (qsizetype i = 0; i < content.size(); i += 1 + qsizetype(random() % 9))
                content[i] = static_cast<char>(random());
            TestPackage::writeFile(m_source + u'/' + name,
                                   name == names.last() ? QByteArray() : content);
        }
        QDir().mkpath(m_source + QStringLiteral("/empty folder"));
        using namespace TestPackage;
        writeFile(m_source + QStringLiteral("/layout/overlay.ov3.xml"),
                  overlayXml({page("Race", 800, 480, manyElements())}));
    }

    QTemporaryDir m_world{FolderTools::memoryTemplate()};
    QString m_source = m_world.filePath(QStringLiteral("source"));
};

std::string titleOf(const testing::TestParamInfo<Writer>& writer)
{
    return writer.param.title;
}

} // namespace

TEST_P(OtherToolsTest, ReadBackWhatTheyWrote)
{
    constexpr unsigned kRounds = 4;
    for (unsigned seed = 1; seed <= kRounds && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        makeFolder(seed);
        const QString path =
            m_world.filePath(QString(static_cast<int>(seed), u'p') + QStringLiteral(".zip"));
        run(m_source, GetParam().program, GetParam().arguments, path);
        DashboardDocument document;
        ASSERT_TRUE(document.open(path));
        EXPECT_EQ(FolderTools::contents(document.tempDir()), FolderTools::contents(m_source));
        const QString saved = m_world.filePath(QStringLiteral("saved.zip"));
        for (const int x : {77, 78}) { // the second save uses what the first one deflated
            document.pageAt(0)->elements.at(0).x = x;
            ASSERT_TRUE(document.save(saved));
        }
        FolderTools::remove(document.tempDir());
        expectToolsAccept(saved);
        EXPECT_EQ(described(saved).toStdString(), described(path).toStdString());
    }
}

INSTANTIATE_TEST_SUITE_P(Writers, OtherToolsTest, testing::ValuesIn(writers()), titleOf);
