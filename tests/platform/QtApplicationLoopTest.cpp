// The application object catches what nobody took; so this program has that object and no other.
#include "platform/qt/QtApplicationLoop.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>
#include <csignal>
#include <stdexcept>

#include "platform/qt/QtTermination.h"

namespace travo::platform::qt {

namespace {

QtApplicationLoop* application = nullptr;

void ServeUntil(const std::function<bool()>& condition) {
    QElapsedTimer time;
    time.start();
    while (!condition() && time.elapsed() < 10000) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    }
    EXPECT_TRUE(condition());
}

TEST(QtApplicationLoopTest, WhatNoHandlerTakesIsToldAndTheProgramGoesOn) {
    int told = 0;
    application->WhenUnexpectedFailure([&] { ++told; });
    QTimer::singleShot(0, [] { throw std::runtime_error("nobody takes this"); });
    ServeUntil([&] { return told == 1; });
    bool later = false;
    QTimer::singleShot(0, [&] { later = true; });
    ServeUntil([&] { return later; });
    EXPECT_EQ(told, 1);
    application->WhenUnexpectedFailure({});
}

TEST(QtApplicationLoopTest, WhateverIsThrownIsToldAndTheProgramGoesOn) {
    int told = 0;
    application->WhenUnexpectedFailure([&] { ++told; });
    QTimer::singleShot(0, [] { throw 42; });
    ServeUntil([&] { return told == 1; });
    application->WhenUnexpectedFailure({});
}

TEST(QtApplicationLoopTest, WithoutAnybodyToTellTheProgramGoesOnToo) {
    bool raised = false;
    QTimer::singleShot(0, [&] {
        raised = true;
        throw std::runtime_error("nobody takes this");
    });
    ServeUntil([&] { return raised; });
}

TEST(QtApplicationLoopTest, AWordToEndIsToldAndClosesNoWindow) {
    QWidget window;
    window.show();
    int told = 0;
    application->WhenToldToEnd([&] { ++told; });
    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(application, &quit);
    EXPECT_EQ(told, 1);
    EXPECT_TRUE(window.isVisible());
    application->WhenToldToEnd({});
}

TEST(QtTerminationTest, IsAskedForFromTheSignalOnAlsoBeforeTheEventLoopTakesItUp) {
    const QtTermination termination([] {});
    EXPECT_FALSE(QtTermination::Asked());
    kill(getpid(), SIGTERM);
    EXPECT_TRUE(QtTermination::Asked());
}

TEST(QtTerminationTest, ATerminationSignalIsACallFromTheEventLoopOnce) {
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        int called = 0;
        const QtTermination termination([&] { ++called; });
        kill(getpid(), number);
        kill(getpid(), number);
        ServeUntil([&] { return called == 1; });
        QCoreApplication::processEvents();
        EXPECT_EQ(called, 1);
    }
}

}  // namespace

}  // namespace travo::platform::qt

int main(int argumentCount, char** arguments) {
    testing::InitGoogleTest(&argumentCount, arguments);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    travo::platform::qt::QtApplicationLoop loop(argumentCount, arguments);
    travo::platform::qt::application = &loop;
    const int result = RUN_ALL_TESTS();
    travo::platform::qt::application = nullptr;
    return result;
}
