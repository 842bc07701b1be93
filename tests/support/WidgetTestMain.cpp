// Tests of widgets run in one application object.
#include <gtest/gtest.h>

#include <QApplication>

// Asked for by the leak checker, where the tests run under one. Some tests send a failure through Qt's own
// event delivery, as the program's last catch does; what Qt holds in those frames is not released.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the leak checker asks for this name.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
    return "leak:QtSharedPointer::ExternalRefCountData::getAndRef\n"
           "leak:QMutableEventPoint::detach\n"
           "leak:QArrayData::allocate\n";
}

int main(int argumentCount, char** arguments) {
    testing::InitGoogleTest(&argumentCount, arguments);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argumentCount, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
