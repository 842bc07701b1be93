#include "workflows/FormManiInfo.h"

#include "core/ground/Arithmetic.h"
#include "core/state/SettingsKeys.h"

namespace travo {

namespace {

// Design pixels. A needle has a row of two lines.
constexpr double RowsTop = 44;
constexpr double RowHeight = 64;
constexpr double LineHeight = 26;
constexpr double RuleBelow = 57.5;  // from a row's top
constexpr double SideLeft = 12;
constexpr double SideRight = 328;
constexpr QSizeF PictureSize(64, 52);
constexpr double CaptionLeft = 88;
constexpr double CaptionWidth = 100;
constexpr double TimeLeft = 192;
constexpr double TimeWidth = 136;

double RowTop(int needle) { return RowsTop + RowHeight * needle; }

// The two lines of a row, from above.
constexpr int Calibration = 0;
constexpr int ReCalibration = 1;
constexpr int LineCount = 2;

QRectF InLine(int needle, int line, double left, double width) {
    return {left, RowTop(needle) + LineHeight * line, width, LineHeight};
}

}  // namespace

FormManiInfo::FormManiInfo(const System& system, const QString& programFolder)
    : FormSkinned(
          system,
          {QStringLiteral("FormManiInfo"), QStringLiteral("Needles"), QStringLiteral("3"), QSize(340, 300)},
          programFolder) {
    for (int needle = 0; needle + 1 < NeedleCount; ++needle) {
        Body().Paint(Rule{SideLeft, SideRight, RowTop(needle) + RuleBelow});
    }
    PlacePictures();
    PlaceCaptions();
    PlaceTimes();
    TotalManipulatorNumber(-1);
}

void FormManiInfo::PlacePictures() {
    PutDisplay(connected_, [](int needle) {
        return Placed{Indexed("Image2", needle), QString("Needle %1 connected").arg(needle + 1),
                      QRectF(QPointF(SideLeft, RowTop(needle)), PictureSize),
                      QString("mani-connected-%1").arg(needle + 1)};
    });
    PutDisplay(missing_, [](int needle) {
        return Placed{Indexed("Image2", needle + NeedleCount),
                      QString("Needle %1 not connected").arg(needle + 1),
                      QRectF(QPointF(SideLeft, RowTop(needle)), PictureSize),
                      QString("mani-missing-%1").arg(needle + 1)};
    });
}

void FormManiInfo::PlaceCaptions() {
    const std::array<QString, LineCount> texts{"Calibration", "Re-Calibration"};
    PutDisplay(lblName_, [&texts](int index) {
        const int needle = index / LineCount;
        const int line = index % LineCount;
        return Placed{Indexed("lblName", index),
                      QString("Needle %1 %2 caption").arg(needle + 1).arg(texts.at(line).toLower()),
                      InLine(needle, line, CaptionLeft, CaptionWidth)};
    });
    for (std::size_t index = 0; index < lblName_.size(); ++index) {
        NumberLabel& caption = lblName_[index];
        caption.Face(type::NumberStrip, QFont::Normal, NumberLabel::Ground::Bare);
        caption.Colour(palette::Ink2);
        caption.setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        caption.setText(texts.at(index % LineCount));
    }
}

void FormManiInfo::PlaceTimes() {
    for (int needle = 0; needle < NeedleCount; ++needle) {
        PutDisplay(calibration_.at(needle),
                   {Indexed("lblCalibration", needle), QString("Needle %1 calibration time").arg(needle + 1),
                    InLine(needle, Calibration, TimeLeft, TimeWidth)});
        PutDisplay(reCalibration_.at(needle), {Indexed("lblReCalibration", needle),
                                               QString("Needle %1 re-calibration time").arg(needle + 1),
                                               InLine(needle, ReCalibration, TimeLeft, TimeWidth)});
    }
    for (auto* const times : {&calibration_, &reCalibration_}) {
        for (NumberLabel& time : *times) {
            time.Face(type::NumberStrip, QFont::DemiBold, NumberLabel::Ground::Bare);
        }
    }
}

void FormManiInfo::SetCalibTime(std::int16_t ManiNo, const QString& CalibTime, std::int16_t CalibOrRe) {
    auto& labels = CalibOrRe == 0 ? calibration_ : reCalibration_;
    const bool never = CalibTime == settings::NoTime;
    labels.at(Bounded(ManiNo, labels.size())).setText(never ? QString() : CalibTime);
}

void FormManiInfo::TotalManipulatorNumber(std::int16_t ManipulatorNo) {
    for (int needle = 0; needle < NeedleCount; ++needle) {
        connected_.at(needle).setVisible(needle <= ManipulatorNo);
        missing_.at(needle).setVisible(needle > ManipulatorNo);
    }
}

}  // namespace travo
