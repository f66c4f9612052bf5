#pragma once

#include <QDialog>

/// Says what the program is. The icon is left out when iconPath cannot be read.
class AboutDialog : public QDialog
{
    Q_OBJECT

public:
    AboutDialog(const QString& iconPath, QWidget* parent);
};
