// Tests that start the real workbench: they need Qt's application object for its processes and sockets.
#include <gtest/gtest.h>

#include <QCoreApplication>

#include "workbench/WorkbenchProcess.h"

int main(int argc, char** argv) {
    workbench::UsePrivateRuntimeFolder();
    const QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
