#include "experiment/bird/FormBirdView.h"

#include <algorithm>

#include "core/ground/Arithmetic.h"

namespace travo {

namespace {

// Of its design size; the least that the window can be.
constexpr double LeastWidthPart = 0.9;
// What the window takes of its inner size beside the picture, in pixels.
constexpr int HeightBesidePicture = 105;
constexpr int WidthBesidePicture = 32;
constexpr int PictureTop = 44;

std::int32_t Percent(int available) { return convert(static_cast<double>(available) / CanvasSize * 100); }

}  // namespace

void FormBirdView::LineONOff(bool isOFF) {
    lines_.SetRaised(!isOFF);
    ChangeVNeedleONOFF(isOFF);
}

void FormBirdView::BirdOPEN(bool isOpen) {
    usrKVCheckButton1_.SetRaised(!isOpen);
    setMinimumSize(LeastSize());
    Arrange();
}

void FormBirdView::NewPicLoad() {
    still_.Load(stillFile_, {system_.state.ShiftX, system_.state.ShiftY});
    Redraw();
}

void FormBirdView::ContrastAndBrightness() {
    still_.Process(usrKVXscroll1_.Value(), usrKVXscroll2_.Value());
    Redraw();
}

void FormBirdView::ChangeNeedleXYZ(std::int16_t ManipulatorNumber,
                                   const std::array<PositionXYZ, NeedleCount>& NeedleXYZ,
                                   const PositionXYZ& CurrentXYZ, const PositionXYZ& OriNeedle) {
    const std::size_t m = Bounded(ManipulatorNumber, NeedleXYZ.size());
    scene_.needles[m] = NeedlePlace(NeedleXYZ[m], CurrentXYZ, OriNeedle);
    Redraw();
}

void FormBirdView::ChangeViewXYZ(const PositionXYZ& CurrentXYZ) {
    const PositionXYZ common = MirrorToCommon(CurrentXYZ);
    const PositionXYZ shown{common[0], Difference(0, common[1]), common[2]};
    scene_.view = ViewPlace(CurrentXYZ, scene_.intBirdMagnification);
    for (std::size_t axis = 0; axis < lblXYZPos_.size(); ++axis) {
        const bool isSet = CurrentXYZ.at(axis) != NoPositionValue;
        lblXYZPos_.at(axis).setText(isSet ? QString::number(shown.at(axis)) : QStringLiteral("N/A"));
    }
    Redraw();
}

void FormBirdView::ChangeCellXYZ(std::int16_t Index, const PositionXYZ& CellXYZ) {
    scene_.cells[Bounded(Index, scene_.cells.size())] = CellPlace(CellXYZ);
    Redraw();
}

void FormBirdView::AdjustPressed() {
    bShiftSetting_ = false;
    if (BirdOPEN()) {
        shift_.SetRaised(true);
        resize(width(), height() + LowerPanelHeight);
        setMinimumSize(LeastSize());
    } else {
        setMinimumSize(LeastSize());
        resize(width(), height() - LowerPanelHeight);
    }
}

void FormBirdView::ShiftPressed() {
    bShiftSetting_ = shift_.Value();
    Shift(0, 0);
}

void FormBirdView::PicturePressed(const QPointF& at) {
    if (!bShiftSetting_) {
        return;
    }
    const double width = picBird_.width();
    const double height = picBird_.height();
    Shift((width / 2 - at.x()) / width, (height / 2 - at.y()) / height);
    // Positions that come while the box is open are composed behind it.
    const platform::BoxOpening opening{.beside = {picBird_.mapToGlobal(QPoint(0, 0)), picBird_.size()}};
    const platform::BoxAnswer answer =
        system_.boxes.ShowSo(QStringLiteral("Did you set it at this position?"), platform::BoxButtons::YesNo,
                             platform::BoxIcon::None, opening);
    if (answer == platform::BoxAnswer::No) {
        Shift(0, 0);
    } else {
        bShiftSetting_ = false;
        shift_.SetRaised(true);
    }
}

void FormBirdView::Shift(double x, double y) {
    system_.state.ShiftX = x;
    system_.state.ShiftY = y;
    Redraw();
}

QSize FormBirdView::LeastSize() const {
    return PartOf(ClosedSize, LeastWidthPart, LeastPart) + QSize(0, OpenHeight());
}

void FormBirdView::BackToDesignSize() { resize(ClosedSize + QSize(0, OpenHeight())); }

void FormBirdView::Arrange() {
    // The rows below the picture keep their heights and their distance to the window's lower edge.
    const int top = height() - ClosedSize.height() - OpenHeight();
    Body().setGeometry(0, top, width(), ClosedSize.height() + LowerPanelHeight);
    for (QWidget* const control : lower_) {
        control->setVisible(BirdOPEN());
    }
    Redraw();
}

void FormBirdView::Redraw() {
    const std::int32_t z1 = Percent(height() - HeightBesidePicture - OpenHeight());
    const std::int32_t z2 = Percent(width() - WidthBesidePicture);
    Compose(std::min(z1, z2));
}

void FormBirdView::Compose(std::int32_t z) {
    const SharedState& state = system_.state;
    // A fifth needle, which a connection may count, has no marker.
    scene_.intTotalManipulatorNumber =
        std::min(state.intTotalManipulatorNumber, static_cast<std::int16_t>(NeedleCount - 1));
    scene_.intManipulatorNumber = state.intManipulatorNumber;
    scene_.intCellNo = system_.owner.ExperimentCellNo();
    scene_.ShiftX = state.ShiftX;
    scene_.ShiftY = state.ShiftY;
    const QImage& canvas = canvas_.Compose(still_.Part({state.ShiftX, state.ShiftY}), scene_);
    scene_.intBlinkPhase = NextBlinkPhase(scene_.intBlinkPhase);
    const int side = std::max(convert(z / 100.0 * CanvasSize), 0);
    picBird_.Show(canvas, QSize(side, side));
    picBird_.move((width() - side) / 2, PictureTop);
    shpPicSet_.setGeometry(picBird_.geometry().adjusted(-1, -1, 1, 1));
}

}  // namespace travo
