// The program: builds the machine, builds the main window, runs the event loop.
#include "core/FormMain.h"
#include "platform/qt/BrokenPipe.h"
#include "platform/qt/QtApplicationLoop.h"
#include "platform/qt/QtMachine.h"
#include "platform/qt/QtTermination.h"
#include "platform/qt/SessionBus.h"

int main(int argumentCount, char** arguments) {
    using namespace travo;

    platform::qt::OutliveReaders();
    platform::qt::QtApplicationLoop::PreferX11();
    platform::qt::SilentBusGuard silentBus;
    platform::qt::QtApplicationLoop application(argumentCount, arguments);
    silentBus.LetGo();
    platform::qt::QtMachine machine(QCoreApplication::applicationDirPath());
    FormMain window(machine.Seams());
    machine.MousePointer().Window(&window);

    bool closed = false;
    window.WhenClosed([&closed] {
        closed = true;
        QCoreApplication::quit();
    });
    application.WhenUnexpectedFailure([&window] { window.ReportUnexpectedFailure(); });
    const platform::qt::QtTermination termination([&machine, &window] {
        machine.Boxes().Dismiss();
        window.CloseWithoutQuestion();
    });

    if (!window.Start()) {
        return 1;
    }
    QCoreApplication::exec();
    return closed ? 0 : 1;
}
