#include "controls/PanelItems.h"

namespace travo {

namespace {

constexpr double CaptionHeight = 18;
// Half the height of a capital of the first family, in parts of the em: from the middle to the baseline.
constexpr double MiddleToBaseline = 0.357;

}  // namespace

PaintedText CaptionText(double x, double top, const QString& text, Qt::AlignmentFlag alignment) {
    return {x, top + CaptionHeight / 2, text, type::Caption, QFont::DemiBold, palette::Ink2, alignment};
}

PaintedText NameText(double x, double top, double height, const QString& text, double pixels) {
    return {x, top + height / 2, text, pixels, QFont::DemiBold, palette::Ink, Qt::AlignLeft};
}

PaintedText HintText(double x, double baseline, const QString& text, Qt::AlignmentFlag alignment) {
    return {x,
            baseline - MiddleToBaseline * type::Caption,
            text,
            type::Caption,
            QFont::Normal,
            palette::Ink2,
            alignment};
}

}  // namespace travo
