#include "workbench/window/TrafficList.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <vector>

#include "workbench/window/BenchFace.h"
#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchType.h"
#include "workbench/window/TrafficModel.h"
#include "workbench/window/TrafficRow.h"

namespace workbench {

namespace {

bool WalksThroughAList(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
        case Qt::Key_Home:
        case Qt::Key_End:
        case Qt::Key_Space:
            return true;
        default:
            return event.matches(QKeySequence::SelectAll);
    }
}

bool IsTyped(const QKeyEvent& event) {
    return !event.text().isEmpty() && event.text().front().isPrint() &&
           !event.modifiers().testFlag(Qt::ControlModifier) && !event.modifiers().testFlag(Qt::AltModifier);
}

// A light bar without arrows, as quiet as the plate.
void StyleScrollBar(QScrollBar& bar) {
    bar.setStyleSheet(QStringLiteral("QScrollBar:vertical { background: %1; width: 10px; margin: 0; }"
                                     "QScrollBar::handle:vertical { background: %2; border-radius: 4px;"
                                     " min-height: 24px; margin: 1px; }"
                                     "QScrollBar::handle:vertical:hover { background: %3; }"
                                     "QScrollBar::add-line, QScrollBar::sub-line { height: 0; }")
                          .arg(palette::Field.name(), palette::Hair.name(), palette::Edge.name()));
}

}  // namespace

TrafficList::TrafficList(TrafficModel& model, QWidget* parent)
    : QListView(parent), lines_(model), row_(new TrafficRow(model, this)) {
    setObjectName(QStringLiteral("traffic_list"));
    setAccessibleName(QStringLiteral("Traffic"));
    setModel(&model);
    setItemDelegate(row_);
    setUniformItemSizes(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    verticalScrollBar()->setSingleStep(TrafficRow::Height);
    setFrameShape(QFrame::NoFrame);
    setViewportMargins(1, 3, 1, 3);
    StyleScrollBar(*verticalScrollBar());
}

void TrafficList::ShowSmall(bool small) {
    row_->ShowSmall(small);
    viewport()->update();
}

void TrafficList::Copy() {
    std::vector<int> rows;
    for (const QModelIndex& index : selectionModel()->selectedRows()) {
        rows.push_back(index.row());
    }
    std::sort(rows.begin(), rows.end());
    QApplication::clipboard()->setText(lines_.CopyText(rows));
}

void TrafficList::NoteEnd() {
    const QScrollBar& bar = *verticalScrollBar();
    atEnd_ = bar.value() >= bar.maximum() - TrafficRow::Height / 2;
}

void TrafficList::FollowEnd() {
    if (atEnd_ && !lines_.IsPaused()) {
        scrollToBottom();
    }
}

void TrafficList::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        Copy();
    } else if (WalksThroughAList(*event)) {
        QListView::keyPressEvent(event);
    } else if (!IsTyped(*event)) {
        event->ignore();
    }
}

void TrafficList::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    QObject::connect(menu.addAction(QStringLiteral("Copy")), &QAction::triggered, this, [this] { Copy(); });
    QObject::connect(menu.addAction(QStringLiteral("Clear")), &QAction::triggered, this,
                     [this] { lines_.Clear(); });
    menu.exec(event->globalPos());
}

void TrafficList::paintEvent(QPaintEvent* event) {
    QListView::paintEvent(event);
    if (lines_.rowCount() > 0) {
        return;
    }
    QPainter painter(viewport());
    const QPointF middle = QRectF(viewport()->rect()).center() - QPointF(0, 6);
    const double room = viewport()->width() - 16;
    const QFont font = TextFont(type::Button, QFont::Normal);
    Write(painter,
          {QStringLiteral("Nobody has a port open yet."), middle, font, palette::Ink2, Anchor::Middle, room});
    Write(painter, {QStringLiteral("What TRAVO and the instruments say to each other is written here."),
                    middle + QPointF(0, 20), font, palette::Ink2, Anchor::Middle, room});
}

}  // namespace workbench
