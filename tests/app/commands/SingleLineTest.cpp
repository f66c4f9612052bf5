#include "app/commands/SingleLine.h"

#include "app/commands/DeleteCommand.h"
#include "app/commands/InsertElementCommand.h"
#include "app/commands/MoveCommand.h"
#include "app/commands/NewPageCommand.h"
#include "tests/app/commands/CommandTest.h"

namespace {

using SingleLineTest = CommandTest;

/// What the undo stack, and what its actions show.
void expectText(const QUndoCommand& command, const char* text)
{
    EXPECT_EQ(command.text(), QString::fromUtf8(text));
    EXPECT_EQ(command.actionText(), QString::fromUtf8(text));
}

} // namespace

TEST_F(SingleLineTest, EveryLineBreakBecomesABlank)
{
    EXPECT_EQ(singleLine(QStringLiteral("a\nb\r\nc\rd\u2028e\u2029f")),
              QStringLiteral("a b c d e f"));
    EXPECT_EQ(singleLine(QStringLiteral("a\tb  c")), QStringLiteral("a\tb  c"));
    EXPECT_EQ(singleLine(QString()), QString());
}

TEST_F(SingleLineTest, NamesWithLineBreaksStayWholeInTheTextsOfCommands)
{
    record(0, 0).channelLongName = QStringLiteral("Oil\nTemp");
    record(0, 0).name = QStringLiteral("m\n1");
    ChannelDef channel;
    channel.longName = QStringLiteral("Oil\nTemp");
    expectText(DeleteCommand(document(), 0, 0), "Delete Oil Temp");
    expectText(InsertElementCommand(document(), 0, channel, 0, 0, 1, 1, {}), "Insert Oil Temp");
    expectText(MoveCommand({document(), 0}, 0, {}, {}), "Move/Resize m 1");
    expectText(NewPageCommand(document(), QStringLiteral("A\nB")), "New page \"A B\"");
}
