#include "widgets/PlainMessage.h"

#include "tests/support/ModalDriver.h"

#include <gtest/gtest.h>

TEST(PlainMessage, ShowsTextAndDetailsVerbatim)
{
    ModalDriver dialogs;
    QWidget parent;
    dialogs.expect<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.text(), QStringLiteral("<b>a</b>"));
        EXPECT_EQ(box.informativeText(), QStringLiteral("<i>b</i> &amp;"));
        int seen = 0;
        for (const QLabel* const label : box.findChildren<QLabel*>()) {
            if (label->text().isEmpty())
                continue;
            EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->text().toStdString();
            ++seen;
        }
        EXPECT_EQ(seen, 2);
        ModalDriver::press(box, QMessageBox::Ok);
    });
    tellPlainly(&parent, QMessageBox::Critical, QStringLiteral("Error"), QStringLiteral("<b>a</b>"),
                QStringLiteral("<i>b</i> &amp;"));
}

TEST(PlainMessage, ReturnsTheButtonPressed)
{
    ModalDriver dialogs;
    QWidget parent;
    dialogs.expect<QMessageBox>([](QMessageBox& box) {
        EXPECT_TRUE(box.informativeText().isEmpty());
        ModalDriver::press(box, QMessageBox::Cancel);
    });
    EXPECT_EQ(askPlainly(&parent, QMessageBox::Question, QStringLiteral("Title"),
                         QStringLiteral("?"), QMessageBox::Yes | QMessageBox::Cancel),
              QMessageBox::Cancel);
}
