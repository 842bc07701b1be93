// A label that shows a value.
#pragma once

#include <QLabel>

#include "controls/DesignSized.h"
#include "controls/Type.h"

namespace travo {

// On the ground of readings with a hairline, its text 5 design pixels from the edge, or bare, from edge to
// edge. A reading at first, right-aligned; `setAlignment` takes Qt::AlignLeft and Qt::AlignHCenter as well.
// Text that is wider than the label is shrunk; "N/A" stands in the colour of what is off. Assistive programs
// get the text as its name and the human name as its description.
class NumberLabel : public QLabel, public DesignSized {
    Q_OBJECT

public:
    enum class Ground { Framed, Bare };

    explicit NumberLabel(QWidget* parent = nullptr);

    // Other type than that of readings: its size in design pixels.
    void Face(double pixels, QFont::Weight weight = QFont::DemiBold, Ground ground = Ground::Framed);

    // Hides QLabel's: the accessible name follows the text. The text stays one line of plain text, whatever
    // it holds; one that is longer than anybody could read is cut.
    void setText(const QString& text);
    // "Cell A X" and the like.
    void HumanName(const QString& name) { setAccessibleDescription(name); }
    // Ink at first.
    void Colour(const QColor& colour);

    // The font that the present text is painted with.
    QFont PaintedFont() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void DesignSizeChanged() override { update(); }

private:
    double Scale() const { return ScaleAt(QSizeF(size())); }
    double SideRoom() const;
    void PaintGround(QPainter& painter) const;

    double pixels_ = type::Number;
    QFont::Weight weight_ = QFont::DemiBold;
    Ground ground_ = Ground::Framed;
    QColor colour_;
};

}  // namespace travo
