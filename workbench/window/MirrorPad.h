// The pad of the mirror, worked as the program's own: one press is one move, done at the release.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <functional>

#include "workbench/window/BenchAccess.h"
#include "workbench/window/PadShape.h"

namespace workbench {

// The left button, or while it has the focus the keys: arrows press the inner ring, with Shift the outer one,
// Home the middle. It acts at the release, wherever the pointer then is, and does not repeat. A press that
// loses the focus, or whose pad is disabled meanwhile, is dropped. Each area is an action of its name.
class MirrorPad : public QWidget, public Told {
public:
    // `press` takes an area of 1 to 17 that was pressed.
    MirrorPad(std::function<void(int area)> press, QWidget* parent);

    // Number of the picture on show: 0 at rest, 1 to 17 with that area held down, 18 disabled.
    int PictureShown() const;

    QAccessible::Role AccessibleRole() const override { return QAccessible::Canvas; }
    QStringList AccessibleActions() const override;
    void DoAccessibleAction(const QString& name) override;
    void AddToState(QAccessible::State& state) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void Hold(int area, int key);
    void Release();

    std::function<void(int)> press_;
    int area_ = NoPadArea;
    int key_ = 0;  // that holds it, 0 for the mouse
    QPixmap picture_;
    int pictured_ = -1;
};

}  // namespace workbench
