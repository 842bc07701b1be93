// The head of a row on the escape panel: a needle and its number.
#pragma once

#include <QWidget>

#include "controls/DesignSized.h"

namespace travo {

// Grey while disabled: the needle has not been seen as connected. Takes no mouse.
class CtlEscapeNeedle : public QWidget, public DesignSized {
    Q_OBJECT

public:
    explicit CtlEscapeNeedle(QWidget* parent = nullptr);

    // 1 to 4, as the operator counts.
    void Number(int number);

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void DesignSizeChanged() override { update(); }

private:
    int number_ = 1;
};

}  // namespace travo
