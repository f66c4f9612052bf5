#include "app/commands/InsertElementCommand.h"

#include "tests/app/commands/CommandTest.h"

namespace {

class InsertElementCommandTest : public CommandTest
{
protected:
    InsertElementCommand* insert(int page, pugi::xml_node donor)
    {
        return new InsertElementCommand(document(), page, m_channel, 10, 20, 30, 40, donor);
    }

    const ChannelDef m_channel{77, QStringLiteral("Fuel %1"), QStringLiteral("Fuel"),
                               QStringLiteral("Fuel level"), QStringLiteral("l")};
};

} // namespace

TEST_F(InsertElementCommandTest, IsNamedAfterTheChannel)
{
    const std::unique_ptr<InsertElementCommand> command(insert(0, record(0, 0).node));
    EXPECT_EQ(command->text(), QStringLiteral("Insert Fuel %1"));
}

TEST_F(InsertElementCommandTest, ChangesNothingBeforeItIsPushed)
{
    const QByteArray before = state();
    const std::unique_ptr<InsertElementCommand> command(insert(0, record(0, 0).node));
    EXPECT_EQ(state(), before);
}

TEST_F(InsertElementCommandTest, AppendsACopyOfTheDonor)
{
    m_stack.push(insert(0, record(1, 0).node));
    ASSERT_EQ(document()->pages()[0].elements.size(), 6U);
    const DashElement& element = record(0, 5);
    EXPECT_TRUE(element.name.startsWith(QStringLiteral("new.")));
    EXPECT_EQ(geometryOf(element), (ElementGeometry{10, 20, 30, 40}));
    EXPECT_EQ(element.channelLongName, m_channel.longName);
    EXPECT_EQ(element.channelShortName, m_channel.shortName);
    EXPECT_EQ(element.kind, ElementKind::Digit);
    EXPECT_EQ(element.node, document()->pageNode(0).last_child());
    EXPECT_STREQ(element.node.find_child_by_attribute("n", "SECRET").child_value(), "f");
}

TEST_F(InsertElementCommandTest, UndoesExactlyAndComesBackWithTheSameName)
{
    pushAndTravel(insert(0, record(0, 0).node)); // behind an object of another class
    pushAndTravel(insert(2, record(0, 0).node)); // as the page's only element
    m_stack.push(insert(0, record(0, 0).node));
    const QString name = record(0, 6).name;
    m_stack.undo();
    m_stack.redo();
    EXPECT_EQ(record(0, 6).name, name);
}

TEST_F(InsertElementCommandTest, TheCopyLooksAsItsDonorDoesOnTheScreen)
{
    DashElement& donor = record(0, 0);
    donor.valueFont = QStringLiteral("Restyled");
    donor.valueFontSize = 77;
    donor.valueColor = Qt::magenta;
    donor.labelFont = QStringLiteral("Restyled label");
    donor.labelFontSize = 78;
    donor.labelColor = Qt::cyan;
    pushAndTravel(insert(0, donor.node));
    const DashElement& element = record(0, 5);
    EXPECT_EQ(element.valueFont, QStringLiteral("Restyled"));
    EXPECT_EQ(element.valueFontSize, 77);
    EXPECT_EQ(element.valueColor, QColor(Qt::magenta));
    EXPECT_EQ(element.labelFont, QStringLiteral("Restyled label"));
    EXPECT_EQ(element.labelFontSize, 78);
    EXPECT_EQ(element.labelColor, QColor(Qt::cyan));
    EXPECT_EQ(element.x, 10) << "its own place";
    EXPECT_EQ(element.channelLongName, m_channel.longName) << "its own channel";
}

TEST_F(InsertElementCommandTest, TheDonorMayGo)
{
    QUndoCommand* const command = insert(0, record(1, 0).node);
    ASSERT_TRUE(document()->removeElement(1, 0));
    m_stack.push(command);
    EXPECT_EQ(document()->pages()[0].elements.size(), 6U);
}

TEST_F(InsertElementCommandTest, RedoBringsBackTheRecordAsItWasFirstMade)
{
    m_stack.push(insert(0, record(0, 0).node));
    record(0, 5).x = 99; // straight in the record, as the inspector edits
    m_stack.undo();
    m_stack.redo();
    EXPECT_EQ(record(0, 5).x, 10);
}

TEST_F(InsertElementCommandTest, NothingToInsertDoesNothing)
{
    const pugi::xml_node donor = record(0, 0).node;
    expectNothingHappens(new InsertElementCommand(nullptr, 0, m_channel, 0, 0, 1, 1, donor));
    expectNothingHappens(insert(0, {}));
    expectNothingHappens(insert(3, donor));
    expectNothingHappens(insert(-1, donor));
}

TEST_F(InsertElementCommandTest, ALaterRedoTriesAgain)
{
    m_stack.push(insert(3, record(0, 0).node)); // there is no such page yet
    m_stack.undo();
    ASSERT_EQ(document()->addBlankPage(QStringLiteral("Lap")), 3);
    m_stack.redo();
    EXPECT_EQ(document()->pages()[3].elements.size(), 1U);
    m_stack.undo();
    EXPECT_EQ(document()->pages()[3].elements.size(), 0U);
}

TEST_F(InsertElementCommandTest, AnElementWithoutANameInTheXmlKeepsItsRecordName)
{
    ASSERT_TRUE(record(0, 0).node.remove_attribute("i"));
    record(0, 0).name.clear();
    pushAndTravel(insert(0, record(0, 0).node));
    EXPECT_TRUE(record(0, 5).name.startsWith(QStringLiteral("new.")));
    EXPECT_FALSE(record(0, 5).node.attribute("i"));
}
