#pragma once

#include <QDialog>

/// Name, version and origin of the program. Without icon when `iconPath` cannot be read.
class AboutDialog : public QDialog
{
    Q_OBJECT

public:
    AboutDialog(const QString& iconPath, QWidget* parent);
};
