#include "shell/main_gui.h"

#include <QApplication>

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    return quillon::Main();
}
