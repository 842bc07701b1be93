#include "workbench/tour/Hands.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTest>
#include <QWindow>

#include "controls/PanelCanvas.h"
#include "workbench/tour/Report.h"

namespace workbench::tour {

namespace {

// A label that shows a value has the value for its name, and says what it is in its description.
bool IsNamed(const QWidget& widget, const QString& name) {
    return (qobject_cast<const QLabel*>(&widget) != nullptr ? widget.accessibleDescription()
                                                            : widget.accessibleName()) == name;
}

QList<QWidget*> OnShowBy(const QWidget& window, const QString& name) {
    QList<QWidget*> found;
    for (QWidget* const widget : window.findChildren<QWidget*>()) {
        // A panel may have the name of the tab that opens it; nobody works a panel itself.
        const bool isControl = qobject_cast<const travo::PanelCanvas*>(widget) == nullptr;
        if (isControl && widget->isVisible() && IsNamed(*widget, name)) {
            found << widget;
        }
    }
    return found;
}

// A mouse that leaves the window, as one that holds its corner does: QTest's own would be warned of.
void SendMouse(QWindow& window, QEvent::Type type, const QPoint& place, Qt::MouseButtons held) {
    const bool moves = type == QEvent::MouseMove;
    QMouseEvent event(type, place, window.mapToGlobal(place), moves ? Qt::NoButton : Qt::LeftButton, held,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &event);
}

}  // namespace

QWidget& Hands::Window() const { return window_ != nullptr ? *window_ : stage_.Program(); }

QWidget& Hands::Control(const QString& name) const {
    const QList<QWidget*> found = OnShowBy(Window(), name);
    Require(found.size() == 1,
            std::to_string(found.size()) + " controls on show are named " + name.toStdString());
    return *found.front();
}

QPoint Hands::OnWindow(QWidget& control, const QString& name, const QPoint& place) const {
    QWidget& window = *control.window();
    const QPoint there = control.mapTo(&window, place);
    Require(window.childAt(there) == &control, "something lies in front of " + name.toStdString());
    return there;
}

void Hands::Click(QWidget& control, const QString& name) {
    Require(control.isEnabled(), "disabled: " + name.toStdString());
    PressAt(name, control.rect().center());
}

void Hands::PressAt(const QString& name, const QPoint& place) {
    QWidget& control = Control(name);
    const QPoint there = OnWindow(control, name, place);
    QWindow* const window = control.window()->windowHandle();
    QTest::mouseMove(window, there);
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, there);
}

void Hands::DragToSize(const QSize& size) {
    QWindow& window = *Window().windowHandle();
    const QPoint corner(Window().width() - 1, Window().height() - 1);
    // The edges end before the pixel of the mouse.
    const QPoint end(size.width(), size.height());
    SendMouse(window, QEvent::MouseMove, corner, Qt::NoButton);
    SendMouse(window, QEvent::MouseButtonPress, corner, Qt::LeftButton);
    SendMouse(window, QEvent::MouseMove, (corner + end) / 2, Qt::LeftButton);
    SendMouse(window, QEvent::MouseMove, end, Qt::LeftButton);
    SendMouse(window, QEvent::MouseButtonRelease, end, Qt::NoButton);
    stage_.WaitUntil([&] { return Window().size() == size; },
                     Window().windowTitle().toStdString() + ": the window does not follow its corner");
}

void Hands::Press(const QString& name) { Click(Control(name), name); }

void Hands::TakeTheKeys() {
    stage_.WaitUntil(
        [&] {
            if (!Window().isActiveWindow()) {
                Window().activateWindow();
            }
            return Window().isActiveWindow();
        },
        Window().windowTitle().toStdString() + ": the window does not get the keys");
}

void Hands::Type(const QString& name, const QString& text) {
    auto* const box = qobject_cast<QLineEdit*>(&Control(name));
    Require(box != nullptr, "nothing can be typed into " + name.toStdString());
    TakeTheKeys();
    Click(*box, name);
    Require(box->hasFocus(), "a click does not bring the keys to " + name.toStdString());
    QWindow* const window = box->window()->windowHandle();
    QTest::keyClick(window, Qt::Key_Home);
    QTest::keyClick(window, Qt::Key_End, Qt::ShiftModifier);
    for (const QChar figure : text) {
        QTest::keyClick(window, figure.toLatin1());
    }
    Require(box->text() == text,
            name.toStdString() + " shows " + box->text().toStdString() + " instead of " + text.toStdString());
}

QString Hands::Read(const QString& name) const {
    QWidget& control = Control(name);
    if (const auto* const box = qobject_cast<QLineEdit*>(&control)) {
        return box->text();
    }
    const auto* const label = qobject_cast<QLabel*>(&control);
    Require(label != nullptr, "nothing can be read on " + name.toStdString());
    return label->text();
}

bool Hands::OnShow(const QString& name) const { return !OnShowBy(Window(), name).isEmpty(); }

bool Hands::PressedIn(const QString& name) const {
    const auto* const button = qobject_cast<QAbstractButton*>(&Control(name));
    Require(button != nullptr && button->isCheckable(), name.toStdString() + " has no two states");
    return button->isChecked();
}

QImage Hands::Look(const QString& name) const {
    return Control(name).grab().toImage().convertToFormat(QImage::Format_RGB32);
}

void Hands::OpenPanel(const QString& tab, const QString& panel) {
    Press(tab);
    Require(ShownPanel() == panel, "the tab " + tab.toStdString() + " shows " + ShownPanel().toStdString());
}

QString Hands::ShownPanel() const {
    QString shown;
    for (const auto* const panel :
         stage_.Program().findChildren<travo::PanelCanvas*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (panel->isVisible()) {
            Require(shown.isEmpty(), "two panels are on show");
            shown = panel->objectName();
        }
    }
    return shown;
}

}  // namespace workbench::tour
