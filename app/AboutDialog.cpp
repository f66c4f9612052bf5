#include "app/AboutDialog.h"

#include "widgets/ScaledPixmap.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPixmap>
#include <QVBoxLayout>

namespace {

constexpr int kMinimumWidth = 420;
constexpr int kSpacing = 10;
constexpr QMargins kMargins{16, 16, 16, 12};
constexpr QSize kIconSize{160, 160};

QLabel* centredLabel(const QString& objectName)
{
    auto* const label = new QLabel;
    label->setObjectName(objectName);
    label->setAlignment(Qt::AlignCenter);
    return label;
}

QLabel* richLabel(const QString& objectName, const QString& text)
{
    QLabel* const label = centredLabel(objectName);
    label->setTextFormat(Qt::RichText);
    label->setText(text);
    return label;
}

} // namespace

AboutDialog::AboutDialog(const QString& iconPath, QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("About Gaugewright"));
    setMinimumWidth(kMinimumWidth);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargins);
    layout->setSpacing(kSpacing);

    const QPixmap icon(iconPath);
    if (!icon.isNull()) {
        QLabel* const iconLabel = centredLabel(QStringLiteral("iconLabel"));
        iconLabel->setPixmap(scaledToFit(icon, kIconSize, *this));
        layout->addWidget(iconLabel);
    }
    layout->addWidget(
        richLabel(QStringLiteral("nameLabel"),
                  tr("<div align='center'><b style='font-size:14pt'>Gaugewright</b><br>"
                     "<span style='color:#888'>Version %1</span></div>")
                      .arg(QCoreApplication::applicationVersion())));
    QLabel* const details =
        richLabel(QStringLiteral("detailsLabel"),
                  tr("<div align='center'>Gaugewright - Orlenvik<br>Tindra Production 2026<br><br>"
                     "Built on Qt6, pugixml, minizip.<br>"
                     "Edits AIM MXG / MXS / LIG dashboard configurations (.zconf2).</div>"));
    details->setWordWrap(true);
    layout->addWidget(details);

    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    buttons->setObjectName(QStringLiteral("buttonBox"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    layout->addWidget(buttons);
}
