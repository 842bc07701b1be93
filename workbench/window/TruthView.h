// The plan of the truth: what is where, seen from above, and worked by hand.
#pragma once

#include <QPointF>
#include <QStringList>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <optional>

#include "workbench/window/Ask.h"
#include "workbench/window/HandPace.h"
#include "workbench/window/PlanFollow.h"
#include "workbench/window/PlanHand.h"
#include "workbench/window/PlanScale.h"
#include "workbench/window/Scene.h"
#include "workbench/window/TruthPicture.h"

namespace workbench {

// What the plan tells; each may be left empty.
struct TruthNews {
    std::function<void(int needle)> picked;                 // a tip, 1 to 4, was taken hold of
    std::function<void(const QStringList& parts)> pointer;  // what is under the pointer; empty: no pointer
    std::function<void(const QString& text)> told;   // what was clicked on; empty: the pointer moved on
    std::function<void(PlanFollow follow)> follows;  // what the plan follows has changed
    std::function<void(double scale)> scale;         // pixels a unit have changed
};

class TruthView : public QWidget {
public:
    TruthView(Ask ask, TruthNews news, QWidget* parent = nullptr);

    // Repaints only where something that it shows has changed.
    void Show(const Scene& scene);
    void ShowLesson(const PlanLesson& lesson);

    // Follows from now on; Nothing leaves the plan as it lies.
    void Follow(PlanFollow follow);
    PlanFollow Follows() const { return follow_; }
    // By a factor about the middle, as by the hand.
    void Zoom(double factor);
    // The last landing at 12 pixels a unit; nothing happens before there is one.
    void Look();

    PlanSight Sight() const { return plan_.Sight(); }
    // A button is held that drags something: the next reading is wanted soon.
    bool Holds() const { return hold_ != Hold::Nothing; }

    QSize minimumSizeHint() const override { return {120, 120}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    enum class Hold { Nothing, Tip, View, Plan };

    void TakeHold(const QPointF& pixel);
    void DragTo(const QPointF& pixel);
    void LetGo();
    void Send(const QPointF& pixel);
    void LieAs(const PlanScale& plan, PlanFollow follow);
    void FollowOn();
    void TellPointer();
    void Tell(const QString& text);
    void ShowCursor(const QPointF& pixel);
    void Describe();
    void Renew();

    Ask ask_;
    TruthNews news_;
    HandPace needlePace_;
    HandPace mirrorPace_;
    Scene scene_;
    PlanLesson lesson_;
    TruthPicture picture_;
    PlanScale plan_;
    PlanFollow follow_ = PlanFollow::All;
    std::optional<QPointF> pointer_;
    QStringList parts_;
    bool told_ = false;
    // While something is held.
    Hold hold_ = Hold::Nothing;
    Qt::MouseButton button_ = Qt::NoButton;
    QPointF pressed_;      // the pixel where it was taken hold of
    QPointF last_;         // the pixel before
    QPointF place_;        // the place under it
    QPointF view_;         // the view's centre then
    int needle_ = 0;       // the one held
    NeedleCounts counts_;  // its counts then
    QPointF along_;        // its direction then
};

}  // namespace workbench
