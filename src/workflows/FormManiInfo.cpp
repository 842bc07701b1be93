#include "workflows/FormManiInfo.h"

#include "controls/ControlNames.h"
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

double RowTop(std::size_t needle) { return RowsTop + RowHeight * static_cast<double>(needle); }

QString Named(const char* pattern, std::size_t needle) {
    return QString::fromLatin1(pattern).arg(needle + 1);
}

}  // namespace

FormManiInfo::FormManiInfo(const System& system, const QString& programFolder)
    : FormSkinned(
          system,
          {QStringLiteral("FormManiInfo"), QStringLiteral("Needles"), QStringLiteral("3"), QSize(340, 300)},
          programFolder) {
    for (std::size_t needle = 0; needle + 1 < NeedleCount; ++needle) {
        Body().Paint(Rule{SideLeft, SideRight, RowTop(needle) + RuleBelow});
    }
    BuildPictures(programFolder);
    BuildCaptions();
    BuildTimes();
    TotalManipulatorNumber(-1);
}

void FormManiInfo::BuildPictures(const QString& programFolder) {
    for (std::size_t index = 0; index < pictures_.size(); ++index) {
        const std::size_t needle = index % NeedleCount;
        const bool connected = index < NeedleCount;
        auto* const picture = new SkinImage(&Body());
        picture->path(Named(connected ? "mani-connected-%1" : "mani-missing-%1", needle));
        picture->inipath(programFolder);
        Identify(*picture, Indexed(QStringLiteral("Image2"), static_cast<int>(index)),
                 Named(connected ? "Needle %1 connected" : "Needle %1 not connected", needle));
        AddDisplay(*picture, QRectF(QPointF(SideLeft, RowTop(needle)), PictureSize));
        pictures_.at(index) = picture;
    }
}

void FormManiInfo::BuildCaptions() {
    for (std::size_t index = 0; index < 2 * NeedleCount; ++index) {
        const std::size_t needle = index / 2;
        const bool again = index % 2 == 1;
        auto* const caption = new NumberLabel(&Body());
        caption->Face(type::NumberStrip, QFont::Normal, NumberLabel::Ground::Bare);
        Identify(*caption, Indexed(QStringLiteral("lblName"), static_cast<int>(index)),
                 Named(again ? "Needle %1 re-calibration caption" : "Needle %1 calibration caption", needle));
        caption->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        caption->Colour(palette::Ink2);
        caption->setText(again ? QStringLiteral("Re-Calibration") : QStringLiteral("Calibration"));
        AddDisplay(*caption,
                   QRectF(CaptionLeft, RowTop(needle) + (again ? LineHeight : 0), CaptionWidth, LineHeight));
    }
}

void FormManiInfo::BuildTimes() {
    for (std::size_t needle = 0; needle < NeedleCount; ++needle) {
        for (const bool again : {false, true}) {
            auto* const time = new NumberLabel(&Body());
            time->Face(type::NumberStrip, QFont::DemiBold, NumberLabel::Ground::Bare);
            Identify(*time,
                     Indexed(again ? QStringLiteral("lblReCalibration") : QStringLiteral("lblCalibration"),
                             static_cast<int>(needle)),
                     Named(again ? "Needle %1 re-calibration time" : "Needle %1 calibration time", needle));
            AddDisplay(*time,
                       QRectF(TimeLeft, RowTop(needle) + (again ? LineHeight : 0), TimeWidth, LineHeight));
            (again ? reCalibration_ : calibration_).at(needle) = time;
        }
    }
}

void FormManiInfo::SetCalibTime(std::int16_t ManiNo, const QString& CalibTime, std::int16_t CalibOrRe) {
    auto& labels = CalibOrRe == 0 ? calibration_ : reCalibration_;
    const bool never = CalibTime == settings::NoTime;
    labels.at(Bounded(ManiNo, labels.size()))->setText(never ? QString() : CalibTime);
}

void FormManiInfo::TotalManipulatorNumber(std::int16_t ManipulatorNo) {
    for (std::size_t needle = 0; needle < NeedleCount; ++needle) {
        const bool connected = static_cast<int>(needle) <= ManipulatorNo;
        pictures_.at(needle)->setVisible(connected);
        pictures_.at(needle + NeedleCount)->setVisible(!connected);
    }
}

}  // namespace travo
