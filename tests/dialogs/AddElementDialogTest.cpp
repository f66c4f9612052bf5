#include "tests/dialogs/InsertDialogFixture.h"

#include <QSignalSpy>
#include <QVBoxLayout>

namespace {

constexpr int kChannelIndex = Qt::UserRole;

QString captionAt(const QLayout& layout, int index)
{
    const auto* const label = qobject_cast<QLabel*>(layout.itemAt(index)->widget());
    return label ? label->text() : QString();
}

} // namespace

TEST_F(InsertDialog, StartsAsDescribed)
{
    openUsual();
    EXPECT_EQ(m_dialog->windowTitle(), QStringLiteral("Insert Element"));
    EXPECT_EQ(m_dialog->size(), QSize(700, 500));
    EXPECT_EQ(m_types->minimumWidth(), 220);
    EXPECT_EQ(m_filter->placeholderText(), QStringLiteral("Filter channels..."));
    EXPECT_EQ(m_summary->text(), QStringLiteral("Pick a type and a channel."));
    EXPECT_TRUE(m_summary->wordWrap());
    EXPECT_EQ(m_summary->minimumHeight(), 50);
    EXPECT_EQ(m_summary->styleSheet(),
              QStringLiteral("QLabel { background: #2a2a2a; color: #ddd; padding: 6px; }"));
    EXPECT_EQ(insertButton()->text(), QStringLiteral("Insert"));
    EXPECT_FALSE(insertButton()->isEnabled());
    ASSERT_NE(m_buttons->button(QDialogButtonBox::Cancel), nullptr);
    EXPECT_GT(m_channels->width(), m_types->width());
}

TEST_F(InsertDialog, TypesAreLeftOfTheChannelsWithAThirdOfTheWidth)
{
    openUsual();
    const auto* const layout = qobject_cast<QVBoxLayout*>(m_dialog->layout());
    ASSERT_TRUE(layout && layout->count() == 3);
    EXPECT_EQ(layout->itemAt(1)->widget(), m_summary);
    EXPECT_EQ(layout->itemAt(2)->widget(), m_buttons);
    const auto* const columns = qobject_cast<QHBoxLayout*>(layout->itemAt(0)->layout());
    ASSERT_TRUE(columns && columns->count() == 2);
    EXPECT_EQ(columns->stretch(0), 1);
    EXPECT_EQ(columns->stretch(1), 2);

    const auto* const types = qobject_cast<QVBoxLayout*>(columns->itemAt(0)->layout());
    ASSERT_TRUE(types && types->count() == 2);
    EXPECT_EQ(captionAt(*types, 0), QStringLiteral("<b>Type</b>"));
    EXPECT_EQ(types->itemAt(1)->widget(), m_types);
    EXPECT_EQ(types->stretch(0), 0);
    EXPECT_EQ(types->stretch(1), 1);

    const auto* const channels = qobject_cast<QVBoxLayout*>(columns->itemAt(1)->layout());
    ASSERT_TRUE(channels && channels->count() == 3);
    EXPECT_EQ(captionAt(*channels, 0), QStringLiteral("<b>Channel</b>"));
    EXPECT_EQ(channels->itemAt(1)->widget(), m_filter);
    EXPECT_EQ(channels->itemAt(2)->widget(), m_channels);
    EXPECT_EQ(channels->stretch(0), 0);
    EXPECT_EQ(channels->stretch(1), 0);
    EXPECT_EQ(channels->stretch(2), 1);
}

TEST_F(InsertDialog, ListsKindsWithHintsAndSelectsTheFirst)
{
    openUsual();
    ASSERT_EQ(m_types->count(), 2);
    EXPECT_EQ(m_types->item(0)->text(), QStringLiteral("Numeric value"));
    EXPECT_EQ(m_types->item(0)->toolTip(), QStringLiteral("e.g. RPM (120x40)"));
    EXPECT_EQ(m_types->item(1)->text(), QStringLiteral("Horizontal bar"));
    EXPECT_EQ(m_types->item(1)->toolTip(), QStringLiteral("e.g. bar.1 (300x20)"));
    EXPECT_EQ(m_types->currentRow(), 0);
}

TEST_F(InsertDialog, ListsEveryChannelWithItsIndex)
{
    openUsual();
    ASSERT_EQ(m_channels->count(), 3);
    EXPECT_EQ(m_channels->item(0)->text(), QStringLiteral("Engine Speed  (rpm)  1/min"));
    EXPECT_EQ(m_channels->item(2)->text(), QStringLiteral("Oil Temp  (OT)  C"));
    EXPECT_EQ(m_channels->item(2)->data(kChannelIndex).toInt(), 2);
    EXPECT_EQ(m_channels->currentRow(), -1);
}

TEST_F(InsertDialog, ATypeAloneDoesNotEnableInsert)
{
    openUsual();
    clickRow(m_types, 1);
    EXPECT_FALSE(insertButton()->isEnabled());
    EXPECT_EQ(m_summary->text(), QStringLiteral("Pick a type and a channel."));
}

TEST_F(InsertDialog, AChannelEnablesInsertAndWritesTheSummary)
{
    openUsual();
    clickRow(m_channels, 1);
    EXPECT_TRUE(insertButton()->isEnabled());
    EXPECT_EQ(m_summary->text(),
              QStringLiteral("<b>Numeric value</b> bound to <b>Water Temp</b> (WT C)"
                             "&nbsp;&mdash; native size 120 &times; 40"));
}

TEST_F(InsertDialog, AnotherTypeRewritesTheSummary)
{
    openUsual();
    clickRow(m_channels, 1);
    clickRow(m_types, 1);
    EXPECT_TRUE(insertButton()->isEnabled());
    EXPECT_EQ(m_summary->text(),
              QStringLiteral("<b>Horizontal bar</b> bound to <b>Water Temp</b> (WT C)"
                             "&nbsp;&mdash; native size 300 &times; 20"));
}

TEST_F(InsertDialog, TheSummaryFollowsTheArrowKeys)
{
    openUsual();
    clickRow(m_channels, 0);
    QTest::keyClick(m_channels, Qt::Key_Down);
    EXPECT_TRUE(m_summary->text().contains(QStringLiteral("<b>Water Temp</b>")));
    QTest::keyClick(m_channels, Qt::Key_Down);
    EXPECT_TRUE(m_summary->text().contains(QStringLiteral("<b>Oil Temp</b>")));
    QTest::keyClick(m_channels, Qt::Key_Home);
    EXPECT_TRUE(m_summary->text().contains(QStringLiteral("<b>Engine Speed</b>")));

    QTest::keyClick(m_types, Qt::Key_Down);
    EXPECT_TRUE(m_summary->text().startsWith(QStringLiteral("<b>Horizontal bar</b>")));
    EXPECT_TRUE(insertButton()->isEnabled());
}

TEST_F(InsertDialog, AChannelChosenByItsRowCountsToo)
{
    openUsual();
    m_channels->setCurrentRow(2);
    EXPECT_TRUE(insertButton()->isEnabled());
    EXPECT_TRUE(m_summary->text().contains(QStringLiteral("<b>Oil Temp</b>")));
}

TEST_F(InsertDialog, GoingToTheChannelsByKeyboardChoosesNone)
{
    openUsual();
    m_filter->setFocus();
    QTest::keyClick(m_filter, Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), m_channels);
    EXPECT_FALSE(insertButton()->isEnabled());
    EXPECT_EQ(m_summary->text(), QStringLiteral("Pick a type and a channel."));
    QTest::keyClick(m_channels, Qt::Key_Space);
    EXPECT_TRUE(insertButton()->isEnabled());
    EXPECT_TRUE(m_summary->text().contains(QStringLiteral("<b>Engine Speed</b>")));
}

TEST_F(InsertDialog, ANewTypeReportsTheChannelSelectionAgain)
{
    openUsual();
    const QSignalSpy reported(m_channels, &QListWidget::itemSelectionChanged);
    m_types->setCurrentRow(1);
    EXPECT_EQ(reported.count(), 1);
    m_types->setCurrentRow(-1);
    EXPECT_EQ(reported.count(), 1) << "no type, nothing to report";
    m_types->setCurrentRow(0);
    EXPECT_EQ(reported.count(), 2);
}

TEST_F(InsertDialog, ARowThatNamesNoChannelOfTheDocumentIsNotInserted)
{
    openUsual();
    for (const QVariant& index : {QVariant(3), QVariant(-1), QVariant(QStringLiteral("x"))}) {
        m_channels->item(0)->setData(kChannelIndex, index);
        clickRow(m_channels, 1);
        clickRow(m_channels, 0);
        EXPECT_FALSE(insertButton()->isEnabled());
        Q_EMIT m_buttons->accepted();
        EXPECT_TRUE(m_dialog->isVisible());
    }
}

TEST_F(InsertDialog, WithoutATypeNothingIsInserted)
{
    openUsual();
    clickRow(m_channels, 0);
    m_types->setCurrentRow(-1);
    Q_EMIT m_buttons->accepted();
    EXPECT_TRUE(m_dialog->isVisible());
    EXPECT_TRUE(m_dialog->spec().channelLongName.isEmpty());
}

TEST_F(InsertDialog, TypingAFilterKeepsMatchingRowsWithTheirIndices)
{
    openUsual();
    QTest::keyClicks(m_filter, QStringLiteral(" TEMP"));
    ASSERT_EQ(m_channels->count(), 2);
    EXPECT_EQ(m_channels->item(0)->data(kChannelIndex).toInt(), 1);
    EXPECT_EQ(m_channels->item(1)->data(kChannelIndex).toInt(), 2);
    EXPECT_EQ(m_types->currentRow(), 0);
}

TEST_F(InsertDialog, FilteringDropsTheChosenChannelAndDisablesInsert)
{
    openUsual();
    clickRow(m_channels, 1);
    const QString summary = m_summary->text();
    QTest::keyClicks(m_filter, QStringLiteral("o"));
    EXPECT_EQ(m_channels->currentRow(), -1);
    EXPECT_FALSE(insertButton()->isEnabled());
    EXPECT_EQ(m_summary->text(), summary) << "the summary waits for a new choice";

    clickRow(m_channels, 0);
    EXPECT_TRUE(insertButton()->isEnabled());
    EXPECT_TRUE(m_summary->text().contains(QStringLiteral("Oil Temp")));
}

TEST_F(InsertDialog, AFilterWithoutHitShowsAPlaceholderThatCannotBeChosen)
{
    openUsual();
    QTest::keyClicks(m_filter, QStringLiteral("nothing"));
    ASSERT_EQ(m_channels->count(), 1);
    EXPECT_EQ(m_channels->item(0)->text(), QStringLiteral("(no matching channels)"));
    EXPECT_EQ(m_channels->item(0)->flags(), Qt::NoItemFlags);
    EXPECT_FALSE(m_channels->item(0)->data(kChannelIndex).isValid());
    clickRow(m_channels, 0);
    m_channels->setCurrentRow(0);
    EXPECT_FALSE(insertButton()->isEnabled());
    Q_EMIT m_buttons->accepted();
    EXPECT_TRUE(m_dialog->isVisible());
}

TEST_F(InsertDialog, WithoutDonorInsertStaysDisabled)
{
    open({}, {{7, "Engine Speed", "rpm", "1/min"}});
    ASSERT_EQ(m_types->count(), 1);
    EXPECT_EQ(m_types->item(0)->text(), QStringLiteral("(no donor elements found)"));
    EXPECT_EQ(m_types->item(0)->flags(), Qt::NoItemFlags);
    EXPECT_EQ(m_types->currentRow(), -1);
    m_types->setCurrentRow(0);
    clickRow(m_channels, 0);
    EXPECT_FALSE(insertButton()->isEnabled());
    Q_EMIT m_buttons->accepted();
    EXPECT_TRUE(m_dialog->isVisible());
    EXPECT_TRUE(m_dialog->spec().templateLabel.isEmpty());
}

TEST_F(InsertDialog, WithoutChannelsThereIsAPlaceholder)
{
    open({barElement("bar.1")}, {});
    ASSERT_EQ(m_channels->count(), 1);
    EXPECT_EQ(m_channels->item(0)->text(), QStringLiteral("(no matching channels)"));
    EXPECT_FALSE(insertButton()->isEnabled());
}

TEST_F(InsertDialog, WithoutDocumentNothingIsListed)
{
    show(nullptr);
    ASSERT_EQ(m_types->count(), 1);
    EXPECT_EQ(m_types->item(0)->text(), QStringLiteral("(no donor elements found)"));
    EXPECT_EQ(m_channels->count(), 0);
    QTest::keyClicks(m_filter, QStringLiteral("x"));
    EXPECT_EQ(m_channels->count(), 0);
    EXPECT_FALSE(insertButton()->isEnabled());
}

TEST_F(InsertDialog, InsertHandsBackDonorAndChannel)
{
    openUsual();
    clickRow(m_types, 1);
    clickRow(m_channels, 2);
    QTest::mouseClick(insertButton(), Qt::LeftButton);
    EXPECT_EQ(m_dialog->result(), QDialog::Accepted);
    EXPECT_FALSE(m_dialog->isVisible());
    const InsertElementSpec spec = m_dialog->spec();
    EXPECT_EQ(spec.templateLabel, QStringLiteral("Horizontal bar"));
    EXPECT_EQ(spec.hint, QStringLiteral("e.g. bar.1 (300x20)"));
    EXPECT_EQ(spec.donorNode, m_document.pages()[0].elements[1].node);
    EXPECT_EQ(spec.donorWidth, 300);
    EXPECT_EQ(spec.donorHeight, 20);
    EXPECT_EQ(spec.channelFid, 11);
    EXPECT_EQ(spec.channelLongName, QStringLiteral("Oil Temp"));
    EXPECT_EQ(spec.channelShortName, QStringLiteral("OT"));
    EXPECT_EQ(spec.channelLabelLongName, QStringLiteral("Oil Temp"));
    EXPECT_EQ(spec.channelUiv, QStringLiteral("C"));
}

TEST_F(InsertDialog, WorksByKeyboardAlone)
{
    openUsual();
    EXPECT_EQ(QApplication::focusWidget(), m_types);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), m_filter);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("temp"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), m_channels);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_TRUE(insertButton()->isEnabled());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(m_dialog->result(), QDialog::Accepted);
    EXPECT_EQ(m_dialog->spec().templateLabel, QStringLiteral("Horizontal bar"));
    EXPECT_EQ(m_dialog->spec().channelLongName, QStringLiteral("Oil Temp"));
}

TEST_F(InsertDialog, ReturnInTheFilterDoesNotAcceptWithoutAChannel)
{
    openUsual();
    m_filter->setFocus();
    QTest::keyClicks(m_filter, QStringLiteral("temp"));
    QTest::keyClick(m_filter, Qt::Key_Return);
    EXPECT_TRUE(m_dialog->isVisible());
}

TEST_F(InsertDialog, CancelAndEscapeReject)
{
    openUsual();
    clickRow(m_channels, 0);
    QTest::mouseClick(m_buttons->button(QDialogButtonBox::Cancel), Qt::LeftButton);
    EXPECT_FALSE(m_dialog->isVisible());
    EXPECT_EQ(m_dialog->result(), QDialog::Rejected);
    EXPECT_TRUE(m_dialog->spec().channelLongName.isEmpty());

    show(&m_document);
    QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(m_dialog->isVisible());
}

TEST_F(InsertDialog, NamesThatLookLikeMarkupAreNotRendered)
{
    open({TestPackage::digitElement("digit.1", 0, 0, 1, 2, "&lt;b&gt;%3")},
         {{7, "%2 %5", "&lt;i&gt;", "a&amp;b"}});
    ASSERT_EQ(m_channels->count(), 1);
    EXPECT_EQ(m_channels->item(0)->text(), QStringLiteral("%2 %5  (<i>)  a&b"));
    EXPECT_EQ(m_types->item(0)->toolTip(), QStringLiteral("<span>e.g. &lt;b&gt;%3 (1x2)</span>"));
    clickRow(m_channels, 0);
    EXPECT_EQ(m_summary->text(),
              QStringLiteral("<b>Numeric value</b> bound to <b>%2 %5</b> (&lt;i&gt; a&amp;b)"
                             "&nbsp;&mdash; native size 1 &times; 2"));
}
