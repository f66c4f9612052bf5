// The reader library is where the editor looks, but a library that it needs is not.

#include "paths/FixedPaths.h"
#include "tests/app/MainWindowFixture.h"

#include <QFileInfo>
#include <QMessageBox>

TEST_F(MainWindowFixture, ALibraryThatTheLoaderRefusesShowsTheLoadersWords)
{
    ASSERT_TRUE(QFileInfo::exists(FixedPaths::readerLibrary()));
    const QString recording = path(QStringLiteral("lap.xrk"));
    ASSERT_TRUE(TestPackage::writeFile(recording, "recording"));
    m_dialogs.chooseFile(recording);
    m_dialogs.expect<QMessageBox>([](QMessageBox& box) {
        const QString reason = box.informativeText();
        EXPECT_TRUE(reason.startsWith(QStringLiteral("The reader library could not be loaded: ")));
        EXPECT_TRUE(reason.contains(QStringLiteral("dependency_library"))) << reason.toStdString();
        ModalDriver::press(box, QMessageBox::Ok);
    });
    trigger("loadTelemetryAction");
}
