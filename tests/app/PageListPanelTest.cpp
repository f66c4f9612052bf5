#include "app/PageListPanel.h"

#include <QAccessible>
#include <QMetaMethod>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

DashPage page(const QString& name, const QSize& imageSize = {})
{
    DashPage result;
    result.name = name;
    if (!imageSize.isEmpty()) {
        result.image = QPixmap(imageSize);
        result.image.fill(Qt::red);
    }
    return result;
}

class PageListPanelTest : public ::testing::Test
{
protected:
    PageListPanelTest()
    {
        m_panel.show();
        static_cast<void>(QTest::qWaitForWindowExposed(&m_panel));
    }

    void clickRow(int row)
    {
        const QRect rectangle = m_panel.visualItemRect(m_panel.item(row));
        QTest::mouseClick(m_panel.viewport(), Qt::LeftButton, {}, rectangle.center());
    }

    [[nodiscard]] QSize iconSize(int row) const
    {
        const QIcon icon = m_panel.item(row)->icon();
        return icon.isNull() ? QSize() : icon.availableSizes().constFirst();
    }

    PageListPanel m_panel;
    QSignalSpy m_selected{&m_panel, &PageListPanel::pageSelected};
};

} // namespace

TEST_F(PageListPanelTest, HasItsWidthsSpacingAndIconSize)
{
    EXPECT_EQ(m_panel.minimumWidth(), 120);
    EXPECT_EQ(m_panel.maximumWidth(), 180);
    EXPECT_EQ(m_panel.iconSize(), QSize(120, 72));
    EXPECT_EQ(m_panel.spacing(), 4);
    EXPECT_EQ(m_panel.objectName(), QStringLiteral("pageList"));
}

TEST_F(PageListPanelTest, DeclaresOneSignalThenOneSlot)
{
    const QMetaObject& meta = PageListPanel::staticMetaObject;
    ASSERT_EQ(meta.methodCount() - meta.methodOffset(), 2);
    const QMetaMethod signal = meta.method(meta.methodOffset());
    EXPECT_EQ(signal.methodSignature(), QByteArray("pageSelected(int)"));
    EXPECT_EQ(signal.parameterNames(), QByteArrayList{"index"});
    EXPECT_EQ(signal.methodType(), QMetaMethod::Signal);
    const QMetaMethod slot = meta.method(meta.methodOffset() + 1);
    EXPECT_EQ(slot.methodSignature(), QByteArray("onCurrentRowChanged(int)"));
    EXPECT_EQ(slot.methodType(), QMetaMethod::Slot);
}

TEST_F(PageListPanelTest, ShowsOneRowAPageInOrder)
{
    m_panel.setPages({page(QStringLiteral("Race")), page(QStringLiteral(" %1 <b> ")),
                      page(QStringLiteral("Race"))});
    ASSERT_EQ(m_panel.count(), 3);
    EXPECT_EQ(m_panel.item(0)->text(), QStringLiteral("Race"));
    EXPECT_EQ(m_panel.item(1)->text(), QStringLiteral(" %1 <b> "));
    EXPECT_EQ(m_panel.item(2)->text(), QStringLiteral("Race"));
    EXPECT_EQ(m_panel.currentRow(), 0);
}

TEST_F(PageListPanelTest, ARefillReplacesTheRows)
{
    m_panel.setPages({page(QStringLiteral("a")), page(QStringLiteral("b"))});
    m_panel.setPages({page(QStringLiteral("c"))});
    ASSERT_EQ(m_panel.count(), 1);
    EXPECT_EQ(m_panel.item(0)->text(), QStringLiteral("c"));
}

TEST_F(PageListPanelTest, NoPagesNoRowsNoSignal)
{
    m_panel.setPages({});
    EXPECT_EQ(m_panel.count(), 0);
    EXPECT_EQ(m_panel.currentRow(), -1);
    EXPECT_EQ(m_selected.count(), 0);

    m_panel.setPages({page(QStringLiteral("a"))});
    m_selected.clear();
    m_panel.setPages({});
    EXPECT_EQ(m_panel.count(), 0);
    EXPECT_EQ(m_panel.currentRow(), -1);
    EXPECT_EQ(m_selected.count(), 0);
}

TEST_F(PageListPanelTest, ThumbnailsKeepTheAspectRatio)
{
    m_panel.setPages({page(QStringLiteral("wide"), {800, 480}),
                      page(QStringLiteral("square"), {480, 480}),
                      page(QStringLiteral("small"), {12, 6}), page(QStringLiteral("none"))});
    EXPECT_EQ(iconSize(0), QSize(120, 72));
    EXPECT_EQ(iconSize(1), QSize(72, 72));
    EXPECT_EQ(iconSize(2), QSize(120, 60));
    EXPECT_TRUE(m_panel.item(3)->icon().isNull());
}

TEST_F(PageListPanelTest, ThumbnailsUseEveryPixelOfTheScreen)
{
    m_panel.setPages({page(QStringLiteral("wide"), {1600, 960})});
    const qreal screenPixels = m_panel.devicePixelRatioF();
    const QPixmap thumbnail = m_panel.item(0)->icon().pixmap(QSize(120, 72), screenPixels);
    EXPECT_EQ(thumbnail.size(), QSize(120, 72) * screenPixels);
    EXPECT_EQ(thumbnail.deviceIndependentSize(), QSizeF(120, 72));
}

TEST_F(PageListPanelTest, AnUnchangedImageIsNotScaledAgain)
{
    std::vector<DashPage> pages{page(QStringLiteral("a"), {800, 480}),
                                page(QStringLiteral("b"), {800, 480})};
    m_panel.setPages(pages);
    const qint64 first = m_panel.item(0)->icon().cacheKey();
    const qint64 second = m_panel.item(1)->icon().cacheKey();
    EXPECT_NE(first, second);

    m_panel.setPages(pages);
    EXPECT_EQ(m_panel.item(0)->icon().cacheKey(), first);
    EXPECT_EQ(m_panel.item(1)->icon().cacheKey(), second);

    pages[0].image.fill(Qt::blue);
    m_panel.setPages(pages);
    EXPECT_NE(m_panel.item(0)->icon().cacheKey(), first);
    EXPECT_EQ(m_panel.item(1)->icon().cacheKey(), second);
}

TEST_F(PageListPanelTest, ChoosingARowEmitsItsIndexOnce)
{
    m_panel.setPages({page(QStringLiteral("a")), page(QStringLiteral("b"))});
    m_selected.clear();
    clickRow(1);
    ASSERT_EQ(m_selected.count(), 1);
    EXPECT_EQ(m_selected[0][0].toInt(), 1);
    clickRow(1);
    EXPECT_EQ(m_selected.count(), 1) << "it is current already";
    QTest::keyClick(&m_panel, Qt::Key_Up);
    ASSERT_EQ(m_selected.count(), 2);
    EXPECT_EQ(m_selected[1][0].toInt(), 0);
}

TEST_F(PageListPanelTest, LosingTheCurrentRowEmitsNothing)
{
    m_panel.setPages({page(QStringLiteral("a"))});
    m_selected.clear();
    m_panel.setCurrentRow(-1);
    EXPECT_EQ(m_selected.count(), 0);
}

TEST_F(PageListPanelTest, ARefillWithBlockedSignalsIsQuietAndShown)
{
    const QSignalBlocker quiet(&m_panel);
    m_panel.setPages({page(QStringLiteral("a")), page(QStringLiteral("b"))});
    m_panel.setCurrentRow(1);
    EXPECT_EQ(m_selected.count(), 0);
    EXPECT_EQ(m_panel.currentRow(), 1);
    EXPECT_TRUE(m_panel.item(1)->isSelected());
}

TEST_F(PageListPanelTest, ShowsNamesBelowThumbnailsSoThatEveryRowFitsTheWidth)
{
    m_panel.setPages({page(QStringLiteral("Qualifying, wet tyres"), {800, 480}),
                      page(QStringLiteral("A name that is far too long for any list")),
                      page(QStringLiteral("Wet & dry")), page(QStringLiteral("<i>Wet</i>"))});
    QTest::qWait(0);
    const QRect row = m_panel.visualItemRect(m_panel.item(0));
    EXPECT_GT(row.height(), 72 + m_panel.fontMetrics().height() - 1);
    EXPECT_FALSE(m_panel.horizontalScrollBar()->isVisible());
    EXPECT_EQ(m_panel.item(1)->toolTip(),
              QStringLiteral("A name that is far too long for any list"));
    EXPECT_EQ(m_panel.item(2)->toolTip(), QStringLiteral("Wet & dry"));
    EXPECT_EQ(m_panel.item(3)->toolTip(), QStringLiteral("<span>&lt;i&gt;Wet&lt;/i&gt;</span>"));
}

TEST_F(PageListPanelTest, RefreshReplacesRowsOnlyWhenTheyDiffer)
{
    std::vector<DashPage> pages{page(QStringLiteral("A"), QSize(80, 48)),
                                page(QStringLiteral("B"))};
    m_panel.refresh(pages, 1);
    EXPECT_EQ(m_panel.count(), 2);
    EXPECT_EQ(m_panel.currentRow(), 1);
    const QListWidgetItem* const row = m_panel.item(0);
    m_panel.refresh(pages, 0);
    EXPECT_EQ(m_panel.item(0), row);
    EXPECT_EQ(m_panel.currentRow(), 0);

    pages[1].name = QStringLiteral("C");
    m_panel.refresh(pages, 1);
    EXPECT_EQ(m_panel.item(1)->text(), QStringLiteral("C"));
    pages[1].image = QPixmap(90, 90);
    m_panel.refresh(pages, 1);
    EXPECT_FALSE(m_panel.item(1)->icon().isNull());
    pages.pop_back();
    m_panel.refresh(pages, 7);
    EXPECT_EQ(m_panel.count(), 1);
    EXPECT_EQ(m_panel.currentRow(), 0);
    m_panel.refresh({}, 0);
    EXPECT_EQ(m_panel.count(), 0);
    EXPECT_EQ(m_selected.count(), 0) << "all of that is quiet";
}

TEST_F(PageListPanelTest, ACtrlClickKeepsTheCurrentPageSelected)
{
    m_panel.setPages({page(QStringLiteral("A")), page(QStringLiteral("B"))});
    clickRow(1);
    const QPoint center = m_panel.visualItemRect(m_panel.item(1)).center();
    QTest::mouseClick(m_panel.viewport(), Qt::LeftButton, Qt::ControlModifier, center);
    EXPECT_TRUE(m_panel.item(1)->isSelected());
    QTest::keyClick(&m_panel, Qt::Key_Space, Qt::ControlModifier);
    EXPECT_TRUE(m_panel.item(1)->isSelected());
    QTest::mouseClick(m_panel.viewport(), Qt::LeftButton, {}, QPoint(60, 600));
    EXPECT_EQ(m_panel.selectedItems(), QList<QListWidgetItem*>{m_panel.item(1)});
    EXPECT_EQ(m_panel.currentRow(), 1);
}

TEST_F(PageListPanelTest, AssistiveTechnologyReadsNamesAndDetails)
{
    std::vector<DashPage> pages{page(QStringLiteral("A")), page(QStringLiteral("<b>B"))};
    pages[1].width = 320;
    pages[1].height = 240;
    pages[1].elements.resize(3);
    m_panel.refresh(pages, 0);
    QAccessibleInterface* const list = QAccessible::queryAccessibleInterface(&m_panel);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->text(QAccessible::Name), QStringLiteral("Pages"));
    ASSERT_EQ(list->childCount(), 2);
    EXPECT_EQ(list->child(0)->text(QAccessible::Name), QStringLiteral("A"));
    EXPECT_EQ(list->child(1)->text(QAccessible::Name), QStringLiteral("<b>B"));
    EXPECT_EQ(list->child(1)->text(QAccessible::Description),
              QStringLiteral("320 x 240 pixels, 3 elements"));
    pages[1].elements.pop_back();
    m_panel.refresh(pages, 0);
    EXPECT_EQ(list->child(1)->text(QAccessible::Description),
              QStringLiteral("320 x 240 pixels, 2 elements"));
}
