// The camera's window: the picture, the marks over it, and the three buttons of its operator.
#pragma once

#include <QImage>
#include <QWidget>
#include <functional>

#include "workbench/live/LiveState.h"

class QLabel;
class QPushButton;

namespace workbench::live {

class CameraWindow : public QWidget {
public:
    // What the operator at this window wants. `close` also stands for the window's own close button;
    // the window then stays as it is.
    struct Wishes {
        std::function<void()> save;
        std::function<void()> hide;
        std::function<void()> close;
    };

    explicit CameraWindow(Wishes wishes);

    // The picture; the field in common units that it shows, empty where there is no scale to it.
    void ShowPicture(const QImage& picture, const QSizeF& field);
    void ShowState(const LiveState& state);
    // The line beneath the picture.
    void ShowLine(const QString& text);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    class Pane;

    QPushButton* AddButton(const QString& text, const QString& description, std::function<void()> wish);

    Wishes wishes_;
    Pane* pane_;
    QLabel* line_;
    QLabel* action_;
};

}  // namespace workbench::live
