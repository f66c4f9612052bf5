#pragma once

#include <QMainWindow>

/// The only top-level window.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow();
};
