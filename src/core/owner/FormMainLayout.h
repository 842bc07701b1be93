// Where the main window's tabs, panels and step buttons stand.
#pragma once

#include <QRect>
#include <QSize>
#include <array>

namespace travo {

// All sizes in pixels. Pure: a function of the window's inner size, the mode and the display's scale.
class FormMainLayout {
public:
    static constexpr int TabPictureCount = 18;
    // Design sizes: the window's inner size, and the tab pictures of the lower and the upper row.
    static constexpr QSize DesignSize{520, 624};
    static constexpr QSize LowerTab{162, 36};
    static constexpr QSize UpperTab{162, 32};

    enum class Mode { Tabs, Steps };

    // Scales: the screen's logical units per pixel divided by 15.
    FormMainLayout(double verticalScale, double horizontalScale);

    void Select(Mode mode);
    Mode Selected() const { return mode_; }

    // Takes a new inner size.
    void Resize(const QSize& inner);

    // Place of a tab picture: 0 to 11 stand in the lower row, 12 to 17 in the upper. Within a row, index
    // modulo 3 is the column: 1 left, 2 middle, 0 right.
    QRect Tab(int index) const;
    QRect Panel() const;
    QRect SizeButton() const;
    // 0 Previous, 1 Next, 2 User; each a third of the panel's width, 9 apart.
    QRect StepButton(int index) const;
    // The line of the step trail, and the middle of the dot of a step, 0 to 4.
    int TrailY() const { return inner_.height() - 68; }
    int TrailX(int step) const;

private:
    double verticalScale_;
    double horizontalScale_;
    double rowTop_;
    double leftMargin_;
    double upperRowHeight_;
    int lowerRowHeight_;
    int tabWidth_;
    double panelTop_ = 0;
    int bottomMargin_ = 0;
    Mode mode_ = Mode::Tabs;
    QSize inner_ = DesignSize;
};

}  // namespace travo
