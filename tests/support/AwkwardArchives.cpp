#include "tests/support/AwkwardArchives.h"

#include "tests/support/RawArchive.h"

#include <iterator>

namespace {

using RawArchive::Archive;
using RawArchive::build;
using RawArchive::kDataDescriptor;
using RawArchive::kDosFolder;
using RawArchive::kEncrypted;
using RawArchive::kStored;
using RawArchive::Member;
using Cases = std::vector<AwkwardArchive>;

constexpr quint16 kBzip2 = 12;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

/// Compresses badly, so that what is cut off from its stream shows.
QByteArray noise(int size)
{
    QByteArray bytes;
    quint32 state = 1;
    while (bytes.size() < size) {
        state = state * 1664525U + 1013904223U;
        bytes.append(static_cast<char>(state >> 24U));
    }
    return bytes;
}

Member with(Member member, void (*change)(Member&))
{
    change(member);
    return member;
}

AwkwardArchive refused(const std::string& title, const QByteArray& bytes)
{
    return {title, bytes, false, {}};
}

AwkwardArchive refusedName(const std::string& title, const QByteArray& name)
{
    return refused(title, build({Member{"first.txt", "1"}, Member{name, "x"}}));
}

AwkwardArchive acceptedName(const std::string& title, const QByteArray& name, const char* path)
{
    return {title, build({Member{name, "x"}}), true, {{text(path), "x"}}};
}

Cases climbingNames()
{
    return {refusedName("Parent", "../evil"),
            refusedName("BareParent", ".."),
            refusedName("ParentFolder", "../"),
            refusedName("ClimbsBeyondItsFolder", "a/../../evil"),
            refusedName("ClimbsFromTheDepth", "a/b/../../../evil"),
            refusedName("ClimbsAfterADot", "./../evil"),
            refusedName("ClimbsAfterTwoSlashes", "a//../../evil"),
            refusedName("ClimbsAfterAnInnerDot", "a/./../../evil"),
            refusedName("ClimbsAndComesBack", "../out/evil"),
            refusedName("ClimbsBeforeANul", QByteArray("../evil\0.txt", 12)),
            refusedName("Absolute", "/evil"),
            refusedName("AbsoluteWithTwoSlashes", "//evil"),
            refusedName("AbsoluteFolder", "/evil/"),
            refusedName("Root", "/")};
}

Cases namesThatStayInside()
{
    Cases cases{
        acceptedName("ClimbsButStays", "a/../b.txt", "b.txt"),
        acceptedName("LeadingDot", "./c.txt", "c.txt"),
        acceptedName("InnerDot", "a/./c.txt", "a/c.txt"),
        acceptedName("TwoSlashes", "a//c.txt", "a/c.txt"),
        acceptedName("DotsInNames", "..a/.b/c..d", "..a/.b/c..d"),
        acceptedName("Nul", QByteArray("a.txt\0b", 7), "a.txt"),
        acceptedName("Utf8WithoutFlag", "\xC3\xA9\xE2\x82\xAC.txt", "\xC3\xA9\xE2\x82\xAC.txt"),
        acceptedName("NotUtf8", "\xE9.txt", "\xEF\xBF\xBD.txt")};
#ifdef Q_OS_WIN
    cases.push_back(refusedName("Backslashes", "..\\evil"));
    cases.push_back(refusedName("DriveLetter", "C:/evil"));
    cases.push_back(refusedName("DriveLetterWithoutSlash", "C:evil"));
    cases.push_back(refusedName("Device", "CON"));
    cases.push_back(refusedName("DeviceWithExtension", "images/aux.png"));
    cases.push_back(refusedName("ThreeDots", ".../c.txt"));
    cases.push_back(refusedName("DotAtTheEnd", "a."));
    cases.push_back(refusedName("BlankAtTheEnd", "a/b "));
#else
    cases.push_back(acceptedName("Backslashes", "..\\evil", "..\\evil"));
    cases.push_back(acceptedName("DriveLetter", "C:/evil", "C:/evil"));
    cases.push_back(acceptedName("DriveLetterWithoutSlash", "C:evil", "C:evil"));
    cases.push_back(acceptedName("Device", "CON", "CON"));
    cases.push_back(acceptedName("DeviceWithExtension", "images/aux.png", "images/aux.png"));
    cases.push_back(acceptedName("ThreeDots", ".../c.txt", ".../c.txt"));
    cases.push_back(acceptedName("DotAtTheEnd", "b../a.", "b../a."));
    cases.push_back(acceptedName("BlankAtTheEnd", "a/b ", "a/b "));
#endif
    return cases;
}

Cases namesThatCollide()
{
    return {{"DuplicateNames",
             build({Member{"a.txt", "first, longer"}, Member{"a.txt", "last"}}),
             true,
             {{text("a.txt"), "last"}}},
            {"NamesThatDifferInUnreadableBytes",
             build({Member{"\xE8.txt", "first"}, Member{"\xE9.txt", "last"}}),
             true,
             {{text("\xEF\xBF\xBD.txt"), "last"}}},
            {"NamesThatDifferBehindANul",
             build({Member{QByteArray("a\0b", 3), "first"}, Member{QByteArray("a\0c", 3), "last"}}),
             true,
             {{text("a"), "last"}}},
            {"FileThenFolder",
             build({Member{"x", "file"}, Member{"x/", ""}}),
             true,
             {{text("x"), "file"}}},
            {"FolderInAFile",
             build({Member{"x", "file"}, Member{"x/y/", ""}, Member{"z", "z"}}),
             true,
             {{text("x"), "file"}, {text("z"), "z"}}},
            refused("FolderThenFile", build({Member{"x/", ""}, Member{"x", "file"}})),
            refused("FileThenFileInside", build({Member{"x", "file"}, Member{"x/y", "y"}})),
            refused("FileInsideThenFile", build({Member{"x/y", "y"}, Member{"x", "file"}})),
            refused("EmptyName", build({Member{"", "x"}})),
            refused("OnlyADot", build({Member{".", "x"}})),
            refused("BackToTheTop", build({Member{"a/..", "x"}})),
            {"DotFolder", build({Member{"./", ""}, Member{"a", "x"}}), true, {{text("a"), "x"}}}};
}

Cases symbolicLinks()
{
    const Member link = with({"link", "/etc"}, [](Member& member) {
        member.madeBy = RawArchive::kMadeOnUnix;
        member.attributes = RawArchive::kSymbolicLink;
    });
    return {{"SymbolicLink", build({link}), true, {{text("link"), "/etc"}}},
            refused("ThroughASymbolicLink", build({link, Member{"link/passwd", "x"}}))};
}

Cases encryption()
{
    const auto encrypted = [](QByteArray name, quint16 method) {
        return Member{std::move(name), "secret", method, kEncrypted};
    };
    Cases cases{refused("EncryptedStored", build({Member{"a", "1"}, encrypted("b", kStored)})),
                refused("EncryptedDeflated", build({encrypted("b", RawArchive::kDeflate)})),
                {"EncryptedFolder",
                 build({encrypted("f/", kStored), Member{"f/a", "x"}}),
                 true,
                 {{text("f/a"), "x"}}}};
    for (const int method : {1, 6, 9, 12, 14, 93, 95, 98, 99, 0xffff}) {
        cases.push_back(
            refused("Method" + std::to_string(method),
                    build({Member{"a", "1"}, Member{"b", "x", static_cast<quint16>(method)}})));
    }
    cases.push_back({"Bzip2Folder", build({Member{"f/", "", kBzip2}}), true, {}});
    return cases;
}

Member declaring(const QByteArray& name, const QByteArray& content, quint64 size, bool wide = false,
                 quint16 method = RawArchive::kDeflate)
{
    Member member{name, content, method};
    member.size = size;
    member.wideSizes = wide;
    return member;
}

Cases sizesThatLie()
{
    constexpr quint64 kGigabyte = 1000ULL * 1000 * 1000;
    constexpr quint64 kTooMuch = 1000ULL * 1000 * kGigabyte; // beyond any volume a test runs on
    const QByteArray content = noise(20000);
    constexpr int kBombMembers = 128;
    std::vector<Member> bomb;
    bomb.reserve(kBombMembers);
    for (int i = 0; i < kBombMembers; ++i)
        bomb.push_back(declaring("bomb" + QByteArray::number(i), "0", 4 * kGigabyte));
    Member shared{"shared", QByteArray(100'000, '\0')};
    std::vector<Member> sharing{shared};
    shared.offset = 0;
    shared.listedOnly = true;
    sharing.insert(sharing.end(), 100, shared);
    Member behindAnother = declaring("a", "0", 500 * kGigabyte, true);
    behindAnother.otherField = QByteArray("UX\4\0time", 8);
    return {
        refused("BombOfMembersThatShareTheirData", build(sharing)),
        {"AllThatDeflateCanHold",
         build({Member{"a", QByteArray(10'000'000, '\0')}}),
         true,
         {{text("a"), QByteArray(10'000'000, '\0')}}},
        {"DeclaresTooMuch", build({declaring("a", content, 30000)}), true, {{text("a"), content}}},
        {"DeclaresTooLittle",
         build({declaring("a", content, 9000)}),
         true,
         {{text("a"), content.left(9000)}}},
        {"DeclaresNothing", build({declaring("a", content, 0)}), true, {{text("a"), ""}}},
        refused("Bomb500GB", build(bomb)),
        refused("Bomb500GBInOneMember", build({declaring("a", "0", 500 * kGigabyte, true)})),
        refused("Bomb500GBBehindAnotherField", build({behindAnother})),
        {"LeavesItsSizeToNoField",
         build({declaring("a", content, 0xffffffff)}),
         true,
         {{text("a"), content}}},
        refused("BombBeyondCounting",
                build({declaring("a", "0", ~0ULL, true), declaring("b", "0", kTooMuch, true)}))};
}

Cases unusualRecords()
{
    const QByteArray content = noise(20000);
    const Member late{"a", content, RawArchive::kDeflate, kDataDescriptor};
    Member misnamed{"a", "x"};
    misnamed.localName = "b";
    Member twin{"b", content};
    twin.offset = 0;
    Member nowhere{"b", content};
    nowhere.offset = 0x7fffffff;
    return {{"DataDescriptor",
             build({late, Member{"b", "2"}}),
             true,
             {{text("a"), content}, {text("b"), "2"}}},
            {"WideSizesDeflated",
             build({declaring("a", content, 20000, true), Member{"b", "2"}}),
             true,
             {{text("a"), content}, {text("b"), "2"}}},
            {"WideSizesStored",
             build({declaring("a", content, 20000, true, kStored), Member{"b", "2"}}),
             true,
             {{text("a"), content}, {text("b"), "2"}}},
            {"OtherLocalName", build({misnamed}), true, {{text("a"), "x"}}},
            {"OverlappingMembers",
             build({Member{"a", content}, twin}),
             true,
             {{text("a"), content}, {text("b"), content}}},
            refused("MemberBeyondTheEnd", build({Member{"a", content}, nowhere}))};
}

Cases wideFields()
{
    const QByteArray content = noise(20000);
    const std::map<QString, QByteArray> both{{text("a"), content}, {text("b"), "2"}};
    const Member wide = declaring("a", content, 20000, true);
    const Member plainLocal = with(wide, [](Member& member) { member.plainLocal = true; });
    const Member wideOffset = with(plainLocal, [](Member& member) { member.wideOffset = true; });
    const Member onlyOffset =
        with(Member{"a", content}, [](Member& member) { member.wideOffset = true; });
    return {{"WideSizesOnlyInTheDirectory", build({plainLocal, Member{"b", "2"}}), true, both},
            {"WideOffset", build({Member{"b", "2"}, wideOffset}), true, both},
            {"OnlyTheOffsetIsWide", build({Member{"b", "2"}, onlyOffset}), true, both}};
}

Cases foldersByAttribute()
{
    const Member folder =
        with({"f", "", kStored}, [](Member& member) { member.attributes = kDosFolder; });
    const Member file =
        with({"g", "content"}, [](Member& member) { member.attributes = kDosFolder; });
    return {{"FolderThatOnlyItsAttributeMarks",
             build({folder, Member{"f/a", "x"}}),
             true,
             {{text("f/a"), "x"}}},
            {"FileMarkedAsAFolder", build({file}), true, {{text("g"), "content"}}}};
}

Archive threeMembers()
{
    Archive archive;
    archive.members = {Member{"a", "1"}, Member{"b", "2"}, Member{"c", "3"}};
    return archive;
}

Cases wrongCounts()
{
    const std::map<QString, QByteArray> all{{text("a"), "1"}, {text("b"), "2"}, {text("c"), "3"}};
    Cases cases;
    for (const int count : {0, 1, 2, 4, 1000, 0xffff}) {
        Archive archive = threeMembers();
        archive.count = static_cast<quint16>(count);
        cases.push_back({"Count" + std::to_string(count), build(archive), true, all});
    }
    Archive wide = threeMembers();
    wide.wideEnd = true;
    cases.push_back({"WideEndRecords", build(wide), true, all});
    wide.endElsewhere = true;
    cases.push_back({"WideEndRecordsAlone", build(wide), true, all});
    wide.before = noise(5000);
    cases.push_back({"WideEndRecordsAfterJunk", build(wide), true, all});
    Archive disagreeing = threeMembers();
    disagreeing.count = 0;
    disagreeing.diskCount = 3;
    cases.push_back({"CountsDisagree", build(disagreeing), true, all});
    disagreeing.count = 3;
    disagreeing.diskCount = 1;
    cases.push_back({"CountsDisagreeOnThisDisk", build(disagreeing), true, all});
    return cases;
}

Cases junkAround()
{
    const std::map<QString, QByteArray> all{{text("a"), "1"}, {text("b"), "2"}, {text("c"), "3"}};
    Archive before = threeMembers();
    before.before = noise(5000);
    Archive after = threeMembers();
    after.after = noise(5000);
    Archive both = before;
    both.after = after.after;
    Archive comment = threeMembers();
    comment.comment = noise(40000);
    Archive longest = threeMembers();
    longest.comment = noise(65535);
    Archive nearlyLongest = threeMembers();
    nearlyLongest.comment = noise(65514);
    return {{"LongestComment", build(longest), true, all},
            {"NearlyLongestComment", build(nearlyLongest), true, all},
            {"JunkBefore", build(before), true, all},
            {"JunkAfter", build(after), true, all},
            {"JunkAround", build(both), true, all},
            {"LongComment", build(comment), true, all}};
}

Cases damage()
{
    const QByteArray content = noise(20000);
    Member badCrc{"a", content};
    badCrc.crc = 12345;
    // The library hands out whole chunks of 8192 bytes: the one the damage lies in is lost.
    Member damaged{"a", content};
    damaged.data = RawArchive::deflated(content);
    damaged.data->replace(12000, 8000, QByteArray(8000, '\xFF'));
    QByteArray directory = build(threeMembers());
    directory[directory.indexOf("PK\1\2", directory.indexOf("PK\1\2") + 1)] = 'X';
    QByteArray lostDirectory = build(threeMembers());
    lostDirectory[lostDirectory.indexOf("PK\1\2")] = 'X';
    QByteArray local = build(threeMembers());
    local[local.indexOf("PK\3\4", 4)] = 'X';
    const QByteArray whole = build(threeMembers());
    return {{"WrongChecksum",
             build({badCrc, Member{"b", "2"}}),
             true,
             {{text("a"), content}, {text("b"), "2"}}},
            {"DamagedDirectoryEndsTheList", directory, true, {{text("a"), "1"}}},
            {"DamagedDirectoryFromTheStart", lostDirectory, true, {}},
            refused("DamagedLocalRecord", local),
            refused("Truncated", whole.left(whole.size() - 23)),
            refused("NotAnArchive", noise(3000)),
            refused("NoBytes", {})};
}

Cases emptyArchives()
{
    Archive comment;
    comment.comment = "nothing in here";
    Archive junk;
    junk.before = "junk";
    Archive lying;
    lying.count = 3;
    Archive wide;
    wide.wideEnd = true;
    Archive wideAlone = wide;
    wideAlone.endElsewhere = true;
    Archive wideWithComment = wideAlone;
    wideWithComment.comment = comment.comment;
    QByteArray wideCounting = build(wideAlone);
    wideCounting[32] = 3;
    QByteArray otherDisk = build(threeMembers());
    otherDisk[otherDisk.lastIndexOf("PK\5\6") + 4] = 1;
    return {{"Empty", build(Archive{}), true, {}},
            {"EmptyWithComment", build(comment), true, {}},
            {"EmptyAfterJunk", build(junk), true, {}},
            refused("EmptyButCounting", build(lying)),
            {"EmptyWide", build(wide), true, {}},
            {"EmptyWideAlone", build(wideAlone), true, {}},
            {"EmptyWideWithComment", build(wideWithComment), true, {}},
            refused("EmptyWideButCounting", wideCounting),
            refused("EmptyWideWithBytesBehind", build(wideAlone) + 'x'),
            refused("EmptyWideWithoutItsEnd", build(wideAlone).left(76)),
            refused("EmptyWithBytesBehind", build(Archive{}) + 'x'),
            refused("OneOfSeveralDisks", otherDisk)};
}

Cases longNames()
{
    const QByteArray folder = QByteArray(100, 'f') + '/';
    const QByteArray head = folder.repeated(5); // 505 bytes
    const QString path = QString::fromLatin1(head);
    return {
        {"Name511", build({Member{head + "123456", "x"}}), true, {{path + text("123456"), "x"}}},
        {"Name512", build({Member{head + "1234567", "x"}}), true, {{path + text("1234567"), "x"}}},
        {"Name513", build({Member{head + "12345678", "x"}}), true, {{path + text("1234567"), "x"}}},
        {"Name60000",
         build({Member{head + QByteArray(60000, 'n'), "x"}}),
         true,
         {{path + text("nnnnnnn"), "x"}}},
        {"NamesThatDifferBehindTheCut",
         build({Member{head + "1234567a", "first"}, Member{head + "1234567b", "last"}}),
         true,
         {{path + text("1234567"), "last"}}},
        {"LongerOnceItsDamageIsReplaced",
         build({Member{head + "1\xff\xff" + "4567", "x"}}),
         true,
         {{path + text("1\xEF\xBF\xBD\xEF\xBF\xBD"), "x"}}},
        {"CutToAFolder", build({Member{head + "123456/file", "x"}}), true, {}},
        refused("LongerThanTheFileSystemAllows", build({Member{QByteArray(300, 'n'), "x"}}))};
}

} // namespace

std::vector<AwkwardArchive> awkwardArchives()
{
    Cases all;
    for (Cases cases :
         {climbingNames(), namesThatStayInside(), namesThatCollide(), symbolicLinks(), encryption(),
          sizesThatLie(), unusualRecords(), wideFields(), foldersByAttribute(), wrongCounts(),
          junkAround(), damage(), emptyArchives(), longNames()})
        all.insert(all.end(), std::make_move_iterator(cases.begin()),
                   std::make_move_iterator(cases.end()));
    return all;
}
