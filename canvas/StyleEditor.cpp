#include "canvas/StyleEditor.h"

#include "document/DisplayFonts.h"
#include "widgets/ElidedComboBox.h"

#include <QFormLayout>
#include <QPushButton>
#include <QSpinBox>

namespace {

constexpr int kSmallestFont = 8; // pixels
constexpr int kLargestFont = 300;
constexpr QSize kColorButtonSize(60, 24);

} // namespace

StyleEditor::StyleEditor(const QString& title, const QString& namePrefix, QWidget* parent)
    : QGroupBox(title, parent),
      m_family(new ElidedComboBox),
      m_pixels(new QSpinBox),
      m_color(new QPushButton)
{
    m_family->setObjectName(namePrefix + u"FontCombo");
    m_family->addItems(kFontFamilies);
    m_pixels->setObjectName(namePrefix + u"SizeSpin");
    m_pixels->setSuffix(tr(" px"));
    m_pixels->setRange(kSmallestFont, kLargestFont);
    m_color->setObjectName(namePrefix + u"ColorButton");
    m_color->setFixedSize(kColorButtonSize);

    auto* const form = new QFormLayout(this);
    form->addRow(tr("Font:"), m_family);
    form->addRow(tr("Size:"), m_pixels);
    form->addRow(tr("Color:"), m_color);

    connect(m_family, &QComboBox::currentIndexChanged, this, &StyleEditor::fontEdited);
    connect(m_pixels, &QSpinBox::valueChanged, this, &StyleEditor::fontEdited);
    connect(m_color, &QPushButton::clicked, this, &StyleEditor::colorRequested);
    setEditable(false);
}

void StyleEditor::showStyle(const QString& family, int pixels, const QColor& color)
{
    const int item = m_family->findText(family, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (item >= 0)
        m_family->setCurrentIndex(item);
    m_pixels->setValue(pixels);
    showColor(color);
}

void StyleEditor::showColor(const QColor& color)
{
    m_color->setStyleSheet(
        QStringLiteral("background-color: %1; border: 1px solid gray;").arg(color.name()));
    m_color->setText(color.name());
    QPalette readable = m_color->palette();
    readable.setColor(QPalette::ButtonText, qGray(color.rgb()) < 128 ? Qt::white : Qt::black);
    m_color->setPalette(readable);
}

void StyleEditor::setEditable(bool editable)
{
    m_family->setEnabled(editable);
    m_pixels->setEnabled(editable);
    m_color->setEnabled(editable);
}

QString StyleEditor::family() const
{
    return m_family->currentText();
}

int StyleEditor::pixels() const
{
    return m_pixels->value();
}
