#include "workflows/CtlCalibrationRaise.h"

#include <QString>

namespace travo {

void CtlCalibrationRaise::Raise() {
    if (communication_.MotorPortOpenCheck()) {
        Move(1);
        failures_.Show(
            QStringLiteral("Adjust manipulator Z axis until needle tip is in focus.\r\n"
                           "Do not adjust focus knob on microscope."));
    } else {
        failures_.Show(QStringLiteral("Please raise object lens\r\nand calibrate the direction of Z"));
    }
}

void CtlCalibrationRaise::Lower() {
    if (communication_.MotorPortOpenCheck()) {
        Move(-1);
    }
}

void CtlCalibrationRaise::Move(int way) {
    communication_.MotorMoveRZ(way * Distance);
    raises_ += way;
    listener_.ObjectiveRaised(raises_ > 0);
}

}  // namespace travo
