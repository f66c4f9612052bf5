// Texts of 10 MB in a package that is opened and edited. Laid out as a whole each would stall the
// window for a minute, so the records end after 10,000 characters. The file keeps the whole texts.

#include "dialogs/AddElementDialog.h"
#include "tests/app/MainWindowFixture.h"

#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>

using TestPackage::digitElement;

namespace {

const QByteArray kHuge = QByteArray("long text ").repeated(1'000'000);

class HugeTexts : public MainWindowFixture
{
protected:
    void openWith(const QByteArray& pageName, const QByteArray& elementName,
                  const QByteArray& channel, const QByteArray& device = {})
    {
        open(
            writePackage(QStringLiteral("huge.zconf2"),
                         {TestPackage::page(pageName, 800, 480,
                                            {digitElement(elementName, 50, 50, 120, 60, channel)})},
                         device));
        QCoreApplication::processEvents();
    }

    const QString m_shown = QString::fromUtf8(kHuge).left(10'000);
};

} // namespace

TEST_F(HugeTexts, APageNameIsShownInPart)
{
    openWith(kHuge, "mask.1", "RPM");
    EXPECT_EQ(pageList().item(0)->text(), m_shown);
    EXPECT_EQ(pageList().item(0)->toolTip(), m_shown);
    EXPECT_EQ(pages()[0].name, m_shown);

    m_dialogs.expectBox(QMessageBox::Question, QStringLiteral("Clear Page"),
                        QStringLiteral("Remove all 1 elements from page \"%1\"?\n\n"
                                       "This is undoable with Ctrl+Z.")
                            .arg(m_shown),
                        QMessageBox::Yes | QMessageBox::Cancel, QMessageBox::Yes);
    trigger("clearPageAction");
    EXPECT_EQ(status(), QStringLiteral("Cleared 1 elements from \"%1\"").arg(m_shown));
}

TEST_F(HugeTexts, AnElementNameNamesItsStepsInPart)
{
    openWith("Race", kHuge, {});
    clickElement(0);
    EXPECT_EQ(shownId(), m_shown);
    drag(0, QPoint(40, 0));
    EXPECT_EQ(stack().undoText(), QStringLiteral("Move/Resize ") + m_shown);
    press(canvas(), Qt::Key_Delete);
    EXPECT_EQ(stack().undoText(), QStringLiteral("Delete ") + m_shown);
    trigger("undoAction");
    EXPECT_EQ(elements()[0].name, m_shown);
    EXPECT_EQ(elements()[0].node.attribute("i").as_string(), kHuge.toStdString());
}

TEST_F(HugeTexts, AChannelNameIsShownInPart)
{
    openWith("Race", "mask.1", kHuge,
             TestPackage::deviceXml("MXS", 12, {{7, kHuge, kHuge, kHuge}}));
    clickElement(0);
    EXPECT_EQ(child<QLabel>("channelLabel")->text(), m_shown);
    m_dialogs.expect<AddElementDialog>([this](AddElementDialog& dialog) {
        const auto* const types = dialog.findChild<QListWidget*>(QStringLiteral("typeList"));
        auto* const channels = dialog.findChild<QListWidget*>(QStringLiteral("channelList"));
        EXPECT_LT(types->item(0)->toolTip().size(), m_shown.size() + 100);
        EXPECT_EQ(channels->item(0)->text(),
                  QStringLiteral("%1  (%2)  %3").arg(m_shown, m_shown, m_shown));
        channels->setCurrentRow(0);
        const auto* const summary = dialog.findChild<QLabel*>(QStringLiteral("summaryLabel"));
        EXPECT_TRUE(summary->text().contains(m_shown));
        EXPECT_LT(summary->text().size(), 3 * m_shown.size() + 100);
        auto* const buttons = dialog.findChild<QDialogButtonBox*>();
        QTest::mouseClick(buttons->button(QDialogButtonBox::Ok), Qt::LeftButton);
    });
    trigger("insertElementAction");
    EXPECT_EQ(status(), QStringLiteral("Inserted \"Numeric value\" -> ") + m_shown);
    EXPECT_EQ(stack().undoText(), QStringLiteral("Insert ") + m_shown);
    ASSERT_EQ(elements().size(), 2U);
    EXPECT_EQ(elements()[1].channelLongName, m_shown);
}

TEST_F(HugeTexts, ADeviceTypeIsShownInPart)
{
    openWith("Race", "mask.1", "RPM", TestPackage::deviceXml(kHuge, 12, {}));
    EXPECT_EQ(m_window->windowTitle(),
              QStringLiteral("Gaugewright Studio - huge.zconf2 [%1]").arg(m_shown));
    EXPECT_EQ(child<QLabel>("targetDeviceBadge")->text(), m_shown);
    EXPECT_EQ(m_window->document().deviceType(), m_shown);
}
