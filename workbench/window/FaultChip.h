// A small button for one fault: a slot marks one that lasts, a dot one that is over at once. On, it is fault
// red with bold white text.
#pragma once

#include <QTimer>

#include "workbench/window/BenchButton.h"

namespace workbench {

class FaultChip : public BenchButton {
public:
    static constexpr int PushDark = 300;  // ms that a push stands dark

    FaultChip(const ControlName& name, const QString& text, bool lasts, QWidget* parent);

    bool Lasts() const { return lasts_; }
    void TextPixels(double pixels);
    // A lasting fault as it stands, and what is left of it as it is written behind the text; empty for
    // nothing.
    void ShowOn(bool on, const QString& left);
    // What is written on it now, with what is left.
    QString Shown() const;
    // A push has been made.
    void Flash();

protected:
    void PaintButton(QPainter& painter) override;

private:
    bool lasts_;
    double pixels_ = 12.5;
    QString left_;
    QTimer dark_;
};

}  // namespace workbench
