// Keeps each control's design rectangle and scales it with the panel.
#pragma once

#include <QRect>
#include <QRectF>
#include <QSizeF>
#include <vector>

class QWidget;

namespace travo {

// Rectangles are in design pixels of a panel of the given design size. Positions and sizes scale with
// width and height apart; neighbouring edges stay neighbours. A control that is DesignSized learns its
// design size, and so its scale for text and pictures.
class ScaledLayout {
public:
    explicit ScaledLayout(const QSizeF& design) : design_(design) {}

    // The control must outlive the layout. It is put in place at the next `Apply`.
    void Add(QWidget& control, const QRectF& rectangle);
    // Puts every control where it belongs in a panel of that size.
    void Apply(const QSizeF& present) const;

    const QSizeF& Design() const { return design_; }
    // The smaller of both ratios: for text.
    double Scale(const QSizeF& present) const;
    // Where a design rectangle stands in a panel of that size.
    QRectF Placed(const QRectF& rectangle, const QSizeF& present) const;
    // The same on whole pixels, edge by edge.
    QRect PlacedOnPixels(const QRectF& rectangle, const QSizeF& present) const;

private:
    struct Place {
        QWidget* control;
        QRectF rectangle;
    };

    QSizeF design_;
    std::vector<Place> places_;
};

}  // namespace travo
