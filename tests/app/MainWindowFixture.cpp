#include "tests/app/MainWindowFixture.h"

#include "dialogs/AddElementDialog.h"

#include <QDialogButtonBox>
#include <QInputDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QStringList>

using TestPackage::digitElement;
using TestPackage::labelElement;

QString MainWindowFixture::writePackage(const QString& fileName,
                                        const std::vector<TestPackage::Object>& pages,
                                        const QByteArray& device)
{
    QString result = path(fileName);
    EXPECT_TRUE(TestPackage::writePackage(result, TestPackage::overlayXml(pages), device));
    return result;
}

QString MainWindowFixture::writeUsualPackage(const QString& fileName)
{
    return writePackage(
        fileName,
        {TestPackage::page("Race", 800, 480,
                           {digitElement("race.0", 50, 50, 120, 60),
                            digitElement("race.1", 200, 50, 120, 60),
                            digitElement("race.2", 350, 50, 120, 60, {}),
                            labelElement("race.3", 500, 50, 120, 60, "LAP")}),
         TestPackage::page("Box", 800, 480, {digitElement("box.0", 300, 200, 100, 40)}),
         TestPackage::page("Empty", 320, 240)},
        TestPackage::deviceXml("MXS", 12,
                               {{7, "Engine Speed", "RPM", "rpm"}, {9, "Water Temp", "WT", "C"}}));
}

void MainWindowFixture::open(const QString& path)
{
    m_dialogs.chooseFile(path);
    trigger("openAction");
}

QString MainWindowFixture::names(int page) const
{
    QStringList result;
    for (const DashElement& element : elements(page))
        result << element.name;
    return result.join(u' ');
}

void MainWindowFixture::newPage(const QString& name)
{
    m_dialogs.expect<QInputDialog>([name](QInputDialog& dialog) {
        auto* const edit = dialog.findChild<QLineEdit*>();
        edit->setText(name);
        QTest::keyClick(edit, Qt::Key_Return);
    });
    trigger("newPageAction");
}

void MainWindowFixture::insertElement(int donorRow, int channelRow)
{
    m_dialogs.expect<AddElementDialog>([=](AddElementDialog& dialog) {
        dialog.findChild<QListWidget*>(QStringLiteral("typeList"))->setCurrentRow(donorRow);
        dialog.findChild<QListWidget*>(QStringLiteral("channelList"))->setCurrentRow(channelRow);
        auto* const buttons = dialog.findChild<QDialogButtonBox*>();
        QTest::mouseClick(buttons->button(QDialogButtonBox::Ok), Qt::LeftButton);
    });
    trigger("insertElementAction");
}

void MainWindowFixture::clearPage()
{
    m_dialogs.expect<QMessageBox>(
        [](QMessageBox& box) { ModalDriver::press(box, QMessageBox::Yes); });
    trigger("clearPageAction");
}
