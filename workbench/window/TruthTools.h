// The bar over plan and heights: its title, and what the plan follows.
#pragma once

#include <QKeySequence>
#include <QList>
#include <QWidget>
#include <functional>
#include <utility>

#include "workbench/window/BenchButton.h"
#include "workbench/window/PlanFollow.h"

namespace workbench {

// A button of the bar. Checked it is violet.
class TruthTool : public BenchButton {
public:
    TruthTool(const ControlName& name, const QString& text, QWidget* parent);

protected:
    void PaintButton(QPainter& painter) override;
};

class TruthTools : public QWidget {
public:
    // chosen: follow this from now on, also when it is followed already. zoomed: by this factor about the
    // middle.
    TruthTools(std::function<void(PlanFollow)> chosen, std::function<void(double factor)> zoomed,
               QWidget* parent = nullptr);

    // The tool that is on.
    void ShowFollow(PlanFollow follow);

    // The title for a bar of that width.
    static QString TitleFor(int width);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void AddTool(TruthTool* tool, Qt::Key key, const std::function<void()>& pressed);
    void AddFollow(const QString& name, const QString& text, Qt::Key key, PlanFollow follow);
    void AddZoom(const ControlName& name, const QString& text, Qt::Key key, double factor);

    std::function<void(PlanFollow)> chosen_;
    std::function<void(double)> zoomed_;
    QList<TruthTool*> tools_;  // from the left
    QList<std::pair<TruthTool*, PlanFollow>> follows_;
};

}  // namespace workbench
