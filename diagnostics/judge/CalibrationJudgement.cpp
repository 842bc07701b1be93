#include "diagnostics/judge/CalibrationJudgement.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace travo::diagnostics {

namespace {

// Ends belong to the better grade.
struct Band {
    double from;
    double to;
    bool Holds(double value) const { return value >= from && value <= to; }
};

// Two degrees are 31 units at a distance of 900, as far off as a landing may be; a tip 5 beside a mark of the
// base changes the base by 3 %.
constexpr Band GoodRatio{0.95, 1.05};
constexpr Band FairRatio{0.85, 1.18};
constexpr Band LeanXY{2.0, 5.0};  // of these the first is the most of Good, the second that of Fair
constexpr Band LeanZ{3.0, 8.0};
constexpr Band GoodLengthZ{80.0, 125.0};
constexpr Band FairLengthZ{50.0, 200.0};
constexpr Band OwnMarks{5.0, 15.0};
constexpr Band Back{2.0, 4.0};
constexpr Band GoodScale{0.9, 1.1};

Grade Within(double value, const Band& good, const Band& fair) {
    if (good.Holds(value)) {
        return Grade::Good;
    }
    return fair.Holds(value) ? Grade::Fair : Grade::Poor;
}

Grade UpTo(double value, const Band& most) {
    if (value <= most.from) {
        return Grade::Good;
    }
    return value <= most.to ? Grade::Fair : Grade::Poor;
}

double Lean(double angle) { return std::fabs(angle - 90.0); }

Grade GradeOfHand(bool isRightHanded, const std::vector<bool>& others) {
    const auto against = std::count(others.begin(), others.end(), !isRightHanded);
    if (against == 0 || against < static_cast<std::ptrdiff_t>(others.size())) {
        return Grade::Good;
    }
    return against >= 2 ? Grade::Poor : Grade::Fair;
}

CalibrationGrades GradesOf(const CalibrationFigures& figures, const std::vector<bool>& others) {
    CalibrationGrades grades;
    grades.ratio = Within(figures.ratio, GoodRatio, FairRatio);
    grades.angleXY = UpTo(Lean(figures.angleXY), LeanXY);
    grades.angleXZ = UpTo(Lean(figures.angleXZ), LeanZ);
    grades.angleYZ = UpTo(Lean(figures.angleYZ), LeanZ);
    grades.lengthZ = Within(figures.lengthZ, GoodLengthZ, FairLengthZ);
    grades.ownMarks = UpTo(figures.ownMarks, OwnMarks);
    grades.back = UpTo(figures.thereAndBack, Back);
    grades.mirrored = GradeOfHand(figures.isRightHanded, others);
    const bool isOff = std::max(grades.ratio, grades.angleXY) == Grade::Poor;
    grades.exchanged = isOff && figures.exchanged != ExchangedMarks::None ? Grade::Poor : Grade::Good;
    const bool fitsScale = GoodScale.Holds(figures.lengthX / CalibrationMarks::Base);
    grades.scale = grades.ratio == Grade::Good && !fitsScale ? Grade::Fair : Grade::Good;
    return grades;
}

QString ExchangedText(const CalibrationFigures& figures) {
    return QStringLiteral("Marks %1 look exchanged: lengths and angles fit if they are.")
        .arg(figures.exchanged == ExchangedMarks::AAndB ? QStringLiteral("A and B")
                                                        : QStringLiteral("A and C"));
}

QString RatioText(const CalibrationFigures& figures, bool isPoor) {
    const QString text = QString::asprintf("Base and height are in the ratio %.2f; the marks have 1.50.",
                                           figures.heightToBase);
    return isPoor ? text + QStringLiteral(" One mark was missed.") : text;
}

QString AngleText(const CalibrationFigures& figures, bool isPoor) {
    return QString::asprintf("X and Y stand at %.1f°, not 90°: ", figures.angleXY) +
           (isPoor ? QStringLiteral("one mark was missed.")
                   : QStringLiteral("far from the centre the needle lands beside."));
}

QString RaiseText(const CalibrationFigures& figures, bool isPoor) {
    const QString text = QString::asprintf("The raise measures %.0f; the motor gives 100.", figures.lengthZ);
    return isPoor ? text + QStringLiteral(" Point Z was not in focus.") : text;
}

QString LeanText(double angle, const char* axis, bool isPoor) {
    return QString::asprintf("Z leans %.1f° in %s: ", Lean(angle), axis) +
           (isPoor ? QStringLiteral("point Z was not taken over the mark.")
                   : QStringLiteral("heights pull the needle aside a little."));
}

QString OwnMarksText(const CalibrationFigures& figures, bool isPoor) {
    const QString text = QString::asprintf("Sent back to its own marks, it misses by %.0f", figures.ownMarks);
    return text + (isPoor ? QStringLiteral(": moves will miss as well.") : QStringLiteral("."));
}

QString BackText(const CalibrationFigures& figures, bool isPoor) {
    const QString text = QString::asprintf("There and back differs by %.0f", figures.thereAndBack);
    return text + (isPoor ? QStringLiteral(": two axes are nearly one.") : QStringLiteral("."));
}

QString TextOf(Finding finding, const CalibrationFigures& figures, bool isPoor) {
    switch (finding) {
        case Finding::Flat:
            return QStringLiteral(
                "Two points lie on one another: every move of this needle would end at the same place.");
        case Finding::Exchanged:
            return ExchangedText(figures);
        case Finding::Mirrored:
            return QStringLiteral("Mirrored against the others: B and C may have been exchanged.");
        case Finding::Ratio:
            return RatioText(figures, isPoor);
        case Finding::AngleXY:
            return AngleText(figures, isPoor);
        case Finding::LengthZ:
            return RaiseText(figures, isPoor);
        case Finding::AngleXZ:
            return LeanText(figures.angleXZ, "X", isPoor);
        case Finding::AngleYZ:
            return LeanText(figures.angleYZ, "Y", isPoor);
        case Finding::OwnMarks:
            return OwnMarksText(figures, isPoor);
        case Finding::Back:
            return BackText(figures, isPoor);
        case Finding::Scale:
            return QStringLiteral("Lengths agree with each other, but not with marks of 160 and 240.");
        case Finding::None:
            break;
    }
    return QStringLiteral("Lengths and angles fit.");
}

struct Graded {
    Finding finding;
    Grade grade;
};

}  // namespace

Judgement JudgeCalibration(const CalibrationFigures& figures, const std::vector<bool>& othersRightHanded) {
    if (figures.isFlat) {
        return {Grade::Poor, Finding::Flat, TextOf(Finding::Flat, figures, true), {}};
    }
    const CalibrationGrades grades = GradesOf(figures, othersRightHanded);
    const Graded inOrder[] = {{Finding::Exchanged, grades.exchanged}, {Finding::Mirrored, grades.mirrored},
                              {Finding::Ratio, grades.ratio},         {Finding::AngleXY, grades.angleXY},
                              {Finding::LengthZ, grades.lengthZ},     {Finding::AngleXZ, grades.angleXZ},
                              {Finding::AngleYZ, grades.angleYZ},     {Finding::OwnMarks, grades.ownMarks},
                              {Finding::Back, grades.back},           {Finding::Scale, grades.scale}};
    // Of equals the first.
    const Graded worst =
        *std::max_element(std::begin(inOrder), std::end(inOrder),
                          [](const Graded& a, const Graded& b) { return a.grade < b.grade; });
    const Finding finding = worst.grade == Grade::Good ? Finding::None : worst.finding;
    return {worst.grade, finding, TextOf(finding, figures, worst.grade == Grade::Poor), grades};
}

QString WordOf(Grade grade) {
    if (grade == Grade::Good) {
        return QStringLiteral("Good");
    }
    return grade == Grade::Fair ? QStringLiteral("Fair") : QStringLiteral("Poor");
}

}  // namespace travo::diagnostics
