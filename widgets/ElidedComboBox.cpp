#include "widgets/ElidedComboBox.h"

#include <QStyleOptionComboBox>
#include <QStylePainter>

ElidedComboBox::ElidedComboBox(QWidget* parent) : QComboBox(parent)
{
    connect(this, &QComboBox::currentTextChanged, this, &QWidget::setToolTip);
}

void ElidedComboBox::paintEvent(QPaintEvent* /*event*/)
{
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    const QRect field =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    option.currentText =
        fontMetrics().elidedText(option.currentText, Qt::ElideRight, field.width());
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}
