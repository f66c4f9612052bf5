#pragma once

#include <QMessageBox>

/// Runs a message box whose text is shown as it stands: file and page names that look like markup
/// are not rendered. @return the button pressed.
[[nodiscard]] inline QMessageBox::StandardButton askPlainly(QWidget* parent, QMessageBox::Icon icon,
                                                            const QString& title,
                                                            const QString& text,
                                                            QMessageBox::StandardButtons buttons)
{
    QMessageBox box(icon, title, text, buttons, parent);
    box.setTextFormat(Qt::PlainText);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

/// The same with nothing to choose.
inline void tellPlainly(QWidget* parent, QMessageBox::Icon icon, const QString& title,
                        const QString& text)
{
    static_cast<void>(askPlainly(parent, icon, title, text, QMessageBox::Ok));
}
