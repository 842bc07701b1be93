// A port number that stays with its device.
#include "launcher/Pins.h"

#include <gtest/gtest.h>

#include <QFileInfo>
#include <stdexcept>

#include "launcher/PackageRig.h"

namespace travo::launcher::test {

namespace {

class PinsTest : public ::testing::Test, protected PackageRig {
protected:
    PinsTest() {
        PutFile(device, "");
        PutFile(names + QStringLiteral("/by-id/usb-other"), "");
        QDir().mkpath(names + QStringLiteral("/by-path"));
    }

    QString Name(const char* name) const { return names + QLatin1Char('/') + QLatin1String(name); }

    QString device = place.filePath(QStringLiteral("dev/ttyUSB0"));
    QString names = place.filePath(QStringLiteral("dev/serial"));
};

TEST_F(PinsTest, EachInstrumentHasItsPortNumber) {
    EXPECT_EQ(PortNumberOf(QStringLiteral("mirror")), 1);
    EXPECT_EQ(PortNumberOf(QStringLiteral("gauge")), 2);
    EXPECT_EQ(PortNumberOf(QStringLiteral("motor")), 3);
    EXPECT_EQ(PortNumberOf(QStringLiteral("Mirror")), std::nullopt);
}

TEST_F(PinsTest, ADeviceIsKnownByTheNameOfItsAdapter) {
    QFile::link(QStringLiteral("../../ttyUSB0"), Name("by-id/usb-adapter-port0"));
    QFile::link(QStringLiteral("../../ttyUSB0"), Name("by-path/pci-1"));
    EXPECT_EQ(LastingName(device, names), Name("by-id/usb-adapter-port0"));
}

TEST_F(PinsTest, WithoutOneByTheSocketThatItIsPluggedInto) {
    QFile::link(QStringLiteral("../../ttyUSB0"), Name("by-path/pci-1"));
    EXPECT_EQ(LastingName(device, names), Name("by-path/pci-1"));
}

TEST_F(PinsTest, WithoutAnyByItsOwn) { EXPECT_EQ(LastingName(device, names), device); }

TEST_F(PinsTest, ALastingNameStaysAsItIs) {
    QFile::link(QStringLiteral("../../ttyUSB0"), Name("by-id/usb-a"));
    QFile::link(QStringLiteral("../../ttyUSB0"), Name("by-path/pci-1"));
    EXPECT_EQ(LastingName(Name("by-path/pci-1"), names), Name("by-path/pci-1"));
}

TEST_F(PinsTest, ALinkIsMadeAndReplaced) {
    Pin(folder, 1, device);
    EXPECT_EQ(QFile::symLinkTarget(In("ports/com1")), device);
    Pin(folder, 1, Name("by-id/usb-other"));
    EXPECT_EQ(QFile::symLinkTarget(In("ports/com1")), Name("by-id/usb-other"));
    EXPECT_FALSE(QFileInfo(In("ports/com1.new")).isSymLink());
}

TEST_F(PinsTest, WhatIsNoLinkStays) {
    PutFile(In("ports/com2"), "something of the user's");
    EXPECT_THROW(Pin(folder, 2, device), std::runtime_error);
    EXPECT_EQ(Bytes(In("ports/com2")), "something of the user's");
}

}  // namespace

}  // namespace travo::launcher::test
