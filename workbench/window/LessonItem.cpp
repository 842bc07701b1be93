#include "workbench/window/LessonItem.h"

#include <QPainter>
#include <cmath>

#include "workbench/window/BenchFace.h"
#include "workbench/window/BenchIcon.h"
#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchType.h"

namespace workbench {

namespace {

constexpr double NumberX = 24;
constexpr double TitleX = 42;
constexpr double TextX = 24;
constexpr int TextMargins = 48;  // of the text, both sides of the card together
constexpr double TitleHeight = 34;
constexpr double LineHeight = 18;  // of a text of 13 pixels
constexpr double FullPixels = 13;
constexpr int Bottom = 6;
constexpr int MarksHeight = 26;
constexpr int ButtonHeight = 36;
constexpr int Gap = 5;  // below the next step

double LinePitch(double pixels) { return LineHeight * pixels / FullPixels; }

QStringList LinesOf(const LessonItem::Body& body, double room, double pixels) {
    QStringList lines;
    if (!body.notice.isEmpty()) {
        lines = Wrapped(body.notice, room, pixels);
    }
    return lines + Wrapped(body.text, room, pixels);
}

}  // namespace

QStringList Wrapped(const QString& text, double room, double pixels) {
    const QFont font = TextFont(pixels, QFont::Normal);
    QStringList lines;
    QString line;
    for (const QString& word : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const QString longer = line.isEmpty() ? word : line + QLatin1Char(' ') + word;
        if (!line.isEmpty() && WidthOf(font, longer) > room) {
            lines << line;
            line = word;
        } else {
            line = longer;
        }
    }
    return line.isEmpty() ? lines : lines << line;
}

LessonItem::LessonItem(const QString& number, QWidget* parent) : QWidget(parent), number_(number) {
    InstallBenchAccess();
}

bool LessonItem::Show(State state, const QString& title, const Body& body, const QString& told) {
    if (state_ == state && title_ == title && body_ == body && accessibleName() == told) {
        return false;
    }
    setAccessibleName(told);
    setAccessibleDescription(state == State::Next ? body.notice + body.text : QString());
    state_ = state;
    title_ = title;
    body_ = body;
    update();
    return true;
}

void LessonItem::AddToState(QAccessible::State& state) const {
    state.checkable = true;
    state.checked = state_ == State::Done;
    state.active = state_ == State::Next;
}

void LessonItem::TextPixels(double pixels) {
    if (pixels_ != pixels) {
        pixels_ = pixels;
        update();
    }
}

int LessonItem::HeightIn(int cardWidth, int row, double textPixels) const {
    if (state_ != State::Next) {
        return row;
    }
    const auto lines = static_cast<double>(LinesOf(body_, cardWidth - TextMargins, textPixels).size());
    return static_cast<int>(std::ceil(TitleHeight + lines * LinePitch(textPixels))) + Bottom +
           (body_.hasMarks ? MarksHeight : 0) + (body_.hasButton ? ButtonHeight : 0) + Gap;
}

QRect LessonItem::ButtonPlace() const { return {24, height() - Gap - 38, 84, 28}; }

void LessonItem::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (state_ == State::Next) {
        PaintNext(painter);
    } else {
        PaintRow(painter);
    }
}

void LessonItem::PaintNext(QPainter& painter) const {
    painter.setPen(QPen(palette::Sim, 1.4));
    painter.setBrush(palette::SimWash);
    painter.drawRoundedRect(QRectF(6.5, 0.5, width() - 13, height() - Gap - 1), 5, 5);
    double titleX = TextX;
    if (!number_.isEmpty()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette::SimDeep);
        painter.drawEllipse(QPointF(NumberX, 18), 11, 11);
        Write(painter,
              {number_, {NumberX, 22.7}, TextFont(type::Button, QFont::Bold), Qt::white, Anchor::Middle});
        titleX = TitleX;
    }
    Write(painter, {title_,
                    {titleX, 23},
                    TextFont(type::Number, QFont::Bold),
                    palette::Ink,
                    Anchor::Start,
                    width() - titleX - 12});
    const double room = width() - TextMargins;
    const QFont font = TextFont(pixels_, QFont::Normal);
    const qsizetype noticed = body_.notice.isEmpty() ? 0 : Wrapped(body_.notice, room, pixels_).size();
    double baseline = 47;
    qsizetype at = 0;
    for (const QString& line : LinesOf(body_, room, pixels_)) {
        Write(painter, {line,
                        {TextX, baseline},
                        font,
                        at < noticed ? palette::CoralDeepText : palette::Ink,
                        Anchor::Start,
                        room + 8});
        baseline += LinePitch(pixels_);
        ++at;
    }
    if (body_.hasMarks) {
        PaintMarks(painter);
    }
}

void LessonItem::PaintMarks(QPainter& painter) const {
    const double y = height() - Gap - 17;
    double x = 34;
    const QString letters = QStringLiteral("ABC");
    for (std::size_t mark = 0; mark < body_.touched.size(); ++mark) {
        const bool isFilled = body_.touched.at(mark);
        painter.setPen(QPen(palette::SimDeep, 1.6));
        painter.setBrush(isFilled ? QBrush(palette::SimDeep) : QBrush(Qt::NoBrush));
        painter.drawEllipse(QPointF(x, y), 10, 10);
        Write(painter, {letters.mid(static_cast<qsizetype>(mark), 1),
                        {x, y + 4.7},
                        TextFont(type::Button, QFont::Bold),
                        isFilled ? QColor(Qt::white) : palette::SimDeep,
                        Anchor::Middle});
        x += 34;
    }
}

void LessonItem::PaintRow(QPainter& painter) const {
    const double middle = height() / 2.0;
    const bool isDone = state_ == State::Done;
    if (isDone) {
        PaintTick(painter, {NumberX, middle}, palette::SimDeep, palette::Well);
    } else {
        painter.setPen(QPen(palette::Edge, 1.2));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(QPointF(NumberX, middle), 9.5, 9.5);
        Write(painter, {number_,
                        {NumberX, middle + 4.5},
                        TextFont(type::Small, QFont::DemiBold),
                        palette::Ink2,
                        Anchor::Middle});
    }
    Write(painter, {title_,
                    {TitleX, middle + 4.7},
                    TextFont(type::Button, isDone ? QFont::Normal : QFont::DemiBold),
                    palette::Ink2,
                    Anchor::Start,
                    width() - TitleX - 8});
}

}  // namespace workbench
