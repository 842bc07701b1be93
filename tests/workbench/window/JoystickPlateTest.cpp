#include "workbench/window/JoystickPlate.h"

#include "PlateRig.h"

namespace workbench::test {
namespace {

class JoystickPlateTest : public PlateRig {
protected:
    JoystickPlateTest() {
        plate.resize(352, 252);
        plate.Show(Read());
    }
    void ShowAfter(const std::string& line) {
        Answer(line);
        plate.Show(Read());
    }

    int pickedNeedle = 0;
    JoystickPlate plate{MakeHand(), [this](int needle) { pickedNeedle = needle; }, nullptr};
};

TEST_F(JoystickPlateTest, EachWaySaysItsJogOnceForAPress) {
    for (const auto& [name, line] :
         {std::pair{"xPlus", "world jog 1 100 0 0"}, std::pair{"xMinus", "world jog 1 -100 0 0"},
          std::pair{"yPlus", "world jog 1 0 100 0"}, std::pair{"yMinus", "world jog 1 0 -100 0"},
          std::pair{"zUp", "world jog 1 0 0 -100"}, std::pair{"zDown", "world jog 1 0 0 100"}}) {
        Click(plate, name);
        EXPECT_EQ(TakeSaid(), Said{line});
    }
}

TEST_F(JoystickPlateTest, ANeedleIsChosenAndNothingIsSaid) {
    Click(plate, "pick3");
    EXPECT_EQ(pickedNeedle, 3);
    EXPECT_EQ(TakeSaid(), Said{});
    // It is lit by what was chosen, not by the press.
    EXPECT_TRUE(Find<BenchSwitch>(plate, "pick1").isChecked());
    scene.picked = 3;
    plate.Show(Read());
    EXPECT_TRUE(Find<BenchSwitch>(plate, "pick3").isChecked());
    EXPECT_FALSE(Find<BenchSwitch>(plate, "pick1").isChecked());
    Click(plate, "xPlus");
    EXPECT_EQ(TakeSaid(), Said{"world jog 3 100 0 0"});
}

TEST_F(JoystickPlateTest, ANeedleThatIsNotConnectedCannotBeChosen) {
    ShowAfter("fault count 2");
    EXPECT_TRUE(Find<BenchSwitch>(plate, "pick2").isEnabled());
    EXPECT_FALSE(Find<BenchSwitch>(plate, "pick3").isEnabled());
    Click(plate, "pick3");
    EXPECT_EQ(pickedNeedle, 0);
}

TEST_F(JoystickPlateTest, OneStepIsLatchedAtATimeAndTheKeysWalkThroughThem) {
    EXPECT_EQ(plate.Step(), 100);
    Click(plate, "step1000");
    EXPECT_EQ(plate.Step(), 1000);
    EXPECT_TRUE(Find<BenchSegment>(plate, "step1000").isChecked());
    EXPECT_FALSE(Find<BenchSegment>(plate, "step100").isChecked());
    plate.Longer();
    EXPECT_EQ(plate.Step(), 1000);
    plate.Shorter();
    plate.Shorter();
    plate.Shorter();
    plate.Shorter();
    EXPECT_EQ(plate.Step(), 1);
}

TEST_F(JoystickPlateTest, FineOrShiftMakesItATenthAndNeverLessThanOne) {
    auto& fine = Find<BenchSwitch>(plate, "fine");
    EXPECT_EQ(fine.SecondLine(), QStringLiteral("or hold Shift: 10"));
    Click(plate, "fine");
    EXPECT_TRUE(fine.isChecked());
    EXPECT_EQ(plate.Step(), 10);
    Click(plate, "xPlus");
    EXPECT_EQ(TakeSaid(), Said{"world jog 1 10 0 0"});
    Click(plate, "fine");
    EXPECT_EQ(plate.Step(), 100);
    plate.HoldShift(true);
    EXPECT_TRUE(fine.isChecked());
    EXPECT_EQ(plate.Step(), 10);
    plate.HoldShift(false);
    EXPECT_FALSE(fine.isChecked());
    Click(plate, "step1");
    Click(plate, "fine");
    EXPECT_EQ(plate.Step(), 1);
    EXPECT_EQ(fine.SecondLine(), QStringLiteral("or hold Shift: 1"));
}

TEST_F(JoystickPlateTest, ParkAndTheKeyGoByTheChosenNeedle) {
    scene.picked = 2;
    plate.Show(Read());
    Click(plate, "park");
    Click(plate, "key");
    EXPECT_EQ(TakeSaid(), (Said{"world move 2 9500 12500 12500", "hardware select 2"}));
    plate.Show(Read());
    auto& key = Find<BenchSwitch>(plate, "key");
    EXPECT_TRUE(key.isChecked());
    EXPECT_EQ(key.text(), QStringLiteral("Selected at hardware"));
    scene.picked = 1;
    plate.Show(Read());
    EXPECT_FALSE(key.isChecked());
    EXPECT_EQ(key.text(), QStringLiteral("Select at hardware"));
    EXPECT_EQ(Find<BenchSwitch>(plate, "pick2").accessibleDescription(),
              QStringLiteral("selected at the hardware"));
}

TEST_F(JoystickPlateTest, CountsAndPlaceOfTheChosenNeedleAreShown) {
    scene.picked = 4;
    ShowAfter("world move 4 12000 12500 12400");
    Rest();
    plate.Show(Read());
    EXPECT_EQ(Find<NumberRead>(plate, "countsX").Number(), QStringLiteral("12000"));
    EXPECT_EQ(Find<NumberRead>(plate, "countsZ").Number(), QStringLiteral("12400"));
    EXPECT_EQ(Find<NumberRead>(plate, "commonX").Number(), QStringLiteral("−353.6"));
    EXPECT_EQ(Find<NumberRead>(plate, "commonY").Number(), QStringLiteral("353.6"));
    EXPECT_EQ(Find<NumberRead>(plate, "commonZ").Number(), QStringLiteral("100.0"));
}

TEST_F(JoystickPlateTest, AHeldWayGoesOnWhenTheNeedleHasArrivedAndNotBefore) {
    auto& button = Find<BenchPush>(plate, "xPlus");
    QTest::mousePress(&button, Qt::LeftButton);
    ASSERT_EQ(said.size(), 1U);
    // The bench's time stands still: the needle never arrives.
    QTest::qWait(HeldStep::FirstPause + 4 * HeldStep::Pause);
    EXPECT_EQ(said.size(), 1U);
    Rest();
    EXPECT_TRUE(QTest::qWaitFor([this] { return said.size() == 2; }));
    QTest::mouseRelease(&button, Qt::LeftButton);
    Rest();
    QTest::qWait(3 * HeldStep::Pause);
    EXPECT_EQ(TakeSaid(), (Said{"world jog 1 100 0 0", "world jog 1 100 0 0"}));
}

TEST_F(JoystickPlateTest, AsNewIsForTheTimeInWhichNoPortIsOpen) {
    EXPECT_TRUE(Find<BenchPush>(plate, "asNew").isEnabled());
    Click(plate, "asNew");
    EXPECT_EQ(TakeSaid(), Said{"as-new"});
    Scene open = scene;
    open.wires = {{"mirror", "", true, true}, {"gauge", "", true, false}, {"motor", "", true, false}};
    plate.Show(open);
    EXPECT_FALSE(Find<BenchPush>(plate, "asNew").isEnabled());
}

}  // namespace
}  // namespace workbench::test
