// The user panel on its rig, with the test as its owner and as the camera's listener.
#pragma once

#include <gmock/gmock.h>

#include <QTest>
#include <memory>

#include "core/view/CtlUser.h"
#include "support/PanelRig.h"

namespace travo::test {

class CtlUserRig : public ::testing::Test, private CtlUser::Owner, private LiveLink::Listener {
protected:
    CtlUserRig() { rig.journal.clear(); }
    ~CtlUserRig() override { panel.reset(); }

    CtlUser::System System() {
        return {rig.state,    live,        rig.needleMove, rig.objective,
                rig.failures, rig.profile, rig.folders,    *this};
    }

    CtlUser& Panel() {
        if (!panel) {
            panel = std::make_unique<CtlUser>(System(), rig.ProgramFolder());
            panel->resize(486, 520);
            panel->show();
            panel->Shown();
        }
        return *panel;
    }

    template <class Control>
    Control& Find(const QString& name) {
        return *Panel().findChild<Control*>(name);
    }
    usrKVCheckButton& Window(int index) {
        return Find<usrKVCheckButton>(QStringLiteral("usrKVCheckButton1(%1)").arg(index));
    }
    usrKVCheckButton& Switch(int index) {
        return Find<usrKVCheckButton>(QStringLiteral("usrKVCheckButton2(%1)").arg(index));
    }
    usrKVCheckButton& Mode(int index) {
        return Find<usrKVCheckButton>(QStringLiteral("usrKVCheckButton3(%1)").arg(index));
    }
    NumberBox& Offset(int index) { return Find<NumberBox>(QStringLiteral("txtOffset(%1)").arg(index)); }

    static void Click(QWidget& control) { QTest::mouseClick(&control, Qt::LeftButton); }
    void Apply() { Click(Find<usrKVButton>(QStringLiteral("usrKVButton1"))); }
    // Puts a number in place of what stands there, key by key.
    void Type(int index, const QString& digits) {
        Offset(index).selectAll();
        QTest::keyClicks(&Offset(index), digits);
    }

    // A text of the settings file, as the next start reads it.
    QString Setting(const QString& key) {
        return rig.ini.GetString(QStringLiteral("Window"), key, QStringLiteral("none"));
    }
    void StoreWindow(int index, const QString& value) {
        rig.ini.WriteString(QStringLiteral("Window"), QString::number(index), value);
    }

    void CloseProgram() { panel.reset(); }

    // Needle 0 at (1000, 0), needle 1 across its way to (2000, 0).
    void PlaceNeedlesInTheWay();
    // Sends needle 0 there: true when it was sent.
    bool MoveThroughTheWay() { return rig.needleMove.NeedleMove(0, {2000, 0, 0}, 1, false, false); }

    void ModeChange(bool bWizerd) override {
        rig.journal.push_back(bWizerd ? "ModeChange true" : "ModeChange false");
    }
    void ShowWindow(std::int32_t Index) override { Toggle("show ", Index); }
    void HideWindow(std::int32_t Index) override { Toggle("hide ", Index); }
    void Live_BirdViewSave() override {}
    void Live_WindowHide() override { Panel().LiveFromHide(); }
    void Live_WindowClose() override { Panel().LiveButtonChange(true); }
    void LiveDied() override { Panel().LiveButtonChange(true); }

    PanelRig rig;
    LiveLink live{rig.camera, rig.state, *this};
    bool windowsFail = false;
    std::unique_ptr<CtlUser> panel;

private:
    void Toggle(const std::string& what, std::int32_t Index) {
        rig.journal.push_back(what + std::to_string(Index));
        if (windowsFail) {
            throw std::runtime_error("the window cannot be built");
        }
    }
};

inline void CtlUserRig::PlaceNeedlesInTheWay() {
    const std::array<CalibrationMap::Points, 2> points{
        {{{{10000, 20000, 5000}, {7000, 24000, 5000}, {13000, 24000, 5000}, {10000, 20000, 6000}}},
         {{{10000, 10000, 5000}, {6000, 7000, 5000}, {6000, 13000, 5000}, {10000, 10000, 6000}}}}};
    for (std::int32_t needle = 0; needle < 2; ++needle) {
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            for (std::int32_t point = 0; point < CalibrationPointCount; ++point) {
                rig.needleMove.ManipulatorCalibrationPosXYZ(needle, axis, point,
                                                            points.at(static_cast<std::size_t>(needle))
                                                                .at(static_cast<std::size_t>(point))
                                                                .at(static_cast<std::size_t>(axis)));
            }
            rig.needleMove.PosZero(needle, axis, 0);
        }
        rig.needleMove.CalibrationCalculation(needle);
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            rig.needleMove.ManiCenter(needle, axis, 0);
        }
        rig.state.CalibrationON(needle, true);
    }
    rig.needleMove.PosZero(1, 1, -5000);
    rig.state.Needle(0, 0, 1000);
    rig.state.Needle(1, 0, 1500);
    rig.state.Needle(1, 1, 100);
}

}  // namespace travo::test
