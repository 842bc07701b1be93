// The calibration panel on show at 2x, on instruments that stand ready: four needles of which the first is
// selected, all ports open, the camera there. The test is the panel's owner and reads needles as it does.
#pragma once

#include <gmock/gmock.h>

#include <QTest>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "core/ground/Arithmetic.h"
#include "core/state/NeedleReader.h"
#include "core/state/SettingsKeys.h"
#include "support/LogTexts.h"
#include "support/PanelRig.h"
#include "workflows/CtlCalibration.h"

namespace travo::test {

inline const QString AdjustMagnification = QStringLiteral("Please adjust the magnification to 2X.");
inline const QString CaptureFailed = QStringLiteral("Error : Manipulator calibration position setting");
inline const QString SettingFailed = QStringLiteral("Error : Calibration Setting");
inline const QString FocusBox = QStringLiteral(
    "Adjust manipulator Z axis until needle tip is in focus.\r\nDo not adjust focus knob on microscope.");
inline const QString RaiseBox =
    QStringLiteral("Please raise object lens\r\nand calibrate the direction of Z");

class CtlCalibrationRig : public ::testing::Test, protected CtlCalibration::Owner, protected NeedleReader {
protected:
    static constexpr int A = 0;
    static constexpr int B = 1;
    static constexpr int C = 2;
    static constexpr int Z = 3;
    static constexpr int Centre = 4;
    static constexpr int Set = 0;
    static constexpr int Reset = 1;
    static constexpr int AllReset = 2;
    static constexpr int Full = 0;
    static constexpr int Re = 1;

    // A needle that stands straight, and where its tip is on each mark.
    static constexpr std::array<PositionXYZ, 4> Straight{
        {{10000, 20000, 5000}, {7000, 24000, 5000}, {13000, 24000, 5000}, {10000, 20000, 6000}}};

    // What every capture asks for.
    inline static const Journal Requests{"port 2 > Ar\r\n", "port 1 > rD2R\r", "port 1 > rD1R\r"};

    CtlCalibrationRig() {
        rig.OpenPorts();
        rig.OpenCamera();
        rig.state.CurrentMagnification(2);
        rig.state.intTotalManipulatorNumber = 3;
        rig.state.intManipulatorNumber = 0;
        View({0, 0, 0});
        panel.resize(486, 520);
        panel.TotalManipulatorNumber(3);
        panel.show();
        panel.Shown();
        rig.journal.clear();
    }

    template <class Control>
    Control& Find(const QString& name) const {
        return *panel.findChild<Control*>(name);
    }
    usrKVCheckButton& Check(int group, int index) const {
        return Find<usrKVCheckButton>(QStringLiteral("usrKVCheckButton%1(%2)").arg(group).arg(index));
    }
    usrKVCheckButton& Point(int index) const { return Check(1, index); }
    usrKVCheckButton& Mode(int index) const { return Check(2, index); }
    usrKVCheckButton& Needle(int index) const { return Check(3, index); }
    usrKVButton& Confirm(int index) const {
        return Find<usrKVButton>(QStringLiteral("usrKVButton1(%1)").arg(index));
    }
    SkinImage& Picture(int index) const {
        return Find<SkinImage>(QStringLiteral("imgCalibPos(%1)").arg(index));
    }
    QLabel& Warning() const { return Find<QLabel>(QStringLiteral("lblWaring")); }
    FakeTimer& Timer1() { return *rig.timers.created.at(0); }

    static void Click(QWidget& control) {
        ASSERT_FALSE(control.isHidden()) << control.objectName().toStdString();
        QTest::mouseClick(&control, Qt::LeftButton);
    }
    Journal Take() { return std::exchange(rig.journal, {}); }
    QStringList TakeBoxes() {
        const QStringList texts = rig.boxes.Texts();
        rig.boxes.shown.clear();
        return texts;
    }

    void View(const PositionXYZ& view) {
        rig.state.CurrentXY(view[0], view[1]);
        rig.state.CurrentXYZ(2, view[2]);
    }
    // Where the selected needle stands.
    void Tip(const PositionXYZ& counts) {
        rig.driver.position.at(static_cast<std::size_t>(rig.driver.selected - 1)) = counts;
    }
    void CaptureAt(int index, const PositionXYZ& counts) {
        Tip(counts);
        Click(Point(index));
    }
    void CaptureMarks(const std::array<PositionXYZ, 4>& points = Straight) {
        for (const int mark : {A, B, C}) {
            CaptureAt(mark, points.at(static_cast<std::size_t>(mark)));
        }
    }
    void CaptureAll(const std::array<PositionXYZ, 4>& points = Straight) {
        CaptureMarks(points);
        CaptureAt(Z, points[3]);
    }
    // The needle of that index at the hardware and for the system.
    void Select(std::int16_t needle) {
        rig.driver.selected = needle + 1;
        rig.state.intManipulatorNumber = needle;
    }
    // The magnification as it is reported: to the state, and to the panel by its owner.
    void Magnification(std::int16_t magnification) {
        rig.state.CurrentMagnification(magnification);
        panel.ChangeMagnification(magnification);
        rig.journal.clear();
    }

    // What of the panel is on show: capture buttons, pressed ones in brackets, and the picture.
    std::string OnShow() const {
        const std::array<std::string, 5> names{"A", "B", "C", "Z", "Centre"};
        std::string shown;
        for (int index = 0; index < 5; ++index) {
            const std::string& name = names.at(static_cast<std::size_t>(index));
            if (!Point(index).isHidden()) {
                shown += Point(index).Value() ? "[" + name + "] " : name + " ";
            }
        }
        for (int index = 0; index < 3; ++index) {
            if (!Picture(index).isHidden()) {
                shown += "picture " + std::to_string(index);
            }
        }
        return shown;
    }
    std::string PressedNeedles() const {
        std::string pressed;
        for (int needle = 0; needle < 4; ++needle) {
            pressed += Needle(needle).Value() ? static_cast<char>('1' + needle) : '-';
        }
        return pressed;
    }
    std::string EnabledNeedles() const {
        std::string enabled;
        for (int needle = 0; needle < 4; ++needle) {
            enabled += Needle(needle).Enabled() ? static_cast<char>('1' + needle) : '-';
        }
        return enabled;
    }

    // The whole of a needle's section of the settings file.
    std::map<std::string, std::string> Section(int needle) const {
        std::array<QString, 64> keys;
        const QString section = settings::CalibrationSection(needle);
        rig.ini.GetKeyNames(section, keys);
        std::map<std::string, std::string> values;
        for (const QString& key : keys) {
            if (!key.isEmpty()) {
                values[key.toStdString()] = rig.ini.GetString(section, key, QString()).toStdString();
            }
        }
        return values;
    }

    void SetCalibTime(std::int16_t ManiNo, const QString& CalibTime, std::int16_t CalibOrRe) override {
        rig.journal.push_back("time " + std::to_string(ManiNo) + " " + CalibTime.toStdString() + " " +
                              std::to_string(CalibOrRe));
        if (ownerFails) {
            throw Failure("the window fails");
        }
    }

    void ObjectiveRaised(bool isRaised) override { objectiveRaised.push_back(isRaised); }
    bool ManipulatorReload() override {
        rig.journal.push_back("read");
        const std::string record = rig.communication.RequestManipulatorData();
        const std::int16_t needle =
            record.empty() ? std::int16_t{-1} : ReadInteger16(record.substr(0, record.find(',')));
        if (needle == -1) {
            return false;
        }
        if (needle != rig.state.intManipulatorNumber) {
            rig.state.intManipulatorNumber = needle;
            panel.ManipulatorChange(needle);
        }
        return true;
    }

    bool ownerFails = false;
    // What has been told of it.
    std::vector<bool> objectiveRaised;
    PanelRig rig;
    CtlCalibration panel{{rig.state, rig.communication, rig.needleMove, rig.ini, rig.live, rig.failures,
                          rig.clock, rig.timers, *this, *this},
                         rig.ProgramFolder()};
};

// One journal after another.
inline Journal Joined(std::initializer_list<Journal> parts) {
    Journal joined;
    for (const Journal& part : parts) {
        joined.insert(joined.end(), part.begin(), part.end());
    }
    return joined;
}

}  // namespace travo::test
