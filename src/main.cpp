// The program: builds the machine, builds the main window, runs the event loop.
#include "core/owner/FormMain.h"
#include "platform/qt/BrokenPipe.h"
#include "platform/qt/QtApplicationLoop.h"
#include "platform/qt/QtCloseRequests.h"
#include "platform/qt/QtMachine.h"
#include "platform/qt/QtSession.h"
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
        QCoreApplication::exit();
    });
    application.WhenUnexpectedFailure([&window] { window.ReportUnexpectedFailure(); });
    const auto end = [&machine, &window] {
        window.CloseWithoutQuestion();
        machine.Boxes().Dismiss();
    };
    const platform::qt::QtTermination termination(end);
    application.WhenToldToEnd(end);
    const platform::qt::QtSession session([&window] { window.SaveForSession(); }, end);
    const platform::qt::QtCloseRequests closeRequests(window, [&window] { window.CloseAfterWaits(); });

    if (!window.Start()) {
        return 1;
    }
    QCoreApplication::exec();
    return closed ? 0 : 1;
}
