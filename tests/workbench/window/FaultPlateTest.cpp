#include "workbench/window/FaultPlate.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QTimer>

#include "PlateRig.h"

namespace workbench::test {
namespace {

class FaultPlateTest : public PlateRig {
protected:
    FaultPlateTest() {
        plate.resize(631, 244);
        plate.show();
        ShowNow();
    }
    void ShowNow() { plate.Show(Read()); }
    FaultChip& Chip(const char* name) { return Find<FaultChip>(plate, name); }
    void Press(const char* name) {
        Click(plate, name);
        ShowNow();
    }

    // Opens the menu at a place and takes the line reached by these words, from the outermost menu inward.
    void Choose(QWidget& at, const QPoint& place, const QStringList& words) {
        bool taken = false;
        QTimer::singleShot(0, &plate, [&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            QMenu* const outer = menu;
            for (const QString& word : words) {
                for (QAction* action : menu == nullptr ? QList<QAction*>() : menu->actions()) {
                    if (action->text() == word && action->menu() != nullptr) {
                        menu = action->menu();
                        break;
                    }
                    if (action->text() == word) {
                        action->trigger();
                        taken = true;
                        break;
                    }
                }
            }
            if (outer != nullptr) {
                outer->close();
            }
        });
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, at.mapToGlobal(place));
        QApplication::sendEvent(&at, &event);
        EXPECT_TRUE(taken) << words.join(QStringLiteral(", ")).toStdString();
        ShowNow();
    }

    FaultPlate plate{MakeHand(), nullptr};
};

TEST_F(FaultPlateTest, EveryLastingFaultIsOnAfterAPressAndEndedByTheNext) {
    for (const Fault& fault : Faults()) {
        if (!fault.Lasts()) {
            continue;
        }
        const std::string name = fault.object.toStdString();
        Press(name.c_str());
        EXPECT_TRUE(Chip(name.c_str()).isChecked()) << name;
        Press(name.c_str());
        EXPECT_FALSE(Chip(name.c_str()).isChecked()) << name;
        EXPECT_EQ(FaultsOn(scene), 0) << name;
        EXPECT_EQ(TakeSaid(), (Said{ForNeedle(fault.on, 1), fault.off}));
    }
}

TEST_F(FaultPlateTest, EveryLineThatAChipCanSayIsTakenByTheBench) {
    for (const Fault& fault : Faults()) {
        std::vector<std::string> lines{fault.on};
        for (const FaultChoice& choice : ChoicesOf(fault)) {
            lines.push_back(choice.on);
        }
        for (const std::string& line : lines) {
            const std::string answer = Answer(ForNeedle(line, 1));
            // There is no camera program here.
            const bool needsCamera = fault.column == CameraColumn;
            EXPECT_EQ(answer.starts_with("ok"), !needsCamera) << line << ": " << answer;
            Answer("fault clear");
        }
    }
}

TEST_F(FaultPlateTest, AFaultIsLitWhoeverSetsIt) {
    Answer("fault gauge garbage on");
    ShowNow();
    EXPECT_TRUE(Chip("fault_gauge_garbage").isChecked());
    EXPECT_FALSE(Chip("fault_gauge_silent").isChecked());
    EXPECT_EQ(TakeSaid(), Said{});
}

TEST_F(FaultPlateTest, ACountingFaultSaysWhatIsLeft) {
    Answer("fault mirror error 8 3");
    Answer("fault motor refuse always");
    ShowNow();
    EXPECT_EQ(Chip("fault_mirror_error").Shown(), QStringLiteral("Error 8 ×3"));
    EXPECT_EQ(Chip("fault_motor_refuse").Shown(), QStringLiteral("Refuses ×∞"));
}

TEST_F(FaultPlateTest, AllClearEndsThemAllAndSaysHowManyThereAre) {
    auto& clear = Find<BenchPush>(plate, "all_clear");
    EXPECT_FALSE(clear.isEnabled());
    EXPECT_EQ(clear.text(), QStringLiteral("All clear"));
    Press("fault_mirror_limitx");
    Press("fault_motor_silent");
    Press("fault_mirror_motors");
    EXPECT_TRUE(clear.isEnabled());
    EXPECT_EQ(clear.text(), QStringLiteral("All clear (3)"));
    TakeSaid();
    Press("all_clear");
    EXPECT_EQ(TakeSaid(), (Said{"fault clear", "fault mirror motors on"}));
    EXPECT_EQ(FaultsOn(scene), 0);
    EXPECT_FALSE(clear.isEnabled());
}

TEST_F(FaultPlateTest, WhatWasChosenLastIsWhatTheChipDoesFromThenOnAndItSaysSo) {
    FaultChip& chip = Chip("fault_mirror_error");
    Choose(chip, {20, 10}, {QStringLiteral("Error 3"), QStringLiteral("Three times")});
    EXPECT_EQ(TakeSaid(), Said{"fault mirror error 3 3"});
    EXPECT_EQ(chip.Shown(), QStringLiteral("Error 3 ×3"));
    Press("fault_mirror_error");
    EXPECT_EQ(TakeSaid(), Said{"fault mirror error 8 0"});
    EXPECT_EQ(chip.Shown(), QStringLiteral("Error 3 ×3"));
    Press("fault_mirror_error");
    EXPECT_EQ(TakeSaid(), Said{"fault mirror error 3 3"});
}

TEST_F(FaultPlateTest, AMenuOfAPushSaysItsNumberAtOnce) {
    Choose(Chip("fault_gauge_noise"), {20, 10}, {QStringLiteral("1000 bytes")});
    EXPECT_EQ(TakeSaid(), Said{"fault gauge noise 1000"});
    EXPECT_EQ(Chip("fault_gauge_noise").text(), QStringLiteral("Noise 1000"));
}

TEST_F(FaultPlateTest, TheNeedlesColumnOffersWhatANeedleMayLack) {
    scene.picked = 2;
    ShowNow();
    Choose(Chip("fault_range"), {20, 10},
           {QStringLiteral("Needle 2: Bent tip"), QStringLiteral("20 units in X")});
    EXPECT_EQ(TakeSaid(), Said{"needle bend 2 20 0 0"});
    EXPECT_EQ(FaultsOn(scene), 1);
    // Between the chips of the column as well.
    Choose(plate, {430, 240}, {QStringLiteral("Needle 2: Backlash"), QStringLiteral("5 counts an axis")});
    Choose(plate, {430, 240}, {QStringLiteral("Needle 2: Drift"), QStringLiteral("100 counts a minute")});
    Choose(plate, {430, 240}, {QStringLiteral("Needle 2: Noise of readings"), QStringLiteral("10 counts")});
    EXPECT_EQ(TakeSaid(),
              (Said{"needle backlash 2 5 5 5", "needle drift 2 100 100 100", "needle noise 2 10"}));
    EXPECT_EQ(FaultsOn(scene), 4);
    Choose(plate, {430, 240}, {QStringLiteral("Needle 2: Drift (on)"), QStringLiteral("Off")});
    EXPECT_EQ(FaultsOn(scene), 3);
}

TEST_F(FaultPlateTest, TheKeyMovesOnToTheNeedleAfterThePickedOne) {
    scene.picked = 4;
    ShowNow();
    Press("fault_key");
    EXPECT_EQ(TakeSaid(), Said{"hardware select 1"});
}

TEST_F(FaultPlateTest, TheCamerasColumnIsDisabledWhileNoCameraProgramRuns) {
    for (const char* name : {"fault_camera_hide", "fault_camera_close", "fault_camera_kill",
                             "fault_camera_hang", "fault_camera_fail"}) {
        EXPECT_FALSE(Chip(name).isEnabled()) << name;
    }
    Scene running = scene;
    running.cameraRunning = true;
    plate.Show(running);
    EXPECT_TRUE(Chip("fault_camera_hang").isEnabled());
    Click(plate, "fault_camera_hang");
    EXPECT_EQ(TakeSaid(), Said{"camera hang 3"});
}

}  // namespace
}  // namespace workbench::test
