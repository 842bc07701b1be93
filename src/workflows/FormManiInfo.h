// The window with the needles: which are connected, and when each was calibrated.
#pragma once

#include <QString>
#include <array>
#include <cstdint>

#include "controls/NumberLabel.h"
#include "controls/SkinImage.h"
#include "core/ground/Positions.h"
#include "core/state/News.h"
#include "core/view/FormSkinned.h"

namespace travo {

// Window 3 of the operator's settings. It shows what it is told and changes nothing.
class FormManiInfo : public FormSkinned, public HearsTotalManipulatorNumber, public HearsCalibTime {
    Q_OBJECT

public:
    // No needle is connected and no time known at first.
    FormManiInfo(const System& system, const QString& programFolder);

    // The time of needle ManiNo (0 to 3, else BoundsFailure): of its last full calibration for CalibOrRe
    // 0, of its last re-calibration for any other. Shown as it stands; "-1" is no time.
    void SetCalibTime(std::int16_t ManiNo, const QString& CalibTime, std::int16_t CalibOrRe) override;

    // ManipulatorNo is the highest connected index; -1 is none.
    void TotalManipulatorNumber(std::int16_t ManipulatorNo) override;

private:
    void PlacePictures();
    void PlaceCaptions();
    void PlaceTimes();

    // Image2(0) to (3) and (4) to (7): of each needle one of both is on show.
    std::array<SkinImage, NeedleCount> connected_;
    std::array<SkinImage, NeedleCount> missing_;
    // For needle i: of its calibration at 2 * i, of its re-calibration behind it.
    std::array<NumberLabel, 2 * NeedleCount> lblName_;
    std::array<NumberLabel, NeedleCount> calibration_;
    std::array<NumberLabel, NeedleCount> reCalibration_;
};

}  // namespace travo
