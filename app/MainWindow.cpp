#include "app/MainWindow.h"

MainWindow::MainWindow() = default;
