#include "driver/DialogDriver.h"

#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QStringList>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class DialogDriverTest : public testing::Test
{
protected:
    QStringList m_reports;
    DialogDriver m_driver{[this](const QString& report) { m_reports << report; }};
};

int ask(const QString& title)
{
    QMessageBox box;
    box.setWindowTitle(title);
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    return box.exec();
}

} // namespace

TEST_F(DialogDriverTest, AnswersDialogsInOrder)
{
    m_driver.expect<QMessageBox>(
        [](QMessageBox& box) { DialogDriver::press(box, QMessageBox::Yes); });
    m_driver.cancel();
    EXPECT_EQ(ask(QStringLiteral("first")), QMessageBox::Yes);
    EXPECT_EQ(m_driver.pending(), 1U);
    EXPECT_EQ(ask(QStringLiteral("second")), QMessageBox::No);
    EXPECT_EQ(m_driver.pending(), 0U);
    EXPECT_EQ(m_reports, QStringList());
}

TEST_F(DialogDriverTest, AnswersADialogThatAnAnswerOpens)
{
    m_driver.expect<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(ask(QStringLiteral("inner")), QMessageBox::No);
        DialogDriver::press(box, QMessageBox::Yes);
    });
    m_driver.cancel();
    EXPECT_EQ(ask(QStringLiteral("outer")), QMessageBox::Yes);
    EXPECT_EQ(m_reports, QStringList());
}

TEST_F(DialogDriverTest, LeavesADialogAloneWhileItsAnswerWaits)
{
    m_driver.expect<QMessageBox>([](QMessageBox& box) {
        QTest::qWait(30);
        DialogDriver::press(box, QMessageBox::Yes);
    });
    EXPECT_EQ(ask(QStringLiteral("slow")), QMessageBox::Yes);
    EXPECT_EQ(m_reports, QStringList());
}

TEST_F(DialogDriverTest, ClosesAndReportsADialogWithoutAnswer)
{
    ask(QStringLiteral("surprise"));
    EXPECT_EQ(m_reports, QStringList{QStringLiteral("unexpected dialog: surprise")});
}

TEST_F(DialogDriverTest, ClosesAndReportsADialogOfAnotherClass)
{
    bool answered = false;
    m_driver.expect<QInputDialog>([&](QInputDialog&) { answered = true; });
    ask(QStringLiteral("a box"));
    EXPECT_FALSE(answered);
    EXPECT_EQ(m_reports, QStringList{QStringLiteral("unexpected dialog: a box")});
}

TEST_F(DialogDriverTest, ChoosesAFileByItsPath)
{
    const QString file = QDir::rootPath() + QStringLiteral("somewhere/new.zconf2");
    m_driver.chooseFile(file);
    QFileDialog dialog;
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    EXPECT_EQ(dialog.exec(), QDialog::Accepted);
    EXPECT_EQ(dialog.selectedFiles(), QStringList{file});
    EXPECT_EQ(m_reports, QStringList());
}
