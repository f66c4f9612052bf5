// The insert dialog by keyboard and mouse: what is selected, and what inserts.

#include "tests/dialogs/InsertDialogFixture.h"

#include <QAbstractButton>

namespace {

class InsertDialogKeys : public InsertDialog
{
protected:
    void typeFilter(const QString& text)
    {
        m_filter->setFocus();
        QTest::keyClicks(m_filter, text);
    }
};

} // namespace

TEST_F(InsertDialogKeys, AChannelThatIsOnlyCurrentIsNotChosen)
{
    openUsual();
    m_filter->setFocus();
    QTest::keyClick(m_filter, Qt::Key_Tab);
    ASSERT_EQ(m_channels->currentRow(), 0) << "current, but not highlighted";
    QTest::keyClick(m_channels, Qt::Key_Backtab);
    QTest::keyClick(m_types, Qt::Key_Down);
    EXPECT_FALSE(insertButton()->isEnabled());
    Q_EMIT m_buttons->accepted();
    EXPECT_TRUE(m_dialog->isVisible());
}

TEST_F(InsertDialogKeys, ACtrlClickThatDeselectsDisablesInsert)
{
    openUsual();
    for (QListWidget* const list : {m_types, m_channels}) {
        clickRow(m_types, 0);
        clickRow(m_channels, 1);
        EXPECT_TRUE(insertButton()->isEnabled());
        clickRow(list, list->currentRow(), Qt::ControlModifier);
        EXPECT_FALSE(insertButton()->isEnabled());
        Q_EMIT m_buttons->accepted();
        EXPECT_TRUE(m_dialog->isVisible());
        clickRow(list, list->currentRow());
        EXPECT_TRUE(insertButton()->isEnabled());
    }
}

TEST_F(InsertDialogKeys, ADoubleClickOnAChannelInsertsIt)
{
    openUsual();
    clickRow(m_channels, 2);
    QTest::mouseDClick(m_channels->viewport(), Qt::LeftButton, {},
                       m_channels->visualItemRect(m_channels->item(2)).center());
    EXPECT_EQ(m_dialog->result(), QDialog::Accepted);
    EXPECT_FALSE(m_dialog->isVisible());
    EXPECT_EQ(m_dialog->spec().channelLongName, QStringLiteral("Oil Temp"));
}

TEST_F(InsertDialogKeys, ADoubleClickWithAnotherButtonInsertsNothing)
{
    openUsual();
    clickRow(m_channels, 2);
    const QPoint row = m_channels->visualItemRect(m_channels->item(2)).center();
    for (const auto button : {Qt::RightButton, Qt::MiddleButton, Qt::BackButton}) {
        QTest::mouseDClick(m_channels->viewport(), button, {}, row);
        EXPECT_TRUE(m_dialog->isVisible());
    }
}

TEST_F(InsertDialogKeys, ReturnInTheChannelsAndAClickOnInsertAccept)
{
    openUsual();
    clickRow(m_channels, 2);
    ASSERT_EQ(QApplication::focusWidget(), m_channels);
    QTest::keyClick(m_channels, Qt::Key_Return);
    EXPECT_EQ(m_dialog->result(), QDialog::Accepted);
    EXPECT_EQ(m_dialog->spec().channelLongName, QStringLiteral("Oil Temp"));

    show(&m_document);
    clickRow(m_channels, 1);
    QTest::mouseClick(insertButton(), Qt::LeftButton);
    EXPECT_EQ(m_dialog->result(), QDialog::Accepted);
    EXPECT_EQ(m_dialog->spec().channelLongName, QStringLiteral("Water Temp"));
}

TEST_F(InsertDialogKeys, ADoubleClickWithoutATypeOrOnThePlaceholderInsertsNothing)
{
    openUsual();
    m_types->setCurrentRow(-1);
    const QPoint first = m_channels->visualItemRect(m_channels->item(0)).center();
    QTest::mouseDClick(m_channels->viewport(), Qt::LeftButton, {}, first);
    EXPECT_TRUE(m_dialog->isVisible());
    m_types->setCurrentRow(0);
    typeFilter(QStringLiteral("nothing"));
    QTest::mouseDClick(m_channels->viewport(), Qt::LeftButton, {}, first);
    EXPECT_TRUE(m_dialog->isVisible());
}

TEST_F(InsertDialogKeys, DownInTheFilterGoesToTheFirstHit)
{
    openUsual();
    typeFilter(QStringLiteral("temp"));
    QTest::keyClick(m_filter, Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget(), m_channels);
    EXPECT_TRUE(m_channels->item(0)->isSelected());
    EXPECT_TRUE(insertButton()->isEnabled());
    QTest::keyClick(m_channels, Qt::Key_Down);
    EXPECT_TRUE(m_channels->item(1)->isSelected());
}

TEST_F(InsertDialogKeys, DownInTheFilterKeepsTheChosenChannel)
{
    openUsual();
    clickRow(m_channels, 1);
    m_filter->setFocus();
    QTest::keyClick(m_filter, Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget(), m_channels);
    EXPECT_TRUE(m_channels->item(1)->isSelected());
}

TEST_F(InsertDialogKeys, DownInTheFilterWithoutAHitChoosesNothing)
{
    openUsual();
    typeFilter(QStringLiteral("nothing"));
    QTest::keyClick(m_filter, Qt::Key_Down);
    EXPECT_FALSE(insertButton()->isEnabled());
}

TEST_F(InsertDialogKeys, ReturnInTheFilterSelectsTheOnlyHitAndASecondOneInserts)
{
    openUsual();
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        typeFilter(QStringLiteral("oil"));
        QTest::keyClick(m_filter, key);
        EXPECT_TRUE(m_dialog->isVisible());
        ASSERT_TRUE(m_channels->item(0)->isSelected());
        EXPECT_TRUE(insertButton()->isEnabled());
        QTest::keyClick(m_filter, key);
        EXPECT_EQ(m_dialog->result(), QDialog::Accepted);
        EXPECT_EQ(m_dialog->spec().channelLongName, QStringLiteral("Oil Temp"));
        show(&m_document);
    }
}

TEST_F(InsertDialogKeys, ReturnInTheFilterSelectsNeitherOneOfSeveralHitsNorThePlaceholder)
{
    openUsual();
    for (const QString& text : {QStringLiteral("temp"), QStringLiteral("nothing")}) {
        typeFilter(text);
        for (int i = 0; i < 2; ++i)
            QTest::keyClick(m_filter, Qt::Key_Return);
        EXPECT_TRUE(m_dialog->isVisible());
        EXPECT_TRUE(m_channels->selectedItems().isEmpty());
        m_filter->clear();
    }
}

TEST_F(InsertDialogKeys, EscapeClearsTheFilterFirstAndClosesThen)
{
    openUsual();
    for (QWidget* const pane : {static_cast<QWidget*>(m_filter), static_cast<QWidget*>(m_channels),
                                static_cast<QWidget*>(m_types)}) {
        typeFilter(QStringLiteral("oil"));
        pane->setFocus();
        QTest::keyClick(pane, Qt::Key_Escape);
        EXPECT_TRUE(m_dialog->isVisible());
        EXPECT_EQ(m_filter->text(), QString());
        EXPECT_EQ(m_channels->count(), 3);
    }
    QTest::keyClick(m_filter, Qt::Key_Escape);
    EXPECT_FALSE(m_dialog->isVisible());
    EXPECT_EQ(m_dialog->result(), QDialog::Rejected);
}

TEST_F(InsertDialogKeys, TheFilterHasAClearButton)
{
    openUsual();
    typeFilter(QStringLiteral("oil"));
    auto* const button = m_filter->findChild<QAbstractButton*>();
    ASSERT_NE(button, nullptr);
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(m_filter->text(), QString());
    EXPECT_EQ(m_channels->count(), 3);
}
