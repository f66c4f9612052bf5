#include "tests/app/MainWindowFixture.h"

#include <QSplitter>

namespace {

using MainWindowPaneWidthsTest = MainWindowFixture;

} // namespace

TEST_F(MainWindowPaneWidthsTest, SidePanesFillTheirColumnsAtEveryWidth)
{
    const QSplitter& splitter = *m_window->findChild<QSplitter*>();
    for (const int width : {1280, 1600, 900}) {
        m_window->resize(width, 750);
        QTest::qWait(0);
        EXPECT_EQ(splitter.sizes(),
                  QList<int>({pageList().width(), canvas().width(), panel().width()}));
        EXPECT_EQ(pageList().width(), 180);
        EXPECT_EQ(panel().width(), 220);
    }
}
