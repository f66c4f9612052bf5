#pragma once

#include <QLabel>
#include <QMessageBox>

/// Runs a message box that shows its texts verbatim: file and page names that look like mark-up are
/// not rendered. @param details shown in smaller letters below `text`, none when empty.
/// @return the button pressed.
[[nodiscard]] inline QMessageBox::StandardButton
askPlainly(QWidget* parent, QMessageBox::Icon icon, const QString& title, const QString& text,
           QMessageBox::StandardButtons buttons, const QString& details = {})
{
    QMessageBox box(icon, title, text, buttons, parent);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(details);
    for (QLabel* const label : box.findChildren<QLabel*>()) // setTextFormat leaves the details out
        label->setTextFormat(Qt::PlainText);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

/// The same with nothing to choose.
inline void tellPlainly(QWidget* parent, QMessageBox::Icon icon, const QString& title,
                        const QString& text, const QString& details = {})
{
    static_cast<void>(askPlainly(parent, icon, title, text, QMessageBox::Ok, details));
}
