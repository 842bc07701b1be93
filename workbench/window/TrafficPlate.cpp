#include "workbench/window/TrafficPlate.h"

#include <QPainter>

#include "workbench/window/BenchFace.h"
#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchType.h"
#include "workbench/window/TrafficRow.h"

namespace workbench {

namespace {
constexpr int ListTop = 36;
constexpr int ListMargin = 8;
constexpr int ListPadding = 3;  // above the first line and below the last one
}  // namespace

TrafficPlate::TrafficPlate(QWidget* parent)
    : BenchPlate(QStringLiteral("trafficPlate"), QStringLiteral("Traffic"), parent) {
    Captions({{12, 22, QStringLiteral("Traffic"), type::Caption, palette::Ink}});
    for (int wire = 0; wire < TrafficWireCount; ++wire) {
        const auto each = static_cast<TrafficWire>(wire);
        const QString text = TrafficModel::WireText(each);
        auto* filter = new TrafficFilter(
            {QStringLiteral("show_") + text.toLower(), QStringLiteral("Show ") + text.toLower(), {}}, text,
            this);
        filter->ShowLatched(true);
        QObject::connect(filter, &QAbstractButton::clicked, this, [this, each] { ToggleFilter(each); });
        filters_.at(static_cast<std::size_t>(wire)) = filter;
    }
    pause_ = new BenchSwitch(
        {QStringLiteral("traffic_pause"), QStringLiteral("Pause traffic"), QStringLiteral("Ctrl+P")},
        QStringLiteral("Pause"), this);
    pause_->TextPixels(type::Small);
    QObject::connect(pause_, &QAbstractButton::clicked, this, [this] { TogglePause(); });
    copy_ = new BenchPush(
        {QStringLiteral("traffic_copy"), QStringLiteral("Copy traffic"), QStringLiteral("Ctrl+C")},
        QStringLiteral("Copy"), this);
    copy_->TextPixels(type::Small);
    clear_ = new BenchPush({QStringLiteral("traffic_clear"), QStringLiteral("Clear traffic"), {}},
                           QStringLiteral("Clear"), this);
    clear_->TextPixels(type::Small);
    list_ = new TrafficList(model_, this);
    QObject::connect(copy_, &QAbstractButton::clicked, this, [this] { list_->Copy(); });
    QObject::connect(clear_, &QAbstractButton::clicked, this, [this] { model_.Clear(); });
    Place();
}

void TrafficPlate::Show(const Scene& scene) {
    list_->NoteEnd();
    model_.Take(scene);
    list_->FollowEnd();
}

void TrafficPlate::ShowSmall(bool small) {
    small_ = small;
    for (TrafficFilter* filter : filters_) {
        filter->ShowSmall(small);
    }
    list_->ShowSmall(small);
    Place();
}

void TrafficPlate::TogglePause() {
    list_->NoteEnd();
    model_.SetPaused(!model_.IsPaused());
    pause_->ShowLatched(model_.IsPaused());
    pause_->ShowText(model_.IsPaused() ? QStringLiteral("Paused") : QStringLiteral("Pause"));
    list_->FollowEnd();
}

void TrafficPlate::ToggleFilter(TrafficWire wire) {
    list_->NoteEnd();
    model_.SetShown(wire, !model_.IsShown(wire));
    filters_.at(static_cast<std::size_t>(wire))->ShowLatched(model_.IsShown(wire));
    list_->FollowEnd();
}

QRect TrafficPlate::ListPlace() const {
    return {ListMargin, ListTop, width() - 2 * ListMargin, height() - ListTop - ListMargin};
}

void TrafficPlate::Place() {
    for (std::size_t wire = 0; wire < filters_.size(); ++wire) {
        const int at = static_cast<int>(wire);
        filters_.at(wire)->setGeometry(small_ ? QRect(70 + 47 * at, 5, 45, 22)
                                              : QRect(76 + 66 * at, 6, 62, 24));
    }
    const int right = width();
    pause_->setGeometry(small_ ? QRect(right - 144, 5, 68, 22) : QRect(right - 198, 6, 60, 24));
    copy_->setGeometry(small_ ? QRect(right - 72, 5, 60, 22) : QRect(right - 134, 6, 58, 24));
    clear_->setGeometry(right - 72, 6, 60, 24);
    clear_->setVisible(!small_);
    // Whole lines only: none is cut at the top when the list stands at its end.
    const QRect list = ListPlace().adjusted(1, 1, -1, -1);
    const int lines = (list.height() - 2 * ListPadding) / TrafficRow::Height;
    list_->setGeometry(list.x(), list.y(), list.width(), lines * TrafficRow::Height + 2 * ListPadding);
}

void TrafficPlate::resizeEvent(QResizeEvent*) { Place(); }

void TrafficPlate::PaintMore(QPainter& painter) {
    PaintBox(painter, QRectF(ListPlace()), palette::Field, palette::Hair, 3);
}

}  // namespace workbench
