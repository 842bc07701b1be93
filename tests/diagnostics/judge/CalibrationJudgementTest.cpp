// The judgement of a calibration: its checked examples and the ends of each band.
#include "diagnostics/judge/CalibrationJudgement.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace travo::diagnostics::test {

namespace {

struct Example {
    const char* recorded;
    CalibrationMap::Points points;
    std::vector<bool> others;
    const char* figures;  // lengths, Y : X, angles, own marks, there and back
    Grade grade;
    Finding finding;
    const char* sentence;
};

std::string Printed(const CalibrationFigures& figures) {
    const QString lengths =
        QString::asprintf("%.1f, %.1f, %.1f", figures.lengthX, figures.lengthY, figures.lengthZ);
    const QString rest =
        QString::asprintf(" | %.3f | %.1f, %.1f, %.1f | %.1f | %.0f", figures.heightToBase, figures.angleXY,
                          figures.angleXZ, figures.angleYZ, figures.ownMarks, figures.thereAndBack);
    return (figures.isFlat ? lengths : lengths + rest).toStdString();
}

const Example Examples[] = {
    {"all four points met, heading 45 degrees",
     {{{12458, 12542, 12500}, {12486, 12401, 12500}, {12599, 12514, 12500}, {12458, 12542, 12400}}},
     {},
     "159.8, 239.0, 100.0 | 1.496 | 90.0, 90.0, 90.0 | 0.0 | 1",
     Grade::Good,
     Finding::None,
     "Lengths and angles fit."},
    {"the same at 135 degrees, two others like it",
     {{{12458, 12458, 12500}, {12599, 12486, 12500}, {12486, 12599, 12500}, {12458, 12458, 12400}}},
     {true, true},
     "159.8, 239.0, 100.0 | 1.496 | 90.0, 90.0, 90.0 | 0.0 | 1",
     Grade::Good,
     Finding::None,
     "Lengths and angles fit."},
    {"tip 6 beside mark C",
     {{{12458, 12542, 12500}, {12486, 12401, 12500}, {12600, 12522, 12500}, {12458, 12542, 12400}}},
     {},
     "166.2, 234.1, 100.0 | 1.408 | 90.1, 90.0, 90.0 | 0.2 | 1",
     Grade::Fair,
     Finding::Ratio,
     "Base and height are in the ratio 1.41; the marks have 1.50."},
    {"tip 24 below mark B",
     {{{12542, 12458, 12500}, {12497, 12616, 12500}, {12401, 12486, 12500}, {12542, 12458, 12400}}},
     {},
     "161.6, 263.0, 100.0 | 1.628 | 98.6, 90.0, 90.0 | 11.9 | 1",
     Grade::Poor,
     Finding::AngleXY,
     "X and Y stand at 98.6°, not 90°: one mark was missed."},
    {"A and B exchanged",
     {{{12486, 12401, 12500}, {12458, 12542, 12500}, {12599, 12514, 12500}, {12458, 12542, 12400}}},
     {},
     "143.8, 267.8, 175.1 | 1.863 | 82.7, 108.3, 44.5 | 156.1 | 1",
     Grade::Poor,
     Finding::Exchanged,
     "Marks A and B look exchanged: lengths and angles fit if they are."},
    {"B and C exchanged, two others right",
     {{{12458, 12542, 12500}, {12599, 12514, 12500}, {12486, 12401, 12500}, {12458, 12542, 12400}}},
     {true, true},
     "159.8, 239.0, 100.0 | 1.496 | 90.0, 90.0, 90.0 | 0.0 | 1",
     Grade::Poor,
     Finding::Mirrored,
     "Mirrored against the others: B and C may have been exchanged."},
    {"point Z pressed before focusing",
     {{{12458, 12542, 12500}, {12486, 12401, 12500}, {12599, 12514, 12500}, {12458, 12542, 12458}}},
     {},
     "159.8, 239.0, 42.0 | 1.496 | 90.0, 90.0, 90.0 | 0.0 | 1",
     Grade::Poor,
     Finding::LengthZ,
     "The raise measures 42; the motor gives 100. Point Z was not in focus."},
    {"point Z 9 aside",
     {{{12458, 12542, 12500}, {12486, 12401, 12500}, {12599, 12514, 12500}, {12464, 12549, 12400}}},
     {},
     "159.8, 239.0, 100.4 | 1.496 | 90.0, 84.7, 90.4 | 8.4 | 1",
     Grade::Fair,
     Finding::AngleXZ,
     "Z leans 5.3° in X: heights pull the needle aside a little."},
    {"B and C at one place",
     {{{12458, 12542, 12500}, {12486, 12401, 12500}, {12486, 12401, 12500}, {12458, 12542, 12400}}},
     {},
     "0.0, 287.5, 100.0",
     Grade::Poor,
     Finding::Flat,
     "Two points lie on one another: every move of this needle would end at the same place."},
    {"manipulator tilted by 30 degrees",
     {{{10000, 20000, 5000}, {9931, 20120, 5040}, {10069, 20120, 4960}, {10050, 20000, 5087}}},
     {},
     "159.5, 240.0, 100.3 | 1.505 | 90.0, 90.2, 90.0 | 100.0 | 1",
     Grade::Poor,
     Finding::OwnMarks,
     "Sent back to its own marks, it misses by 100: moves will miss as well."},
};

// What every figure is right in.
CalibrationFigures Right() {
    CalibrationFigures figures;
    figures.lengthX = 160.0;
    figures.lengthY = 240.0;
    figures.lengthZ = 100.0;
    figures.heightToBase = 1.5;
    figures.ratio = 1.0;
    figures.angleXY = figures.angleXZ = figures.angleYZ = 90.0;
    figures.isRightHanded = true;
    figures.thereAndBack = 1.0;
    return figures;
}

struct End {
    double CalibrationFigures::*figure;
    double good, fair, poor;  // the last of Good, the last of Fair, the first of Poor
};

}  // namespace

TEST(CalibrationFiguresTest, EachRecordedExampleMeasuresAsPrinted) {
    for (const Example& example : Examples) {
        EXPECT_EQ(Printed(MeasureCalibration(example.points)), example.figures) << example.recorded;
    }
}

TEST(CalibrationFiguresTest, PointsTooFarApartForTheMapCountAsFlat) {
    constexpr std::int32_t Far = std::numeric_limits<std::int32_t>::max();
    const CalibrationMap::Points points{{{0, 0, 0}, {Far, 0, 0}, {Far, 5, 0}, {0, 0, 9}}};
    EXPECT_TRUE(MeasureCalibration(points).isFlat);
}

TEST(CalibrationFiguresTest, ThreeVectorsInOnePlaneAreFlat) {
    const CalibrationMap::Points points{{{0, 0, 0}, {-80, 120, 0}, {80, 120, 0}, {0, 100, 0}}};
    EXPECT_TRUE(MeasureCalibration(points).isFlat);
}

TEST(CalibrationFiguresTest, MarksAAndCExchangedAreRecognisedAsWell) {
    CalibrationMap::Points points = Examples[0].points;
    std::swap(points[0], points[2]);
    EXPECT_EQ(JudgeCalibration(MeasureCalibration(points), {}).sentence,
              QStringLiteral("Marks A and C look exchanged: lengths and angles fit if they are."));
}

TEST(CalibrationJudgementTest, EachRecordedExampleIsJudgedAsPrinted) {
    for (const Example& example : Examples) {
        const Judgement judgement = JudgeCalibration(MeasureCalibration(example.points), example.others);
        EXPECT_EQ(judgement.sentence.toStdString(), example.sentence) << example.recorded;
        EXPECT_EQ(judgement.grade, example.grade) << example.recorded;
        EXPECT_EQ(judgement.finding, example.finding) << example.recorded;
    }
}

TEST(CalibrationJudgementTest, TheEndsOfEachBandBelongToTheBetterGrade) {
    const End ends[] = {{&CalibrationFigures::ratio, 0.95, 0.85, 0.8499},
                        {&CalibrationFigures::ratio, 1.05, 1.18, 1.1801},
                        {&CalibrationFigures::angleXY, 92.0, 95.0, 95.01},
                        {&CalibrationFigures::angleXY, 88.0, 85.0, 84.99},
                        {&CalibrationFigures::angleXZ, 93.0, 98.0, 98.01},
                        {&CalibrationFigures::angleYZ, 87.0, 82.0, 81.99},
                        {&CalibrationFigures::lengthZ, 80.0, 50.0, 49.9},
                        {&CalibrationFigures::lengthZ, 125.0, 200.0, 200.1},
                        {&CalibrationFigures::ownMarks, 5.0, 15.0, 15.1},
                        {&CalibrationFigures::thereAndBack, 2.0, 4.0, 5.0}};
    for (const End& end : ends) {
        CalibrationFigures figures = Right();
        figures.*end.figure = end.good;
        EXPECT_EQ(JudgeCalibration(figures, {}).grade, Grade::Good) << end.good;
        figures.*end.figure = end.fair;
        EXPECT_EQ(JudgeCalibration(figures, {}).grade, Grade::Fair) << end.fair;
        figures.*end.figure = end.poor;
        EXPECT_EQ(JudgeCalibration(figures, {}).grade, Grade::Poor) << end.poor;
    }
}

TEST(CalibrationJudgementTest, TheSentenceOfEachFigureIsThatOfItsGrade) {
    const auto sentence = [](double CalibrationFigures::*figure, double value) {
        CalibrationFigures figures = Right();
        figures.*figure = value;
        return JudgeCalibration(figures, {}).sentence.toStdString();
    };
    EXPECT_EQ(sentence(&CalibrationFigures::angleXY, 93.0),
              "X and Y stand at 93.0°, not 90°: far from the centre the needle lands beside.");
    EXPECT_EQ(sentence(&CalibrationFigures::ratio, 1.3),
              "Base and height are in the ratio 1.50; the marks have 1.50. One mark was missed.");
    EXPECT_EQ(sentence(&CalibrationFigures::lengthZ, 130.0), "The raise measures 130; the motor gives 100.");
    EXPECT_EQ(sentence(&CalibrationFigures::angleXZ, 99.0),
              "Z leans 9.0° in X: point Z was not taken over the mark.");
    EXPECT_EQ(sentence(&CalibrationFigures::angleYZ, 84.0),
              "Z leans 6.0° in Y: heights pull the needle aside a little.");
    EXPECT_EQ(sentence(&CalibrationFigures::angleYZ, 80.0),
              "Z leans 10.0° in Y: point Z was not taken over the mark.");
    EXPECT_EQ(sentence(&CalibrationFigures::ownMarks, 9.0), "Sent back to its own marks, it misses by 9.");
    EXPECT_EQ(sentence(&CalibrationFigures::thereAndBack, 3.0), "There and back differs by 3.");
    EXPECT_EQ(sentence(&CalibrationFigures::thereAndBack, 7.0),
              "There and back differs by 7: two axes are nearly one.");
    EXPECT_EQ(sentence(&CalibrationFigures::lengthX, 120.0),
              "Lengths agree with each other, but not with marks of 160 and 240.");
}

TEST(CalibrationJudgementTest, AHandAgainstOneOtherIsFairAgainstAllOfSeveralPoorAndBesideOneLikeItGood) {
    EXPECT_EQ(JudgeCalibration(Right(), {false}).grade, Grade::Fair);
    EXPECT_EQ(JudgeCalibration(Right(), {false, false}).grade, Grade::Poor);
    EXPECT_EQ(JudgeCalibration(Right(), {false, false, false}).grade, Grade::Poor);
    EXPECT_EQ(JudgeCalibration(Right(), {false, true, false}).grade, Grade::Good);
}

TEST(CalibrationJudgementTest, MarksThatWouldFitExchangedAreNoMatterWhereTheyFitAsTheyStand) {
    CalibrationFigures figures = Right();
    figures.exchanged = ExchangedMarks::AAndB;
    EXPECT_EQ(JudgeCalibration(figures, {}).grade, Grade::Good);
}

TEST(CalibrationJudgementTest, OfTheWorstFiguresTheFirstInOrderSpeaks) {
    CalibrationFigures figures = Right();
    figures.angleYZ = 80.0;
    figures.angleXY = 80.0;
    figures.lengthZ = 130.0;
    EXPECT_EQ(JudgeCalibration(figures, {}).finding, Finding::AngleXY);
}

}  // namespace travo::diagnostics::test
