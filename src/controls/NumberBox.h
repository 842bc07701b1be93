// A box for a whole number.
#pragma once

#include <QLineEdit>
#include <climits>

#include "controls/DesignSized.h"

namespace travo {

// Centred figures of 20 design pixels, shrunk where they would not fit. Only digits and Backspace pass the
// keyboard; keys that enter no character (arrows, Delete, Tab) work as ever. A whole number that is put in
// with blanks about it or a plus ahead of it is taken without them. What else a text may be is the panel's to
// say, at `textChanged`.
class NumberBox : public QLineEdit, public DesignSized {
    Q_OBJECT

public:
    explicit NumberBox(QWidget* parent = nullptr);

    QSize sizeHint() const override { return DesignSize().toSize(); }

    // Hides QLineEdit's, which would cut what is pasted before its blanks are gone: so many characters can be
    // typed, and what is pasted beyond them is cut.
    void setMaxLength(int characters) { mostCharacters_ = characters; }
    int maxLength() const { return mostCharacters_; }

protected:
    // Whether a key press reaches the box; one that does not is dropped.
    virtual bool PassesKey(const QKeyEvent& event) const;

    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void DesignSizeChanged() override { FitText(); }

private:
    class Filter;

    double Scale() const { return ScaleAt(QSizeF(size())); }
    void FitText();

    int mostCharacters_ = INT_MAX;
    bool typing_ = false;  // a key is entering a character
    bool fitting_ = false;
};

}  // namespace travo
