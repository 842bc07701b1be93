#include "platform/qt/PortNames.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace travo::platform::qt {
namespace {

class PortNamesTest : public ::testing::Test {
protected:
    PortNamesTest() { QDir(folder_.path()).mkdir(QStringLiteral("ports")); }

    QString InFolder(const char* name) const { return folder_.filePath(QString::fromLatin1(name)); }
    void Link(const char* name, const QString& target) { ASSERT_TRUE(QFile::link(target, InFolder(name))); }
    QString MakeFile(const char* name) {
        QFile file(InFolder(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        return QFileInfo(file).canonicalFilePath();
    }
    QString Device(int number) const { return PortDevice(folder_.path(), static_cast<std::int16_t>(number)); }

    QTemporaryDir folder_;
};

TEST_F(PortNamesTest, PortWithoutALinkIsTheBuiltInTerminalOneBelowItsNumber) {
    EXPECT_EQ(Device(78), QStringLiteral("/dev/ttyS77"));
    EXPECT_EQ(Device(32767), QStringLiteral("/dev/ttyS32766"));
}

TEST_F(PortNamesTest, PortWithoutAPortsFolderIsTheBuiltInTerminal) {
    QTemporaryDir empty;
    EXPECT_EQ(PortDevice(empty.path(), 78), QStringLiteral("/dev/ttyS77"));
}

TEST_F(PortNamesTest, LinkGivesItsTarget) {
    const QString device = MakeFile("adapter");
    Link("ports/com3", device);
    EXPECT_EQ(Device(3), device);
}

TEST_F(PortNamesTest, LinkToALinkGivesTheDeviceBehindBoth) {
    const QString device = MakeFile("adapter");
    Link("by-id", device);
    Link("ports/com3", InFolder("by-id"));
    EXPECT_EQ(Device(3), device);
}

TEST_F(PortNamesTest, LinkThatLeadsNowhereGivesNoDeviceAndDoesNotFallBack) {
    Link("ports/com1", InFolder("gone"));
    EXPECT_EQ(Device(1), QString());
}

TEST_F(PortNamesTest, WhatIsNoLinkIsTheDeviceItself) {
    const QString device = MakeFile("ports/com4");
    EXPECT_EQ(Device(4), device);
}

TEST_F(PortNamesTest, NumbersBelowOneHaveNoDevice) {
    MakeFile("ports/com0");
    EXPECT_EQ(Device(0), QString());
    EXPECT_EQ(Device(-1), QString());
    EXPECT_EQ(Device(-32768), QString());
}

TEST_F(PortNamesTest, PinnedPortsAreThoseOfWellWrittenNumbersDanglingOnesToo) {
    MakeFile("ports/com2");
    Link("ports/com30", InFolder("gone"));
    for (const char* other : {"ports/com", "ports/com0", "ports/com01", "ports/com5x", "ports/com40000",
                              "ports/COM6", "ports/xcom7"}) {
        MakeFile(other);
    }
    const std::map<std::int16_t, QString> expected{{std::int16_t{2}, InFolder("ports/com2")},
                                                   {std::int16_t{30}, InFolder("ports/com30")}};
    EXPECT_EQ(PinnedPorts(folder_.path()), expected);
}

}  // namespace
}  // namespace travo::platform::qt
