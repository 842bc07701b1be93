// A tab over the right column of a small window.
#pragma once

#include "workbench/window/BenchButton.h"

namespace workbench {

class BenchTab : public BenchButton {
public:
    BenchTab(const ControlName& name, const QString& text, QWidget* parent);

    // Whether what it stands for is on show.
    void ShowLatched(bool latched);

    QAccessible::Role AccessibleRole() const override { return QAccessible::PageTab; }
    void AddToState(QAccessible::State& state) const override;

protected:
    void PaintButton(QPainter& painter) override;
};

}  // namespace workbench
