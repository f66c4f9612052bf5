// What an edit says and leaves behind: its message, the new record and the saved file.

#include "tests/app/MainWindowFixture.h"

#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QSpinBox>

namespace {

class MainWindowOutcome : public MainWindowFixture
{
protected:
    /// Undoes the next step at once, as if it had not worked.
    void undoNextStep()
    {
        QObject::connect(
            &stack(), &QUndoStack::indexChanged, &stack(), [this] { stack().undo(); },
            Qt::SingleShotConnection);
    }

    static void expectStyle(const DashElement& element)
    {
        EXPECT_EQ(element.valueFont, QStringLiteral("Huge Basic Sans Heavy SF"));
        EXPECT_EQ(element.valueFontSize, 77);
        EXPECT_EQ(element.valueColor, QColor(10, 20, 30, 40));
    }
};

} // namespace

TEST_F(MainWindowOutcome, AnInsertionThatFailsIsNotConfirmed)
{
    openUsual();
    clickPage(2);
    auto& document = const_cast<DashboardDocument&>(m_window->document());
    ASSERT_TRUE(document.confNode().remove_child(document.pageNode(2)));
    insertElement();
    EXPECT_TRUE(elements(2).empty());
    EXPECT_EQ(status(), QStringLiteral("Opened usual.zconf2 (3 pages)"));
}

TEST_F(MainWindowOutcome, ADeletionThatFailsIsNotConfirmed)
{
    openUsual();
    undoNextStep();
    m_window->deleteElement(1);
    EXPECT_EQ(names(), QStringLiteral("race.0 race.1 race.2 race.3"));
    EXPECT_EQ(status(), QStringLiteral("Opened usual.zconf2 (3 pages)"));
}

TEST_F(MainWindowOutcome, AClearingThatFailsIsNotConfirmed)
{
    openUsual();
    undoNextStep();
    clearPage();
    EXPECT_EQ(names(), QStringLiteral("race.0 race.1 race.2 race.3"));
    EXPECT_EQ(status(), QStringLiteral("Opened usual.zconf2 (3 pages)"));
}

TEST_F(MainWindowOutcome, AnInsertedElementHasTheStyleThatItsDonorWasGivenInThePanel)
{
    openUsual();
    clickElement(0);
    child<QComboBox>("valueFontCombo")->setCurrentText(QStringLiteral("Huge Basic Sans Heavy SF"));
    child<QSpinBox>("valueSizeSpin")->setValue(77);
    m_dialogs.expect<QColorDialog>([](QColorDialog& dialog) {
        dialog.setCurrentColor(QColor(10, 20, 30, 40));
        auto* const buttons = dialog.findChild<QDialogButtonBox*>();
        QTest::mouseClick(buttons->button(QDialogButtonBox::Ok), Qt::LeftButton);
    });
    QTest::mouseClick(child<QPushButton>("valueColorButton"), Qt::LeftButton);
    insertElement();
    ASSERT_EQ(elements().size(), 5U);
    expectStyle(elements()[4]);

    trigger("saveAction");
    DashboardDocument saved;
    ASSERT_TRUE(saved.open(path(QStringLiteral("usual.zconf2"))));
    ASSERT_EQ(saved.pages()[0].elements.size(), 5U);
    expectStyle(saved.pages()[0].elements[0]);
    expectStyle(saved.pages()[0].elements[4]);
    FolderTools::remove(saved.tempDir());
}
