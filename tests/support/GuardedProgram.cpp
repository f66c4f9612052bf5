// A program to interrupt:
//
//     guarded_program FOLDER FILE
//
// Has the folder removed when it is interrupted. In a pause it writes "ready", waits half a second
// and writes the file; then it waits for the end.

#include "cli/Interruption.h"

#include <QFile>
#include <QString>
#include <QThread>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    if (argc != 3)
        return EXIT_FAILURE;
    {
        const Interruption::Pause pause;
        Interruption::setFolder(QString::fromLocal8Bit(argv[1]));
        std::puts("ready");
        std::fflush(stdout);
        QThread::msleep(500);
        QFile file(QString::fromLocal8Bit(argv[2]));
        if (!file.open(QIODevice::WriteOnly) || file.write("complete") < 0)
            return EXIT_FAILURE;
    }
    QThread::sleep(60);
    return EXIT_SUCCESS;
}
