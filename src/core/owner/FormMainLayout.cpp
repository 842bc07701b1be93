#include "core/owner/FormMainLayout.h"

#include <cmath>

#include "core/ground/Arithmetic.h"

namespace travo {

namespace {

constexpr double RowTop = 20;
constexpr double LeftMargin = 18;
constexpr double RightMargin = 16;
constexpr double TabStripMargin = 19;
constexpr int BottomMargin = 16;
constexpr int StepButtonGap = 9;
constexpr int StepButtonHeight = 27;
constexpr int TrailInset = 48;
constexpr int StepCount = 5;

int Pixels(double value) { return static_cast<int>(std::lround(value)); }

}  // namespace

FormMainLayout::FormMainLayout(double verticalScale, double horizontalScale)
    : verticalScale_(verticalScale),
      horizontalScale_(horizontalScale),
      rowTop_(RowTop * verticalScale),
      leftMargin_(LeftMargin * horizontalScale),
      upperRowHeight_(UpperTab.height() * verticalScale),
      lowerRowHeight_(convert(LowerTab.height() * verticalScale)),
      tabWidth_(convert(LowerTab.width() * verticalScale)) {
    Select(Mode::Tabs);
    Resize(DesignSize);
}

void FormMainLayout::Select(Mode mode) {
    mode_ = mode;
    const double rows = lowerRowHeight_ + upperRowHeight_;
    panelTop_ = mode == Mode::Tabs ? rows + rowTop_ : rowTop_;
    bottomMargin_ = mode == Mode::Tabs ? BottomMargin : convert(rows + BottomMargin);
}

void FormMainLayout::Resize(const QSize& inner) {
    inner_ = inner;
    const double strip = inner.width() - leftMargin_ - TabStripMargin * horizontalScale_;
    tabWidth_ = convert(strip / 3 + 0.5);
}

QRect FormMainLayout::Tab(int index) const {
    constexpr std::array<int, 3> Column{2, 0, 1};
    const bool upper = index >= 12;
    const double left = leftMargin_ + Column.at(static_cast<std::size_t>(index % 3)) * tabWidth_;
    const double top = upper ? rowTop_ : rowTop_ + upperRowHeight_;
    return {Pixels(left), Pixels(top), tabWidth_, upper ? Pixels(upperRowHeight_) : lowerRowHeight_};
}

QRect FormMainLayout::Panel() const {
    const double width = inner_.width() - leftMargin_ - RightMargin * horizontalScale_;
    const double height = inner_.height() - panelTop_ - bottomMargin_;
    return {Pixels(leftMargin_), Pixels(panelTop_), Pixels(width), Pixels(height)};
}

QRect FormMainLayout::SizeButton() const { return {inner_.width() - 23, 3, 13, 13}; }

QRect FormMainLayout::StepButton(int index) const {
    const QRect panel = Panel();
    const int width = (panel.width() - 2 * StepButtonGap) / 3;
    return {panel.left() + index * (width + StepButtonGap), inner_.height() - 34, width, StepButtonHeight};
}

int FormMainLayout::TrailX(int step) const {
    const QRect panel = Panel();
    return panel.left() + TrailInset + step * (panel.width() - 2 * TrailInset) / (StepCount - 1);
}

}  // namespace travo
