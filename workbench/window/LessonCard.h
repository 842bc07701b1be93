// The card of the first ten minutes.
#pragma once

#include <QWidget>
#include <array>
#include <functional>

#include "workbench/window/BenchPush.h"
#include "workbench/window/Lesson.h"
#include "workbench/window/LessonItem.h"

namespace workbench {

class LessonCard : public QWidget {
public:
    struct Wishes {
        std::function<void()> hide;
        std::function<void()> look;   // at the last landing
        std::function<void()> again;  // from step 1
        // Screen readers say at once what the item's name says.
        std::function<void(QWidget& item)> tell;
    };

    LessonCard(Wishes wishes, QWidget* parent);

    // Tells a step that has been ticked since the last time as an alert.
    void Show(const Lesson& lesson);
    void ShowSmall(bool small);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void AddButtons();
    bool ShowOver(const Lesson& lesson);
    void Place();
    // The height of all steps together, with rows and the next step's text so high.
    int HeightOf(int row, double pixels) const;
    void PaintHands(QPainter& painter) const;

    Wishes wishes_;
    bool small_ = false;
    int done_ = 0;
    QString count_;
    std::array<LessonItem*, LessonStepCount> steps_{};
    LessonItem* over_ = nullptr;
    QWidget* list_ = nullptr;
    BenchPush* close_ = nullptr;
    BenchPush* look_ = nullptr;
    BenchPush* again_ = nullptr;
    int handsY_ = 0;  // of the lines of the hand; 0 where there is no room for them
};

}  // namespace workbench
