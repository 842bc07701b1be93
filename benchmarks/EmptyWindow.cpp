// The peer of the program's start: an empty window of the same size, which ends the process when it is
// on show and its first timer tick has come. The argument is the timer's period in milliseconds.
#include <unistd.h>

#include <QApplication>
#include <QTimer>
#include <QWidget>

int main(int argumentCount, char** arguments) {
    QApplication application(argumentCount, arguments);
    QWidget window;
    window.resize(520, 624);
    window.show();
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [] { _exit(0); });
    timer.start(argumentCount > 1 ? QByteArray(arguments[1]).toInt() : 0);
    return QApplication::exec();
}
