#include "controls/FocusMark.h"

#include <QEvent>
#include <QFocusEvent>
#include <QPainter>
#include <cmath>

#include "controls/Palette.h"

namespace travo {

namespace {

// In design pixels: the gap and the line.
constexpr double Outside = 4;
constexpr double LineWidth = 2;
constexpr double Radius = 8;

class Line : public QWidget {
public:
    Line(QWidget* parent, const QWidget& control, const DesignSized& design)
        : QWidget(parent), control_(control), design_(design) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        const double scale = design_.ScaleAt(control_.size());
        const double half = LineWidth * scale / 2;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette::Ink, LineWidth * scale));
        painter.drawRoundedRect(QRectF(rect()).adjusted(half, half, -half, -half), Radius * scale,
                                Radius * scale);
    }

private:
    const QWidget& control_;
    const DesignSized& design_;
};

bool IsKeyboard(Qt::FocusReason reason) {
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason || reason == Qt::OtherFocusReason;
}

}  // namespace

// A child of its control, so that it can be found there.
FocusMark::FocusMark(QWidget& control, const DesignSized& design)
    : QObject(&control), control_(control), design_(design) {
    control.installEventFilter(this);
}

FocusMark::~FocusMark() { Hide(); }

bool FocusMark::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::FocusIn:
            FocusIn(static_cast<QFocusEvent*>(event)->reason());
            break;
        case QEvent::KeyPress:
            keyboardUsed_ = true;
            if (control_.hasFocus()) {
                Show();
            }
            break;
        case QEvent::MouseButtonPress:
            keyboardUsed_ = false;
            Hide();
            break;
        case QEvent::FocusOut:
        case QEvent::Hide:
        case QEvent::ParentAboutToChange:
            Hide();
            break;
        case QEvent::Move:
        case QEvent::Resize:
            Follow();
            break;
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

void FocusMark::FocusIn(Qt::FocusReason reason) {
    if (reason == Qt::MouseFocusReason) {
        keyboardUsed_ = false;
    } else if (IsKeyboard(reason)) {
        keyboardUsed_ = true;
    }
    // A window that comes to the front again shows what it showed before.
    if (keyboardUsed_) {
        Show();
    }
}

Qt::FocusReason FocusMark::ReasonToPassOn(const QWidget& control) {
    const auto* const mark = control.findChild<FocusMark*>(QString(), Qt::FindDirectChildrenOnly);
    return mark == nullptr || mark->keyboardUsed_ ? Qt::TabFocusReason : Qt::MouseFocusReason;
}

void FocusMark::Show() {
    if (line_ != nullptr || control_.parentWidget() == nullptr) {
        return;
    }
    line_ = new Line(control_.parentWidget(), control_, design_);
    Follow();
    line_->show();
}

void FocusMark::Hide() { delete line_; }

void FocusMark::Follow() {
    if (line_ == nullptr) {
        return;
    }
    const int outside = static_cast<int>(std::lround(Outside * design_.ScaleAt(control_.size())));
    line_->setGeometry(control_.geometry().adjusted(-outside, -outside, outside, outside));
    line_->raise();
}

}  // namespace travo
