// Holds the program's instance lock for the folder given as its argument until
// it is killed, as a running or crashed copy of the program would.
#include "shell/environment.h"

#include <QCoreApplication>
#include <QTextStream>

#include <cstdio>

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv);
    if (argc < 2) {
        return 2;
    }
    quillon::InstanceLock lock(QString::fromLocal8Bit(argv[1]));
    if (!lock.TryLock()) {
        return 1;
    }
    std::puts("locked");
    std::fflush(stdout);
    return QCoreApplication::exec();
}
