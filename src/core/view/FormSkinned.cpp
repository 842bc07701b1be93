#include "core/view/FormSkinned.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QWindow>
#include <cmath>

#include "controls/Palette.h"
#include "controls/Pressable.h"
#include "core/ground/Arithmetic.h"
#include "core/ground/LogicalUnits.h"

namespace travo {

namespace {

// Pixels, at every size of the window: distances of the buttons' left edges from the window's right one.
constexpr int SizeFromRight = 60;
constexpr int CloseFromRight = 31;
constexpr int ButtonTop = 3;
constexpr QSize ButtonSize(24, 24);
constexpr QSize CornerSize(CornerEllipse, CornerEllipse);

std::int16_t WholeUnits(int pixels) { return ToInteger16(convert(pixels * LogicalUnitsPerPixel)); }

QList<QRect> Screens() {
    QList<QRect> screens;
    for (const QScreen* const screen : QGuiApplication::screens()) {
        screens << screen->availableGeometry();
    }
    return screens;
}

}  // namespace

FormSkinned::FormSkinned(const System& system, const Design& design, const QString& programFolder)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint),
      system_(system),
      design_(design.size),
      tag_(design.tag),
      body_(QSizeF(design.size + QSize(0, design.below)), programFolder, this) {
    setObjectName(design.name);
    setWindowTitle(design.title);
    setMinimumSize(PartOf(design_, LeastPart, LeastPart));
    // The pointer shows what a press would do before there is one.
    setMouseTracking(true);
    body_.setMouseTracking(true);
    PutStrip(design.name);
    PutFrame();
    resize(design_);
    ArrangeFrame();
    FormSkinned::Arrange();
}

void FormSkinned::PutStrip(const QString& name) {
    const QString& programFolder = body_.inipath();
    Put(*this, programFolder, title_, {.object = "Image1", .human = "Title", .skin = "title-" + name});
    Put(*this, programFolder, close_,
        {.object = "usrKVButton1(0)", .human = "Close", .skin = "CLOSE", .toolTip = "Close this window"});
    Put(*this, programFolder, size_,
        {.object = "usrKVButton1(1)",
         .human = "Design size",
         .skin = "size",
         .toolTip = "Bring the window back to its design size"});
    connect(&close_, &usrKVButton::clicked, this, [this] { Close(); });
    connect(&size_, &usrKVButton::clicked, this, [this] { BackToDesignSize(); });
    for (usrKVButton* const button : {&close_, &size_}) {
        button->setCursor(Qt::ArrowCursor);
    }
}

void FormSkinned::PutFrame() {
    Put(*this, body_.inipath(), imgConer1_, {.object = "imgConer1", .skin = "corner-left"});
    Put(*this, body_.inipath(), imgConer2_, {.object = "imgConer2", .skin = "corner-right"});
    QPalette ink = palette();
    ink.setColor(QPalette::Window, palette::SlateEdge);
    int number = 1;
    for (QWidget& line : lines_) {
        Put(*this, body_.inipath(), line, {.object = QString("Line%1").arg(number++)});
        line.setPalette(ink);
        line.setAutoFillBackground(true);
        line.setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    for (SkinImage* const corner : {&imgConer1_, &imgConer2_}) {
        corner->resize(CornerSize);
        // They round off the lines.
        corner->raise();
    }
}

void FormSkinned::Place(const WindowPlace& place) {
    resize(NearestPixels(place.Width), NearestPixels(place.Height));
    move(NearestPixels(place.Left), NearestPixels(place.Top));
}

MeasuredWindowPlace FormSkinned::Measured() const {
    const QRect place = isMaximized() || isMinimized() || isFullScreen() ? normalGeometry() : geometry();
    return {UnitsOf(place.y()), UnitsOf(place.x()), UnitsOf(place.height()), UnitsOf(place.width())};
}

WindowSize FormSkinned::DesignSize() const {
    return {WholeUnits(design_.width()), WholeUnits(design_.height())};
}

void FormSkinned::ShowWindow() {
    move(OntoScreen(geometry(), Screens()));
    if (windowHandle() == nullptr) {
        create();
    }
    // The widget's own base size does not reach the window system.
    windowHandle()->setBaseSize(StepBase(design_, devicePixelRatioF()));
    show();
    // Else the first of its buttons would have the focus, which is CLOSE, and a stray Space would press it.
    if (focusWidget() == nullptr) {
        setFocus();
    }
    raise();
    activateWindow();
    Activated();
}

void FormSkinned::HideWindow() {
    mode_ = ResizeMode::None;
    hide();
}

void FormSkinned::CloseAtEnd() {
    atEnd_ = true;
    close();
}

void FormSkinned::Close() { system_.owner.FormClose(ReadInteger32(tag_.toStdString())); }

void FormSkinned::BackToDesignSize() { resize(design_); }

bool FormSkinned::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) {
        Activated();
        // Else Qt would give it to the first control, behind this.
        if (focusWidget() == nullptr || HasGoneOff(*focusWidget())) {
            setFocus();
        }
    }
    return QWidget::event(event);
}

bool FormSkinned::focusNextPrevChild(bool next) {
    QWidget* const focused = focusWidget();
    if (focused != nullptr && HasGoneOff(*focused)) {
        focused->clearFocus();
        return true;
    }
    return QWidget::focusNextPrevChild(next);
}

void FormSkinned::closeEvent(QCloseEvent* event) {
    if (atEnd_ || isHidden()) {
        return;
    }
    // As the button: whoever opened the window hides it.
    event->ignore();
    Close();
}

void FormSkinned::paintEvent(QPaintEvent*) { QPainter(this).fillRect(rect(), palette::Ground); }

void FormSkinned::resizeEvent(QResizeEvent*) {
    ArrangeFrame();
    Arrange();
}

void FormSkinned::ArrangeFrame() {
    title_.setGeometry(0, 0, width(), StripHeight);
    size_.setGeometry(QRect(QPoint(width() - SizeFromRight, ButtonTop), ButtonSize));
    close_.setGeometry(QRect(QPoint(width() - CloseFromRight, ButtonTop), ButtonSize));
    ApplyWindowShape(*this, {&imgConer1_, &imgConer2_, {&lines_[0], &lines_[1], &lines_[2], &lines_[3]}});
}

void FormSkinned::Arrange() {
    if (height() >= design_.height()) {
        body_.setGeometry(rect());
        return;
    }
    // The strip's lower edge stays the strip's lower edge, the window's the window's.
    const double scale = static_cast<double>(height() - StripHeight) / (design_.height() - StripHeight);
    const int bodyHeight = static_cast<int>(std::lround(design_.height() * scale));
    body_.setGeometry(0, height() - bodyHeight, width(), bodyHeight);
}

// A press on a control that is disabled comes here as well, and is no press on the ground.
bool FormSkinned::IsGround(const QPoint& point) const {
    const QWidget* const child = childAt(point);
    return child == nullptr || child == &body_;
}

void FormSkinned::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !IsGround(event->position().toPoint())) {
        return;
    }
    // The strip takes no mouse: a press on it, inside the margin of the edges, ends in the drag.
    mode_ = ResizeHitTest(*this, event->position().x(), event->position().y(), system_.windowMove);
    resizing_ = geometry();
}

void FormSkinned::mouseMoveEvent(QMouseEvent* event) {
    // The release is lost where a message box opens during a drag.
    if (!event->buttons().testFlag(Qt::LeftButton)) {
        mode_ = ResizeMode::None;
    }
    QPointF mouse = event->position();
    if (mode_ != ResizeMode::None) {
        const QPoint onScreen = event->globalPosition().toPoint();
        resizing_ = Resized(mode_, resizing_, onScreen - resizing_.topLeft(), minimumSize());
        setGeometry(resizing_);
        mouse = event->globalPosition() - QPointF(resizing_.topLeft());
    }
    ResizePointer(*this, mouse.x(), mouse.y());
}

void FormSkinned::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        mode_ = ResizeMode::None;
    }
}

}  // namespace travo
