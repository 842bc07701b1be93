// What SET, RESET and ALLRESET leave in the settings file, in the maps and with the owner.
#include "workflows/CtlCalibrationRig.h"

namespace travo::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Values = std::map<std::string, std::string>;

// The fake clock's time.
const std::string Now = "08/07/03    14:05";

class CtlCalibrationKeepTest : public CtlCalibrationRig {
protected:
    static Values PointKeys(const std::array<PositionXYZ, 4>& points) {
        Values values;
        for (std::size_t point = 0; point < points.size(); ++point) {
            for (std::size_t axis = 0; axis < 3; ++axis) {
                values["Index:" + std::to_string(point) + ",XYZ:" + std::to_string(axis)] =
                    std::to_string(points.at(point).at(axis));
            }
        }
        return values;
    }
    static Values AxisKeys(const std::string& name, const PositionXYZ& position) {
        Values values;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            values[name + ",XYZ:" + std::to_string(axis)] = std::to_string(position.at(axis));
        }
        return values;
    }
    static Values Merged(std::initializer_list<Values> parts) {
        Values merged;
        for (const Values& part : parts) {
            merged.insert(part.begin(), part.end());
        }
        return merged;
    }
    static Values Cleared() {
        constexpr PositionXYZ Unset{-100000, -100000, -100000};
        return Merged({PointKeys({Unset, Unset, Unset, Unset}),
                       AxisKeys("ZERO", Unset),
                       AxisKeys("Center", {0, 0, 0}),
                       {{"Time", "-1"}, {"ReTime", "-1"}}});
    }
    void CalibrateFully(std::int16_t needle) {
        Select(needle);
        Click(Mode(Full));
        CaptureAll();
        Click(Confirm(Set));
    }
    void ReCalibrate(const PositionXYZ& centre, const PositionXYZ& view) {
        Click(Mode(Re));
        View(view);
        CaptureAt(Centre, centre);
        Click(Confirm(Set));
    }
    PositionXYZ ToCommon(std::int32_t needle, const PositionXYZ& counts) const {
        return {rig.needleMove.Calibration(needle, 0, counts), rig.needleMove.Calibration(needle, 1, counts),
                rig.needleMove.Calibration(needle, 2, counts)};
    }
    PositionXYZ Zero(std::int32_t needle) const {
        return {rig.needleMove.PosZero(needle, 0), rig.needleMove.PosZero(needle, 1),
                rig.needleMove.PosZero(needle, 2)};
    }
};

// Full calibration.

TEST_F(CtlCalibrationKeepTest, AFullCalibrationWritesPointsZerosAndTimeAndNothingElse) {
    View({-20, 100, 345});
    CaptureAll();
    EXPECT_TRUE(Section(0).empty()) << "nothing is kept before SET";
    EXPECT_EQ(rig.needleMove.ManipulatorCalibrationPosXYZ(0, 0, 0), NoPositionValue);
    EXPECT_FALSE(rig.state.CalibrationON(0));
    Click(Confirm(Set));
    // -5 times -20 and a half, to even; -12500 times the tangent of 0.0401 radian, and a half, is -501.6.
    EXPECT_EQ(Section(0), Merged({PointKeys(Straight), AxisKeys("ZERO", {100, -502, 345}), {{"Time", Now}}}));
    for (int other = 1; other < 4; ++other) {
        EXPECT_TRUE(Section(other).empty());
    }
}

TEST_F(CtlCalibrationKeepTest, AFullCalibrationGoesIntoTheMapsAndMakesTheNeedleCalibrated) {
    View({-20, 0, 345});
    CaptureAll();
    Click(Confirm(Set));
    EXPECT_TRUE(rig.state.CalibrationON(0));
    EXPECT_FALSE(rig.state.CalibrationON(1));
    for (std::int32_t axis = 0; axis < 3; ++axis) {
        for (std::int32_t point = 0; point < 4; ++point) {
            EXPECT_EQ(rig.needleMove.ManipulatorCalibrationPosXYZ(0, axis, point),
                      Straight.at(static_cast<std::size_t>(point)).at(static_cast<std::size_t>(axis)));
        }
    }
    EXPECT_EQ(Zero(0), (PositionXYZ{100, 0, 345}));
    // The middle of the view is the middle between point 0 and the middle of points 1 and 2.
    EXPECT_EQ(ToCommon(0, {10000, 22000, 5000}), (PositionXYZ{100, 0, 345}));
    EXPECT_EQ(ToCommon(0, {11000, 21000, 5100}), (PositionXYZ{1100, -1000, 445}));
}

TEST_F(CtlCalibrationKeepTest, AFullCalibrationTellsTheTimeLowersTheObjectiveAndTellsTheCamera) {
    CaptureAll();
    Take();
    Click(Confirm(Set));
    EXPECT_THAT(Take(), ElementsAre("time 0 " + Now + " 0", "port 3 > RELMOVEZ-10000\r", "ControlONOFF 0",
                                    "LiveCalibPoints"));
    EXPECT_EQ(OnShow(), "A B C picture 0");
    EXPECT_FALSE(Confirm(Set).Enabled());
}

TEST_F(CtlCalibrationKeepTest, WithoutLiveOpenSetTellsTheCameraNothing) {
    rig.state.LiveOpen = false;
    CaptureAll();
    Take();
    Click(Confirm(Set));
    EXPECT_EQ(rig.journal.back(), "ControlONOFF 0");
    Click(Mode(Re));
    Click(Point(Centre));
    Take();
    Click(Confirm(Set));
    EXPECT_THAT(Take(), ElementsAre("time 0 " + Now + " 1"));
}

TEST_F(CtlCalibrationKeepTest, AFullCalibrationLeavesACentreOfTheSettingsAsItWas) {
    ReCalibrate({11, 12, 13}, {0, 0, 0});
    const Values centre = AxisKeys("Center", {11, 12, 13});
    CalibrateFully(0);
    const Values section = Section(0);
    for (const auto& [key, value] : centre) {
        EXPECT_EQ(section.at(key), value);
    }
    EXPECT_EQ(section.at("ReTime"), Now);
    EXPECT_EQ(section.at("Time"), Now);
}

TEST_F(CtlCalibrationKeepTest, Point3DoesNotChangeTheView) {
    View({0, 0, 10});
    CaptureMarks();
    View({-1000, 0, 4444});
    CaptureAt(Z, Straight[3]);
    Click(Confirm(Set));
    EXPECT_EQ(Zero(0), (PositionXYZ{0, 0, 10}));
}

TEST_F(CtlCalibrationKeepTest, TheViewOfTheLastCaptureOfAMarkCounts) {
    for (const int mark : {C, A, B}) {
        View({-2 * (mark + 1), 0, 100 + mark});
        CaptureAt(mark, Straight.at(static_cast<std::size_t>(mark)));
    }
    CaptureAt(Z, Straight[3]);
    Click(Confirm(Set));
    EXPECT_EQ(Zero(0), (PositionXYZ{20, 0, 101}));
}

TEST_F(CtlCalibrationKeepTest, AViewThatHasNeverBeenReportedIsRecordedByTheSameFormulas) {
    View({NoPositionValue, NoPositionValue, NoPositionValue});
    CaptureAll();
    Click(Confirm(Set));
    EXPECT_EQ(Zero(0), (PositionXYZ{500000, MirrorYToCommon(NoPositionValue), NoPositionValue}));
}

TEST_F(CtlCalibrationKeepTest, EachNeedleGoesIntoItsOwnSection) {
    for (std::int16_t needle = 0; needle < 4; ++needle) {
        CalibrateFully(needle);
        EXPECT_EQ(Section(needle).size(), 16U);
        EXPECT_TRUE(rig.state.CalibrationON(needle));
        if (needle < 3) {
            EXPECT_TRUE(Section(needle + 1).empty());
        }
    }
}

TEST_F(CtlCalibrationKeepTest, TimesAreWrittenWithTwoDigitsFourBlanksAnd24Hours) {
    const std::vector<std::pair<QDateTime, std::string>> times{
        {QDateTime(QDate(2026, 1, 2), QTime(0, 0)), "26/01/02    00:00"},
        {QDateTime(QDate(2009, 12, 31), QTime(23, 59, 59)), "09/12/31    23:59"}};
    for (const auto& [time, text] : times) {
        rig.clock.now = time;
        CalibrateFully(2);
        EXPECT_EQ(Section(2).at("Time"), text);
        EXPECT_EQ(Section(2).count("ReTime"), 0U);
    }
}

// Points that give no map.

TEST_F(CtlCalibrationKeepTest, PointsThatCoincideOrLieOnALineCalibrateTheNeedleWithoutAMessage) {
    constexpr PositionXYZ P{10000, 20000, 5000};
    const std::vector<std::array<PositionXYZ, 4>> poor{
        {P, P, P, P},
        {P, {12000, 20000, 5000}, {12000, 20000, 5000}, {10000, 20000, 6000}},
        {P, {11000, 20000, 5000}, {12000, 20000, 5000}, {13000, 20000, 5000}},
        {P, {7000, 24000, 5000}, {13000, 24000, 5000}, P}};
    for (const auto& points : poor) {
        CaptureAll(points);
        TakeBoxes();
        Click(Confirm(Set));
        EXPECT_THAT(TakeBoxes(), IsEmpty());
        EXPECT_TRUE(rig.state.CalibrationON(0));
        EXPECT_EQ(Section(0).at("Time"), Now);
        // No inverse: whatever the target, the needle stays at its reference point.
        const std::int32_t x = rig.needleMove.InverseCalibration(0, 0, {500, 600, 700});
        EXPECT_EQ(x, rig.needleMove.InverseCalibration(0, 0, {-500, -600, -700}));
    }
}

// Re-calibration.

TEST_F(CtlCalibrationKeepTest, AReCalibrationWritesZerosCentreAndReTimeAndNothingElse) {
    ReCalibrate({1111, 2222, 3333}, {-20, 0, 345});
    EXPECT_EQ(
        Section(0),
        Merged({AxisKeys("ZERO", {100, 0, 345}), AxisKeys("Center", {1111, 2222, 3333}), {{"ReTime", Now}}}));
    EXPECT_FALSE(rig.state.CalibrationON(0)) << "it calibrates no needle by itself";
}

TEST_F(CtlCalibrationKeepTest, AReCalibrationMovesTheReferencePointOnly) {
    CalibrateFully(0);
    const Values before = Section(0);
    ReCalibrate({10100, 22200, 5300}, {-20, 0, 345});
    EXPECT_EQ(Zero(0), (PositionXYZ{100, 0, 345}));
    EXPECT_EQ(ToCommon(0, {10100, 22200, 5300}), (PositionXYZ{100, 0, 345}));
    EXPECT_EQ(ToCommon(0, {10200, 22100, 5350}), (PositionXYZ{200, -100, 395}));
    Values after = Section(0);
    for (const auto& [key, value] : PointKeys(Straight)) {
        EXPECT_EQ(after.at(key), value);
    }
    EXPECT_EQ(after.at("Time"), before.at("Time"));
    EXPECT_TRUE(rig.state.CalibrationON(0));
}

TEST_F(CtlCalibrationKeepTest, AReCalibrationTellsTheTimeAndTheCameraAndLeavesTheObjectiveAlone) {
    Click(Mode(Re));
    Click(Point(Centre));
    Take();
    Click(Confirm(Set));
    EXPECT_THAT(Take(), ElementsAre("time 0 " + Now + " 1", "LiveCalibCenter"));
    EXPECT_EQ(OnShow(), "Centre picture 2");
    EXPECT_FALSE(Confirm(Set).Enabled());
    Click(Point(Centre));
    EXPECT_TRUE(Confirm(Set).Enabled()) << "and again";
}

// Clearing.

TEST_F(CtlCalibrationKeepTest, ResetClearsTheSelectedNeedleKeyByKey) {
    CalibrateFully(1);
    CalibrateFully(2);
    ReCalibrate({11, 12, 13}, {-20, 0, 345});
    const Values other = Section(1);
    Take();
    Click(Confirm(Reset));
    EXPECT_EQ(Section(2), Cleared());
    EXPECT_EQ(Section(1), other);
    EXPECT_THAT(Take(), ElementsAre("time 2 -1 0", "time 2 -1 1", "LiveCalibCenter"));
    EXPECT_FALSE(rig.state.CalibrationON(2));
    EXPECT_TRUE(rig.state.CalibrationON(1));
    EXPECT_EQ(rig.needleMove.ManipulatorCalibrationPosXYZ(2, 1, 3), NoPositionValue);
    EXPECT_THAT(TakeBoxes().filter(QStringLiteral("Error")), IsEmpty());
}

TEST_F(CtlCalibrationKeepTest, ResetStores0NotMinus100000AsCenter) {
    ReCalibrate({11, 12, 13}, {0, 0, 0});
    Click(Confirm(Reset));
    for (std::int32_t axis = 0; axis < 3; ++axis) {
        EXPECT_EQ(rig.ini.GetString(settings::CalibrationSection(0), settings::CenterKey(axis), QString()),
                  QStringLiteral("0"));
    }
}

TEST_F(CtlCalibrationKeepTest, ResetLeavesTheReferencesOfTheMapsAsTheyAre) {
    View({-20, 0, 345});
    CalibrateFully(0);
    const PositionXYZ place{11000, 21000, 5100};
    const PositionXYZ before = ToCommon(0, place);
    Click(Confirm(Reset));
    EXPECT_EQ(Zero(0), (PositionXYZ{100, 0, 345}));
    EXPECT_EQ(ToCommon(0, place), before);
}

TEST_F(CtlCalibrationKeepTest, ResetEntersTheStepOfTheMode) {
    CaptureAll();
    Take();
    Click(Confirm(Reset));
    EXPECT_EQ(OnShow(), "A B C picture 0");
    EXPECT_FALSE(Confirm(Set).Enabled());
    EXPECT_EQ(rig.journal.back(), "LiveCalibPoints");
    EXPECT_EQ(rig.MotorPort().TakeOutput(), "RELMOVEZ10000\r") << "an objective that was raised stays so";
    Click(Mode(Re));
    Click(Confirm(AllReset));
    EXPECT_EQ(OnShow(), "Centre picture 2");
}

TEST_F(CtlCalibrationKeepTest, AllResetClearsEachNeedleUpToTheHighestConnected) {
    for (std::int16_t needle = 0; needle < 4; ++needle) {
        CalibrateFully(needle);
    }
    const Values last = Section(3);
    rig.state.intTotalManipulatorNumber = 2;
    Take();
    Click(Confirm(AllReset));
    for (int needle = 0; needle < 3; ++needle) {
        EXPECT_EQ(Section(needle), Cleared()) << needle;
        EXPECT_FALSE(rig.state.CalibrationON(needle));
    }
    EXPECT_EQ(Section(3), last);
    EXPECT_TRUE(rig.state.CalibrationON(3));
    EXPECT_THAT(Take(), ElementsAre("time 0 -1 0", "time 0 -1 1", "time 1 -1 0", "time 1 -1 1", "time 2 -1 0",
                                    "time 2 -1 1", "LiveCalibPoints"));
}

TEST_F(CtlCalibrationKeepTest, AllResetWithNoNeedleConnectedWritesNothingAndEntersTheStep) {
    rig.state.intTotalManipulatorNumber = -1;
    CaptureAt(A, Straight[0]);
    Take();
    Click(Confirm(AllReset));
    EXPECT_TRUE(rig.Settings().isEmpty());
    EXPECT_EQ(OnShow(), "A B C picture 0");
    EXPECT_THAT(Take(), ElementsAre("LiveCalibPoints"));
}

// Failures.

TEST_F(CtlCalibrationKeepTest, WithNoNeedleKnownSetAndResetAreReportedAndWriteNothing) {
    CaptureAll();
    rig.state.intManipulatorNumber = -1;
    for (const int index : {Set, Reset}) {
        TakeBoxes();
        Click(Confirm(index));
        EXPECT_EQ(TakeBoxes(), QStringList{SettingFailed});
        EXPECT_EQ(LogTexts(rig.log).last(), SettingFailed);
        EXPECT_EQ(OnShow(), "[Z] picture 1") << "and leaves";
    }
    EXPECT_TRUE(rig.Settings().isEmpty());
}

TEST_F(CtlCalibrationKeepTest, AFailureInSetLeavesWhatWasAlreadySetAndStored) {
    CaptureAll();
    ownerFails = true;
    TakeBoxes();
    Click(Confirm(Set));
    EXPECT_EQ(TakeBoxes(), QStringList{SettingFailed});
    EXPECT_EQ(Section(0), Merged({PointKeys(Straight), AxisKeys("ZERO", {0, 0, 0}), {{"Time", Now}}}));
    EXPECT_EQ(rig.needleMove.ManipulatorCalibrationPosXYZ(0, 2, 3), 6000);
    EXPECT_FALSE(rig.state.CalibrationON(0));
}

TEST_F(CtlCalibrationKeepTest, WithAFifthManipulatorAllResetClearsTheFourNeedlesAndEntersTheStep) {
    CaptureAt(A, Straight[0]);
    TakeBoxes();
    rig.state.intTotalManipulatorNumber = 4;
    Click(Confirm(AllReset));
    EXPECT_EQ(TakeBoxes(), QStringList());
    EXPECT_EQ(OnShow(), "A B C picture 0");
    for (int needle = 0; needle < 4; ++needle) {
        EXPECT_EQ(Section(needle), Cleared());
    }
}

TEST_F(CtlCalibrationKeepTest, ACameraThatDiesAtSetDisturbsNothing) {
    CaptureAll();
    rig.camera.failing = {"LiveCalibPoints"};
    TakeBoxes();
    Click(Confirm(Set));
    rig.camera.TellFailure();
    EXPECT_THAT(TakeBoxes(), IsEmpty());
    EXPECT_TRUE(rig.state.CalibrationON(0));
    EXPECT_EQ(OnShow(), "A B C picture 0");
    EXPECT_FALSE(rig.state.LiveOpen);
}

TEST_F(CtlCalibrationKeepTest, SettingsThatCannotBeWrittenShowNowhereAndTheNeedleIsCalibratedAllTheSame) {
    rig.ini.IniFilePath(rig.folder.filePath(QStringLiteral("missing/KVData.ini")));
    CaptureAll();
    TakeBoxes();
    Take();
    Click(Confirm(Set));
    EXPECT_THAT(TakeBoxes(), IsEmpty());
    EXPECT_TRUE(rig.state.CalibrationON(0));
    EXPECT_EQ(Take().front(), "time 0 " + Now + " 0");
    EXPECT_EQ(ToCommon(0, {10000, 22000, 5000}), (PositionXYZ{0, 0, 0}));
    Click(Confirm(Reset));
    EXPECT_THAT(TakeBoxes(), IsEmpty());
    EXPECT_FALSE(rig.state.CalibrationON(0));
    EXPECT_EQ(LogTexts(rig.log), QStringList());
}

}  // namespace
}  // namespace travo::test
