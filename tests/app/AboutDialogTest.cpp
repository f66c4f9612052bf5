#include "app/AboutDialog.h"

#include "app/ApplicationIdentity.h"
#include "paths/FixedPaths.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <utility>

namespace {

QLabel* label(const AboutDialog& dialog, const char* name)
{
    return dialog.findChild<QLabel*>(QLatin1String(name));
}

} // namespace

TEST(ApplicationIdentity, SetsNamesAndVersion)
{
    applyApplicationIdentity();
    EXPECT_EQ(QCoreApplication::organizationName(), QStringLiteral("Orlenvik"));
    EXPECT_EQ(QCoreApplication::applicationName(), QStringLiteral("Gaugewright"));
    EXPECT_EQ(QCoreApplication::applicationVersion(), QStringLiteral("0.2.0"));
    EXPECT_EQ(QGuiApplication::desktopFileName(), QStringLiteral("gaugewright"));
}

TEST(ApplicationIdentity, TheIconStandsBesideTheExecutableWhereverItWasStarted)
{
    const QString before = QDir::currentPath();
    const QTemporaryDir elsewhere;
    ASSERT_TRUE(QDir::setCurrent(elsewhere.path()));
    EXPECT_EQ(FixedPaths::windowIcon(),
              QCoreApplication::applicationDirPath() + QStringLiteral("/assets/icon.png"));
    EXPECT_TRUE(QDir::isAbsolutePath(FixedPaths::windowIcon()));
    ASSERT_TRUE(QDir::setCurrent(before));
}

TEST(AboutDialog, ShowsNameVersionAndDetails)
{
    applyApplicationIdentity();
    const AboutDialog dialog(QString(), nullptr);
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("About Gaugewright"));
    EXPECT_EQ(dialog.minimumWidth(), 420);
    EXPECT_EQ(dialog.layout()->contentsMargins(), QMargins(16, 16, 16, 12));
    EXPECT_EQ(dialog.layout()->spacing(), 10);
    const QLabel* const name = label(dialog, "nameLabel");
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(name->text(),
              QStringLiteral("<div align='center'><b style='font-size:14pt'>Gaugewright</b><br>"
                             "<span style='color:#888'>Version 0.2.0</span></div>"));
    EXPECT_EQ(name->alignment(), Qt::AlignCenter);
    EXPECT_EQ(name->textFormat(), Qt::RichText);
    const QLabel* const details = label(dialog, "detailsLabel");
    ASSERT_NE(details, nullptr);
    EXPECT_EQ(details->text(),
              QStringLiteral("<div align='center'>Gaugewright - Orlenvik<br>Tindra Production 2026"
                             "<br><br>Built on Qt6, pugixml, minizip.<br>Edits AIM MXG / MXS / LIG "
                             "dashboard configurations (.zconf2).</div>"));
    EXPECT_EQ(details->textFormat(), Qt::RichText);
    EXPECT_TRUE(details->wordWrap());
    EXPECT_EQ(details->alignment(), Qt::AlignCenter);
}

TEST(AboutDialog, LeavesTheIconOutWhenThereIsNone)
{
    const AboutDialog dialog(QStringLiteral("/nowhere/icon.png"), nullptr);
    EXPECT_EQ(label(dialog, "iconLabel"), nullptr);
}

TEST(AboutDialog, ShowsTheIconScaledToFit)
{
    const QTemporaryDir folder;
    for (const auto& [size, shown] :
         {std::pair(QSize(512, 256), QSize(160, 80)), std::pair(QSize(256, 512), QSize(80, 160))}) {
        const QString path = folder.filePath(QStringLiteral("%1.png").arg(size.width()));
        QPixmap icon(size);
        icon.fill(Qt::green);
        ASSERT_TRUE(icon.save(path));
        const AboutDialog dialog(path, nullptr);
        const QLabel* const iconLabel = label(dialog, "iconLabel");
        ASSERT_NE(iconLabel, nullptr);
        EXPECT_EQ(iconLabel->pixmap().size(), shown);
        EXPECT_EQ(iconLabel->alignment(), Qt::AlignCenter);
    }
}

TEST(AboutDialog, TheIconUsesEveryPixelOfTheScreen)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("icon.png"));
    QPixmap icon(512, 512);
    icon.fill(Qt::green);
    ASSERT_TRUE(icon.save(path));
    const AboutDialog dialog(path, nullptr);
    const QPixmap shown = label(dialog, "iconLabel")->pixmap();
    EXPECT_EQ(shown.size(), QSize(160, 160) * dialog.devicePixelRatioF());
    EXPECT_EQ(shown.deviceIndependentSize(), QSizeF(160, 160));
}

TEST(AboutDialog, OkIsTheOnlyButtonAndAccepts)
{
    AboutDialog dialog(QString(), nullptr);
    dialog.show();
    const auto* const buttons = dialog.findChild<QDialogButtonBox*>();
    ASSERT_NE(buttons, nullptr);
    EXPECT_EQ(buttons->standardButtons(), QDialogButtonBox::Ok);
    QTest::mouseClick(buttons->button(QDialogButtonBox::Ok), Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
}
