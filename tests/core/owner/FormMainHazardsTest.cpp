// What the main window keeps an operator from who is quicker than the instruments, and what it reminds of.
#include <gmock/gmock.h>

#include "core/owner/FormMainRig.h"
#include "core/owner/FormMainTitle.h"
#include "core/owner/PanelOf.h"

namespace travo::test {

namespace {

const QString PlainTitle = QStringLiteral("TRAVO");
const QString RaisedTitle = QStringLiteral("TRAVO - objective raised for the Z point");

class FormMainHazardsTest : public FormMainRig {
protected:
    void ClickReset() { Click(Button(CellPosition, QStringLiteral("Reset zero point"))); }
    std::int32_t Zero() { return window_->Objects().cNeedleMove->PosZero(0, 2); }
    PositionXYZ Home(std::int32_t needle) {
        const clsEscape& escape = *window_->Objects().cEscape;
        return {escape.NeedleEscape(needle, 0), escape.NeedleEscape(needle, 1),
                escape.NeedleEscape(needle, 2)};
    }
    void CaptureMarks() {
        for (const char letter : {'A', 'B', 'C'}) {
            Click(Button(Calibration, QStringLiteral("Position ") + QLatin1Char(letter)));
        }
    }
    static constexpr PositionXYZ Unset{NoPositionValue, NoPositionValue, NoPositionValue};
};

// The zero point.

TEST_F(FormMainHazardsTest, ADoubleClickOnResetTakesTheZeroOnce) {
    Open(CellPosition);
    Gauge("A+00.500\r\n");
    ClickReset();
    ClickReset();
    EXPECT_EQ(Zero(), -500);
    EXPECT_EQ(ReadSettings().count("ZERO,XYZ:2=-500\r\n"), 4);
    EXPECT_EQ(std::count(journal_.begin(), journal_.end(), "port 2 > ARES\r\n"), 1);
    // The gauge stands at 0 now; its answers come, and the next zero point is another one.
    for (int round = 0; round < 6; ++round) {
        Tick();
        Gauge("A+00.000\r\n");
    }
    ClickReset();
    EXPECT_EQ(Zero(), -500) << "from 0";
    EXPECT_EQ(std::count(journal_.begin(), journal_.end(), "port 2 > ARES\r\n"), 2);
}

TEST_F(FormMainHazardsTest, ResetBeforeTheGaugeHasSpokenLeavesTheStoredZeros) {
    Open(CellPosition);
    const QByteArray settings = ReadSettings();
    ClickReset();
    EXPECT_EQ(Zero(), 0);
    EXPECT_EQ(ReadSettings(), settings);
}

// The escape panel.

TEST_F(FormMainHazardsTest, AnEscapeOfANeedleThatTheDriverRefusedIsNotStored) {
    driver_.failing = {"DriverSelect"};
    Click(Button(Experiment, QStringLiteral("Needle 2")));
    boxes_.shown.clear();
    Open(Escape);
    Click(Button(Escape, QStringLiteral("Set needle 2")));
    EXPECT_EQ(Home(1), Unset);
    EXPECT_TRUE(boxes_.shown.empty());
    EXPECT_EQ(PanelOf<CtlExperiment2>(*window_).intMoveTarget(), 0) << "its lamp is where the hardware is";
    Click(Button(Escape, QStringLiteral("Set needle 1")));
    EXPECT_EQ(Home(0), window_->State().Needles()[0]);
    Click(Button(Escape, QStringLiteral("Set needle 2")));
    EXPECT_EQ(Home(1), window_->State().Needles()[1])
        << "it is not lit any more, and recorded as it is known";
}

TEST_F(FormMainHazardsTest, AnEscapeThatIsClickedAheadOfTheReadingIsThatOfTheChosenNeedleWhereItStandsNow) {
    Click(Button(Experiment, QStringLiteral("Needle 2")));
    driver_.position[1] = {5000, 6000, 7000};
    Open(Escape);
    Click(Button(Escape, QStringLiteral("Set needle 2")));
    // Zero, counts and centre of its calibration.
    EXPECT_EQ(Home(1), (PositionXYZ{100 + 5000 - 10000, -200 + 6000 - 22000, 7000 - 5000}));
    EXPECT_EQ(window_->State().intManipulatorNumber, 1);
}

TEST_F(FormMainHazardsTest, ALampOfTheCalibrationPanelAloneGoesBackAloneAndTheViewStaysChosen) {
    Click(Button(Experiment, QStringLiteral("View")));
    Gauge("A+00.500\r\n");
    Open(Calibration);
    driver_.failing = {"DriverSelect"};
    Click(Button(Calibration, QStringLiteral("Needle 3")));
    Open(Escape);
    Click(Button(Escape, QStringLiteral("Set needle 3")));
    EXPECT_EQ(Home(2), Unset);
    EXPECT_EQ(PanelOf<CtlCalibration>(*window_).LitNeedle(), 0);
    EXPECT_EQ(PanelOf<CtlExperiment2>(*window_).intMoveTarget(), CtlExperiment2::View);
}

// The calibration panel.

TEST_F(FormMainHazardsTest, AResetOfANeedleThatTheDriverRefusedClearsNoCalibration) {
    Open(Calibration);
    driver_.failing = {"DriverSelect"};
    Click(Button(Calibration, QStringLiteral("Needle 2")));
    boxes_.shown.clear();
    const QByteArray settings = ReadSettings();
    Click(Button(Calibration, QStringLiteral("Reset")));
    EXPECT_EQ(boxes_.Texts(), QStringList{QStringLiteral("Error : Calibration Setting")});
    EXPECT_EQ(ReadSettings(), settings);
    EXPECT_TRUE(window_->State().CalibrationON(0));
    EXPECT_TRUE(window_->State().CalibrationON(1));
    EXPECT_EQ(PanelOf<CtlCalibration>(*window_).LitNeedle(), 0);
}

TEST_F(FormMainHazardsTest, AResetThatIsClickedAheadOfTheReadingClearsTheNeedleThatIsLit) {
    Open(Calibration);
    Click(Button(Calibration, QStringLiteral("Needle 2")));
    Click(Button(Calibration, QStringLiteral("Reset")));
    EXPECT_TRUE(window_->State().CalibrationON(0));
    EXPECT_FALSE(window_->State().CalibrationON(1));
}

// The title.

TEST_F(FormMainHazardsTest, TheTitleSaysThatTheObjectiveIsRaisedUntilItHasBeenLowered) {
    EXPECT_EQ(window_->windowTitle(), PlainTitle);
    Open(Calibration);
    QString behindBox;
    boxes_.whileShown = [&] { behindBox = window_->windowTitle(); };
    CaptureMarks();
    EXPECT_EQ(behindBox, RaisedTitle);
    EXPECT_EQ(window_->windowTitle(), RaisedTitle);
    journal_.clear();
    Open(Experiment);
    EXPECT_EQ(window_->windowTitle(), RaisedTitle);
    EXPECT_EQ(MotorPort().TakeOutput(), "WHO\rRELMOVEZ10000\r") << "nothing moves by itself";
    Open(Calibration);
    CaptureMarks();
    Click(Button(Calibration, QStringLiteral("Position Z")));
    Click(Button(Calibration, QStringLiteral("Set")));
    EXPECT_EQ(window_->windowTitle(), RaisedTitle) << "raised twice, lowered once";
    CaptureMarks();
    Click(Button(Calibration, QStringLiteral("Position Z")));
    Click(Button(Calibration, QStringLiteral("Set")));
    EXPECT_EQ(window_->windowTitle(), RaisedTitle) << "three times and twice";
}

TEST_F(FormMainHazardsTest, ACalibrationThatIsCarriedThroughLeavesThePlainTitle) {
    Open(Calibration);
    CaptureMarks();
    EXPECT_EQ(window_->windowTitle(), RaisedTitle);
    Click(Button(Calibration, QStringLiteral("Position Z")));
    Click(Button(Calibration, QStringLiteral("Set")));
    EXPECT_EQ(window_->windowTitle(), PlainTitle);
}

TEST(FormMainTitleTest, TheTitleBeginsWithTheNameAndBearsTheNoteBehindIt) {
    EXPECT_EQ(FormMainTitle({}), PlainTitle);
    TitleNotes notes;
    notes.isObjectiveRaised = true;
    EXPECT_EQ(FormMainTitle(notes), RaisedTitle);
}

}  // namespace

}  // namespace travo::test
