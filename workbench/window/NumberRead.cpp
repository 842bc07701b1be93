#include "workbench/window/NumberRead.h"

#include <QPainter>

#include "workbench/window/BenchFace.h"
#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchType.h"

namespace workbench {

namespace {
constexpr double Radius = 3;
constexpr double RightMargin = 5;
constexpr double DisplayMargin = 8;
constexpr double LetterRoom = 18;
constexpr double BelowMiddle = 0.355;  // of the em, from a line's middle to its baseline
}  // namespace

NumberRead::NumberRead(const QString& objectName, const QString& name, const QString& letter, QWidget* parent,
                       Kind kind)
    : QWidget(parent), letter_(letter), kind_(kind) {
    InstallBenchAccess();
    // It paints its corners as the plate is, so that the plate need not be painted with it.
    setAttribute(Qt::WA_OpaquePaintEvent);
    setObjectName(objectName);
    setAccessibleName(name);
}

void NumberRead::Show(const QString& number) {
    if (number_ != number) {
        number_ = number;
        setAccessibleDescription(number);
        update();
    }
}

void NumberRead::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRectF place(rect());
    painter.fillRect(rect(), palette::Well);
    const bool isDisplay = kind_ == Kind::Display;
    PaintBox(painter, place, isDisplay ? palette::Night : palette::Read,
             isDisplay ? palette::SlateEdge : palette::Hair, Radius);
    const double pixels = isDisplay ? type::Heading : type::Number;
    const double margin = isDisplay ? DisplayMargin : RightMargin;
    const double letterRoom = letter_.isEmpty() ? margin : LetterRoom;
    if (!letter_.isEmpty()) {
        Write(
            painter,
            {letter_, {6, place.height() / 2 + 4.4}, TextFont(type::Small, QFont::DemiBold), palette::Ink2});
    }
    Write(painter, {number_,
                    {place.width() - margin, place.height() / 2 + pixels * BelowMiddle},
                    TextFont(pixels, QFont::DemiBold),
                    isDisplay ? palette::SimLit : palette::Ink,
                    Anchor::End,
                    place.width() - margin - letterRoom});
}

LampRead::LampRead(const QString& objectName, const QString& name, const QString& text, QWidget* parent)
    : QWidget(parent), text_(text) {
    InstallBenchAccess();
    setObjectName(objectName);
    setAccessibleName(name);
    setAccessibleDescription(AccessibleValue());
}

void LampRead::Show(bool on) {
    if (on_ != on) {
        on_ = on;
        setAccessibleDescription(AccessibleValue());
        update();
    }
}

QString LampRead::AccessibleValue() const { return on_ ? QStringLiteral("on") : QStringLiteral("off"); }

void LampRead::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRectF place(rect());
    PaintBox(painter, place, on_ ? palette::Fault : palette::Read, on_ ? palette::FaultHigh : palette::Hair,
             Radius);
    Write(painter, {text_,
                    {place.width() / 2, place.height() / 2 + 4.2},
                    TextFont(type::Fine, on_ ? QFont::Bold : QFont::DemiBold),
                    on_ ? palette::OnFault : palette::Ink2,
                    Anchor::Middle,
                    place.width() - 4});
}

}  // namespace workbench
