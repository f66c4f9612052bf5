#pragma once

#include <QString>

/// The title for QWidget::setWindowTitle, for a file name without folder and a target device;
/// either may be empty. It never shows a modified marker, because the program keeps no such state.
[[nodiscard]] QString mainWindowTitle(const QString& fileName = {}, const QString& device = {});
