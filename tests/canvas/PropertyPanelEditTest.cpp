// Edits made in the inspector, through its real widgets and the real colour dialog.

#include "canvas/DashCanvas.h"
#include "tests/canvas/PanelFixture.h"
#include "tests/support/ModalDriver.h"

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QUndoStack>

namespace {

class PropertyPanelEdit : public PanelFixture
{
protected:
    PropertyPanelEdit() { m_panel.setElement(&m_element); }

    /// Types a number into a box as a user would.
    static void type(QSpinBox& box, const char* number)
    {
        box.selectAll();
        QTest::keyClicks(&box, QString::fromLatin1(number));
        QTest::keyClick(&box, Qt::Key_Return);
    }

    static void accept(QColorDialog& dialog)
    {
        auto* const buttons = dialog.findChild<QDialogButtonBox*>();
        QTest::mouseClick(buttons->button(QDialogButtonBox::Ok), Qt::LeftButton);
    }
};

} // namespace

// --- Geometry ------------------------------------------------------------------------------------

TEST_F(PropertyPanelEdit, ATypedPositionGoesIntoTheElementAndIsAnnounced)
{
    type(spin("xSpin"), "250");
    EXPECT_EQ(geometryOf(m_element), (ElementGeometry{250, 40, 120, 60}));
    ASSERT_GE(m_positionChanged.count(), 1);
    EXPECT_EQ(m_positionChanged.last(), (QVariantList{250, 40}));
}

TEST_F(PropertyPanelEdit, EveryBoxWritesItsOwnField)
{
    spin("xSpin").setValue(1);
    spin("ySpin").setValue(2);
    spin("widthSpin").setValue(33);
    spin("heightSpin").setValue(44);
    EXPECT_EQ(geometryOf(m_element), (ElementGeometry{1, 2, 33, 44}));
}

TEST_F(PropertyPanelEdit, BothSignalsAreEmittedWhicheverBoxChanged)
{
    int expected = 0;
    for (const char* const name : {"xSpin", "ySpin", "widthSpin", "heightSpin"}) {
        spin(name).setValue(77);
        ++expected;
        EXPECT_EQ(m_positionChanged.count(), expected) << name;
        EXPECT_EQ(m_sizeChanged.count(), expected) << name;
    }
    EXPECT_EQ(m_positionChanged.last(), (QVariantList{77, 77}));
    EXPECT_EQ(m_sizeChanged.last(), (QVariantList{77, 77}));
}

TEST_F(PropertyPanelEdit, TheElementIsWrittenBeforeTheSignals)
{
    int widthSeen = 0;
    QObject::connect(&m_panel, &PropertyPanel::positionChanged, &m_panel,
                     [&] { widthSeen = m_element.w; });
    spin("widthSpin").setValue(200);
    EXPECT_EQ(widthSeen, 200);
}

TEST_F(PropertyPanelEdit, ArrowKeysStepTheBoxes)
{
    QTest::keyClick(&spin("heightSpin"), Qt::Key_Up);
    EXPECT_EQ(m_element.h, 61);
    QTest::keyClick(&spin("heightSpin"), Qt::Key_Down);
    QTest::keyClick(&spin("heightSpin"), Qt::Key_Down);
    EXPECT_EQ(m_element.h, 59);
}

TEST_F(PropertyPanelEdit, TouchingOneBoxWritesTheClampedValuesOfAllFour)
{
    setGeometry(m_element, {900, -5, 2000, 3});
    m_panel.setElement(&m_element);
    spin("ySpin").setValue(7);
    EXPECT_EQ(geometryOf(m_element), (ElementGeometry{800, 7, 800, 10}));
}

TEST_F(PropertyPanelEdit, TypingStopsAtTheRanges)
{
    type(spin("widthSpin"), "10");
    EXPECT_EQ(m_element.w, 10);
    type(spin("widthSpin"), "9");
    EXPECT_EQ(m_element.w, 10);
    spin("heightSpin").setValue(-3);
    EXPECT_EQ(m_element.h, 10);
    spin("xSpin").setValue(5000);
    EXPECT_EQ(m_element.x, 800);
    spin("ySpin").setValue(5000);
    EXPECT_EQ(m_element.y, 480);
}

TEST_F(PropertyPanelEdit, TheElementMayReachBeyondThePage)
{
    spin("xSpin").setValue(800);
    EXPECT_EQ(geometryOf(m_element), (ElementGeometry{800, 40, 120, 60}));
}

TEST_F(PropertyPanelEdit, GeometryEditsTouchNoFont)
{
    const DashElement before = m_element;
    spin("xSpin").setValue(1);
    EXPECT_EQ(m_fontChanged.count(), 0);
    EXPECT_EQ(m_element.valueFont, before.valueFont);
    EXPECT_EQ(m_element.valueFontSize, before.valueFontSize);
}

TEST_F(PropertyPanelEdit, AnEditToTheSameValueIsNone)
{
    spin("xSpin").setValue(m_element.x);
    expectSilence();
}

// --- Fonts ---------------------------------------------------------------------------------------

TEST_F(PropertyPanelEdit, AValueFontGoesIntoTheElementAndIsAnnounced)
{
    combo("valueFontCombo").setCurrentIndex(0);
    EXPECT_EQ(m_element.valueFont, QStringLiteral("MicrogrammaDBolExt"));
    EXPECT_EQ(m_element.valueFontSize, 24);
    EXPECT_EQ(m_fontChanged.count(), 1);
    EXPECT_EQ(m_element.labelFont, QStringLiteral("Huge Basic Sans Heavy SF"));
}

TEST_F(PropertyPanelEdit, AValueSizeGoesIntoTheElementAndIsAnnounced)
{
    spin("valueSizeSpin").setValue(100);
    EXPECT_EQ(m_element.valueFontSize, 100);
    EXPECT_EQ(m_element.valueFont, QStringLiteral("Basic Sans SF"));
    EXPECT_EQ(m_fontChanged.count(), 1);
    EXPECT_EQ(m_element.labelFontSize, 12);
}

TEST_F(PropertyPanelEdit, ALabelFontGoesIntoTheElementAndIsAnnounced)
{
    combo("labelFontCombo").setCurrentIndex(1);
    EXPECT_EQ(m_element.labelFont, QStringLiteral("Basic Sans SF"));
    EXPECT_EQ(m_element.labelFontSize, 12);
    EXPECT_EQ(m_fontChanged.count(), 1);
    EXPECT_EQ(m_element.valueFont, QStringLiteral("Basic Sans SF"));
    EXPECT_EQ(m_element.valueFontSize, 24);
}

TEST_F(PropertyPanelEdit, ALabelSizeGoesIntoTheElementAndIsAnnounced)
{
    spin("labelSizeSpin").setValue(9);
    EXPECT_EQ(m_element.labelFontSize, 9);
    EXPECT_EQ(m_fontChanged.count(), 1);
    EXPECT_EQ(m_element.valueFontSize, 24);
}

TEST_F(PropertyPanelEdit, FontSizesStopAtTheirRange)
{
    spin("valueSizeSpin").setValue(1);
    EXPECT_EQ(m_element.valueFontSize, 8);
    spin("valueSizeSpin").setValue(1000);
    EXPECT_EQ(m_element.valueFontSize, 300);
}

TEST_F(PropertyPanelEdit, FontsAreChosenByKeyboard)
{
    QTest::keyClick(&combo("valueFontCombo"), Qt::Key_Down);
    EXPECT_EQ(m_element.valueFont, QStringLiteral("Huge Basic Sans Heavy SF"));
}

TEST_F(PropertyPanelEdit, TouchingTheSizeWritesTheFontThatIsShown)
{
    m_element.valueFont = QStringLiteral("not in the list");
    m_panel.setElement(&m_element);
    spin("valueSizeSpin").setValue(30);
    EXPECT_EQ(m_element.valueFont, QStringLiteral("Basic Sans SF"));
}

TEST_F(PropertyPanelEdit, FontEditsLeaveTheGeometryAlone)
{
    setGeometry(m_element, {900, -5, 2000, 3});
    m_panel.setElement(&m_element);
    spin("valueSizeSpin").setValue(30);
    EXPECT_EQ(geometryOf(m_element), (ElementGeometry{900, -5, 2000, 3}));
    EXPECT_EQ(m_positionChanged.count(), 0);
}

// --- Colours -------------------------------------------------------------------------------------

TEST_F(PropertyPanelEdit, AValueColorIsPickedInADialogThatShowsAlpha)
{
    ModalDriver driver;
    driver.expect<QColorDialog>([this](QColorDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Value Color"));
        EXPECT_TRUE(dialog.testOption(QColorDialog::ShowAlphaChannel));
        EXPECT_EQ(dialog.currentColor(), QColor(255, 200, 0, 128));
        EXPECT_EQ(dialog.parentWidget(), &m_panel);
        dialog.setCurrentColor(QColor(10, 20, 30, 40));
        accept(dialog);
    });
    QTest::mouseClick(&button("valueColorButton"), Qt::LeftButton);
    EXPECT_EQ(m_element.valueColor, QColor(10, 20, 30, 40));
    EXPECT_EQ(button("valueColorButton").text(), QStringLiteral("#0a141e"));
    EXPECT_EQ(button("valueColorButton").styleSheet(),
              QStringLiteral("background-color: #0a141e; border: 1px solid gray;"));
    EXPECT_EQ(m_fontChanged.count(), 1);
    EXPECT_EQ(m_element.labelColor, QColor(0, 0, 128));
    EXPECT_EQ(button("labelColorButton").text(), QStringLiteral("#000080"));
}

TEST_F(PropertyPanelEdit, ALabelColorIsPickedInADialogOfItsOwn)
{
    ModalDriver driver;
    driver.expect<QColorDialog>([this](QColorDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Label Color"));
        EXPECT_TRUE(dialog.testOption(QColorDialog::ShowAlphaChannel));
        EXPECT_EQ(dialog.currentColor(), QColor(0, 0, 128));
        EXPECT_EQ(dialog.parentWidget(), &m_panel);
        dialog.setCurrentColor(QColor(200, 210, 220));
        accept(dialog);
    });
    QTest::mouseClick(&button("labelColorButton"), Qt::LeftButton);
    EXPECT_EQ(m_element.labelColor, QColor(200, 210, 220));
    EXPECT_EQ(button("labelColorButton").text(), QStringLiteral("#c8d2dc"));
    EXPECT_EQ(m_fontChanged.count(), 1);
    EXPECT_EQ(m_element.valueColor, QColor(255, 200, 0, 128));
}

TEST_F(PropertyPanelEdit, ColorsAreReachableByKeyboard)
{
    ModalDriver driver;
    driver.expect<QColorDialog>([](QColorDialog& dialog) {
        dialog.setCurrentColor(Qt::green);
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    QTest::keyClick(&button("valueColorButton"), Qt::Key_Space);
    EXPECT_EQ(m_element.valueColor, QColor(Qt::green));
}

TEST_F(PropertyPanelEdit, ACancelledDialogChangesNothing)
{
    ModalDriver driver;
    for (const char* const name : {"valueColorButton", "labelColorButton"}) {
        driver.expect<QColorDialog>([](QColorDialog& dialog) {
            dialog.setCurrentColor(Qt::red);
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        QTest::mouseClick(&button(name), Qt::LeftButton);
    }
    EXPECT_EQ(m_element.valueColor, QColor(255, 200, 0, 128));
    EXPECT_EQ(m_element.labelColor, QColor(0, 0, 128));
    EXPECT_EQ(button("valueColorButton").text(), QStringLiteral("#ffc800"));
    expectSilence();
}

TEST_F(PropertyPanelEdit, AnInvalidColorCanBeReplaced)
{
    m_element.valueColor = QColor();
    m_panel.setElement(&m_element);
    ModalDriver driver;
    driver.expect<QColorDialog>([](QColorDialog& dialog) {
        dialog.setCurrentColor(Qt::cyan);
        accept(dialog);
    });
    m_panel.pickValueColor();
    EXPECT_EQ(m_element.valueColor, QColor(Qt::cyan));
}

TEST_F(PropertyPanelEdit, AnElementThatGoesWhileTheDialogIsOpenIsNotTouched)
{
    ModalDriver driver;
    for (int i = 0; i < 2; ++i) {
        driver.expect<QColorDialog>([this](QColorDialog& dialog) {
            m_panel.clear();
            dialog.setCurrentColor(Qt::cyan);
            accept(dialog);
        });
    }
    m_panel.pickValueColor();
    m_panel.setElement(&m_element);
    m_panel.pickLabelColor();
    EXPECT_EQ(m_element.valueColor, QColor(255, 200, 0, 128));
    EXPECT_EQ(m_element.labelColor, QColor(0, 0, 128));
    EXPECT_EQ(m_fontChanged.count(), 0);
}

TEST_F(PropertyPanelEdit, WithoutAnElementNoDialogOpens)
{
    m_panel.clear();
    const ModalDriver driver; // a dialog that comes up fails the test
    m_panel.pickValueColor();
    m_panel.pickLabelColor();
    expectSilence();
}

// --- Together with the canvas --------------------------------------------------------------------

TEST_F(PropertyPanelEdit, UndoingACanvasMoveRefreshesTheBoxesSilently)
{
    DashPage page;
    page.elements.push_back(m_element);
    QUndoStack stack;
    DashCanvas canvas;
    canvas.resize(820, 500);
    canvas.setUndoStack(&stack);
    canvas.setPage(&page);
    m_panel.setElement(&page.elements[0]);
    QObject::connect(&canvas, &DashCanvas::elementMoved, &m_panel, &PropertyPanel::refreshGeometry);
    QObject::connect(&stack, &QUndoStack::indexChanged, &m_panel, &PropertyPanel::refreshGeometry);

    QTest::mousePress(&canvas, Qt::LeftButton, {}, {60, 70});
    QTest::mouseMove(&canvas, {80, 90});
    QTest::mouseRelease(&canvas, Qt::LeftButton, {}, {80, 90});
    EXPECT_EQ(shown(), (ElementGeometry{50, 60, 120, 60}));
    stack.undo();
    EXPECT_EQ(shown(), (ElementGeometry{30, 40, 120, 60}));
    expectSilence();
}
