// What all buttons of the window have in common.
#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QString>

#include "workbench/window/BenchAccess.h"

class QPainter;

namespace workbench {

// How a control is called: by programs, by people, and the keys that work it.
struct ControlName {
    QString object;
    QString accessible;
    QString keys;
};

// A button that is painted. Where it is two-state, a press changes nothing of it: whoever it belongs to shows
// what became of the press by setChecked. Of the keyboard it takes Space and Enter alone, all else goes on to
// the window.
class BenchButton : public QAbstractButton, public Told {
public:
    BenchButton(const ControlName& name, const QString& text, QWidget* parent);

    // Shows a text, and repaints only if it is another one.
    void ShowText(const QString& text);

    // Colour of a text or icon on the face as it stands.
    QColor InkNow() const;
    // Two-state and latched.
    bool IsDark() const { return isCheckable() && isChecked(); }

    QAccessible::Role AccessibleRole() const override;
    QStringList AccessibleActions() const override;
    void DoAccessibleAction(const QString& name) override;
    void AddToState(QAccessible::State& state) const override;
    QString AccessibleKeys() const override { return keys_; }

protected:
    void nextCheckState() override {}
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) final;
    // The face with all that stands on it; the ring under the pointer comes on top.
    virtual void PaintButton(QPainter& painter) = 0;

private:
    QString keys_;
};

}  // namespace workbench
