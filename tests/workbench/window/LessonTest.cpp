#include "workbench/window/Lesson.h"

#include <gtest/gtest.h>

#include "LessonRig.h"

namespace workbench {

using test::PutTip;
using test::SendTip;
class LessonTest : public test::LessonRig {};

TEST_F(LessonTest, NothingIsTickedAtFirst) {
    Look();
    EXPECT_EQ(lesson.Done(), 0);
    EXPECT_EQ(lesson.CountText(false), QStringLiteral("0 of 8"));
    EXPECT_EQ(lesson.CountText(true), QStringLiteral("0/8"));
}

TEST_F(LessonTest, Step1IsTickedWhenAllThreeWiresAreOpen) {
    OpenWires(true);
    scene.wires[2].open = false;
    Look();
    EXPECT_EQ(lesson.Done(), 0);
    scene.wires[2].open = true;
    Look();
    EXPECT_EQ(lesson.Done(), 1);
}

TEST_F(LessonTest, Step2NeedsTwoTimesForTwoSecondsSinceStep1) {
    Connect();
    Look(1999);
    EXPECT_EQ(lesson.Done(), 1);
    Look(1);
    EXPECT_EQ(lesson.Done(), 2);
}

TEST_F(LessonTest, Step2BeginsToCountAnewWhenTheMagnificationWasAnother) {
    Connect();
    Look(1500);
    scene.magnification = 1;
    Look();
    scene.magnification = 2;
    Look();
    Look(1999);
    EXPECT_EQ(lesson.Done(), 1);
    Look(1);
    EXPECT_EQ(lesson.Done(), 2);
}

TEST_F(LessonTest, Step2NeedsThePickedNeedleToBeTheOneAtTheHardware) {
    scene.selected = 3;
    Connect();
    Look(5000);
    EXPECT_EQ(lesson.Done(), 1);
    scene.picked = 3;
    Look();
    EXPECT_EQ(lesson.Done(), 2);
}

TEST_F(LessonTest, Step3FillsABadgeWhereTheTipRestsWithin3UnitsInPlan) {
    PickAtTwo();
    ToMark(1, 3.1);
    Look();
    EXPECT_FALSE(lesson.MarkTouched(1));
    ToMark(1, 2.9, 500.0);
    scene.needles[0].moving = true;
    Look();
    EXPECT_FALSE(lesson.MarkTouched(1));
    scene.needles[0].moving = false;
    Look();
    EXPECT_TRUE(lesson.MarkTouched(1));
    EXPECT_FALSE(lesson.MarkTouched(0));
    EXPECT_FALSE(lesson.MarkTouched(2));
    EXPECT_TRUE(lesson.AsksForMarks());
}

TEST_F(LessonTest, Step3TakesMarksFromWhereTheViewIs) {
    scene.view = {-60.0, -100.4};
    PickAtTwo();
    PutTip(scene, 1, {-60.0, -160.4, 0.0});
    Look();
    EXPECT_TRUE(lesson.MarkTouched(0));
}

TEST_F(LessonTest, Step3IsTickedWhenTheObjectiveRisesBehindTheThirdMark) {
    PickAtTwo();
    ToMark(0);
    Look();
    ToMark(1);
    Happens("motor", "in", "RELMOVEZ10000\\r");
    Look();
    ToMark(2);
    Look();
    EXPECT_EQ(lesson.Done(), 2);
    Happens("motor", "in", "RELMOVEZ1000\\r");
    Look();
    EXPECT_EQ(lesson.Done(), 2);
    Happens("motor", "in", "RELMOVEZ10000\\r");
    Look();
    EXPECT_EQ(lesson.Done(), 3);
}

TEST_F(LessonTest, AnotherNeedleIsCalibratedFromItsOwnFirstMarkOn) {
    PickAtTwo();
    ToMark(0);
    Look();
    scene.picked = 2;
    Look();
    EXPECT_TRUE(lesson.MarkTouched(0));
    PutTip(scene, 2, {80.0, 60.0, 0.0});
    Look();
    EXPECT_FALSE(lesson.MarkTouched(0));
    EXPECT_TRUE(lesson.MarkTouched(2));
}

TEST_F(LessonTest, Step4IsTickedWhenTheObjectiveGoesDownOverATipInFocusOnMarkA) {
    TouchMarks();
    ASSERT_EQ(lesson.Done(), 3);
    Focus(100.0);
    ToMark(0, 2.9, 104.9);
    Look();
    // By the time that it is read the focal plane is on its way.
    scene.focus = {70.0, 0.0, 0, 0};
    Happens("motor", "in", "RELMOVEZ-10000\\r");
    Look();
    EXPECT_EQ(lesson.Done(), 4);
    EXPECT_TRUE(lesson.Notice().isEmpty());
}

TEST_F(LessonTest, AStoreOffTheMarkMakesStep3NextAgainAndSaysHowFar) {
    TouchMarks();
    Focus(100.0);
    ToMark(0, 12.34, 100.0);
    Look();
    scene.focus = {99.0, 0.0, 0, 0};
    Happens("motor", "in", "RELMOVEZ-10000\\r");
    Look();
    EXPECT_EQ(lesson.Done(), 2);
    EXPECT_EQ(lesson.Notice(), QStringLiteral("Stored, but the tip was 12.3 units off. Once more."));
    EXPECT_FALSE(lesson.MarkTouched(0) || lesson.MarkTouched(1) || lesson.MarkTouched(2));
}

TEST_F(LessonTest, AStoreOutOfFocusMakesStep3NextAgain) {
    TouchMarks();
    Focus(100.0);
    ToMark(0, 0.0, 94.0);
    Look();
    Happens("motor", "in", "RELMOVEZ-10000\\r");
    Look();
    EXPECT_EQ(lesson.Done(), 2);
    EXPECT_EQ(lesson.Notice(), QStringLiteral("Stored, but the tip was 6.0 units off. Once more."));
}

TEST_F(LessonTest, TheSentenceGoesWhenStep3IsTickedOnceMore) {
    TouchMarks();
    Happens("motor", "in", "RELMOVEZ-10000\\r");
    Look();
    ASSERT_EQ(lesson.Done(), 2);
    for (int mark = 0; mark < MarkCount; ++mark) {
        ToMark(mark);
        Look();
        EXPECT_FALSE(lesson.Notice().isEmpty());
    }
    Happens("motor", "in", "RELMOVEZ10000\\r");
    Look();
    EXPECT_EQ(lesson.Done(), 3);
    EXPECT_TRUE(lesson.Notice().isEmpty());
}

TEST_F(LessonTest, Step5IsTickedWhenXIsAskedForWhileTheViewRestsOnACell) {
    Store();
    ASSERT_EQ(lesson.Done(), 4);
    Happens("mirror", "in", "rD2R\\r");
    Look();
    EXPECT_EQ(lesson.Done(), 4);
    scene.view = {-470.0, 193.8};
    Happens("mirror", "in", "rD2R\\r");
    Look();
    EXPECT_EQ(lesson.Done(), 4);
    scene.view = {-470.0, 193.6};
    scene.mirror.now = {93.5, -38.0};
    scene.mirror.rest = {94.0, -38.0};
    Happens("mirror", "in", "rD2R\\r");
    Look();
    EXPECT_EQ(lesson.Done(), 4);
    scene.mirror.now = scene.mirror.rest;
    Look();
    EXPECT_EQ(lesson.Done(), 4);
    Happens("mirror", "in", "rD2R\\r");
    Look();
    EXPECT_EQ(lesson.Done(), 5);
}

TEST_F(LessonTest, Step6IsTickedWhenTheDriverTakesAMoveToThatCell) {
    Aim();
    ASSERT_EQ(lesson.Done(), 5);
    SendTip(scene, 1, {-470.0, 190.7, 0.0});
    Happens("driver", "call", "moveto 12302 12033 12500 = -3");
    Look();
    EXPECT_EQ(lesson.Done(), 5);
    SendTip(scene, 1, {420.0, -225.8, 0.0});
    Happens("driver", "call", "moveto 12637 12956 12500 = 0 1 0.700");
    Look();
    EXPECT_EQ(lesson.Done(), 5);
    SendTip(scene, 1, {-440.1, 190.7, 100.0});
    Happens("driver", "call", "moveto 12323 12054 12500 = 0 1 0.700");
    Look();
    EXPECT_EQ(lesson.Done(), 6);
}

TEST_F(LessonTest, Step7NeedsThePlanToStandForASecondOverTheLanding) {
    Land();
    ASSERT_EQ(lesson.Done(), 6);
    sight = {{-480.0, 180.0, 20.0, 20.0}, 4.0};
    Look();
    Look(999);
    EXPECT_EQ(lesson.Done(), 6);
    Look(1);
    EXPECT_EQ(lesson.Done(), 7);
}

TEST_F(LessonTest, Step7DoesNotCountWhileThePlanMovesIsTooSmallOrElsewhere) {
    Land();
    SeeLanding(3.9);
    EXPECT_EQ(lesson.Done(), 6);
    sight = {{0.0, 0.0, 20.0, 20.0}, 12.0};
    Look();
    Look(1000);
    EXPECT_EQ(lesson.Done(), 6);
    // The centre is in sight, the tip is not.
    sight = {{-490.0, 180.0, 20.5, 11.0}, 12.0};
    Look();
    Look(1000);
    EXPECT_EQ(lesson.Done(), 6);
    for (double x = -480.0; x < -478.0; x += 0.5) {
        sight = {{x, 180.0, 20.0, 20.0}, 12.0};
        Look(600);
    }
    EXPECT_EQ(lesson.Done(), 6);
}

TEST_F(LessonTest, Step7NeedsALandingOfItsOwn) {
    Aim();
    // One that was there before the needle was sent.
    const double distance = PlanDistance(scene.needles[0].tip.Plan(), {0.0, 0.0});
    scene.landing = {1, distance, 1, 0, distance, 0.0, 0.0, {0.0, 0.0}};
    Look();
    SendTip(scene, 1, {-470.2, 190.5, 0.0});
    Happens("driver", "call", "moveto 12302 12033 12500 = 0 1 0.700");
    Look();
    ASSERT_EQ(lesson.Done(), 6);
    scene.needles[0].moving = false;
    sight = {{-200.0, -200.0, 400.0, 400.0}, 5.0};
    Look();
    Look(1000);
    EXPECT_EQ(lesson.Done(), 6);
}

TEST_F(LessonTest, Step8IsTickedWhenAllWiresHaveBeenShutForASecond) {
    Land();
    SeeLanding();
    ASSERT_EQ(lesson.Done(), 7);
    EXPECT_TRUE(lesson.DoneText().isEmpty());
    OpenWires(false);
    scene.wires[0].open = true;
    Look(2000);
    EXPECT_EQ(lesson.Done(), 7);
    scene.wires[0].open = false;
    Look();
    Look(999);
    EXPECT_EQ(lesson.Done(), 7);
    Look(1);
    EXPECT_TRUE(lesson.IsOver());
}

TEST_F(LessonTest, AtTheEndItSaysHowLongItTookFromStep1On) {
    now = 100000;
    Look();
    const std::int64_t began = now + 40;
    Land();
    SeeLanding();
    OpenWires(false);
    Look();
    Look(began + 582999 - now);
    ASSERT_TRUE(lesson.IsOver());
    EXPECT_EQ(lesson.DoneText(), QStringLiteral("Done in 9 min 42 s"));
    Look(60000);
    EXPECT_EQ(lesson.DoneText(), QStringLiteral("Done in 9 min 42 s"));
}

TEST_F(LessonTest, WhatIsTickedStaysTicked) {
    PickAtTwo();
    OpenWires(false);
    scene.magnification = 1;
    Look(5000);
    EXPECT_EQ(lesson.Done(), 2);
}

TEST_F(LessonTest, OnceMoreBeginsAnew) {
    TouchMarks();
    lesson.Again();
    EXPECT_EQ(lesson.Done(), 0);
    EXPECT_FALSE(lesson.MarkTouched(0));
    Look();
    EXPECT_EQ(lesson.Done(), 1);
}

TEST_F(LessonTest, ScreenReadersAreToldWhichStepIsNext) {
    PickAtTwo();
    EXPECT_EQ(lesson.StepText(2), QStringLiteral("Step 2 of 8, done: Pick needle 1 at 2×"));
    EXPECT_EQ(lesson.StepText(3), QStringLiteral("Step 3 of 8, next: Bring the tip to A, B, C"));
    EXPECT_EQ(lesson.StepText(4), QStringLiteral("Step 4 of 8: Find focus, store"));
}

}  // namespace workbench
