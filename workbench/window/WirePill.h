// A label of the header: a lamp, a name and how it stands.
#pragma once

#include <QString>
#include <QWidget>
#include <cstdint>

#include "workbench/window/BenchAccess.h"

namespace workbench {

class WirePill : public QWidget, public Told {
public:
    // Seen by their lamps: disc, ring, cross.
    enum class State : std::uint8_t { Good, Quiet, Bad };

    WirePill(const QString& objectName, const QString& name, QWidget* parent);

    // Repaints only if it is new. Its accessible name is "Mirror: open" and so on.
    void Show(State state, const QString& word);
    const QString& Word() const { return word_; }
    // The width that it asks for with any of its words.
    int WidthFor(const QString& longestWord) const;

    QAccessible::Role AccessibleRole() const override { return QAccessible::StaticText; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void PaintLamp(QPainter& painter, double middle) const;

    QString name_;
    QString word_;
    State state_ = State::Quiet;
};

}  // namespace workbench
