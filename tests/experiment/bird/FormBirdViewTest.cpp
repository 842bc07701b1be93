// What the bird's-eye view shows of needles, view and cells.
#include "experiment/bird/FormBirdView.h"

#include <limits>

#include "core/ground/Arithmetic.h"
#include "experiment/bird/FormBirdViewRig.h"

namespace travo::test {
namespace {

constexpr std::int32_t Greatest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t Least = std::numeric_limits<std::int32_t>::min();

class FormBirdViewTest : public ::testing::Test, protected FormBirdViewRig {
protected:
    void SetUp() override { Show(); }
};

TEST_F(FormBirdViewTest, AtFirstThePictureIsTheBackgroundColourAndTheReadoutSaysNA) {
    EXPECT_EQ(Count(Ground), CanvasSize * CanvasSize);
    for (int axis = 0; axis < 3; ++axis) {
        EXPECT_EQ(Reading(axis), QStringLiteral("N/A"));
    }
    EXPECT_FALSE(window.chkMirror());
    EXPECT_FALSE(window.LineONOff());
    EXPECT_FALSE(window.BirdOPEN());
}

TEST_F(FormBirdViewTest, ItComesIntoBeingHidden) {
    EXPECT_TRUE(FormBirdView({{*this, *this}, rig.state, rig.boxes, *this}, rig.ProgramFolder()).isHidden());
}

// ---- Needles ----

TEST_F(FormBirdViewTest, ANeedleStandsAtItsPlaceOnTheCanvas) {
    Connected(1);
    window.ChangeVNeedleONOFF(true);
    Needle(1, {100, -200, 0});
    // 100 * 0.42 + 378 and -200 * 0.42 + 378.
    EXPECT_EQ(At(420, 294), NeedleColour);
    Needle(1, {-100, -200, 0});
    EXPECT_EQ(At(336, 294), NeedleColour);
    EXPECT_NE(At(420, 294), NeedleColour);
}

TEST_F(FormBirdViewTest, TheShapeSaysWhetherTheNeedleIsAboveBelowOrLevelWithTheFocus) {
    Connected(0);
    window.ChangeVNeedleONOFF(true);
    const auto shapeAt = [this](std::int32_t z) {
        Needle(0, {0, 0, z});
        return Picture().copy(378 - 9, 378 - 9, 18, 18);
    };
    // A gauge that has not been read yet counts as 0.
    const QImage above = shapeAt(1);
    const QImage level = shapeAt(0);
    const QImage below = shapeAt(-1);
    EXPECT_NE(above, level);
    EXPECT_NE(below, level);
    EXPECT_NE(above, below);
    rig.state.CurrentXYZ(2, 500);
    EXPECT_EQ(shapeAt(501), above);
    EXPECT_EQ(shapeAt(500), level);
    EXPECT_EQ(shapeAt(499), below);
}

TEST_F(FormBirdViewTest, IntTotalManipulatorNumberMinusOneDrawsNoNeedlesAndNoLinesThoughTheirPlacesAreHeld) {
    Connected(3);
    for (std::int16_t needle = 0; needle < NeedleCount; ++needle) {
        Needle(needle, {200 * needle - 300, 0, 0});
    }
    EXPECT_GT(Count(Qt::black), 200);
    const QImage before = Picture();
    Connected(-1);
    window.ChangeViewXYZ({0, 0, 0});
    EXPECT_EQ(Count(Ground), CanvasSize * CanvasSize);
    Connected(3);
    window.ChangeViewXYZ({0, 0, 0});
    EXPECT_EQ(Picture(), before);
}

TEST_F(FormBirdViewTest, ANeedleNeverReadSinceStartStandsAtTheTopLeftCornerWithShape0) {
    Connected(2);
    window.ChangeViewXYZ({0, 0, 0});
    const QImage corner = Picture().copy(0, 0, 34, 27);
    EXPECT_EQ(corner.pixelColor(9, 9), NeedleColour);
    // Above the focus and at the same place, when it has been read.
    Connected(0);
    window.ChangeVNeedleONOFF(true);
    window.ChangeViewXYZ({0, 0, 0});
    const QImage never = Picture().copy(0, 0, 34, 27);
    Needle(0, {-879, -879, 1});  // -879 * 0.42 + 378 - 9 is -0.18
    EXPECT_EQ(Picture().copy(0, 0, 34, 27), never);
}

TEST_F(FormBirdViewTest, ANeedleBeyondTheHighestConnectedOneIsNotDrawn) {
    Connected(0);
    window.ChangeVNeedleONOFF(true);
    Needle(1, {0, 0, 0});
    EXPECT_EQ(At(378, 378), Ground);
}

TEST_F(FormBirdViewTest, AShaftRunsFromTheRootToTheMiddleOfTheMarker) {
    Connected(0);
    Needle(0, {0, 0, 0}, {-500, 0, 0});
    // From -500 * 0.42 + 378 = 168 to 378, two pixels wide.
    EXPECT_EQ(Count(Qt::black, QRect(168, 377, 200, 2)), 400);
    EXPECT_EQ(Count(Qt::black, QRect(150, 377, 18, 2)), 0);
}

TEST_F(FormBirdViewTest, TheSelectedNeedleIsShownForOneCompositionInThree) {
    Connected(1);
    rig.state.intManipulatorNumber = 1;
    window.ChangeVNeedleONOFF(true);
    Needle(0, {-200, 0, 0});
    Needle(1, {200, 0, 0});
    std::string seen;
    for (int composition = 0; composition < 9; ++composition) {
        window.ChangeViewXYZ({0, 0, 0});
        EXPECT_EQ(At(294, 378), NeedleColour);
        seen += At(462, 378) == NeedleColour ? 's' : '-';
    }
    const std::size_t first = seen.find('s');
    ASSERT_LT(first, 3U);
    EXPECT_EQ(seen.substr(first, 6), "s--s--");
}

TEST_F(FormBirdViewTest, TheShaftOfTheSelectedNeedleDoesNotBlink) {
    Connected(0);
    rig.state.intManipulatorNumber = 0;
    for (int composition = 0; composition < 3; ++composition) {
        Needle(0, {0, 0, 0}, {-500, 0, 0});
        EXPECT_EQ(Count(Qt::black, QRect(168, 377, 190, 2)), 380);
    }
}

TEST_F(FormBirdViewTest, AFifthManipulatorHasNoMarkerAndIsAFailureWhenItIsRead) {
    Connected(4);
    Needle(3, {0, 0, 0});
    EXPECT_EQ(At(378, 378), NeedleColour);
    EXPECT_THROW(window.ChangeNeedleXYZ(4, rig.state.Needles(), rig.state.CurrentXYZ(), {}), BoundsFailure);
    EXPECT_THROW(window.ChangeNeedleXYZ(-1, rig.state.Needles(), rig.state.CurrentXYZ(), {}), BoundsFailure);
}

TEST_F(FormBirdViewTest, ANeedleAtTheEndsOfThe32BitRangeIsDrawnNowhereAndFailsNothing) {
    Connected(3);
    window.ChangeVNeedleONOFF(true);
    for (const PositionXYZ& place : {PositionXYZ{Greatest, Greatest, Greatest},
                                     {Least, Least, Least},
                                     {Greatest, Least, 0},
                                     {0, Greatest, Least}}) {
        for (std::int16_t needle = 0; needle < NeedleCount; ++needle) {
            EXPECT_NO_THROW(Needle(needle, place, place));
        }
        EXPECT_EQ(Count(Ground), CanvasSize * CanvasSize);
    }
    // A shaft from one end of the range to the other crosses the canvas and nothing else.
    window.ChangeVNeedleONOFF(false);
    Connected(0);
    Needle(0, {Greatest, 0, 0}, {Least, 0, 0});
    EXPECT_EQ(Count(Ground), CanvasSize * CanvasSize - 2 * CanvasSize);
}

// ---- Lines ----

TEST_F(FormBirdViewTest, LineONOffWrittenAtStartUpDoesNotDrawTheFirstCompositionTakesItUp) {
    Connected(0);
    Needle(0, {0, 0, 0});
    const QImage before = Picture();
    window.LineONOff(true);
    EXPECT_EQ(Picture(), before);
    EXPECT_TRUE(window.LineONOff());
    Needle(0, {0, 0, 0});
    EXPECT_NE(Picture(), before);
    window.LineONOff(false);
    EXPECT_FALSE(window.LineONOff());
    Needle(0, {0, 0, 0});
    EXPECT_EQ(Picture(), before);
}

TEST_F(FormBirdViewTest, PressedLinesAreOffAndFollowWithTheNextComposition) {
    Connected(0);
    Needle(0, {0, 0, 0});
    Open();
    const QImage before = Picture();
    Click(Lines());
    EXPECT_TRUE(window.LineONOff());
    EXPECT_EQ(Picture(), before);
    Needle(0, {0, 0, 0});
    EXPECT_NE(Picture(), before);
    Click(Lines());
    EXPECT_FALSE(window.LineONOff());
    Needle(0, {0, 0, 0});
    EXPECT_EQ(Picture(), before);
}

TEST_F(FormBirdViewTest, ChangeVNeedleONOFFLeavesTheButtonAlone) {
    window.ChangeVNeedleONOFF(true);
    EXPECT_FALSE(window.LineONOff());
}

// ---- View ----

TEST_F(FormBirdViewTest, WithChkMirrorFalseNoViewMarkAppearsThoughTheReadoutStillWorks) {
    window.ChangeViewXYZ({-20, 0, 345});
    EXPECT_EQ(Count(Ground), CanvasSize * CanvasSize);
    EXPECT_EQ(Reading(0), QStringLiteral("100"));
    EXPECT_EQ(Reading(1), QStringLiteral("0"));
    EXPECT_EQ(Reading(2), QStringLiteral("345"));
}

TEST_F(FormBirdViewTest, ChkMirrorDoesNotRedrawByItself) {
    window.chkMirror(true);
    EXPECT_TRUE(window.chkMirror());
    EXPECT_EQ(Count(Ground), CanvasSize * CanvasSize);
    window.ChangeCellXYZ(7, {80, 0, 0});
    EXPECT_GT(Count(ViewColour), 0);
}

TEST_F(FormBirdViewTest, TheReadoutShowsTheNegativeOfYAndNAForWhatIsNotSet) {
    window.ChangeViewXYZ({3, 4, 5});
    EXPECT_EQ(Reading(0), QString::number(MirrorXToCommon(3)));
    EXPECT_EQ(Reading(1), QString::number(-MirrorYToCommon(4)));
    EXPECT_GT(-MirrorYToCommon(4), 0);
    EXPECT_EQ(Reading(2), QStringLiteral("5"));
    for (std::size_t unset = 0; unset < 3; ++unset) {
        PositionXYZ view{3, 4, 5};
        view.at(unset) = NoPositionValue;
        window.ChangeViewXYZ(view);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            EXPECT_EQ(Reading(static_cast<int>(axis)) == QStringLiteral("N/A"), axis == unset);
        }
    }
}

TEST_F(FormBirdViewTest, BeforeAnyViewTheMarkStandsAtTheCentreAndWithoutXOrYAtTheCorner) {
    window.chkMirror(true);
    window.ChangeCellXYZ(7, {80, 0, 0});
    // 366.5 goes to 366: the cross is 23 wide.
    EXPECT_EQ(At(366 + 11, 366 + 11), ViewColour);
    for (const PositionXYZ& view : {PositionXYZ{NoPositionValue, 0, 0}, {0, NoPositionValue, 0}}) {
        window.ChangeViewXYZ({0, 0, 0});
        EXPECT_EQ(At(11, 11), Ground);
        window.ChangeViewXYZ(view);
        EXPECT_EQ(At(11, 11), ViewColour);
    }
    window.ChangeViewXYZ({0, 0, NoPositionValue});
    EXPECT_EQ(At(366 + 11, 366 + 11), ViewColour);
}

TEST_F(FormBirdViewTest, AtMagnification1OrNotKnownTheViewMarkIsThe23By23Cross) {
    window.chkMirror(true);
    for (const std::int16_t magnification : std::to_array<std::int16_t>({1, 0, 4, -1})) {
        window.ChangeMagnification(magnification);
        window.ChangeViewXYZ({0, 0, 0});
        EXPECT_EQ(At(377, 377), ViewColour) << magnification;
        EXPECT_EQ(At(377, 368), ViewColour) << magnification;
        EXPECT_EQ(Count(Ground, QRect(366, 366, 23, 23).adjusted(-60, -60, 60, 60)) + Count(ViewColour) +
                      Count(Qt::black),
                  143 * 143);
        EXPECT_EQ(Count(ViewColour, QRect(366, 366, 23, 23)), Count(ViewColour));
    }
}

TEST_F(FormBirdViewTest, At2xAnd4xTheMarkIsAFrameRoundTheView) {
    window.chkMirror(true);
    window.ChangeMagnification(2);
    window.ChangeViewXYZ({0, 0, 0});
    EXPECT_EQ(At(378, 340), ViewColour);
    EXPECT_EQ(At(327, 378), ViewColour);
    EXPECT_EQ(At(378, 378), Ground);
    EXPECT_EQ(Count(ViewColour, QRect(327, 340, 102, 76)), Count(ViewColour));
    window.ChangeMagnification(3);
    window.ChangeViewXYZ({0, 0, 0});
    EXPECT_EQ(At(378, 359), ViewColour);
    EXPECT_EQ(At(378, 340), Ground);
    // 378 - 25.5 goes to 352.
    EXPECT_EQ(Count(ViewColour, QRect(352, 359, 51, 38)), Count(ViewColour));
}

TEST_F(FormBirdViewTest, AChangeOfMagnificationMovesTheSizeAtTheNextCompositionTheOffsetAtTheNextView) {
    window.chkMirror(true);
    window.ChangeViewXYZ({0, 0, 0});
    const QImage small = Picture();
    window.ChangeMagnification(2);
    EXPECT_EQ(Picture(), small);
    window.ChangeCellXYZ(7, {1000, 0, 0});  // off the canvas
    EXPECT_EQ(Count(ViewColour, QRect(366, 366, 102, 76)), Count(ViewColour));
    EXPECT_EQ(At(366 + 51, 366), ViewColour);
    window.ChangeViewXYZ({0, 0, 0});
    EXPECT_EQ(At(378, 340), ViewColour);
    // And in the other direction.
    window.ChangeMagnification(1);
    window.ChangeCellXYZ(7, {1000, 0, 0});
    EXPECT_EQ(Count(ViewColour, QRect(327, 340, 23, 23)), Count(ViewColour));
    window.ChangeViewXYZ({0, 0, 0});
    EXPECT_EQ(Picture(), small);
}

TEST_F(FormBirdViewTest, AViewBeyondTheCommonFrameIsAFailureThatChangesNothing) {
    window.chkMirror(true);
    window.ChangeViewXYZ({1, 2, 3});
    const QImage before = Picture();
    for (const PositionXYZ& view : {PositionXYZ{Greatest, 0, 0}, {Least, 0, 0}, {429496730, 0, 0}}) {
        EXPECT_THROW(window.ChangeViewXYZ(view), OverflowFailure);
        EXPECT_EQ(Picture(), before);
        EXPECT_EQ(Reading(2), QStringLiteral("3"));
    }
    // A gauge at its ends, and a mirror far off, are none.
    window.ChangeViewXYZ({429496729, Greatest, Greatest});
    EXPECT_EQ(Reading(2), QString::number(Greatest));
    window.ChangeViewXYZ({-429496729, Least, Least});
    EXPECT_EQ(Reading(2), QString::number(Least));
    EXPECT_EQ(Count(ViewColour), 0);
}

// ---- Cells ----

TEST_F(FormBirdViewTest, ACellsCrossStandsAtItsPosition) {
    window.ChangeCellXYZ(0, {-100, 0, 0});
    // -5 * -100 + 0.5 goes to 500; 500 * 0.42 + 378.
    EXPECT_EQ(At(588, 378), CellAColour);
    window.ChangeCellXYZ(0, {100, 0, 0});
    EXPECT_EQ(At(168, 378), CellAColour);
    EXPECT_EQ(At(588, 378), Ground);
}

TEST_F(FormBirdViewTest, ACellCloseToTheRightEdgeShowsTheLeftHandedVariantWithTheCrossInTheSamePlace) {
    const auto letterAt = [this](const QRect& part) { return Count(CellAColour, part) > 0; };
    // 819 * 0.42 + 378 is 721.98, which is not beyond 722; 826 gives 725.
    window.ChangeCellXYZ(0, {-164, 0, 0});
    EXPECT_EQ(At(722, 378), CellAColour);
    EXPECT_TRUE(letterAt(QRect(722 + 9, 360, 16, 18)));
    EXPECT_FALSE(letterAt(QRect(722 - 25, 360, 16, 18)));
    window.ChangeCellXYZ(0, {-165, 0, 0});
    EXPECT_EQ(At(725, 378), CellAColour);
    EXPECT_TRUE(letterAt(QRect(725 - 25, 360, 16, 18)));
    EXPECT_FALSE(letterAt(QRect(725 + 9, 360, 16, 18)));
}

TEST_F(FormBirdViewTest, TheCellOfTheExperimentPanelIsShownForOneCompositionInThree) {
    window.ChangeCellXYZ(0, {-100, 0, 0});
    window.ChangeCellXYZ(1, {100, 0, 0});
    const auto seen = [this] {
        std::string text;
        for (int composition = 0; composition < 6; ++composition) {
            window.ChangeViewXYZ({0, 0, 0});
            EXPECT_NE(At(168, 378), Ground);
            text += At(588, 378) == CellAColour ? 's' : '-';
        }
        return text;
    };
    EXPECT_EQ(seen(), "ssssss");
    cellNo = 0;
    const std::string blinking = seen();
    EXPECT_EQ(std::ranges::count(blinking, 's'), 2) << blinking;
    cellNo = 8;
    EXPECT_EQ(seen(), "ssssss");
}

TEST_F(FormBirdViewTest, ACellBeyondTheTableOrTheFrameIsAFailureThatDrawsNothing) {
    EXPECT_THROW(window.ChangeCellXYZ(8, {0, 0, 0}), BoundsFailure);
    EXPECT_THROW(window.ChangeCellXYZ(-1, {0, 0, 0}), BoundsFailure);
    EXPECT_THROW(window.ChangeCellXYZ(0, {Greatest, 0, 0}), OverflowFailure);
    window.ChangeViewXYZ({0, 0, 0});
    EXPECT_EQ(Count(Ground), CanvasSize * CanvasSize);
}

}  // namespace
}  // namespace travo::test
