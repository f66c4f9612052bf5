// Commands after one another, where handles and pointers kept too long would show.

#include "app/commands/ClearPageCommand.h"
#include "app/commands/DeleteCommand.h"
#include "app/commands/InsertElementCommand.h"
#include "app/commands/MoveCommand.h"
#include "app/commands/NewPageCommand.h"
#include "tests/app/commands/CommandTest.h"

namespace {

class CommandSequence : public CommandTest
{
protected:
    QUndoCommand* move(int page, int index, int x)
    {
        const ElementGeometry before = geometryOf(record(page, index));
        return new MoveCommand(PageRef(document(), page), index, before, {x, 5, 6, 7});
    }

    QUndoCommand* insert(int page)
    {
        const ChannelDef channel{77, QStringLiteral("Fuel"), QStringLiteral("Fuel"), {}, {}};
        return new InsertElementCommand(document(), page, channel, 1, 2, 3, 4, record(1, 0).node);
    }

    /// Pushes a command and remembers what the document was before.
    void push(QUndoCommand* command)
    {
        m_history.push_back(state());
        m_stack.push(command);
    }

    /// Goes back to the start and forth again, twice; the document must be the same at every step.
    void travel()
    {
        m_history.push_back(state());
        for (int round = 0; round < 2; ++round) {
            for (int index = m_stack.count() - 1; index >= 0; --index) {
                m_stack.undo();
                EXPECT_EQ(state(), m_history[std::size_t(index)]) << "back at " << index;
            }
            for (int index = 1; index <= m_stack.count(); ++index) {
                m_stack.redo();
                EXPECT_EQ(state(), m_history[std::size_t(index)]) << "forth at " << index;
            }
        }
    }

private:
    std::vector<QByteArray> m_history;
};

} // namespace

TEST_F(CommandSequence, TwoNeighboursDeleted)
{
    push(new DeleteCommand(document(), 0, 2));
    push(new DeleteCommand(document(), 0, 2));
    EXPECT_EQ(names(0), "abe");
    travel();
}

TEST_F(CommandSequence, TwoNeighboursDeletedBackwards)
{
    push(new DeleteCommand(document(), 0, 3));
    push(new DeleteCommand(document(), 0, 2));
    EXPECT_EQ(names(0), "abe");
    travel();
}

TEST_F(CommandSequence, EveryElementDeletedOneByOne)
{
    for (int i = 0; i < 5; ++i)
        push(new DeleteCommand(document(), 0, 0));
    EXPECT_EQ(children(0), "012");
    travel();
}

TEST_F(CommandSequence, MovedThenDeleted)
{
    push(move(0, 2, 50));
    push(new DeleteCommand(document(), 0, 2));
    travel();
    m_stack.setIndex(1);
    EXPECT_EQ(record(0, 2).x, 50);
    m_stack.setIndex(0);
    EXPECT_EQ(record(0, 2).x, 1);
}

TEST_F(CommandSequence, MovedAroundADeletedNeighbour)
{
    push(move(0, 3, 50));
    push(new DeleteCommand(document(), 0, 1));
    push(move(0, 2, 60)); // the same element, one position further up
    travel();
    EXPECT_EQ(record(0, 2).name, QStringLiteral("d"));
    EXPECT_EQ(record(0, 2).x, 60);
    m_stack.setIndex(0);
    EXPECT_EQ(record(0, 3).x, 1);
    EXPECT_EQ(record(0, 2).x, 1);
}

TEST_F(CommandSequence, InsertedMovedDeletedCleared)
{
    push(insert(0));
    push(move(0, 5, 70));
    push(new DeleteCommand(document(), 0, 4));
    push(insert(0));
    push(move(0, 4, 80));
    push(new ClearPageCommand(document(), 0));
    push(insert(0));
    push(new DeleteCommand(document(), 0, 0));
    travel();
}

TEST_F(CommandSequence, RecordsMoveInMemoryWhilePagesAndElementsGrow)
{
    push(move(0, 0, 50));
    for (int i = 0; i < 40; ++i) {
        push(new NewPageCommand(document(), QStringLiteral("New")));
        push(insert(i % document()->pageCount()));
        push(move(0, 0, 51 + i));
    }
    travel();
}

TEST_F(CommandSequence, ANewPageFilledAndCleared)
{
    push(new NewPageCommand(document(), QStringLiteral("New")));
    push(insert(3));
    push(insert(3));
    push(move(3, 0, 9));
    push(new ClearPageCommand(document(), 3));
    travel();
}

TEST_F(CommandSequence, ASaveInBetweenDoesNotDisturb)
{
    push(move(0, 2, 50));
    push(new DeleteCommand(document(), 0, 2));
    ASSERT_FALSE(m_overlay.written().isEmpty());
    m_stack.undo();
    EXPECT_EQ(record(0, 2).x, 50);
    m_stack.undo();
    EXPECT_EQ(record(0, 2).x, 1);
    const QByteArray written = m_overlay.written();
    m_stack.setIndex(2);
    m_stack.setIndex(0);
    EXPECT_EQ(m_overlay.written(), written);
}

TEST_F(CommandSequence, TheStackMayGoWithCommandsUndoneAndDone)
{
    const QByteArray before = state();
    push(new DeleteCommand(document(), 0, 2));
    push(new ClearPageCommand(document(), 0));
    push(new NewPageCommand(document(), QStringLiteral("New")));
    m_stack.undo();
    m_stack.undo();
    const QByteArray now = state();
    m_stack.clear();
    EXPECT_EQ(state(), now) << "commands are not undone when they go";
    EXPECT_NE(now, before);
}
