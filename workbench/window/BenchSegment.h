// One of a row of small two-state buttons: latched it is dark with a lit bar below its text.
#pragma once

#include "workbench/window/BenchButton.h"

namespace workbench {

// The face of a segment with its button's text, `pixels` high.
void PaintSegment(QPainter& painter, const BenchButton& button, double pixels);

class BenchSegment : public BenchButton {
public:
    BenchSegment(const ControlName& name, const QString& text, QWidget* parent);

    void TextPixels(double pixels);
    // Shows whether it is latched, and repaints only if that is new.
    void ShowLatched(bool latched);

protected:
    void PaintButton(QPainter& painter) override;

private:
    double pixels_ = 13;
};

}  // namespace workbench
