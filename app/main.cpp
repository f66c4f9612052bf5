#include "app/ApplicationIdentity.h"
#include "app/FitToScreen.h"
#include "app/MainWindow.h"

#include <QApplication>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    applyApplicationIdentity();
    MainWindow window;
    fitToScreen(window);
    window.show();
    return QApplication::exec();
}
