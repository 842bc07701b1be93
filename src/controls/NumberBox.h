// A box for a whole number.
#pragma once

#include <QLineEdit>

#include "controls/DesignSized.h"

namespace travo {

// Centred figures of 20 design pixels, shrunk where they would not fit. Only digits and Backspace pass the
// keyboard; keys that enter no character (arrows, Delete, Tab) work as ever. What else a text may be is the
// panel's to say, at `textChanged`.
class NumberBox : public QLineEdit, public DesignSized {
    Q_OBJECT

public:
    explicit NumberBox(QWidget* parent = nullptr);

    QSize sizeHint() const override { return DesignSize().toSize(); }

protected:
    // Whether a key press reaches the box; one that does not is dropped.
    virtual bool PassesKey(const QKeyEvent& event) const;

    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void DesignSizeChanged() override { FitText(); }

private:
    double Scale() const { return ScaleAt(QSizeF(size())); }
    void FitText();

    bool fitting_ = false;
};

}  // namespace travo
