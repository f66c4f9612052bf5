#include "canvas/PropertyPanel.h"

#include "canvas/GestureGeometry.h"
#include "document/DisplayFonts.h"
#include "document/ElementGeometry.h"
#include "document/ShownText.h"
#include "widgets/ElidedComboBox.h"
#include "widgets/LiteralToolTip.h"

#include <QColorDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {

constexpr int kSmallestFont = 8; // pixels
constexpr int kLargestFont = 300;
constexpr QSize kColorButtonSize(60, 24);
constexpr QSize kDefaultPage(800, 480); // until a page is shown

template <typename Widget>
Widget* named(const QString& name, Widget* widget)
{
    widget->setObjectName(name);
    return widget;
}

QLabel* readOnlyRow(QFormLayout* form, const QString& title, const QString& name)
{
    auto* const label = named(name, new QLabel);
    label->setTextFormat(Qt::PlainText); // names are text, whatever they look like
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // A long name is cut off rather than making the panel's form wider than the panel.
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    form->addRow(title, label);
    return label;
}

QSpinBox* pixelRow(QFormLayout* form, const QString& title, const QString& name)
{
    auto* const box = named(name, new QSpinBox);
    box->setSuffix(PropertyPanel::tr(" px"));
    form->addRow(title, box);
    return box;
}

void showText(QLabel* label, const QString& whole)
{
    const QString text = shownText(whole);
    label->setText(text);
    label->setToolTip(literalMarkup(text)); // it may be cut off
}

QString kindText(ElementKind kind)
{
    switch (kind) {
    case ElementKind::Analog:
        return PropertyPanel::tr("Analog");
    case ElementKind::Digit:
        return PropertyPanel::tr("Digit");
    case ElementKind::Icon:
        return PropertyPanel::tr("Icon");
    default:
        return PropertyPanel::tr("Unknown");
    }
}

} // namespace

void PropertyPanel::StyleEditor::show(const QString& family, int pixels, const QColor& shown) const
{
    // A family that is not in the list leaves the former one standing.
    const int item = font->findText(family, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (item >= 0)
        font->setCurrentIndex(item);
    size->setValue(pixels);
    showColor(shown);
}

void PropertyPanel::StyleEditor::showColor(const QColor& shown) const
{
    color->setStyleSheet(
        QStringLiteral("background-color: %1; border: 1px solid gray;").arg(shown.name()));
    color->setText(shown.name());
    QPalette readable = color->palette();
    readable.setColor(QPalette::ButtonText, qGray(shown.rgb()) < 128 ? Qt::white : Qt::black);
    color->setPalette(readable);
}

void PropertyPanel::StyleEditor::setEnabled(bool enabled) const
{
    font->setEnabled(enabled);
    size->setEnabled(enabled);
    color->setEnabled(enabled);
}

PropertyPanel::PropertyPanel(QWidget* parent) : QWidget(parent)
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->addWidget(createElementGroup());
    layout->addWidget(createPositionGroup());
    layout->addWidget(createSizeGroup());
    layout->addWidget(createStyleGroup(tr("Value Font"), QStringLiteral("value"), m_value));
    m_labelGroup = named(QStringLiteral("labelGroup"),
                         createStyleGroup(tr("Label Font"), QStringLiteral("label"), m_label));
    layout->addWidget(m_labelGroup);
    layout->addStretch();

    setPageSize(kDefaultPage.width(), kDefaultPage.height());
    connectEditors();
    clear();
}

QGroupBox* PropertyPanel::createElementGroup()
{
    auto* const group = new QGroupBox(tr("Element"));
    auto* const form = new QFormLayout(group);
    m_idLabel = readOnlyRow(form, tr("ID:"), QStringLiteral("idLabel"));
    m_channelLabel = readOnlyRow(form, tr("Channel:"), QStringLiteral("channelLabel"));
    m_typeLabel = readOnlyRow(form, tr("Type:"), QStringLiteral("typeLabel"));
    return group;
}

QGroupBox* PropertyPanel::createPositionGroup()
{
    auto* const group = new QGroupBox(tr("Position"));
    auto* const form = new QFormLayout(group);
    m_xSpin = pixelRow(form, tr("X:"), QStringLiteral("xSpin"));
    m_ySpin = pixelRow(form, tr("Y:"), QStringLiteral("ySpin"));
    return group;
}

QGroupBox* PropertyPanel::createSizeGroup()
{
    auto* const group = new QGroupBox(tr("Size"));
    auto* const form = new QFormLayout(group);
    m_widthSpin = pixelRow(form, tr("Width:"), QStringLiteral("widthSpin"));
    m_heightSpin = pixelRow(form, tr("Height:"), QStringLiteral("heightSpin"));
    return group;
}

QGroupBox* PropertyPanel::createStyleGroup(const QString& title, const QString& namePrefix,
                                           StyleEditor& editor)
{
    auto* const group = new QGroupBox(title);
    auto* const form = new QFormLayout(group);
    editor.font = named(namePrefix + u"FontCombo", new ElidedComboBox);
    editor.font->addItems(kDisplayFonts);
    form->addRow(tr("Font:"), editor.font);
    editor.size = pixelRow(form, tr("Size:"), namePrefix + u"SizeSpin");
    editor.size->setRange(kSmallestFont, kLargestFont);
    editor.color = named(namePrefix + u"ColorButton", new QPushButton);
    editor.color->setFixedSize(kColorButtonSize);
    form->addRow(tr("Color:"), editor.color);
    editor.setEnabled(false);
    return group;
}

void PropertyPanel::connectEditors()
{
    for (QSpinBox* const box : {m_xSpin, m_ySpin, m_widthSpin, m_heightSpin})
        connect(box, &QSpinBox::valueChanged, this, &PropertyPanel::onSpinBoxChanged);
    connect(m_value.font, &QComboBox::currentIndexChanged, this,
            &PropertyPanel::onValueFontChanged);
    connect(m_value.size, &QSpinBox::valueChanged, this, &PropertyPanel::onValueFontChanged);
    connect(m_value.color, &QPushButton::clicked, this, &PropertyPanel::pickValueColor);
    connect(m_label.font, &QComboBox::currentIndexChanged, this,
            &PropertyPanel::onLabelFontChanged);
    connect(m_label.size, &QSpinBox::valueChanged, this, &PropertyPanel::onLabelFontChanged);
    connect(m_label.color, &QPushButton::clicked, this, &PropertyPanel::pickLabelColor);
}

void PropertyPanel::setElement(DashElement* element)
{
    if (!element) {
        clear();
        return;
    }
    const QScopedValueRollback updating(m_updating, true);
    m_element = element;
    showText(m_idLabel, element->name);
    showText(m_channelLabel,
             element->channelLongName.isEmpty() ? tr("(none)") : element->channelLongName);
    showText(m_typeLabel, kindText(element->kind));
    refreshGeometry();
    setGeometryEnabled(true);

    // Without a value font the widgets keep what they showed before.
    m_value.setEnabled(!element->valueFont.isEmpty());
    if (!element->valueFont.isEmpty())
        m_value.show(element->valueFont, element->valueFontSize, element->valueColor);
    m_labelGroup->setVisible(element->hasLabel);
    if (element->hasLabel) {
        m_label.setEnabled(true);
        m_label.show(element->labelFont, element->labelFontSize, element->labelColor);
    }
}

void PropertyPanel::rebindElement(DashElement* element)
{
    if (!element) {
        clear();
        return;
    }
    m_element = element;
    refreshGeometry();
}

void PropertyPanel::clear()
{
    m_element = nullptr; // the editors change their values below, and write to nothing
    for (QLabel* const label : {m_idLabel, m_channelLabel, m_typeLabel})
        showText(label, tr("--"));
    m_xSpin->setValue(0);
    m_ySpin->setValue(0);
    m_widthSpin->setValue(GestureGeometry::kMinimumSize);
    m_heightSpin->setValue(GestureGeometry::kMinimumSize);
    setGeometryEnabled(false);
    m_value.setEnabled(false);
    m_labelGroup->setVisible(false);
}

void PropertyPanel::refreshGeometry()
{
    if (!m_element)
        return;
    const QScopedValueRollback updating(m_updating, true);
    m_xSpin->setValue(m_element->x);
    m_ySpin->setValue(m_element->y);
    m_widthSpin->setValue(m_element->w);
    m_heightSpin->setValue(m_element->h);
}

void PropertyPanel::setPageSize(int width, int height)
{
    // A box may have to change its value: that must not reach an element of the page before.
    const QScopedValueRollback updating(m_updating, true);
    m_xSpin->setRange(0, width);
    m_ySpin->setRange(0, height);
    m_widthSpin->setRange(GestureGeometry::kMinimumSize, width);
    m_heightSpin->setRange(GestureGeometry::kMinimumSize, height);
}

void PropertyPanel::onSpinBoxChanged()
{
    if (m_updating || !m_element)
        return;
    const ElementGeometry edited{m_xSpin->value(), m_ySpin->value(), m_widthSpin->value(),
                                 m_heightSpin->value()};
    ::setGeometry(*m_element, edited);
    Q_EMIT positionChanged(edited.x, edited.y);
    Q_EMIT sizeChanged(edited.w, edited.h);
}

void PropertyPanel::onValueFontChanged()
{
    if (m_updating || !m_element)
        return;
    m_element->valueFont = m_value.font->currentText();
    m_element->valueFontSize = m_value.size->value();
    Q_EMIT fontChanged();
}

void PropertyPanel::onLabelFontChanged()
{
    if (m_updating || !m_element)
        return;
    m_element->labelFont = m_label.font->currentText();
    m_element->labelFontSize = m_label.size->value();
    Q_EMIT fontChanged();
}

void PropertyPanel::pickValueColor()
{
    if (!m_element)
        return;
    const QColor color = pickColor(m_element->valueColor, tr("Value Color"));
    if (!color.isValid() || !m_element) // the element may go while the dialog is open
        return;
    m_element->valueColor = color;
    m_value.showColor(color);
    Q_EMIT fontChanged();
}

void PropertyPanel::pickLabelColor()
{
    if (!m_element)
        return;
    const QColor color = pickColor(m_element->labelColor, tr("Label Color"));
    if (!color.isValid() || !m_element)
        return;
    m_element->labelColor = color;
    m_label.showColor(color);
    Q_EMIT fontChanged();
}

QColor PropertyPanel::pickColor(const QColor& initial, const QString& title)
{
    return QColorDialog::getColor(initial, this, title, QColorDialog::ShowAlphaChannel);
}

void PropertyPanel::setGeometryEnabled(bool enabled)
{
    for (QSpinBox* const box : {m_xSpin, m_ySpin, m_widthSpin, m_heightSpin})
        box->setEnabled(enabled);
}
