// One step of the first ten minutes as the card shows it.
#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>
#include <array>
#include <cstdint>

#include "workbench/window/BenchAccess.h"

namespace workbench {

class LessonItem : public QWidget, public Told {
public:
    enum class State : std::uint8_t { After, Next, Done };

    // What the next step shows beside its title.
    struct Body {
        QString notice;  // above the text; empty for none
        QString text;
        bool hasMarks = false;          // badges A, B, C
        std::array<bool, 3> touched{};  // those that are filled
        bool hasButton = false;         // room for one is kept
        bool operator==(const Body&) const = default;
    };

    LessonItem(const QString& number, QWidget* parent);

    // `told` is what screen readers say of it. Whether any of it is new.
    bool Show(State state, const QString& title, const Body& body, const QString& told);
    State Shown() const { return state_; }

    // The height that it takes in a card so wide: a row, or as the next step with its text of so many pixels.
    int HeightIn(int cardWidth, int row, double textPixels) const;
    void TextPixels(double pixels);
    // Where its button stands.
    QRect ButtonPlace() const;

    QAccessible::Role AccessibleRole() const override { return QAccessible::ListItem; }
    void AddToState(QAccessible::State& state) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void PaintNext(QPainter& painter) const;
    void PaintMarks(QPainter& painter) const;
    void PaintRow(QPainter& painter) const;

    QString number_;
    QString title_;
    State state_ = State::After;
    Body body_;
    double pixels_ = 13;
};

// The text in lines of at most `room` pixels in the card's regular type, `pixels` high; broken at its blanks.
QStringList Wrapped(const QString& text, double room, double pixels);

}  // namespace workbench
