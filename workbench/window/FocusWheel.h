// The wheel of the focus, seen on edge: its ribs move with it.
#pragma once

#include <QWidget>
#include <functional>

#include "workbench/window/BenchAccess.h"

namespace workbench {

// The mouse wheel over it and a drag along it turn it by 100 counts of the focus motor for each notch or 6
// pixels, with Shift by 10. To the right is up.
class FocusWheel : public QWidget, public Told {
public:
    // `jog` takes counts of the focus motor, upward positive.
    FocusWheel(std::function<void(int counts)> jog, QWidget* parent);

    // Where the focus stands, in counts.
    void Show(int counts);

    QAccessible::Role AccessibleRole() const override { return QAccessible::Dial; }
    QStringList AccessibleActions() const override;
    void DoAccessibleAction(const QString& name) override;
    QString AccessibleKeys() const override { return QStringLiteral("Ctrl+Page Up, Ctrl+Page Down"); }
    QString AccessibleValue() const override { return QString::number(counts_); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void Turn(int notches, Qt::KeyboardModifiers modifiers);

    std::function<void(int)> jog_;
    int counts_ = 0;
    int turned_ = 0;  // of a notch of the mouse wheel, in eighths of a degree
    bool held_ = false;
    double heldAt_ = 0;  // where the drag has been taken up to
};

}  // namespace workbench
