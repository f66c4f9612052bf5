#include "driver/WindowDriver.h"

#include <QComboBox>
#include <QStringList>

#include <gtest/gtest.h>

namespace {

class WindowDriverTest : public testing::Test
{
protected:
    WindowDriverTest() { m_driver.activate(); }

    QStringList m_reports;
    WindowDriver m_driver{[this](const QString& report) { m_reports << report; }};
};

} // namespace

TEST_F(WindowDriverTest, ActivatesTheWindow)
{
    EXPECT_TRUE(m_driver.window().isActiveWindow());
    EXPECT_EQ(m_reports, QStringList());
}

TEST_F(WindowDriverTest, ChoosesAnItemOfAComboBox)
{
    m_driver.choose("speedUnitCombo", 1);
    EXPECT_EQ(m_driver.child<QComboBox>("speedUnitCombo")->currentIndex(), 1);
    EXPECT_EQ(m_reports, QStringList());
}

TEST_F(WindowDriverTest, ReportsAnItemThatAComboBoxLacks)
{
    m_driver.choose("speedUnitCombo", 99);
    EXPECT_EQ(m_reports, QStringList{QStringLiteral("speedUnitCombo has no item 99")});
}

TEST_F(WindowDriverTest, ReportsAPageThatIsNotListed)
{
    m_driver.clickPage(0);
    EXPECT_EQ(m_reports, QStringList{QStringLiteral("page 0 cannot be chosen")});
}

TEST_F(WindowDriverTest, ReportsAReplayWithoutRecording)
{
    m_driver.seek(5);
    EXPECT_EQ(m_reports, QStringList{QStringLiteral("the replay cannot be moved to 5 s")});
}
