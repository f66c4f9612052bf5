#include "canvas/StyleEditor.h"

#include <QComboBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class StyleEditorTest : public ::testing::Test
{
protected:
    StyleEditor m_editor{QStringLiteral("Value Font"), QStringLiteral("value")};
    QComboBox* m_family = m_editor.findChild<QComboBox*>(QStringLiteral("valueFontCombo"));
    QSpinBox* m_pixels = m_editor.findChild<QSpinBox*>(QStringLiteral("valueSizeSpin"));
    QPushButton* m_color = m_editor.findChild<QPushButton*>(QStringLiteral("valueColorButton"));
    QSignalSpy m_fontEdited{&m_editor, &StyleEditor::fontEdited};
    QSignalSpy m_colorRequested{&m_editor, &StyleEditor::colorRequested};
};

} // namespace

TEST_F(StyleEditorTest, HasATitleAndNamedWidgetsThatCannotBeEditedAtFirst)
{
    EXPECT_EQ(m_editor.title(), QStringLiteral("Value Font"));
    ASSERT_TRUE(m_family && m_pixels && m_color);
    EXPECT_FALSE(m_family->isEnabled() || m_pixels->isEnabled() || m_color->isEnabled());
    m_editor.setEditable(true);
    EXPECT_TRUE(m_family->isEnabled() && m_pixels->isEnabled() && m_color->isEnabled());
}

TEST_F(StyleEditorTest, ShowsAStyle)
{
    m_editor.showStyle(QStringLiteral("Basic Sans SF"), 40, QColor(255, 0, 16));
    EXPECT_EQ(m_editor.family(), QStringLiteral("Basic Sans SF"));
    EXPECT_EQ(m_editor.pixels(), 40);
    EXPECT_EQ(m_color->text(), QStringLiteral("#ff0010"));
}

TEST_F(StyleEditorTest, AFamilyThatIsNotOfferedLeavesTheOneBefore)
{
    m_editor.showStyle(QStringLiteral("Basic Sans SF"), 40, Qt::white);
    m_editor.showStyle(QStringLiteral("basic sans sf"), 400, Qt::white);
    EXPECT_EQ(m_editor.family(), QStringLiteral("Basic Sans SF"));
    EXPECT_EQ(m_editor.pixels(), 300) << "clamped";
}

TEST_F(StyleEditorTest, ReportsEdits)
{
    m_editor.setEditable(true);
    QTest::keyClick(m_family, Qt::Key_Down);
    EXPECT_EQ(m_fontEdited.count(), 1);
    QTest::keyClick(m_pixels, Qt::Key_Up);
    EXPECT_EQ(m_fontEdited.count(), 2);
    QTest::mouseClick(m_color, Qt::LeftButton);
    EXPECT_EQ(m_colorRequested.count(), 1);
    EXPECT_EQ(m_fontEdited.count(), 2);
}
