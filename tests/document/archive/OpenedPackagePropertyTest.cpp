// What comes back from a save, for random archives and random changes in the unpack folder.

#include "document/archive/LittleEndian.h"
#include "document/archive/OpenedPackage.h"
#include "tests/support/ByteSource.h"
#include "tests/support/FolderTools.h"
#include "tests/support/PackageBuilder.h"
#include "tests/support/RawArchive.h"
#include "tests/support/SavedArchive.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cstdint>
#include <set>
#include <vector>

namespace {

using RawArchive::Member;

QByteArray bytesOf(ByteSource& source, int most)
{
    QByteArray bytes(source.below(most + 1), '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(source.byte());
    return bytes;
}

/// Few enough names that some occur twice.
QByteArray randomName(ByteSource& source)
{
    static const std::vector<QByteArray> kNames{
        "overlay.ov3.xml", "a.png", ".hidden", "f/b",         ".f/c", "\xE8", "\xE9",
        "\xC3\xA9",        "e/",    "./a.png", "e/deep/file", "x y"};
    return kNames[static_cast<std::size_t>(source.below(static_cast<int>(kNames.size())))];
}

QByteArray randomField(ByteSource& source)
{
    if (source.flag())
        return {};
    const QByteArray value = bytesOf(source, 5);
    QByteArray field("xx");
    LittleEndian::append(field, static_cast<quint16>(value.size()));
    return field + value;
}

Member randomMember(ByteSource& source)
{
    Member member{randomName(source), {}};
    const bool folder = member.name.endsWith('/');
    if (!folder)
        member.content = bytesOf(source, 200).repeated(1 + source.below(100));
    member.method = folder || source.flag() ? RawArchive::kStored : RawArchive::kDeflate;
    member.flags = static_cast<quint16>(source.flag() ? RawArchive::kDataDescriptor : 0);
    member.date = static_cast<quint32>(source.number());
    member.madeBy = static_cast<quint16>(source.number());
    member.attributes = static_cast<quint32>(source.number()) & ~0x10U; // marks no folder
    member.internalAttributes = source.byte();
    member.comment = bytesOf(source, 9);
    member.otherField = randomField(source);
    member.wideSizes = source.flag();
    member.plainLocal = source.flag();
    return member;
}

RawArchive::Archive randomArchive(ByteSource& source)
{
    RawArchive::Archive archive;
    for (int i = source.below(9); i > 0; --i)
        archive.members.push_back(randomMember(source));
    archive.before = bytesOf(source, 20);
    archive.comment = bytesOf(source, 20);
    archive.wideEnd = source.flag();
    return archive;
}

/// Of up to 400,000 bytes in lines.
QByteArray randomText(ByteSource& source)
{
    QByteArray text;
    const int step = source.number() | 1;
    for (qsizetype size = qsizetype{1600} * source.below(256); text.size() < size;)
        text += "line " + QByteArray::number(text.size() / 7 * step) + '\n';
    return text;
}

/// Takes a piece out of a text and puts another one in.
void editText(ByteSource& source, QByteArray& text)
{
    const qsizetype at = (256 * source.byte() + source.byte()) * text.size() / 65'536;
    const QByteArray piece(source.below(40) * source.below(40), source.flag() ? '\n' : 'x');
    text.replace(at, source.below(100) * source.below(100), piece);
}

/// An unpacked archive, and what was done to its folder.
struct World
{
    QTemporaryDir root{FolderTools::memoryTemplate()};
    QString path = root.filePath(QStringLiteral("a"));
    QString saved = root.filePath(QStringLiteral("b"));
    QString folder = root.filePath(QStringLiteral("f"));
    OpenedPackage package;
    SavedArchive before;
    std::map<QString, QByteArray> changed;
    std::set<QString> removed;

    explicit World(ByteSource& source)
    {
        TestPackage::writeFile(path, RawArchive::build(randomArchive(source)));
        const Outcome opened = package.unpack(path, folder);
        RC_ASSERT(opened.reason().toStdString() == std::string());
        before = SavedArchive(path);
    }

    void change(ByteSource& source)
    {
        for (const auto& [name, content] : FolderTools::contents(folder)) {
            const int choice = source.below(4);
            if (choice == 1)
                changed[name] = content + "!";
            else if (choice == 2)
                removed.insert(name);
        }
        if (source.flag())
            changed[QStringLiteral("new")] = "new";
        for (const auto& [name, content] : changed)
            TestPackage::writeFile(folder + u'/' + name, content);
        for (const QString& name : removed)
            QFile::remove(folder + u'/' + name);
    }
};

ByteSource sourceOf(const std::vector<std::uint8_t>& bytes)
{
    return ByteSource(bytes);
}

std::vector<std::uint8_t> randomBytes()
{
    return *rc::gen::scale(20.0, rc::gen::arbitrary<std::vector<std::uint8_t>>());
}

} // namespace

RC_GTEST_PROP(OpenedPackageProperty, NothingChangedNothingChanges, ())
{
    const auto bytes = randomBytes();
    ByteSource source = sourceOf(bytes);
    World world(source);
    RC_ASSERT(bool(world.package.save(world.folder, world.saved)));
    const SavedArchive after(world.saved);
    RC_ASSERT(after.isWhole());
    RC_ASSERT(after.members() == world.before.members());
    RC_ASSERT(after.comment() == world.before.comment());
}

RC_GTEST_PROP(OpenedPackageProperty, OnlyChangedFilesChange, ())
{
    const auto bytes = randomBytes();
    ByteSource source = sourceOf(bytes);
    World world(source);
    auto expected = FolderTools::contents(world.folder);
    world.change(source);
    for (const auto& [name, content] : world.changed)
        expected[name] = content;
    RC_ASSERT(bool(world.package.save(world.folder, world.saved)));
    const SavedArchive after(world.saved);
    RC_ASSERT(after.isWhole());
    std::size_t differing = 0;
    for (std::size_t i = 0; i < world.before.members().size(); ++i)
        differing += after.members().at(i) == world.before.members()[i] ? 0 : 1;
    const std::size_t isNew = world.changed.contains(QStringLiteral("new")) ? 1 : 0;
    RC_ASSERT(after.members().size() == world.before.members().size() + isNew);
    RC_ASSERT(differing == world.changed.size() - isNew);
    const QString again = world.root.filePath(QStringLiteral("again"));
    RC_ASSERT(bool(OpenedPackage().unpack(world.saved, again)));
    RC_ASSERT(FolderTools::contents(again) == expected);
}

RC_GTEST_PROP(OpenedPackageProperty, WithoutThePackageTheFolderIsSavedOrNothing, ())
{
    const auto bytes = randomBytes();
    ByteSource source = sourceOf(bytes);
    World world(source);
    world.change(source);
    QFile::remove(world.path);
    const bool saved = bool(world.package.save(world.folder, world.saved));
    RC_ASSERT(saved == world.removed.empty());
    RC_ASSERT(QFile::exists(world.saved) == saved);
    if (saved) {
        const QString again = world.root.filePath(QStringLiteral("again"));
        RC_ASSERT(SavedArchive(world.saved).isWhole());
        RC_ASSERT(bool(OpenedPackage().unpack(world.saved, again)));
        RC_ASSERT(FolderTools::contents(again) == FolderTools::contents(world.folder));
    }
}

RC_GTEST_PROP(OpenedPackageProperty, DamagedPackagesAreRefusedOrSavedWhole, ())
{
    const auto bytes = randomBytes();
    ByteSource source = sourceOf(bytes);
    QByteArray archive = RawArchive::build(randomArchive(source));
    for (int i = source.below(3); i >= 0 && !archive.isEmpty(); --i)
        archive[(256 * source.byte() + source.byte()) % archive.size()] =
            static_cast<char>(source.byte());
    const QTemporaryDir root(FolderTools::memoryTemplate());
    const QString path = root.filePath(QStringLiteral("a"));
    const QString folder = root.filePath(QStringLiteral("f"));
    TestPackage::writeFile(path, archive);
    OpenedPackage package;
    if (!package.unpack(path, folder) || !package.isComplete())
        return;
    const auto files = FolderTools::contents(folder);
    RC_ASSERT(bool(package.save(folder, path)));
    RC_ASSERT(SavedArchive(path).isWhole());
    const QString again = root.filePath(QStringLiteral("again"));
    RC_ASSERT(bool(OpenedPackage().unpack(path, again)));
    RC_ASSERT(FolderTools::contents(again) == files);
}

RC_GTEST_PROP(OpenedPackageProperty, ASaveIsTheSameWhateverWasSavedBefore, ())
{
    const auto bytes = randomBytes();
    ByteSource source = sourceOf(bytes);
    const QTemporaryDir root(FolderTools::memoryTemplate());
    const QString path = root.filePath(QStringLiteral("a"));
    const QString folder = root.filePath(QStringLiteral("f"));
    const QString file = folder + QStringLiteral("/overlay.ov3.xml");
    QByteArray text = randomText(source);
    TestPackage::writeFile(path, RawArchive::build({Member{"overlay.ov3.xml", text}}));
    OpenedPackage package;
    RC_ASSERT(bool(package.unpack(path, folder)));
    for (int round = source.below(5); round >= 0; --round) {
        editText(source, text);
        TestPackage::writeFile(file, text);
        OpenedPackage fresh;
        RC_ASSERT(bool(fresh.unpack(path, root.filePath(QStringLiteral("g")))));
        const QString expected = root.filePath(QStringLiteral("b"));
        RC_ASSERT(bool(fresh.save(folder, expected)));
        RC_ASSERT(bool(package.save(folder, path)));
        const SavedArchive after(path);
        RC_ASSERT(after.isWhole());
        RC_ASSERT(after.content(0) == text);
        RC_ASSERT(after.directory().members.at(0).packedSize ==
                  SavedArchive(expected).directory().members.at(0).packedSize);
    }
}
