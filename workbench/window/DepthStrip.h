// The heights beside the plan: tips as flags, the focal plane across, cells at the left.
#pragma once

#include <QWidget>
#include <functional>

#include "workbench/window/Ask.h"
#include "workbench/window/DepthScale.h"
#include "workbench/window/HandPace.h"
#include "workbench/window/PlanHand.h"
#include "workbench/window/Scene.h"

namespace workbench {

class DepthStrip : public QWidget {
public:
    // picked: the flag of needle 1 to 4 was taken hold of; may be empty.
    DepthStrip(Ask ask, std::function<void(int needle)> picked, QWidget* parent = nullptr);

    // Repaints only where something that it shows has changed.
    void Show(const Scene& scene);
    // A button is held that drags something.
    bool Holds() const { return hold_ != Hold::Nothing; }
    const DepthScale& Scale() const { return depth_; }

    // The middle of a needle's column in a strip of that width.
    static double ColumnOf(int needle, double width);

    QSize minimumSizeHint() const override { return {84, 120}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    enum class Hold { Nothing, Needle, Focus, Strip };

    void LieAs(const DepthScale& depth);
    int NeedleAt(const QPointF& pixel) const;
    bool IsOnFocus(const QPointF& pixel) const;
    double FlagAt(double height) const;
    void TakeHold(const QPointF& pixel);
    void DragTo(double pixel);
    void JogFocus();
    void PaintTicks(QPainter& painter) const;
    void PaintCells(QPainter& painter) const;
    void PaintFocus(QPainter& painter) const;
    void PaintNeedle(QPainter& painter, int number) const;
    void Describe();

    Ask ask_;
    std::function<void(int)> picked_;
    HandPace pace_;
    Scene scene_;
    DepthScale depth_;
    Hold hold_ = Hold::Nothing;
    Qt::MouseButton button_ = Qt::NoButton;
    double pressed_ = 0.0;  // pixel where it was taken hold of
    double last_ = 0.0;     // the pixel before
    int needle_ = 0;
    NeedleCounts counts_;
    int focusCounts_ = 0;  // of the focus motor, when it was taken hold of
    int focusGoal_ = 0;    // of it, where the hand is
};

}  // namespace workbench
