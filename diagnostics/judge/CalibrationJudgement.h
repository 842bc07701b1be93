// What a person is told of a calibration.
#pragma once

#include <QString>
#include <vector>

#include "diagnostics/judge/CalibrationFigures.h"

namespace travo::diagnostics {

enum class Grade { Good, Fair, Poor };

// What decides, in the order in which the sentence is looked for.
enum class Finding {
    None,
    Flat,
    Exchanged,
    Mirrored,
    Ratio,
    AngleXY,
    LengthZ,
    AngleXZ,
    AngleYZ,
    OwnMarks,
    Back,
    Scale
};

// The grade of each figure, where the figures are not flat.
struct CalibrationGrades {
    Grade exchanged = Grade::Good;
    Grade mirrored = Grade::Good;
    Grade ratio = Grade::Good;
    Grade angleXY = Grade::Good;
    Grade lengthZ = Grade::Good;
    Grade angleXZ = Grade::Good;
    Grade angleYZ = Grade::Good;
    Grade ownMarks = Grade::Good;
    Grade back = Grade::Good;
    Grade scale = Grade::Good;
};

struct Judgement {
    Grade grade = Grade::Good;  // that of the worst figure
    Finding finding = Finding::None;
    QString sentence;
    CalibrationGrades grades;
};

// `othersRightHanded` holds the handedness of every other calibrated needle that is not flat.
Judgement JudgeCalibration(const CalibrationFigures& figures, const std::vector<bool>& othersRightHanded);

// "Good", "Fair" or "Poor".
QString WordOf(Grade grade);

}  // namespace travo::diagnostics
