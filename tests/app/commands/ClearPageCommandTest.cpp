#include "app/commands/ClearPageCommand.h"

#include "tests/app/commands/CommandTest.h"

namespace {

class ClearPageCommandTest : public CommandTest
{
};

} // namespace

TEST_F(ClearPageCommandTest, IsNamedAfterTheNumberOfElements)
{
    EXPECT_EQ(ClearPageCommand(document(), 0).text(), QStringLiteral("Clear page (5 elements)"));
    EXPECT_EQ(ClearPageCommand(document(), 1).text(), QStringLiteral("Clear page (1 elements)"));
    EXPECT_EQ(ClearPageCommand(document(), 2).text(), QStringLiteral("Clear page (0 elements)"));
    EXPECT_EQ(ClearPageCommand(document(), 3).text(), QStringLiteral("Clear page"));
    EXPECT_EQ(ClearPageCommand(document(), -1).text(), QStringLiteral("Clear page"));
    EXPECT_EQ(ClearPageCommand(nullptr, 0).text(), QStringLiteral("Clear page"));
}

TEST_F(ClearPageCommandTest, ChangesNothingBeforeItIsPushed)
{
    const QByteArray before = state();
    const ClearPageCommand command(document(), 0);
    EXPECT_EQ(state(), before);
}

TEST_F(ClearPageCommandTest, RemovesEveryElementAndNothingElse)
{
    m_stack.push(new ClearPageCommand(document(), 0));
    EXPECT_EQ(names(0), "");
    EXPECT_EQ(children(0), "012");
    EXPECT_EQ(names(1), "f");
    EXPECT_EQ(document()->pages()[0].name, QStringLiteral("Race"));
}

TEST_F(ClearPageCommandTest, UndoesExactly)
{
    record(0, 3).labelColor = Qt::red; // not in the XML yet
    for (int page = 0; page < 3; ++page)
        pushAndTravel(new ClearPageCommand(document(), page));
    m_stack.setIndex(0);
    EXPECT_EQ(children(0), "0ab1cde2");
    EXPECT_EQ(record(0, 3).labelColor, QColor(Qt::red));
    EXPECT_STREQ(record(0, 3).node.find_child_by_attribute("n", "SECRET").child_value(), "d");
}

TEST_F(ClearPageCommandTest, NothingToClearDoesNothing)
{
    expectNothingHappens(new ClearPageCommand(nullptr, 0));
    expectNothingHappens(new ClearPageCommand(document(), 3));
    expectNothingHappens(new ClearPageCommand(document(), -1));
    expectNothingHappens(new ClearPageCommand(document(), 2));
}

TEST_F(ClearPageCommandTest, ARecordWithoutXmlDoesNotComeBack)
{
    const QByteArray before = state();
    document()->pageAt(0)->elements.emplace_back();
    m_stack.push(new ClearPageCommand(document(), 0));
    EXPECT_EQ(m_stack.text(0), QStringLiteral("Clear page (6 elements)"));
    EXPECT_EQ(names(0), "");
    m_stack.undo();
    EXPECT_EQ(state(), before);
}

TEST_F(ClearPageCommandTest, WhatFollowsARecordWithoutXmlComesBack)
{
    const QByteArray before = state();
    std::vector<DashElement>& elements = document()->pageAt(0)->elements;
    elements.emplace(elements.begin() + 2);
    m_stack.push(new ClearPageCommand(document(), 0));
    m_stack.undo();
    EXPECT_EQ(state(), before);
}
