// A label that shows a number: a letter at its left, the number right.
#pragma once

#include <QString>
#include <QWidget>
#include <cstdint>

#include "workbench/window/BenchAccess.h"

namespace workbench {

class NumberRead : public QWidget, public Told {
public:
    // On a plate, or as a lit display on dark ground.
    enum class Kind : std::uint8_t { Plain, Display };

    NumberRead(const QString& objectName, const QString& name, const QString& letter, QWidget* parent,
               Kind kind = Kind::Plain);

    // Repaints only if the number is another one.
    void Show(const QString& number);
    const QString& Number() const { return number_; }

    QAccessible::Role AccessibleRole() const override { return QAccessible::StaticText; }
    QString AccessibleValue() const override { return number_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString letter_;
    Kind kind_;
    QString number_;
};

// A label that is a lamp: fault red with white text while it is on.
class LampRead : public QWidget, public Told {
public:
    LampRead(const QString& objectName, const QString& name, const QString& text, QWidget* parent);

    void Show(bool on);
    bool IsOn() const { return on_; }

    QAccessible::Role AccessibleRole() const override { return QAccessible::StaticText; }
    QString AccessibleValue() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString text_;
    bool on_ = false;
};

}  // namespace workbench
