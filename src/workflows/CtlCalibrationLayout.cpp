// Where things stand on the calibration panel and what they are called.
#include <QString>

#include "controls/PanelPlacing.h"
#include "workflows/CtlCalibration.h"

namespace travo {

namespace {

// Design pixels.
constexpr double Left = 24;
constexpr double ModeStep = 223;
constexpr double ModeTop = 38;
constexpr QSizeF ModeSize(215, 48);
constexpr double NeedleStep = 112;
constexpr double NeedleTop = 116;
constexpr QSizeF NeedleSize(102, 48);
constexpr double MarkStep = 149;
constexpr double CaptureTop = 350;
constexpr QSizeF MarkSize(140, 56);
constexpr QRectF WholeCapturePlace(Left, CaptureTop, 438, 56);
constexpr QRectF PicturePlace(Left, 210, 438, 130);
constexpr QRectF WarningPlace(12, 426, 462, 30);

QRectF InColumn(double step, int column, double top, const QSizeF& size) {
    return {QPointF(Left + step * column, top), size};
}

}  // namespace

// The order of placing is the order of the Tab key.
void CtlCalibration::Place() {
    Paint(Plate{QRectF(12, 12, 462, 162)});
    Paint(CaptionText(24, 18, QStringLiteral("Mode")));
    Paint(CaptionText(24, 96, QStringLiteral("Needle")));
    Paint(Plate{QRectF(12, 184, 462, 234)});
    Paint(CaptionText(24, 190, QStringLiteral("Record")));
    PlaceModeAndNeedle();
    PlaceRecord();
    PlaceConfirm();
}

void CtlCalibration::PlaceModeAndNeedle() {
    Put(*this, modeButton_[0],
        {"usrKVCheckButton2(0)", "Full calibration", InColumn(ModeStep, 0, ModeTop, ModeSize),
         "CalibrationMode1", "Record four positions: all axes of the needle"});
    Put(*this, modeButton_[1],
        {"usrKVCheckButton2(1)", "Re-calibration", InColumn(ModeStep, 1, ModeTop, ModeSize),
         "CalibrationMode2", "Record one position: the reference point only"});
    Put(*this, needleButton_, [](int needle) {
        const QString number = QString::number(needle + 1);
        return Placed{Indexed("usrKVCheckButton3", needle), "Needle " + number,
                      InColumn(NeedleStep, needle, NeedleTop, NeedleSize), "SelectManipulator" + number,
                      "Calibrate needle " + number};
    });
}

void CtlCalibration::PlaceRecord() {
    Put(*this, imgCalibPos_[0], {"imgCalibPos(0)", "Marks picture", PicturePlace, "calibpos-0"});
    Put(*this, imgCalibPos_[1], {"imgCalibPos(1)", "Focus picture", PicturePlace, "calibpos-1"});
    Put(*this, imgCalibPos_[2], {"imgCalibPos(2)", "Centre picture", PicturePlace, "calibpos-2"});
    for (int mark = 0; mark < static_cast<int>(MarkCount); ++mark) {
        const QChar letter(u'A' + mark);
        Put(*this, captureButton_.at(mark),
            {Indexed("usrKVCheckButton1", mark), QString("Position ") + letter,
             InColumn(MarkStep, mark, CaptureTop, MarkSize), QString("Position") + letter,
             QString("Record the needle with its tip on mark ") + letter});
    }
    Put(*this, captureButton_[PointZ],
        {"usrKVCheckButton1(3)", "Position Z", WholeCapturePlace, "PositionZ",
         "Record the needle in focus under the raised objective"});
    Put(*this, captureButton_[PointCenter],
        {"usrKVCheckButton1(4)", "Position centre", WholeCapturePlace, "PositionCenter",
         "Record the needle with its tip on the centre"});
}

void CtlCalibration::PlaceConfirm() {
    Put(*this, lblWaring_, {"lblWaring", "Magnification warning", WarningPlace});
    Put(*this, confirmButton_[SetButton],
        {"usrKVButton1(0)", "Set", QRectF(24, 464, 215, 44), "SET", "Keep this calibration"});
    Put(*this, confirmButton_[ResetButton],
        {"usrKVButton1(1)", "Reset", QRectF(270, 464, 92, 44), "RESET",
         "Clear the calibration of the chosen needle"});
    Put(*this, confirmButton_[AllResetButton],
        {"usrKVButton1(2)", "Reset all", QRectF(370, 464, 92, 44), "ALLRESET",
         "Clear the calibrations of all needles"});
}

}  // namespace travo
