#include "workbench/window/LessonCard.h"

#include <QPainter>
#include <utility>

#include "workbench/window/BenchFace.h"
#include "workbench/window/BenchIcon.h"
#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchType.h"

namespace workbench {

namespace {

constexpr int ListTop = 44;
constexpr int Row = 32;
constexpr int SmallRow = 27;
constexpr int LeastRow = 22;
constexpr double LeastPixels = 9;
constexpr int HandsRoom = 142;
constexpr int HandsHeight = 134;
constexpr int MarksStep = 3;  // the steps that show more than a text
constexpr int LookStep = 7;

constexpr std::array<std::pair<const char*, const char*>, 5> Hands{{{"1 – 4", "pick a needle"},
                                                                    {"Arrows", "along, across it"},
                                                                    {"Page Up/Dn", "its height"},
                                                                    {"Shift", "fine"},
                                                                    {"Drag a tip", "along its reach"}}};

class StepList : public QWidget, public Told {
public:
    explicit StepList(QWidget* parent) : QWidget(parent) {
        InstallBenchAccess();
        setObjectName(QStringLiteral("lesson_steps"));
        setAccessibleName(QStringLiteral("First ten minutes"));
    }
    QAccessible::Role AccessibleRole() const override { return QAccessible::List; }
};

LessonItem::Body BodyOf(const Lesson& lesson, int step) {
    LessonItem::Body body;
    body.notice = lesson.Notice();
    body.text = LessonSteps().at(static_cast<std::size_t>(step - 1)).text;
    body.hasMarks = step == MarksStep;
    body.touched = {lesson.MarkTouched(0), lesson.MarkTouched(1), lesson.MarkTouched(2)};
    body.hasButton = step == LookStep;
    return body;
}

}  // namespace

LessonCard::LessonCard(Wishes wishes, QWidget* parent) : QWidget(parent), wishes_(std::move(wishes)) {
    setObjectName(QStringLiteral("lessonCard"));
    setAccessibleName(QStringLiteral("First ten minutes"));
    list_ = new StepList(this);
    for (int step = 1; step <= LessonStepCount; ++step) {
        auto* item = new LessonItem(QString::number(step), list_);
        item->setObjectName(QStringLiteral("lesson_step%1").arg(step));
        steps_.at(static_cast<std::size_t>(step - 1)) = item;
    }
    over_ = new LessonItem({}, list_);
    over_->setObjectName(QStringLiteral("lesson_over"));
    AddButtons();
    Show(Lesson());
}

void LessonCard::AddButtons() {
    close_ = new BenchPush(
        {QStringLiteral("lesson_close"), QStringLiteral("Hide the first ten minutes"), QStringLiteral("F1")},
        {}, this);
    close_->Bare();
    close_->Draw([](QPainter& painter, const QPointF& middle, const QColor&) {
        PaintCross(painter, middle, 14, palette::Ink2);
    });
    QObject::connect(close_, &QAbstractButton::clicked, this, [this] { wishes_.hide(); });
    look_ = new BenchPush({QStringLiteral("look"), QStringLiteral("Look"), {}}, QStringLiteral("Look"),
                          steps_.at(LookStep - 1));
    QObject::connect(look_, &QAbstractButton::clicked, this, [this] { wishes_.look(); });
    again_ = new BenchPush({QStringLiteral("lesson_again"), QStringLiteral("Once more"), {}},
                           QStringLiteral("Once more"), over_);
    QObject::connect(again_, &QAbstractButton::clicked, this, [this] { wishes_.again(); });
}

void LessonCard::Show(const Lesson& lesson) {
    const int before = std::exchange(done_, lesson.Done());
    bool isNew = false;
    for (int step = 1; step <= LessonStepCount; ++step) {
        LessonItem& item = *steps_.at(static_cast<std::size_t>(step - 1));
        const bool isNext = step == done_ + 1;
        isNew |= item.Show(step <= done_ ? LessonItem::State::Done
                           : isNext      ? LessonItem::State::Next
                                         : LessonItem::State::After,
                           LessonSteps().at(static_cast<std::size_t>(step - 1)).title,
                           isNext ? BodyOf(lesson, step) : LessonItem::Body{}, lesson.StepText(step));
        if (step > before && step <= done_) {
            wishes_.tell(item);
        }
    }
    isNew |= ShowOver(lesson);
    if (count_ != lesson.CountText(small_)) {
        count_ = lesson.CountText(small_);
        update();
    }
    if (isNew) {
        Place();
    }
}

bool LessonCard::ShowOver(const Lesson& lesson) {
    LessonItem::Body body;
    body.text = LessonOverText();
    body.hasButton = true;
    over_->setVisible(lesson.IsOver());
    look_->setVisible(done_ + 1 == LookStep);
    return over_->Show(LessonItem::State::Next, lesson.DoneText(), body,
                       lesson.DoneText() + QStringLiteral(". ") + body.text);
}

void LessonCard::ShowSmall(bool small) {
    small_ = small;
    // The count is written another way; the next reading brings it.
    count_.clear();
    Place();
}

int LessonCard::HeightOf(int row, double pixels) const {
    int total = 0;
    for (const LessonItem* item : steps_) {
        total += item->HeightIn(width(), row, pixels);
    }
    return total + (over_->isHidden() ? 0 : over_->HeightIn(width(), row, pixels));
}

// In another font or with a sentence more, rows and text come closer together, so that nothing is cut.
void LessonCard::Place() {
    close_->setGeometry(width() - 32, 11, 24, 24);
    list_->setGeometry(0, ListTop, width(), height() - ListTop - 2);
    int row = small_ ? SmallRow : Row;
    double pixels = type::Button;
    while (HeightOf(row, pixels) > list_->height() && (row > LeastRow || pixels > LeastPixels)) {
        if (row > LeastRow) {
            --row;
        } else {
            pixels -= 0.5;
        }
    }
    int y = 0;
    const auto put = [&](LessonItem& item) {
        item.TextPixels(pixels);
        const int high = item.HeightIn(width(), row, pixels);
        item.setGeometry(0, y, width(), high);
        y += high;
    };
    for (LessonItem* item : steps_) {
        put(*item);
    }
    if (!over_->isHidden()) {
        put(*over_);
    }
    look_->setGeometry(steps_.at(LookStep - 1)->ButtonPlace());
    again_->setGeometry(over_->ButtonPlace());
    const int handsY = height() - (ListTop + y) > HandsRoom ? height() - HandsHeight : 0;
    if (std::exchange(handsY_, handsY) != handsY) {
        update();
    }
}

void LessonCard::resizeEvent(QResizeEvent*) { Place(); }

void LessonCard::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PaintPlate(painter, QRectF(rect()), palette::Ground, palette::Sim);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette::Sim);
    painter.drawRoundedRect(QRectF(8, 3.5, width() - 16, 3), 1.5, 1.5);
    const QFont plain = TextFont(type::Button, QFont::Normal);
    const double countLeft = width() - 40 - WidthOf(plain, count_);
    Write(painter, {QStringLiteral("First ten minutes"),
                    {12, 28},
                    TextFont(type::Caption, QFont::DemiBold),
                    palette::Ink,
                    Anchor::Start,
                    countLeft - 18});
    Write(painter, {count_, {width() - 40.0, 28}, plain, palette::Ink2, Anchor::End});
    if (handsY_ > 0) {
        PaintHands(painter);
    }
}

void LessonCard::PaintHands(QPainter& painter) const {
    painter.setPen(QPen(palette::Hair, 1));
    painter.drawLine(QPointF(12, handsY_ + 0.5), QPointF(width() - 12, handsY_ + 0.5));
    double baseline = handsY_ + 22;
    for (const auto& [key, what] : Hands) {
        Write(painter, {QString::fromUtf8(key),
                        {14, baseline},
                        TextFont(type::Small, QFont::DemiBold),
                        palette::Ink,
                        Anchor::Start,
                        86});
        Write(painter, {QString::fromUtf8(what),
                        {104, baseline},
                        TextFont(type::Small, QFont::Normal),
                        palette::Ink2,
                        Anchor::Start,
                        width() - 112.0});
        baseline += 22;
    }
}

}  // namespace workbench
