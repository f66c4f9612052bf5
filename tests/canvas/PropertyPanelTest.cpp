// What the property panel shows; edits made in it are in another file.

#include "tests/canvas/PanelFixture.h"

#include <QFormLayout>
#include <QVBoxLayout>

#include <utility>
#include <vector>

namespace {

using PropertyPanelTest = PanelFixture;

constexpr const char* kGeometrySpins[] = {"xSpin", "ySpin", "widthSpin", "heightSpin"};

std::vector<std::string> items(const QComboBox& box)
{
    std::vector<std::string> texts;
    texts.reserve(static_cast<std::size_t>(box.count()));
    for (int i = 0; i < box.count(); ++i)
        texts.push_back(box.itemText(i).toStdString());
    return texts;
}

} // namespace

// --- Layout --------------------------------------------------------------------------------------

TEST_F(PropertyPanelTest, GroupsAreStackedWithAStretchAtTheEnd)
{
    const auto* const layout = qobject_cast<QVBoxLayout*>(m_panel.layout());
    ASSERT_NE(layout, nullptr);
    EXPECT_EQ(layout->contentsMargins(), QMargins(8, 8, 8, 8));
    std::vector<std::string> titles;
    for (int i = 0; i + 1 < layout->count(); ++i) {
        const auto* const group = qobject_cast<QGroupBox*>(layout->itemAt(i)->widget());
        ASSERT_NE(group, nullptr);
        titles.push_back(group->title().toStdString());
    }
    EXPECT_EQ(titles, (std::vector<std::string>{"Element", "Position", "Size", "Value Font",
                                                "Label Font"}));
    EXPECT_NE(layout->itemAt(layout->count() - 1)->spacerItem(), nullptr);
}

TEST_F(PropertyPanelTest, EveryRowHasItsLabelAndWidget)
{
    using Row = std::pair<std::string, std::string>;
    std::vector<Row> rows;
    for (const QGroupBox* const group : m_panel.findChildren<QGroupBox*>()) {
        const auto* const form = qobject_cast<QFormLayout*>(group->layout());
        ASSERT_NE(form, nullptr);
        for (int i = 0; i < form->rowCount(); ++i) {
            const QWidget* const field = form->itemAt(i, QFormLayout::FieldRole)->widget();
            const auto* const label =
                qobject_cast<QLabel*>(form->itemAt(i, QFormLayout::LabelRole)->widget());
            rows.emplace_back(label->text().toStdString(), field->objectName().toStdString());
        }
    }
    EXPECT_EQ(rows, (std::vector<Row>{{"ID:", "idLabel"},
                                      {"Channel:", "channelLabel"},
                                      {"Type:", "typeLabel"},
                                      {"X:", "xSpin"},
                                      {"Y:", "ySpin"},
                                      {"Width:", "widthSpin"},
                                      {"Height:", "heightSpin"},
                                      {"Font:", "valueFontCombo"},
                                      {"Size:", "valueSizeSpin"},
                                      {"Color:", "valueColorButton"},
                                      {"Font:", "labelFontCombo"},
                                      {"Size:", "labelSizeSpin"},
                                      {"Color:", "labelColorButton"}}));
}

TEST_F(PropertyPanelTest, BothFontListsHoldTheDisplaysFontsInOrder)
{
    const std::vector<std::string> fonts{"MicrogrammaDBolExt", "Basic Sans SF",
                                         "Huge Basic Sans Heavy SF"};
    EXPECT_EQ(items(combo("valueFontCombo")), fonts);
    EXPECT_EQ(items(combo("labelFontCombo")), fonts);
}

TEST_F(PropertyPanelTest, BoxesCountPixelsWithinTheirRanges)
{
    struct Range
    {
        const char* name;
        int least;
        int most;
    };
    for (const Range& range : {Range{"xSpin", 0, 800}, Range{"ySpin", 0, 480},
                               Range{"widthSpin", 10, 800}, Range{"heightSpin", 10, 480},
                               Range{"valueSizeSpin", 8, 300}, Range{"labelSizeSpin", 8, 300}}) {
        EXPECT_EQ(spin(range.name).minimum(), range.least) << range.name;
        EXPECT_EQ(spin(range.name).maximum(), range.most) << range.name;
        EXPECT_EQ(spin(range.name).suffix(), QStringLiteral(" px")) << range.name;
        EXPECT_EQ(spin(range.name).buttonSymbols(), QAbstractSpinBox::UpDownArrows);
    }
}

TEST_F(PropertyPanelTest, ColorButtonsHaveAFixedSize)
{
    for (const char* const name : {"valueColorButton", "labelColorButton"}) {
        EXPECT_EQ(button(name).minimumSize(), QSize(60, 24));
        EXPECT_EQ(button(name).maximumSize(), QSize(60, 24));
    }
}

TEST_F(PropertyPanelTest, StartsEmpty)
{
    EXPECT_EQ(text("idLabel"), "--");
    EXPECT_EQ(text("channelLabel"), "--");
    EXPECT_EQ(text("typeLabel"), "--");
    for (const char* const name : kGeometrySpins)
        EXPECT_FALSE(spin(name).isEnabled()) << name;
    for (const char* const name : {"valueSizeSpin", "labelSizeSpin"})
        EXPECT_FALSE(spin(name).isEnabled()) << name;
    for (const char* const name : {"valueFontCombo", "labelFontCombo"})
        EXPECT_FALSE(combo(name).isEnabled()) << name;
    for (const char* const name : {"valueColorButton", "labelColorButton"})
        EXPECT_FALSE(button(name).isEnabled()) << name;
    EXPECT_TRUE(labelGroupIsHidden());
    EXPECT_EQ(m_panel.element(), nullptr);
}

TEST_F(PropertyPanelTest, TheKeyboardGoesThroughItFromTopToBottom)
{
    m_panel.setElement(&m_element);
    m_panel.show();
    const QWidget* widget = &spin("xSpin");
    std::vector<std::string> order;
    for (; widget != &m_panel; widget = widget->nextInFocusChain()) {
        if ((widget->focusPolicy() & Qt::TabFocus) != 0 && !widget->objectName().startsWith(u"qt_"))
            order.push_back(widget->objectName().toStdString());
    }
    EXPECT_EQ(order,
              (std::vector<std::string>{"xSpin", "ySpin", "widthSpin", "heightSpin",
                                        "valueFontCombo", "valueSizeSpin", "valueColorButton",
                                        "labelFontCombo", "labelSizeSpin", "labelColorButton"}));
}

TEST_F(PropertyPanelTest, EveryEditorIsItsRowLabelsBuddy)
{
    int buddies = 0;
    for (const QLabel* const label : m_panel.findChildren<QLabel*>())
        buddies += label->buddy() ? 1 : 0;
    EXPECT_EQ(buddies, 13);
}

// --- Showing an element --------------------------------------------------------------------------

TEST_F(PropertyPanelTest, ShowsAnElement)
{
    m_panel.setElement(&m_element);
    EXPECT_EQ(text("idLabel"), "mask.3");
    EXPECT_EQ(text("channelLabel"), "Engine RPM");
    EXPECT_EQ(text("typeLabel"), "Digit");
    EXPECT_EQ(shown(), (ElementGeometry{30, 40, 120, 60}));
    for (const char* const name : kGeometrySpins)
        EXPECT_TRUE(spin(name).isEnabled()) << name;
    EXPECT_EQ(combo("valueFontCombo").currentText(), QStringLiteral("Basic Sans SF"));
    EXPECT_EQ(spin("valueSizeSpin").value(), 24);
    EXPECT_TRUE(combo("valueFontCombo").isEnabled());
    EXPECT_TRUE(spin("valueSizeSpin").isEnabled());
    EXPECT_TRUE(button("valueColorButton").isEnabled());
    EXPECT_FALSE(labelGroupIsHidden());
    EXPECT_EQ(combo("labelFontCombo").currentText(), QStringLiteral("Huge Basic Sans Heavy SF"));
    EXPECT_EQ(spin("labelSizeSpin").value(), 12);
    EXPECT_TRUE(combo("labelFontCombo").isEnabled());
    EXPECT_TRUE(spin("labelSizeSpin").isEnabled());
    EXPECT_TRUE(button("labelColorButton").isEnabled());
    EXPECT_EQ(m_panel.element(), &m_element);
}

TEST_F(PropertyPanelTest, ShowingAnElementChangesAndEmitsNothing)
{
    m_element.valueFont = QStringLiteral("not in the list");
    m_element.valueFontSize = 7; // outside the range
    const DashElement before = m_element;
    m_panel.setElement(&m_element);
    m_panel.clear();
    expectSilence();
    EXPECT_EQ(geometryOf(m_element), geometryOf(before));
    EXPECT_EQ(m_element.valueFont, before.valueFont);
    EXPECT_EQ(m_element.valueFontSize, 7);
}

TEST_F(PropertyPanelTest, AnElementWithoutAChannelShowsNone)
{
    m_element.channelLongName.clear();
    m_panel.setElement(&m_element);
    EXPECT_EQ(text("channelLabel"), "(none)");
}

TEST_F(PropertyPanelTest, NamesEveryKind)
{
    const auto shownFor = [this](int kind) {
        m_element.kind = static_cast<ElementKind>(kind);
        m_panel.setElement(&m_element);
        return text("typeLabel");
    };
    EXPECT_EQ(shownFor(0), "Analog");
    EXPECT_EQ(shownFor(1), "Digit");
    EXPECT_EQ(shownFor(2), "Icon");
    EXPECT_EQ(shownFor(3), "Unknown");
    EXPECT_EQ(shownFor(4), "Unknown");
    EXPECT_EQ(shownFor(-1), "Unknown");
}

TEST_F(PropertyPanelTest, NamesAreShownAsTheyAre)
{
    m_element.name = QStringLiteral("<b>bold</b> & %1");
    m_panel.setElement(&m_element);
    EXPECT_EQ(text("idLabel"), "<b>bold</b> & %1");
    EXPECT_EQ(find<QLabel>("idLabel").textFormat(), Qt::PlainText);
    EXPECT_EQ(find<QLabel>("idLabel").toolTip(),
              QStringLiteral("<span>&lt;b&gt;bold&lt;/b&gt; &amp; %1</span>"));
}

TEST_F(PropertyPanelTest, ALongNameDoesNotWidenThePanel)
{
    m_panel.setElement(&m_element);
    const int before = m_panel.minimumSizeHint().width();
    m_element.name = QString(500, u'W');
    m_element.channelLongName = m_element.name;
    m_panel.setElement(&m_element);
    EXPECT_EQ(m_panel.minimumSizeHint().width(), before);
}

TEST_F(PropertyPanelTest, ARectangleOutsideThePageIsShownClampedAndLeftAlone)
{
    setGeometry(m_element, {900, -5, 2000, 3});
    m_panel.setElement(&m_element);
    EXPECT_EQ(shown(), (ElementGeometry{800, 0, 800, 10}));
    EXPECT_EQ(geometryOf(m_element), (ElementGeometry{900, -5, 2000, 3}));
}

TEST_F(PropertyPanelTest, AnElementWithoutAValueFontLeavesTheFormerValuesDisabled)
{
    m_panel.setElement(&m_element);
    const QString style = button("valueColorButton").styleSheet();
    DashElement plain = m_element;
    plain.valueFont.clear();
    plain.valueFontSize = 99;
    plain.valueColor = Qt::green;
    m_panel.setElement(&plain);
    EXPECT_FALSE(combo("valueFontCombo").isEnabled());
    EXPECT_FALSE(spin("valueSizeSpin").isEnabled());
    EXPECT_FALSE(button("valueColorButton").isEnabled());
    EXPECT_EQ(combo("valueFontCombo").currentText(), QStringLiteral("Basic Sans SF"));
    EXPECT_EQ(spin("valueSizeSpin").value(), 24);
    EXPECT_EQ(button("valueColorButton").styleSheet(), style);
}

TEST_F(PropertyPanelTest, AFontThatIsNotInTheListLeavesTheFormerOne)
{
    m_panel.setElement(&m_element);
    DashElement other = m_element;
    other.valueFont = QStringLiteral("basic sans sf"); // case matters
    other.labelFont = QStringLiteral("Basic Sans");    // and so does the whole name
    m_panel.setElement(&other);
    EXPECT_EQ(combo("valueFontCombo").currentText(), QStringLiteral("Basic Sans SF"));
    EXPECT_EQ(combo("labelFontCombo").currentText(), QStringLiteral("Huge Basic Sans Heavy SF"));
    EXPECT_TRUE(combo("valueFontCombo").isEnabled());
    EXPECT_EQ(other.valueFont, QStringLiteral("basic sans sf"));
}

TEST_F(PropertyPanelTest, AnElementWithoutALabelHidesTheGroup)
{
    m_panel.setElement(&m_element);
    m_element.hasLabel = false;
    m_panel.setElement(&m_element);
    EXPECT_TRUE(labelGroupIsHidden());
    m_element.hasLabel = true;
    m_panel.setElement(&m_element);
    EXPECT_FALSE(labelGroupIsHidden());
}

TEST_F(PropertyPanelTest, ColorButtonsShowTheColorAndItsName)
{
    m_panel.setElement(&m_element);
    EXPECT_EQ(button("valueColorButton").text(), QStringLiteral("#ffc800")); // without alpha
    EXPECT_EQ(button("valueColorButton").styleSheet(),
              QStringLiteral("background-color: #ffc800; border: 1px solid gray;"));
    EXPECT_EQ(button("labelColorButton").text(), QStringLiteral("#000080"));
    EXPECT_EQ(button("labelColorButton").styleSheet(),
              QStringLiteral("background-color: #000080; border: 1px solid gray;"));
}

TEST_F(PropertyPanelTest, AnInvalidColorIsShownAsBlack)
{
    m_element.valueColor = QColor();
    m_panel.setElement(&m_element);
    EXPECT_EQ(button("valueColorButton").text(), QStringLiteral("#000000"));
}

TEST_F(PropertyPanelTest, TheNameIsReadableOnItsColor)
{
    m_panel.setElement(&m_element);
    EXPECT_EQ(button("valueColorButton").palette().color(QPalette::ButtonText), QColor(Qt::black));
    EXPECT_EQ(button("labelColorButton").palette().color(QPalette::ButtonText), QColor(Qt::white));
}

TEST_F(PropertyPanelTest, ANullElementIsNoElement)
{
    m_panel.setElement(&m_element);
    m_panel.setElement(nullptr);
    EXPECT_EQ(text("idLabel"), "--");
    EXPECT_EQ(m_panel.element(), nullptr);
}

// --- Clearing, refreshing, ranges ----------------------------------------------------------------

TEST_F(PropertyPanelTest, ClearingShowsNoElement)
{
    m_panel.setElement(&m_element);
    m_panel.clear();
    EXPECT_EQ(text("idLabel"), "--");
    EXPECT_EQ(text("channelLabel"), "--");
    EXPECT_EQ(text("typeLabel"), "--");
    EXPECT_EQ(shown(), (ElementGeometry{0, 0, 10, 10}));
    for (const char* const name : kGeometrySpins)
        EXPECT_FALSE(spin(name).isEnabled()) << name;
    EXPECT_FALSE(combo("valueFontCombo").isEnabled());
    EXPECT_FALSE(spin("valueSizeSpin").isEnabled());
    EXPECT_FALSE(button("valueColorButton").isEnabled());
    EXPECT_TRUE(labelGroupIsHidden());
    expectSilence();
    EXPECT_EQ(geometryOf(m_element), (ElementGeometry{30, 40, 120, 60}));
}

TEST_F(PropertyPanelTest, AfterClearingTheElementIsNotTouchedAgain)
{
    m_panel.setElement(&m_element);
    m_panel.clear();
    spin("xSpin").setValue(5);
    combo("valueFontCombo").setCurrentIndex(0);
    spin("labelSizeSpin").setValue(50);
    m_panel.pickValueColor();
    m_panel.pickLabelColor();
    m_panel.refreshGeometry();
    EXPECT_EQ(geometryOf(m_element), (ElementGeometry{30, 40, 120, 60}));
    EXPECT_EQ(m_element.valueFont, QStringLiteral("Basic Sans SF"));
    EXPECT_EQ(m_element.labelFontSize, 12);
    expectSilence();
}

TEST_F(PropertyPanelTest, RefreshingReadsTheGeometryAgainSilently)
{
    m_panel.setElement(&m_element);
    setGeometry(m_element, {1, 2, 33, 44});
    m_element.name = QStringLiteral("other");
    m_panel.refreshGeometry();
    EXPECT_EQ(shown(), (ElementGeometry{1, 2, 33, 44}));
    EXPECT_EQ(text("idLabel"), "mask.3");
    EXPECT_EQ(geometryOf(m_element), (ElementGeometry{1, 2, 33, 44}));
    expectSilence();
}

TEST_F(PropertyPanelTest, RebindingShowsTheSameElementAtItsNewPlace)
{
    m_panel.setElement(&m_element);
    DashElement moved = m_element;
    setGeometry(moved, {1, 2, 33, 44});
    m_panel.rebindElement(&moved);
    EXPECT_EQ(m_panel.element(), &moved);
    EXPECT_EQ(shown(), (ElementGeometry{1, 2, 33, 44}));
    spin("xSpin").setValue(5);
    EXPECT_EQ(moved.x, 5);
    EXPECT_EQ(m_element.x, 30);
}

TEST_F(PropertyPanelTest, RebindingToNothingClears)
{
    m_panel.setElement(&m_element);
    m_panel.rebindElement(nullptr);
    EXPECT_EQ(m_panel.element(), nullptr);
    EXPECT_EQ(text("idLabel"), "--");
}

TEST_F(PropertyPanelTest, RangesFollowThePage)
{
    m_panel.setPageSize(320, 240);
    EXPECT_EQ(spin("xSpin").minimum(), 0);
    EXPECT_EQ(spin("xSpin").maximum(), 320);
    EXPECT_EQ(spin("ySpin").minimum(), 0);
    EXPECT_EQ(spin("ySpin").maximum(), 240);
    EXPECT_EQ(spin("widthSpin").minimum(), 10);
    EXPECT_EQ(spin("widthSpin").maximum(), 320);
    EXPECT_EQ(spin("heightSpin").minimum(), 10);
    EXPECT_EQ(spin("heightSpin").maximum(), 240);
}

TEST_F(PropertyPanelTest, ASmallerPageDoesNotReachTheElementShown)
{
    setGeometry(m_element, {700, 400, 90, 70});
    m_panel.setElement(&m_element);
    m_panel.setPageSize(320, 240);
    EXPECT_EQ(shown(), (ElementGeometry{320, 240, 90, 70}));
    EXPECT_EQ(geometryOf(m_element), (ElementGeometry{700, 400, 90, 70}));
    expectSilence();
}

TEST_F(PropertyPanelTest, AbsurdPagesAreHarmless)
{
    m_panel.setElement(&m_element);
    for (const QSize page :
         {QSize(0, 0), QSize(-800, -480), QSize(5, 5), QSize(2'147'483'647, 2'147'483'647)}) {
        m_panel.setPageSize(page.width(), page.height());
        m_panel.refreshGeometry();
    }
    EXPECT_EQ(geometryOf(m_element), (ElementGeometry{30, 40, 120, 60}));
    EXPECT_EQ(shown(), (ElementGeometry{30, 40, 120, 60}));
}
