// The outline round the plan with all that belongs to it. It stands over them and takes no mouse.
#pragma once

#include <QWidget>

namespace workbench {

class DarkFrame : public QWidget {
public:
    explicit DarkFrame(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
};

}  // namespace workbench
