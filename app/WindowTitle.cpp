#include "app/WindowTitle.h"

#include <QCoreApplication>

namespace {

QString composed(const QString& fileName, const QString& device)
{
    const auto text = [](const char* source) {
        return QCoreApplication::translate("WindowTitle", source);
    };
    if (fileName.isEmpty() && device.isEmpty())
        return text(QT_TRANSLATE_NOOP("WindowTitle", "Gaugewright Studio"));
    if (fileName.isEmpty())
        return text(QT_TRANSLATE_NOOP("WindowTitle", "Gaugewright Studio [%1]")).arg(device);
    if (device.isEmpty())
        return text(QT_TRANSLATE_NOOP("WindowTitle", "Gaugewright Studio - %1")).arg(fileName);
    return text(QT_TRANSLATE_NOOP("WindowTitle", "Gaugewright Studio - %1 [%2]"))
        .arg(fileName, device);
}

} // namespace

QString mainWindowTitle(const QString& fileName, const QString& device)
{
    // "[*]" is where the toolkit would put a mark of unsaved changes; twice, it stays a text.
    const QString placeholder = QStringLiteral("[*]");
    return composed(fileName, device).replace(placeholder, placeholder + placeholder);
}
