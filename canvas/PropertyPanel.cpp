#include "canvas/PropertyPanel.h"

#include "canvas/GestureGeometry.h"
#include "canvas/StyleEditor.h"
#include "document/DashPage.h"
#include "document/ElementGeometry.h"
#include "widgets/LiteralToolTip.h"

#include <QColorDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QScopedValueRollback>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {

template <typename Widget>
Widget* named(const QString& name, Widget* widget)
{
    widget->setObjectName(name);
    return widget;
}

QFormLayout* addGroup(QLayout* panel, const QString& title)
{
    auto* const group = new QGroupBox(title);
    panel->addWidget(group);
    return new QFormLayout(group);
}

QLabel* readOnlyRow(QFormLayout* form, const QString& title, const QString& name)
{
    auto* const label = named(name, new QLabel);
    label->setTextFormat(Qt::PlainText); // a name may look like mark-up
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // Cut a long name off instead of making the form wider than the panel.
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

void showText(QLabel* label, const QString& text)
{
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

PropertyPanel::PropertyPanel(QWidget* parent) : QWidget(parent)
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    QFormLayout* const element = addGroup(layout, tr("Element"));
    m_idLabel = readOnlyRow(element, tr("ID:"), QStringLiteral("idLabel"));
    m_channelLabel = readOnlyRow(element, tr("Channel:"), QStringLiteral("channelLabel"));
    m_typeLabel = readOnlyRow(element, tr("Type:"), QStringLiteral("typeLabel"));
    QFormLayout* const position = addGroup(layout, tr("Position"));
    m_xSpin = pixelRow(position, tr("X:"), QStringLiteral("xSpin"));
    m_ySpin = pixelRow(position, tr("Y:"), QStringLiteral("ySpin"));
    QFormLayout* const size = addGroup(layout, tr("Size"));
    m_widthSpin = pixelRow(size, tr("Width:"), QStringLiteral("widthSpin"));
    m_heightSpin = pixelRow(size, tr("Height:"), QStringLiteral("heightSpin"));
    m_value = new StyleEditor(tr("Value Font"), QStringLiteral("value"));
    layout->addWidget(m_value);
    m_label = named(QStringLiteral("labelGroup"),
                    new StyleEditor(tr("Label Font"), QStringLiteral("label")));
    layout->addWidget(m_label);
    layout->addStretch();

    const DashPage defaultPage; // until one is shown
    setPageSize(defaultPage.width, defaultPage.height);
    connectEditors();
    clear();
}

void PropertyPanel::connectEditors()
{
    for (QSpinBox* const box : {m_xSpin, m_ySpin, m_widthSpin, m_heightSpin})
        connect(box, &QSpinBox::valueChanged, this, &PropertyPanel::onSpinBoxChanged);
    connect(m_value, &StyleEditor::fontEdited, this, &PropertyPanel::onValueFontChanged);
    connect(m_value, &StyleEditor::colorRequested, this, &PropertyPanel::pickValueColor);
    connect(m_label, &StyleEditor::fontEdited, this, &PropertyPanel::onLabelFontChanged);
    connect(m_label, &StyleEditor::colorRequested, this, &PropertyPanel::pickLabelColor);
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
    m_value->setEditable(!element->valueFont.isEmpty());
    if (!element->valueFont.isEmpty())
        m_value->showStyle(element->valueFont, element->valueFontSize, element->valueColor);
    m_label->setVisible(element->hasLabel);
    if (element->hasLabel) {
        m_label->setEditable(true);
        m_label->showStyle(element->labelFont, element->labelFontSize, element->labelColor);
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
    m_element = nullptr; // so that the boxes below write to nothing
    for (QLabel* const label : {m_idLabel, m_channelLabel, m_typeLabel})
        showText(label, tr("--"));
    m_xSpin->setValue(0);
    m_ySpin->setValue(0);
    m_widthSpin->setValue(GestureGeometry::kMinimumSize);
    m_heightSpin->setValue(GestureGeometry::kMinimumSize);
    setGeometryEnabled(false);
    m_value->setEditable(false);
    m_label->setVisible(false);
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
    // A box may clamp its value, which must not reach an element of the page before.
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
    m_element->valueFont = m_value->family();
    m_element->valueFontSize = m_value->pixels();
    Q_EMIT fontChanged();
}

void PropertyPanel::onLabelFontChanged()
{
    if (m_updating || !m_element)
        return;
    m_element->labelFont = m_label->family();
    m_element->labelFontSize = m_label->pixels();
    Q_EMIT fontChanged();
}

void PropertyPanel::pickValueColor()
{
    pickColor(&DashElement::valueColor, *m_value, tr("Value Color"));
}

void PropertyPanel::pickLabelColor()
{
    pickColor(&DashElement::labelColor, *m_label, tr("Label Color"));
}

void PropertyPanel::pickColor(QColor DashElement::*color, StyleEditor& editor, const QString& title)
{
    if (!m_element)
        return;
    const QColor picked =
        QColorDialog::getColor(m_element->*color, this, title, QColorDialog::ShowAlphaChannel);
    if (!picked.isValid() || !m_element) // the element may go while the dialog is open
        return;
    m_element->*color = picked;
    editor.showColor(picked);
    Q_EMIT fontChanged();
}

void PropertyPanel::setGeometryEnabled(bool enabled)
{
    for (QSpinBox* const box : {m_xSpin, m_ySpin, m_widthSpin, m_heightSpin})
        box->setEnabled(enabled);
}
