// One of a row of small two-state buttons: latched it is dark with a lit bar below its text.
#pragma once

#include "workbench/window/BenchButton.h"

namespace workbench {

class BenchSegment : public BenchButton {
public:
    BenchSegment(const ControlName& name, const QString& text, QWidget* parent);

    void TextPixels(double pixels);
    // Shows whether it is latched, and repaints only if that is new.
    void ShowLatched(bool latched);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    double pixels_ = 13;
};

}  // namespace workbench
