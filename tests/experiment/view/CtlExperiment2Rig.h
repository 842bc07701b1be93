// The experiment panel on show, on instruments that stand ready: four needles with straight calibrations,
// all ports open, the camera there, 2x, mirror motors on.
#pragma once

#include <gtest/gtest.h>

#include <QtTest/QTest>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "controls/ControlNames.h"
#include "core/state/NeedleReader.h"
#include "experiment/view/CtlExperiment2.h"
#include "support/PanelRig.h"

namespace travo::test {

// Hardware of which nothing can be read.
class NoNeedles : public NeedleReader {
public:
    bool ManipulatorReload() override { return false; }
};

class CtlExperiment2Rig : private NeedleReader {
public:
    // Where the view stands, in the mirror frame.
    static constexpr PositionXYZ TheView{10, -5, 300};
    // A cell in the mirror frame and in the common frame.
    static constexpr PositionXYZ TheCell{500, -20, 400};
    static constexpr PositionXYZ TheCellInCommon{-2500, 101, 400};
    // A straight needle stands this far from the common frame, on each axis.
    static constexpr std::int32_t Centre = 12000;

    // What every action asks for at its start.
    inline static const Journal Start{"LiveActionStart", "port 2 > Ar\r\n", "port 1 > rD2R\r",
                                      "port 1 > rD1R\r"};
    inline static const std::string End = "LiveActionEnd";

    CtlExperiment2Rig() {
        rig.OpenPorts();
        rig.OpenCamera();
        rig.state.bMirrorMotorONOFF = true;
        rig.state.CurrentMagnification(2);
        View(TheView);
        for (std::int32_t needle = 0; needle < NeedleCount; ++needle) {
            CalibrateStraight(needle);
        }
        // One needle at a time, so that the others cannot be in its way.
        OnlyCalibrated(0);
        Connected(3);
        rig.state.intManipulatorNumber = 0;
        panel.TotalManipulatorNumber(3);
        panel.Shown();
        panel.show();
        Forget();
    }

    void Forget() {
        rig.journal.clear();
        rig.boxes.shown.clear();
        rig.driver.moves.clear();
    }
    Journal Take() { return std::exchange(rig.journal, {}); }

    void Connected(std::int16_t highest) { rig.state.intTotalManipulatorNumber = highest; }
    void View(const PositionXYZ& view) {
        rig.state.CurrentXYZ(2, view[2]);
        rig.state.CurrentXY(view[0], view[1]);
    }
    void SetCell(std::int32_t cell, const PositionXYZ& place = TheCell) {
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            rig.state.CellPosition(cell, axis, place[static_cast<std::size_t>(axis)]);
        }
    }
    void SetNeedle(std::int32_t needle, const PositionXYZ& place) {
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            rig.state.Needle(needle, axis, place[static_cast<std::size_t>(axis)]);
        }
    }
    void OnlyCalibrated(std::int32_t only) {
        for (std::int32_t needle = 0; needle < NeedleCount; ++needle) {
            rig.state.CalibrationON(needle, needle == only);
        }
    }
    void Magnification(std::int16_t magnification) {
        rig.state.CurrentMagnification(magnification);
        panel.ChangeMagnification(magnification);
        rig.journal.clear();
    }
    // A tick of the position loop reads the needle that the hardware has.
    void Tick() { ManipulatorReload(); }
    // The hardware has that needle, index 0 to 3, whoever selected it.
    void HardwareHas(std::int32_t needle) { rig.driver.selected = needle + 1; }
    // A step of the position loop with the view at a new place.
    void Step(const PositionXYZ& view) {
        View(view);
        panel.ChangeCurrentXYZ(rig.state.CurrentXYZ());
    }
    // The panel opens with that cell stored.
    void Store(std::int32_t cell, const PositionXYZ& place = TheCell) {
        SetCell(cell, place);
        panel.Shown();
    }

    template <typename Control>
    Control& Find(const QString& name) const {
        auto* const control = panel.findChild<Control*>(name);
        if (control == nullptr) {
            throw std::runtime_error("no control " + name.toStdString());
        }
        return *control;
    }
    usrKVCheckButton& Check(const char* name, int index) const {
        return Find<usrKVCheckButton>(Indexed(QString::fromLatin1(name), index));
    }
    usrKVCheckButton& Needle(int index) const { return Check("usrKVCheckButton1", index); }
    usrKVCheckButton& Cell(int index) const { return Check("usrKVCheckButton2", index); }
    usrKVCheckButton& Synchro() const { return Check("usrKVCheckButton3", 0); }
    usrKVCheckButton& Direct() const { return Check("usrKVCheckButton3", 1); }
    usrKVCheckButton& ViewMoves() const { return Check("usrKVCheckButton4", 0); }
    usrKVCheckButton& PresentView() const { return Check("usrKVCheckButton4", 1); }
    usrKVButton& Move() const { return Find<usrKVButton>(QStringLiteral("usrKVButton1")); }
    usrKVButton& Escape(int index) const {
        return Find<usrKVButton>(Indexed(QStringLiteral("usrKVButton2"), index));
    }
    SkinImage& Image(const char* name, int index) const {
        return Find<SkinImage>(Indexed(QString::fromLatin1(name), index));
    }

    // A click of the mouse, which reaches what is on show only.
    void Click(QAbstractButton& button) const {
        if (button.isHidden()) {
            throw std::runtime_error("not on show: " + button.objectName().toStdString());
        }
        QTest::mouseClick(&button, Qt::LeftButton);
    }

    // Which of a row of pictures is seen; several are written one after another, as in "13".
    std::string Seen(const char* name, int first, int last) const {
        std::string seen;
        for (int index = first; index <= last; ++index) {
            if (!Image(name, index).isHidden()) {
                seen += std::to_string(index);
            }
        }
        return seen;
    }
    std::string MoveLamp() const { return Seen("imgMManiNo", 0, 4); }
    std::string TargetLamp() const { return Seen("imgMCellNo", 0, 8); }
    std::string Arrow() const { return Seen("Image2", 1, 4); }

    // Pressed-in buttons: needles 1 to 4, V for the view; cells A to H, V for the present view.
    std::string PressedMoves() const { return Pressed("usrKVCheckButton1", 4, '1', ViewMoves()); }
    std::string PressedTargets() const { return Pressed("usrKVCheckButton2", 8, 'A', PresentView()); }
    std::string EnabledNeedles() const { return Listed("usrKVCheckButton1", 4, '1', true); }
    std::string EnabledCells() const { return Listed("usrKVCheckButton2", 8, 'A', true); }

    // The state of the panel as its operator sees it.
    std::string State() const {
        const std::string lamp = MoveLamp();
        if (lamp == "4") {
            return rig.state.intTotalManipulatorNumber == -1 ? "ViewOnly" : "View";
        }
        const bool synchro = !Image("Image2", 4).isHidden();
        return (synchro ? "Synchro " : "Needle ") + std::to_string(std::stoi(lamp) + 1);
    }

    void EnterView() { Click(ViewMoves()); }
    void EnterViewOnly() {
        Connected(-1);
        panel.TotalManipulatorNumber(-1);
    }
    void EnterSynchro() { Click(Synchro()); }

    PanelRig rig;
    CtlExperiment2 panel{System(), QString(), nullptr};
    FakeTimer& Timer1{*rig.timers.created.at(0)};

private:
    CtlExperiment2::System System() {
        return {rig.state, rig.communication, rig.needleMove, rig.needleSynchro, rig.escape, rig.mirrorMove,
                rig.live,  rig.boxes,         rig.timers,     rig.failures,      *this};
    }
    // The owner's reading of the selected needle, without the place of its tip.
    bool ManipulatorReload() override {
        const std::string record = rig.communication.RequestManipulatorData();
        if (record.empty() || record.starts_with("-1")) {
            return false;
        }
        const auto index = static_cast<std::int16_t>(std::stoi(record));
        if (index != rig.state.intManipulatorNumber) {
            rig.state.intManipulatorNumber = index;
            panel.ManipulatorChange(index);
        }
        return true;
    }
    // Maps that only shift: manipulator counts are common units plus Centre.
    void CalibrateStraight(std::int32_t needle) {
        constexpr CalibrationMap::Points Straight{
            {{10000, 20000, 5000}, {7000, 24000, 5000}, {13000, 24000, 5000}, {10000, 20000, 6000}}};
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            for (std::int32_t point = 0; point < CalibrationPointCount; ++point) {
                rig.needleMove.ManipulatorCalibrationPosXYZ(
                    needle, axis, point,
                    Straight[static_cast<std::size_t>(point)][static_cast<std::size_t>(axis)]);
            }
            rig.needleMove.PosZero(needle, axis, 0);
        }
        rig.needleMove.CalibrationCalculation(needle);
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            rig.needleMove.ManiCenter(needle, axis, Centre);
        }
    }
    std::string Listed(const char* name, int count, char first, bool enabled) const {
        std::string listed;
        for (int index = 0; index < count; ++index) {
            if (enabled ? Check(name, index).Enabled() : Check(name, index).Value()) {
                listed += static_cast<char>(first + index);
            }
        }
        return listed;
    }
    std::string Pressed(const char* name, int count, char first, const usrKVCheckButton& view) const {
        return Listed(name, count, first, false) + (view.Value() ? "V" : "");
    }
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
