#include "app/commands/DeleteCommand.h"

#include "tests/app/commands/CommandTest.h"

namespace {

class DeleteCommandTest : public CommandTest
{
};

} // namespace

TEST_F(DeleteCommandTest, IsNamedAfterTheChannelOrTheElement)
{
    EXPECT_EQ(DeleteCommand(document(), 0, 0).text(), QStringLiteral("Delete Engine RPM"));
    EXPECT_EQ(DeleteCommand(document(), 0, 1).text(), QStringLiteral("Delete b"));
    EXPECT_EQ(DeleteCommand(document(), 0, 5).text(), QStringLiteral("Delete element"));
    EXPECT_EQ(DeleteCommand(document(), 0, -1).text(), QStringLiteral("Delete element"));
    EXPECT_EQ(DeleteCommand(document(), 3, 0).text(), QStringLiteral("Delete element"));
    EXPECT_EQ(DeleteCommand(nullptr, 0, 0).text(), QStringLiteral("Delete element"));
    record(0, 0).channelLongName = QStringLiteral("%1 %2");
    EXPECT_EQ(DeleteCommand(document(), 0, 0).text(), QStringLiteral("Delete %1 %2"));
}

TEST_F(DeleteCommandTest, ChangesNothingBeforeItIsPushed)
{
    const QByteArray before = state();
    const DeleteCommand command(document(), 0, 2);
    EXPECT_EQ(state(), before);
}

TEST_F(DeleteCommandTest, RemovesOneElement)
{
    m_stack.push(new DeleteCommand(document(), 0, 2));
    EXPECT_EQ(names(0), "abde");
    EXPECT_EQ(children(0), "0ab1de2");
    EXPECT_EQ(names(1), "f");
}

TEST_F(DeleteCommandTest, UndoesExactlyAtEveryPosition)
{
    for (int index = 0; index < 5; ++index) {
        pushAndTravel(new DeleteCommand(document(), 0, index));
        m_stack.undo();
    }
    EXPECT_EQ(children(0), "0ab1cde2");
}

TEST_F(DeleteCommandTest, ComesBackAsTheVeryFirstChild)
{
    pushAndTravel(new DeleteCommand(document(), 1, 0));
    m_stack.undo();
    EXPECT_EQ(document()->pageNode(1).first_child(), record(1, 0).node);
}

TEST_F(DeleteCommandTest, ComesBackRightAfterTheElementBefore)
{
    m_stack.push(new DeleteCommand(document(), 0, 3));
    m_stack.undo();
    EXPECT_EQ(record(0, 2).node.next_sibling(), record(0, 3).node);
}

TEST_F(DeleteCommandTest, ComesBackBehindWhatOnlyCarriesTheClassOfAnElement)
{
    pugi::xml_node other = document()->pageNode(0).insert_child_before("x", record(0, 2).node);
    other.append_attribute("c").set_value("GMaskParam");
    pushAndTravel(new DeleteCommand(document(), 0, 2));
    m_stack.undo();
    EXPECT_EQ(other.next_sibling(), record(0, 2).node);
}

TEST_F(DeleteCommandTest, BringsBackTheRecordAsItWasWhenTheCommandWasMade)
{
    record(0, 2).x = 99; // an edit that no save has carried into the XML yet
    record(0, 2).valueFont = QStringLiteral("Edited");
    pushAndTravel(new DeleteCommand(document(), 0, 2));
    m_stack.undo();
    EXPECT_EQ(record(0, 2).x, 99);
    EXPECT_EQ(record(0, 2).valueFont, QStringLiteral("Edited"));
}

TEST_F(DeleteCommandTest, NothingToDeleteDoesNothing)
{
    expectNothingHappens(new DeleteCommand(nullptr, 0, 0));
    expectNothingHappens(new DeleteCommand(document(), 0, 5));
    expectNothingHappens(new DeleteCommand(document(), 0, -1));
    expectNothingHappens(new DeleteCommand(document(), 3, 0));
    expectNothingHappens(new DeleteCommand(document(), -1, 0));
    expectNothingHappens(new DeleteCommand(document(), 2, 0));
}

TEST_F(DeleteCommandTest, ARecordWithoutXmlDoesNotComeBack)
{
    const QByteArray before = state();
    document()->pageAt(0)->elements.emplace_back();
    m_stack.push(new DeleteCommand(document(), 0, 5));
    EXPECT_EQ(state(), before);
    m_stack.undo();
    EXPECT_EQ(state(), before);
}

TEST_F(DeleteCommandTest, StaysInOrderWhenThePageHasChangedMeanwhile)
{
    m_stack.push(new DeleteCommand(document(), 0, 2));
    // Not through the stack: the object that stood before the element goes, and so does a
    // neighbour.
    pugi::xml_node page = document()->pageNode(0);
    page.remove_child(page.find_child_by_attribute("i", "1"));
    ASSERT_TRUE(document()->removeElement(0, 1));
    m_stack.undo();
    EXPECT_EQ(InStep::firstDisagreement(*document()), "");
    EXPECT_EQ(names(0), "adce");
}
