// The window with the serial ports of this computer.
#include "devices/view/FormPortList.h"

#include <gmock/gmock.h>

#include <QLabel>
#include <QTableWidget>
#include <QTest>

#include "controls/usrKVButton.h"
#include "support/FakeMachine.h"

namespace travo::test {
namespace {

using ::testing::ElementsAre;

const platform::SerialPortList::Entry BuiltIn{1, QStringLiteral("/dev/ttyS0"), QString(), QString()};
const platform::SerialPortList::Entry Adapter{0, QStringLiteral("/dev/ttyUSB0"), QStringLiteral("Adapter"),
                                              QStringLiteral("in use")};

class FormPortListTest : public ::testing::Test {
protected:
    FormPortListTest() { list.entries = {BuiltIn, Adapter}; }

    QTableWidget& Table() { return *window.findChild<QTableWidget*>(QStringLiteral("tblPort")); }
    QString Hint() { return window.findChild<QLabel*>(QStringLiteral("lblHint"))->text(); }
    QStringList RowTexts(int row) {
        QStringList texts;
        for (int column = 0; column < Table().columnCount(); ++column) {
            texts << Table().item(row, column)->text();
        }
        return texts;
    }
    FakeTimer& Timer() { return *machine.timers.created.front(); }

    FakeMachine machine;
    FakeSerialPortList& list = machine.serialPortList;
    FormPortList window{list, machine.timers, nullptr};
};

TEST_F(FormPortListTest, NothingIsReadBeforeItIsOpened) {
    EXPECT_EQ(list.asked, 0);
    EXPECT_FALSE(Timer().enabled);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(FormPortListTest, OpenedItShowsNumberDeviceDescriptionAndWhyAPortCannotBeOpened) {
    ASSERT_TRUE(window.Open());
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(window.isModal());
    ASSERT_EQ(Table().rowCount(), 2);
    EXPECT_THAT(RowTexts(0), ElementsAre(QStringLiteral("1"), QStringLiteral("/dev/ttyS0"), QString(),
                                         QStringLiteral("can be opened")));
    EXPECT_THAT(RowTexts(1), ElementsAre(QStringLiteral("-"), QStringLiteral("/dev/ttyUSB0"),
                                         QStringLiteral("Adapter"), QStringLiteral("in use")));
}

TEST_F(FormPortListTest, WhileItIsOpenTheListIsReadAgainEverySecond) {
    window.Open();
    EXPECT_EQ(Timer().interval, 1000);
    list.entries = {BuiltIn};
    Timer().Fire();
    EXPECT_EQ(Table().rowCount(), 1);
    list.entries = {BuiltIn, Adapter};
    Timer().Fire();
    EXPECT_EQ(Table().rowCount(), 2);
}

TEST_F(FormPortListTest, ReadingTheSameListAgainKeepsTheSelection) {
    window.Open();
    Table().selectRow(1);
    Timer().Fire();
    EXPECT_EQ(list.asked, 2);
    ASSERT_EQ(Table().selectedItems().size(), 4);
    EXPECT_EQ(Table().selectedItems().front()->row(), 1);
}

TEST_F(FormPortListTest, EachWayToCloseItEndsTheReading) {
    const std::function<void()> ways[] = {
        [this] { QTest::keyClick(&window, Qt::Key_Escape); },
        [this] { window.close(); },
        [this] { QTest::mouseClick(window.findChild<usrKVButton*>(), Qt::LeftButton); },
    };
    for (const auto& close : ways) {
        window.Open();
        ASSERT_TRUE(Timer().enabled);
        close();
        EXPECT_FALSE(window.isVisible());
        EXPECT_FALSE(Timer().enabled);
    }
}

TEST_F(FormPortListTest, OpenedAgainItReadsAtOnce) {
    window.Open();
    window.close();
    list.entries = {Adapter};
    window.Open();
    EXPECT_EQ(Table().rowCount(), 1);
    EXPECT_TRUE(Timer().enabled);
}

TEST_F(FormPortListTest, WhereThereIsNoListItDoesNotOpen) {
    list.absent = true;
    EXPECT_FALSE(window.Open());
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(Timer().enabled);
}

TEST_F(FormPortListTest, WhateverTheListThrowsItDoesNotOpen) {
    list.absent = list.throwsNumbers = true;
    EXPECT_FALSE(window.Open());
    EXPECT_FALSE(window.isVisible());
}

TEST_F(FormPortListTest, AListThatIsLostWhileItIsOpenIsSaidInItAndComesBack) {
    window.Open();
    list.absent = true;
    Timer().Fire();
    EXPECT_EQ(Table().rowCount(), 0);
    EXPECT_EQ(Hint(), QStringLiteral("Device Manager is Not found"));
    EXPECT_TRUE(window.isVisible());
    list.absent = false;
    Timer().Fire();
    EXPECT_EQ(Table().rowCount(), 2);
    EXPECT_EQ(Hint(), QStringLiteral("Read again every second."));
}

TEST_F(FormPortListTest, AComputerWithoutPortsIsSaid) {
    list.entries.clear();
    EXPECT_TRUE(window.Open());
    EXPECT_EQ(Hint(), QStringLiteral("This computer has no serial port."));
}

}  // namespace
}  // namespace travo::test
