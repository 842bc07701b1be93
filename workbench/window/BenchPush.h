// A push button: it stands up, and sinks while it is held.
#pragma once

#include <functional>

#include "workbench/window/BenchButton.h"

namespace workbench {

class BenchPush : public BenchButton {
public:
    // What stands on the face in place of a text, drawn round a middle in a colour.
    using Drawing = std::function<void(QPainter& painter, const QPointF& middle, const QColor& colour)>;

    BenchPush(const ControlName& name, const QString& text, QWidget* parent);

    void TextPixels(double pixels);
    void Draw(Drawing drawing);
    // No face: what stands on it alone.
    void Bare();
    // The tone of a button that clears: its text is bold.
    void Clears();

protected:
    void PaintButton(QPainter& painter) override;

private:
    double pixels_ = 13;
    bool clears_ = false;
    bool bare_ = false;
    Drawing drawing_;
};

}  // namespace workbench
