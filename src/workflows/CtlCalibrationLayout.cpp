// Where things stand on the calibration panel and what they are called.
#include <QString>

#include "controls/ControlNames.h"
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

QRectF InColumn(double step, std::size_t column, double top, const QSizeF& size) {
    return {QPointF(Left + step * static_cast<double>(column), top), size};
}

}  // namespace

// The order of placing is the order of the Tab key.
void CtlCalibration::Place(const QString& programFolder) {
    inipath(programFolder);
    Paint(Plate{QRectF(12, 12, 462, 162)});
    Paint(CaptionText(24, 18, QStringLiteral("Mode")));
    Paint(CaptionText(24, 96, QStringLiteral("Needle")));
    Paint(Plate{QRectF(12, 184, 462, 234)});
    Paint(CaptionText(24, 190, QStringLiteral("Record")));
    PlaceModeAndNeedle(programFolder);
    PlaceRecord(programFolder);
    PlaceConfirm(programFolder);
}

void CtlCalibration::PlaceModeAndNeedle(const QString& programFolder) {
    Put(*this, modeButton_[0], InColumn(ModeStep, 0, ModeTop, ModeSize), programFolder,
        {Indexed(QStringLiteral("usrKVCheckButton2"), 0), QStringLiteral("Full calibration"),
         QStringLiteral("Record four positions: all axes of the needle"),
         QStringLiteral("CalibrationMode1")});
    Put(*this, modeButton_[1], InColumn(ModeStep, 1, ModeTop, ModeSize), programFolder,
        {Indexed(QStringLiteral("usrKVCheckButton2"), 1), QStringLiteral("Re-calibration"),
         QStringLiteral("Record one position: the reference point only"),
         QStringLiteral("CalibrationMode2")});
    for (std::size_t needle = 0; needle < needleButton_.size(); ++needle) {
        const QString number = QString::number(needle + 1);
        Put(*this, needleButton_[needle], InColumn(NeedleStep, needle, NeedleTop, NeedleSize), programFolder,
            {Indexed(QStringLiteral("usrKVCheckButton3"), static_cast<int>(needle)),
             QStringLiteral("Needle ") + number, QStringLiteral("Calibrate needle ") + number,
             QStringLiteral("SelectManipulator") + number});
    }
}

void CtlCalibration::PlaceRecord(const QString& programFolder) {
    const std::array<QString, PictureCount> pictures{QStringLiteral("Marks"), QStringLiteral("Focus"),
                                                     QStringLiteral("Centre")};
    for (std::size_t picture = 0; picture < imgCalibPos_.size(); ++picture) {
        Put(*this, imgCalibPos_[picture], PicturePlace, programFolder,
            {Indexed(QStringLiteral("imgCalibPos"), static_cast<int>(picture)),
             pictures.at(picture) + QStringLiteral(" picture"), QString(),
             QStringLiteral("calibpos-%1").arg(picture)});
    }
    const QString capture = QStringLiteral("usrKVCheckButton1");
    for (std::size_t mark = 0; mark < MarkCount; ++mark) {
        const QString letter(QLatin1Char("ABC"[mark]));
        Put(*this, captureButton_[mark], InColumn(MarkStep, mark, CaptureTop, MarkSize), programFolder,
            {Indexed(capture, static_cast<int>(mark)), QStringLiteral("Position ") + letter,
             QStringLiteral("Record the needle with its tip on mark ") + letter,
             QStringLiteral("Position") + letter});
    }
    Put(*this, captureButton_[PointZ], WholeCapturePlace, programFolder,
        {Indexed(capture, PointZ), QStringLiteral("Position Z"),
         QStringLiteral("Record the needle in focus under the raised objective"),
         QStringLiteral("PositionZ")});
    Put(*this, captureButton_[PointCenter], WholeCapturePlace, programFolder,
        {Indexed(capture, PointCenter), QStringLiteral("Position centre"),
         QStringLiteral("Record the needle with its tip on the centre"), QStringLiteral("PositionCenter")});
}

void CtlCalibration::PlaceConfirm(const QString& programFolder) {
    lblWaring_.setParent(this);
    lblWaring_.inipath(programFolder);
    Identify(lblWaring_, QStringLiteral("lblWaring"), QStringLiteral("Magnification warning"));
    Add(lblWaring_, WarningPlace);

    const QString confirm = QStringLiteral("usrKVButton1");
    Put(*this, confirmButton_[SetButton], QRectF(24, 464, 215, 44), programFolder,
        {Indexed(confirm, SetButton), QStringLiteral("Set"), QStringLiteral("Keep this calibration"),
         QStringLiteral("SET")});
    Put(*this, confirmButton_[ResetButton], QRectF(270, 464, 92, 44), programFolder,
        {Indexed(confirm, ResetButton), QStringLiteral("Reset"),
         QStringLiteral("Clear the calibration of the chosen needle"), QStringLiteral("RESET")});
    Put(*this, confirmButton_[AllResetButton], QRectF(370, 464, 92, 44), programFolder,
        {Indexed(confirm, AllResetButton), QStringLiteral("Reset all"),
         QStringLiteral("Clear the calibrations of all needles"), QStringLiteral("ALLRESET")});
}

}  // namespace travo
