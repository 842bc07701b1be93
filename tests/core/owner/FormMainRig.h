// The real main window on stand-ins for the machine, worked as the operator works it.
#pragma once

#include <QAbstractButton>
#include <QTest>
#include <array>
#include <memory>

#include "core/owner/FormMain.h"
#include "core/owner/OwnerRig.h"

namespace travo::test {

// Ports 1, 2 and 3 are mirror, gauge and motor.
class FormMainRig : public OwnerRig {
protected:
    // The tabs, as their pictures are numbered from 0.
    static constexpr int Experiment = 0;
    static constexpr int Calibration = 1;
    static constexpr int CellPosition = 2;
    static constexpr int Escape = 3;
    static constexpr int Connection = 4;
    static constexpr int User = 5;

    void SetUp() override {
        WriteSettings(QByteArray("[COMPort]\r\nMirror=1\r\nMagnescale=2\r\nMotor=3\r\n") +
                      CalibrationText(0) + CalibrationText(1) + CalibrationText(2) + CalibrationText(3));
        serialPorts_.created.clear();
        timers_.created.clear();
        window_ = std::make_unique<FormMain>(Seams());
        ASSERT_TRUE(window_->Start());
        Status(1, 2);
        Tick();
        window_->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
        journal_.clear();
    }

    // A status line of the mirror controller: its motors on (1) or off (0), and the magnification.
    void Status(int motors, int magnification) {
        MirrorPort().Receive("sSAA0,0,0," + std::to_string(motors) + "," + std::to_string(magnification) +
                             ",0,0,0\r\n");
    }
    void Gauge(const std::string& reading) { GaugePort().Receive(reading, platform::ClearToSendEvent); }
    void Tick() { timers_.created.at(0)->Fire(); }

    SkinTab& Picture(int index) {
        return *window_->findChild<SkinTab*>(QStringLiteral("imgTab(%1)").arg(index));
    }
    // The picture of a tab that is on show.
    SkinTab& Tab(int tab) {
        for (const int picture : {tab, tab + 6}) {
            if (!Picture(picture).isHidden()) {
                return Picture(picture);
            }
        }
        return Picture(tab + 12);
    }
    void Open(int tab) { Click(Tab(tab)); }
    QWidget& Panel(int tab) {
        static constexpr std::array Names{"CtlExperiment1", "CtlCalibration1", "CtlCellPosition1",
                                          "CtlEscape1",     "CtlConnection1",  "CtlUser1"};
        return *window_->findChild<QWidget*>(QLatin1String(Names.at(static_cast<std::size_t>(tab))),
                                             Qt::FindDirectChildrenOnly);
    }
    // A control of a panel by its name for people.
    QAbstractButton& Button(int tab, const QString& name) {
        for (auto* const button : Panel(tab).findChildren<QAbstractButton*>()) {
            if (button->accessibleName() == name) {
                return *button;
            }
        }
        throw std::out_of_range("no button " + name.toStdString());
    }
    static void Click(QWidget& control) { QTest::mouseClick(&control, Qt::LeftButton); }
    // A key where the operator presses it: it goes to whatever has the focus.
    void Key(Qt::Key key) { QTest::keyClick(window_->windowHandle(), key); }

    std::unique_ptr<FormMain> window_;
};

}  // namespace travo::test
