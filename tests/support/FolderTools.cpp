#include "tests/support/FolderTools.h"

#include "tests/support/PackageBuilder.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QStorageInfo>

namespace FolderTools {

namespace {

/// Of the temporary folders in memory; the number of their process follows.
const QString kPrefix = QStringLiteral("gaugewright-test-");

} // namespace

QString memoryTemplate()
{
    static const QString root = [] {
        const QString memory = QStringLiteral("/dev/shm");
        constexpr qint64 kEnough = 1'000'000'000;
        const bool fits =
            QFileInfo(memory).isWritable() && QStorageInfo(memory).bytesAvailable() >= kEnough;
        if (fits)
            removeLeftovers(memory);
        return fits ? memory : QDir::tempPath();
    }();
    return root + u'/' + kPrefix + QString::number(QCoreApplication::applicationPid()) +
           QStringLiteral("-XXXXXX");
}

void removeLeftovers(const QString& root)
{
    const QStringList folders = QDir(root).entryList({kPrefix + u'*'}, QDir::Dirs);
    for (const QString& folder : folders) {
        const QStringList parts = folder.mid(kPrefix.size()).split(u'-');
        if (parts.size() == 2 && !QFileInfo::exists(QStringLiteral("/proc/") + parts[0]))
            remove(root + u'/' + folder);
    }
}

namespace {

constexpr QDir::Filters kEverything =
    QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;

} // namespace

void remove(const QString& folder)
{
    if (!folder.isEmpty())
        QDir(folder).removeRecursively();
}

std::map<QString, QByteArray> contents(const QString& folder)
{
    std::map<QString, QByteArray> files;
    const QDir root(folder);
    QDirIterator all(folder, kEverything, QDirIterator::Subdirectories);
    while (all.hasNext()) {
        const QString path = all.next();
        if (all.fileInfo().isFile())
            files[root.relativeFilePath(path)] = TestPackage::readFile(path);
    }
    return files;
}

std::map<QString, QByteArray> visible(std::map<QString, QByteArray> files)
{
    std::erase_if(files, [](const auto& file) {
        return file.first.startsWith(u'.') || file.first.contains(QStringLiteral("/."));
    });
    return files;
}

QStringList names(const QString& folder)
{
    return QDir(folder).entryList(kEverything, QDir::Name);
}

bool holdsSymbolicLink(const QString& folder)
{
    QDirIterator all(folder, kEverything, QDirIterator::Subdirectories);
    while (all.hasNext()) {
        all.next();
        if (all.fileInfo().isSymLink())
            return true;
    }
    return false;
}

} // namespace FolderTools
