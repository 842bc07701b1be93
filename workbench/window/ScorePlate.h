// How it went: the last landing, crossings, refusals.
#pragma once

#include <QWidget>

#include "workbench/window/Ask.h"
#include "workbench/window/Scene.h"

namespace workbench {

class BenchPush;
class ScoreLanding;
class ScoreNumber;

class ScorePlate : public QWidget {
public:
    explicit ScorePlate(Ask ask, QWidget* parent = nullptr);

    // Counts the refusals among the records of the reading, which are handed on once.
    void Show(const Scene& scene);

    // Since the last "Forget": driver answers below 0, error lines of the mirror, "N" of the motor.
    int Refusals() const { return refusals_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Forget();

    Ask ask_;
    ScoreLanding* landing_;
    ScoreNumber* crossings_;
    ScoreNumber* refused_;
    BenchPush* forget_;
    int refusals_ = 0;
};

}  // namespace workbench
