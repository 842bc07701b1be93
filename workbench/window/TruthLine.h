// The line under plan and heights: what is under the pointer, the scale, the focus, and what the bench
// refused.
#pragma once

#include <QStringList>
#include <QTimer>
#include <QWidget>

#include "workbench/window/Scene.h"

namespace workbench {

class TruthLine : public QWidget {
public:
    // How long a refusal stands, in ms.
    static constexpr int RefusalStands = 4000;

    explicit TruthLine(QWidget* parent = nullptr);

    // The width of the strip of heights, under which the focus stands.
    void SetHeightsWidth(int width);
    void Show(const Scene& scene);
    // Pixels a unit of the plan.
    void ShowScale(double scale);
    // What is under the pointer, most important first; empty: no pointer on the plan.
    void ShowPointer(const QStringList& parts);
    // Of what was clicked on, ahead of the pointer; empty: the pointer again.
    void Tell(const QString& text);
    // The sentence of an answer "error ...", on red for RefusalStands, and told to screen readers as an
    // alert.
    void Refuse(const QString& sentence);

    // What stands at the left.
    QString Text() const;

    QSize sizeHint() const override { return {440, 28}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Renew();
    double BarRight() const;
    double Room() const;
    void PaintBar(QPainter& painter) const;
    void PaintReadout(QPainter& painter) const;
    void PaintRefusal(QPainter& painter) const;

    int heightsWidth_ = 92;
    double scale_ = 1.0;
    double focus_ = 0.0;
    QStringList parts_;
    QString told_;
    QString refusal_;
    QTimer refusalTimer_;
};

}  // namespace workbench
