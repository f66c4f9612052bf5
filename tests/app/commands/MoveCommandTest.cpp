#include "app/commands/MoveCommand.h"

#include "tests/app/commands/CommandTest.h"

#include <limits>

namespace {

class MoveCommandTest : public CommandTest
{
protected:
    [[nodiscard]] PageRef page(int index) { return {document(), index}; }
};

} // namespace

TEST_F(MoveCommandTest, IsNamedAfterTheElement)
{
    EXPECT_EQ(MoveCommand(page(0), 2, {}, {}).text(), QStringLiteral("Move/Resize c"));
    EXPECT_EQ(MoveCommand(page(0), 5, {}, {}).text(), QStringLiteral("Move/Resize "));
    record(0, 0).name = QStringLiteral("%1");
    EXPECT_EQ(MoveCommand(page(0), 0, {}, {}).text(), QStringLiteral("Move/Resize %1"));
}

TEST_F(MoveCommandTest, KnowsWhichElementItMoves)
{
    const MoveCommand command(page(0), 2, {}, {});
    EXPECT_TRUE(command.moves(document()->pageAt(0), 2));
    EXPECT_FALSE(command.moves(document()->pageAt(0), 1));
    EXPECT_FALSE(command.moves(document()->pageAt(1), 2));
}

TEST_F(MoveCommandTest, SetsTheFourFieldsOfTheRecordAndNothingElse)
{
    const QByteArray xml = InStep::overlayText(*document());
    constexpr int kMax = std::numeric_limits<int>::max();
    const ElementGeometry before = geometryOf(record(0, 2));
    const ElementGeometry after{-5, kMax, 7, kMax};
    pushAndTravel(new MoveCommand(page(0), 2, before, after));
    EXPECT_EQ(geometryOf(record(0, 2)), after);
    EXPECT_EQ(geometryOf(record(0, 1)), before) << "all elements started alike";
    EXPECT_EQ(geometryOf(record(0, 3)), before);
    EXPECT_EQ(InStep::overlayText(*document()), xml);
    m_stack.undo();
    EXPECT_EQ(geometryOf(record(0, 2)), before);
}

TEST_F(MoveCommandTest, EveryCommandIsAStepOfItsOwn)
{
    const ElementGeometry start = geometryOf(record(0, 0));
    m_stack.push(new MoveCommand(page(0), 0, start, {10, 0, 0, 0}));
    m_stack.push(new MoveCommand(page(0), 0, {10, 0, 0, 0}, {20, 0, 0, 0}));
    EXPECT_EQ(m_stack.count(), 2);
    m_stack.undo();
    EXPECT_EQ(record(0, 0).x, 10);
}

TEST_F(MoveCommandTest, AMissingElementIsLeftMissing)
{
    expectNothingHappens(new MoveCommand(page(0), 5, {}, {1, 1, 1, 1}));
    expectNothingHappens(new MoveCommand(page(0), -1, {}, {1, 1, 1, 1}));
    expectNothingHappens(new MoveCommand(page(3), 0, {}, {1, 1, 1, 1}));
    expectNothingHappens(new MoveCommand(PageRef(nullptr, 0), 0, {}, {1, 1, 1, 1}));
}

TEST_F(MoveCommandTest, WorksOnAPageOfNoDocument)
{
    DashPage bare;
    bare.elements.resize(2);
    m_stack.push(new MoveCommand(PageRef(&bare), 1, {}, {1, 2, 3, 4}));
    bare.elements.reserve(100); // moves the records
    EXPECT_EQ(geometryOf(bare.elements[1]), (ElementGeometry{1, 2, 3, 4}));
    m_stack.undo();
    EXPECT_EQ(geometryOf(bare.elements[1]), ElementGeometry());
    EXPECT_EQ(geometryOf(bare.elements[0]), ElementGeometry());
}
