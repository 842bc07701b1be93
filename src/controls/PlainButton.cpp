#include "controls/PlainButton.h"

#include <QAbstractButton>
#include <QPainter>

#include "controls/Palette.h"
#include "controls/Type.h"

namespace travo {

namespace {

struct Look {
    QColor face;
    QColor edge;
    QColor text;
    bool hasLip;
};

Look LookOf(const QAbstractButton& button) {
    const bool isLatched = button.isCheckable() && (button.isChecked() || button.isDown());
    if (!button.isEnabled()) {
        if (isLatched) {
            return {palette::SlateOff, palette::SlateOffEdge, palette::OnSlateOff, false};
        }
        return {palette::OffFace, palette::OffEdge, palette::Off, false};
    }
    if (isLatched) {
        return {palette::Slate, palette::SlateEdge, palette::OnSlate, false};
    }
    if (button.isDown()) {
        return {palette::PressHigh, palette::Edge, palette::Ink, false};
    }
    return {palette::FaceHigh, palette::Edge, palette::Ink, true};
}

void PaintPlate(QPainter& painter, const QRectF& place, const QColor& face, const QColor& edge,
                double scale) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(edge, 1));
    painter.setBrush(face);
    painter.drawRoundedRect(place.adjusted(0.5, 0.5, -0.5, -0.5), 5 * scale, 5 * scale);
}

void PaintCaption(QPainter& painter, const QRectF& place, const QString& caption, const QColor& colour,
                  double scale) {
    const double room = place.width() - 8 * scale;
    painter.setFont(Fitted(TextFont(type::NameSmall * scale, QFont::DemiBold), caption, room));
    painter.setPen(colour);
    painter.drawText(place, Qt::AlignCenter, caption);
}

}  // namespace

void PaintPlainButton(QPainter& painter, const QAbstractButton& button, const QString& caption,
                      double scale) {
    const Look look = LookOf(button);
    QRectF place(button.rect());
    if (look.hasLip) {
        PaintPlate(painter, place, palette::Lip, look.edge, scale);
        place.adjust(0, 0, 0, -2 * scale);
    }
    PaintPlate(painter, place, look.face, look.edge, scale);
    PaintCaption(painter, place, caption, look.text, scale);
}

void PaintPlainPicture(QPainter& painter, const QRectF& place, const QString& caption, double scale) {
    PaintPlate(painter, place, palette::Well, palette::Hair, scale);
    PaintCaption(painter, place, caption, palette::Ink2, scale);
}

}  // namespace travo
