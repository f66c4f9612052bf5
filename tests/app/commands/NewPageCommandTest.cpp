#include "app/commands/NewPageCommand.h"

#include "tests/app/commands/CommandTest.h"

namespace {

class NewPageCommandTest : public CommandTest
{
};

} // namespace

TEST_F(NewPageCommandTest, IsNamedAfterThePage)
{
    EXPECT_EQ(NewPageCommand(document(), QStringLiteral("Lap %1")).text(),
              QStringLiteral("New page \"Lap %1\""));
}

TEST_F(NewPageCommandTest, AppendsABlankPage)
{
    auto* const command = new NewPageCommand(document(), QStringLiteral("Lap"));
    EXPECT_EQ(command->pageIndex(), -1);
    EXPECT_EQ(document()->pageCount(), 3);
    m_stack.push(command);
    EXPECT_EQ(command->pageIndex(), 3);
    ASSERT_EQ(document()->pageCount(), 4);
    EXPECT_EQ(document()->pages()[3].name, QStringLiteral("Lap"));
    EXPECT_STREQ(document()->pageNode(3).attribute("i").as_string(), "3");
}

TEST_F(NewPageCommandTest, UndoesExactly)
{
    pushAndTravel(new NewPageCommand(document(), QStringLiteral("Lap")));
    pushAndTravel(new NewPageCommand(document(), QString()));
    EXPECT_EQ(document()->pages()[4].index, 4);
}

TEST_F(NewPageCommandTest, RedoPutsTheSamePageBack)
{
    auto* const command = new NewPageCommand(document(), QStringLiteral("Lap"));
    m_stack.push(command);
    const QByteArray made = state();
    m_stack.undo();
    // A display size that came later must not change the page that was made.
    ASSERT_TRUE(m_overlay.loadDevice(R"(<CfgFileFormat><e/></CfgFileFormat>)"));
    ASSERT_EQ(document()->displayWidth(), 320);
    m_stack.redo();
    EXPECT_EQ(command->pageIndex(), 3);
    EXPECT_EQ(document()->pages()[3].name, QStringLiteral("Lap"));
    EXPECT_EQ(state(), made);
    EXPECT_EQ(document()->pages()[3].width, 800);
    EXPECT_EQ(document()->pages()[3].height, 480);
}

TEST_F(NewPageCommandTest, FiftyPagesComeAndGo)
{
    const QByteArray before = state();
    for (int i = 0; i < 50; ++i)
        m_stack.push(new NewPageCommand(document(), QString::number(i)));
    const QByteArray after = state();
    EXPECT_EQ(document()->pageCount(), 53);
    m_stack.setIndex(0);
    EXPECT_EQ(state(), before);
    m_stack.setIndex(50);
    EXPECT_EQ(state(), after);
}

TEST_F(NewPageCommandTest, WithoutADocumentNothingHappens)
{
    expectNothingHappens(new NewPageCommand(nullptr, QStringLiteral("Lap")));
}

TEST(NewPageCommand, ALaterRedoTriesAgain)
{
    DashboardDocument document; // nothing is open
    NewPageCommand command(&document, QStringLiteral("Lap"));
    command.redo();
    EXPECT_EQ(command.pageIndex(), -1);
    command.undo();

    LoadedOverlay overlay(LoadedOverlay::around({}));
    NewPageCommand later(&overlay.document, QStringLiteral("Lap"));
    ASSERT_FALSE(overlay.load("<overlay_cli/>"));
    later.redo();
    EXPECT_EQ(later.pageIndex(), -1);
    later.undo();
    ASSERT_TRUE(overlay.load(LoadedOverlay::around(R"(<e c="GPageParam"/>)")));
    later.redo();
    EXPECT_EQ(later.pageIndex(), 1);
    later.undo();
    EXPECT_EQ(overlay.document.pageCount(), 1);
}

TEST(NewPageCommand, UndoMayRemoveTheOnlyPage)
{
    LoadedOverlay overlay(LoadedOverlay::around(R"(<e c="Other"/>)"));
    NewPageCommand command(&overlay.document, QStringLiteral("Only"));
    command.redo();
    EXPECT_EQ(overlay.document.pageCount(), 1);
    command.undo();
    EXPECT_EQ(overlay.document.pageCount(), 0);
    command.redo();
    EXPECT_EQ(overlay.document.pages().at(0).name, QStringLiteral("Only"));
    EXPECT_EQ(InStep::firstDisagreement(overlay.document), "");
}
