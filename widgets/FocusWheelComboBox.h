#pragma once

#include <QComboBox>
#include <QWheelEvent>

/// A combo box that the mouse wheel changes only while it has the keyboard focus, so that scrolling
/// past it changes nothing.
class FocusWheelComboBox : public QComboBox
{
    Q_OBJECT

public:
    explicit FocusWheelComboBox(QWidget* parent = nullptr) : QComboBox(parent)
    {
        setFocusPolicy(Qt::StrongFocus); // the default policy gives the focus to the wheel
    }

protected:
    void wheelEvent(QWheelEvent* event) override
    {
        if (hasFocus())
            QComboBox::wheelEvent(event);
        else
            event->ignore();
    }
};
