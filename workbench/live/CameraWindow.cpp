#include "workbench/live/CameraWindow.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "workbench/live/Marks.h"
#include "workbench/live/PicturePainter.h"
#include "workbench/live/View.h"

namespace workbench::live {

namespace {

const char* const StyleSheet =
    "QWidget { background: #D3E2ED; color: #182733; font-family: 'Open Sans', 'Segoe UI', 'Noto Sans',"
    " 'DejaVu Sans', sans-serif; }"
    "QLabel { font-size: 13px; color: #3B5364; }"
    "QLabel#action { font-weight: 600; color: #A93A25; }"
    "QPushButton { font-size: 15px; font-weight: 600; color: #182733; border: 1px solid #6B8799;"
    " border-bottom: 2px solid #6B8799; border-radius: 5px; padding: 0 16px; min-height: 40px;"
    " background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #FFFFFF, stop:1 #E2EDF5); }"
    "QPushButton:hover, QPushButton:focus { border-color: #2F7196; }"
    "QPushButton:pressed { border-bottom-width: 1px;"
    " background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #B9CEDD, stop:1 #CFDFEA); }";

// The desk on which the window stands below the control program, left of the workbench's small windows; a
// smaller one has no such place.
constexpr QSize LeastDesk{1900, 1150};
constexpr QSize SizeOnDesk{634, 524};
constexpr int ProgramBottom = 652;  // the control program's frame ends above it
constexpr int TitleRoom = 24;       // for what a window system puts over a window

// As near below the control program as its own size lets it be on the screen.
QRect PlaceOnDesk(const QRect& available) {
    const int top =
        std::min(available.top() + ProgramBottom + TitleRoom, available.bottom() + 1 - SizeOnDesk.height());
    return {QPoint(available.left(), top), SizeOnDesk};
}

}  // namespace

// Shows the picture as large as there is room, in its own proportions.
class CameraWindow::Pane : public QWidget {
public:
    Pane() {
        setMinimumSize(PictureSize / 2);
        setAttribute(Qt::WA_OpaquePaintEvent);
    }
    QSize sizeHint() const override { return PictureSize; }

    QImage picture;
    QSizeF field;
    Overlay overlay = Overlay::None;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), QColor(0x18, 0x27, 0x33));
        QSizeF fitting = QSizeF(PictureSize).scaled(QSizeF(size()), Qt::KeepAspectRatio);
        const QRectF place(QPointF((width() - fitting.width()) / 2.0, (height() - fitting.height()) / 2.0),
                           fitting);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(place, picture);
        if (!field.isEmpty()) {
            PaintMarks(painter, overlay, field, place);
            PaintScaleBar(painter, field, place);
        }
        PaintWorkbenchMark(painter, place);
    }
};

CameraWindow::CameraWindow(Wishes wishes)
    : wishes_(std::move(wishes)), pane_(new Pane), line_(new QLabel), action_(new QLabel) {
    setObjectName(QStringLiteral("TRAVOLive"));
    setWindowTitle(QStringLiteral("TRAVOLive - WORKBENCH"));
    setStyleSheet(QLatin1String(StyleSheet));
    action_->setObjectName(QStringLiteral("action"));
    action_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    auto* const texts = new QHBoxLayout;
    texts->addWidget(line_, 1);
    texts->addWidget(action_);
    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addWidget(AddButton(QStringLiteral("Save picture"),
                                 QStringLiteral("Saves the picture for the bird's-eye view"), wishes_.save));
    buttons->addStretch();
    buttons->addWidget(AddButton(QStringLiteral("Hide"), QStringLiteral("Hides this window"), wishes_.hide));
    buttons->addWidget(AddButton(QStringLiteral("Close"), QStringLiteral("Ends the camera"), wishes_.close));

    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(10, 10, 10, 10);
    column->setSpacing(8);
    column->addWidget(pane_, 1);
    column->addLayout(texts);
    column->addLayout(buttons);
    const QScreen* const screen = QGuiApplication::primaryScreen();
    const QRect available = screen == nullptr ? QRect() : screen->availableGeometry();
    if (available.width() >= LeastDesk.width() && available.height() >= LeastDesk.height()) {
        setGeometry(PlaceOnDesk(available));
    } else {
        resize(layout()->totalSizeHint());
    }
}

QPushButton* CameraWindow::AddButton(const QString& text, const QString& description,
                                     std::function<void()> wish) {
    auto* const button = new QPushButton(text);
    button->setAccessibleName(text);
    button->setToolTip(description);
    connect(button, &QPushButton::clicked, this, [wish = std::move(wish)] { wish(); });
    return button;
}

void CameraWindow::ShowPicture(const QImage& picture, const QSizeF& field) {
    pane_->picture = picture;
    pane_->field = field;
    pane_->update();
}

void CameraWindow::ShowState(const LiveState& state) {
    pane_->overlay = state.overlay;
    pane_->update();
    action_->setText(state.action ? QStringLiteral("TRAVO is at work") : QString());
    setVisible(state.visible);
}

void CameraWindow::ShowLine(const QString& text) { line_->setText(text); }

void CameraWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    wishes_.close();
}

}  // namespace workbench::live
