#include "document/archive/MemberPath.h"

#include <gtest/gtest.h>

namespace {

std::string resolved(const char* name, PathRules rules)
{
    return memberPath(QString::fromUtf8(name), rules)
        .value_or(QStringLiteral("refused"))
        .toStdString();
}

} // namespace

TEST(MemberPath, KeepsPlainNames)
{
    for (const PathRules rules : {PathRules::Unix, PathRules::Windows}) {
        EXPECT_EQ(resolved("overlay.ov3.xml", rules), "overlay.ov3.xml");
        EXPECT_EQ(resolved("a/b/c d.png", rules), "a/b/c d.png");
        EXPECT_EQ(resolved("..a/b/c..d", rules), "..a/b/c..d");
    }
}

TEST(MemberPath, ResolvesNamesThatClimbAndStayInside)
{
    for (const PathRules rules : {PathRules::Unix, PathRules::Windows}) {
        EXPECT_EQ(resolved("a/../b", rules), "b");
        EXPECT_EQ(resolved("a/b/../../c", rules), "c");
        EXPECT_EQ(resolved("./a//b/.", rules), "a/b");
        EXPECT_EQ(resolved("a/", rules), "a");
    }
}

TEST(MemberPath, RefusesNamesThatClimbOut)
{
    for (const PathRules rules : {PathRules::Unix, PathRules::Windows}) {
        for (const char* const name : {"..", "../", "../a", "a/../..", "a/../../b", "./../a",
                                       "a/b/../../../c", "a//../../b", "../../.."})
            EXPECT_EQ(resolved(name, rules), "refused") << name;
    }
}

TEST(MemberPath, RefusesAbsoluteNames)
{
    for (const PathRules rules : {PathRules::Unix, PathRules::Windows}) {
        for (const char* const name : {"/", "/a", "//a", "/../a"})
            EXPECT_EQ(resolved(name, rules), "refused") << name;
    }
}

TEST(MemberPath, TreatsBackslashesAndColonsAsThePlatformDoes)
{
    for (const char* const name :
         {"..\\a", "\\a", "a\\b", "C:\\a", "C:/a", "C:a", "a/C:/b", "a:b", "\\\\server\\share"}) {
        EXPECT_EQ(resolved(name, PathRules::Windows), "refused") << name;
#ifndef Q_OS_WIN
        EXPECT_EQ(resolved(name, PathRules::Unix), name);
#endif
    }
}

TEST(MemberPath, RefusesNamesOfDevicesOnWindows)
{
    for (const char* const name : {"CON", "con", "aux.png", "images/NUL", "prn/a.png", "Com1.txt",
                                   "LPT9", "COM\xC2\xB2", "nul .txt", "a/conin$", "CONOUT$.x"}) {
        EXPECT_EQ(resolved(name, PathRules::Windows), "refused") << name;
        EXPECT_EQ(resolved(name, PathRules::Unix), name);
    }
    for (const char* const name :
         {"console", "a.con", "COM", "COMX", "LPT10", "xCON", "auxiliary.png"})
        EXPECT_EQ(resolved(name, PathRules::Windows), name);
}

TEST(MemberPath, RefusesNamesThatWindowsWouldShorten)
{
    for (const char* const name : {"a.", "a ", "b../c", "folder /c", "...", "a. ."}) {
        EXPECT_EQ(resolved(name, PathRules::Windows), "refused") << name;
        EXPECT_EQ(resolved(name, PathRules::Unix), name);
    }
    EXPECT_EQ(resolved("./", PathRules::Windows), ".");
    EXPECT_EQ(resolved(" a", PathRules::Windows), " a");
    EXPECT_EQ(resolved(".a", PathRules::Windows), ".a");
}
