// The connection panel on a machine of stand-ins, worked by mouse and keys; the test is the instruments.
#pragma once

#include <gmock/gmock.h>

#include <QSignalBlocker>
#include <QTest>
#include <string>

#include "controls/ControlNames.h"
#include "devices/view/CtlConnection.h"
#include "support/LogTexts.h"
#include "support/PanelRig.h"

namespace travo::test {

// Indexes of number boxes, watches and SET buttons.
constexpr int MirrorRow = 0;
constexpr int MagnescaleRow = 1;
constexpr int MotorRow = 2;
constexpr int ManipulatorRow = 3;
constexpr int CameraRow = 4;

inline QString NameOfRow(int row) {
    return QStringList{QStringLiteral("Mirror"), QStringLiteral("Magnescale"), QStringLiteral("Motor")}[row];
}
// Index of the button that tests the instrument of a row.
inline int TestOfRow(int row) { return std::array{4, 7, 5}[static_cast<std::size_t>(row)]; }

class CtlConnectionRig : public ::testing::Test, private CtlConnection::Owner {
protected:
    CtlConnectionRig() {
        rig.instruments.motorButtons = [this](bool on) { panel.ControlONOFF(on); };
        rig.instruments.lostPorts = [this](Instrument instrument) { panel.PortLost(instrument); };
        rig.state.intTotalManipulatorNumber = 3;
        panel.resize(486, 520);
        panel.show();
        panel.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&panel));
        rig.journal.clear();
    }

    template <class Control>
    Control& Find(const char* name, int index) {
        return *panel.findChild<Control*>(Indexed(QString::fromLatin1(name), index));
    }
    usrKVButton& Button(int index) { return Find<usrKVButton>("usrKVButton1", index); }
    usrKVButton& Down(int row) { return Find<usrKVButton>("usrKVButton2", row); }
    usrKVButton& Up(int row) { return Find<usrKVButton>("usrKVButton3", row); }
    NumberBox& Box(int row) { return Find<NumberBox>("txtNo", row); }
    QString State(int row) { return Find<NumberLabel>("lblState", row).text(); }
    bool TestEnabled(int row) { return Button(TestOfRow(row)).Enabled(); }

    static void Click(QWidget& control) { QTest::mouseClick(&control, Qt::LeftButton); }
    void Press(int index) { Click(Button(index)); }
    // Puts a number in place of what stands there, key by key.
    void Type(int row, const QString& figures) {
        Box(row).setFocus();
        Box(row).selectAll();
        QTest::keyClicks(&Box(row), figures);
    }
    // A text that no filter has seen.
    void Force(int row, const QString& text) {
        const QSignalBlocker blocker(Box(row));
        Box(row).setText(text);
    }

    FakeTimer& Watch(int row) { return *rig.timers.created.at(static_cast<std::size_t>(row)); }
    void Tick(int row, int times = 1) {
        for (int tick = 0; tick < times; ++tick) {
            Watch(row).Fire();
        }
    }
    FakeSerialPort& Port(int row) {
        return row == MirrorRow ? rig.MirrorPort() : row == MagnescaleRow ? rig.GaugePort() : rig.MotorPort();
    }
    // The instrument of the row sends what the watch looks for.
    void Answer(int row) {
        if (row == MirrorRow) {
            rig.MirrorPort().Receive("aD2R5\r\naD1R7\r\n");
        } else if (row == MagnescaleRow) {
            rig.GaugePort().Receive("A+01.234", platform::ClearToSendEvent);
        } else {
            rig.MotorPort().Receive("A Remote Drive Accessory\r");
        }
    }
    // All ports open and the motor's SET button unlocked, as after its answer.
    void OpenPorts() {
        rig.OpenPorts();
        Button(MotorRow).Enabled(true);
    }
    // Presses SET on the port that the box says, and forgets what was sent for it.
    void StartWatch(int row) {
        Press(row);
        Port(row).TakeOutput();
        rig.journal.clear();
    }

    QString Stored(int row) {
        return rig.ini.GetString(QStringLiteral("COMPort"), NameOfRow(row), QStringLiteral("none"));
    }
    QStringList Shown() const { return rig.boxes.Texts(); }
    QStringList Logged() const { return LogTexts(rig.log); }

    PanelRig rig;
    void chkMirror(bool isConnected) override {
        rig.journal.push_back(isConnected ? "chkMirror true" : "chkMirror false");
    }

    FakeSerialPortList& list = rig.serialPortList;
    CtlConnection panel{
        {rig.state, rig.communication, rig.ini, rig.live, rig.failures, rig.pointer, list, rig.timers, *this},
        rig.ProgramFolder(),
        nullptr};
};

inline std::string RowName(const ::testing::TestParamInfo<int>& row) {
    return NameOfRow(row.param).toStdString();
}

}  // namespace travo::test
