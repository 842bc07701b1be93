// A two-state button with a slot at its left edge: raised, or sunk and dark with the slot lit.
#pragma once

#include <functional>

#include "workbench/window/BenchButton.h"

namespace workbench {

class BenchSwitch : public BenchButton {
public:
    // What stands on the face in place of a text, drawn round a middle in a colour.
    using Drawing = std::function<void(QPainter& painter, const QPointF& middle, const QColor& colour)>;

    BenchSwitch(const ControlName& name, const QString& text, QWidget* parent);

    void TextPixels(double pixels);
    // A second line below the text, regular.
    void ShowSecondLine(const QString& line);
    QString SecondLine() const { return second_; }
    // The colour of the lit slot, violet at first.
    void Lit(const QColor& colour);
    void Draw(Drawing drawing);
    // Shows whether it is latched, and repaints only if that is new.
    void ShowLatched(bool latched);

protected:
    void PaintButton(QPainter& painter) override;

private:
    void PaintText(QPainter& painter, const QPointF& middle) const;

    double pixels_ = 13;
    QString second_;
    QColor lit_;
    Drawing drawing_;
};

}  // namespace workbench
