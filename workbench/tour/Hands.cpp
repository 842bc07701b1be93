#include "workbench/tour/Hands.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
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
        if (widget->isVisible() && IsNamed(*widget, name)) {
            found << widget;
        }
    }
    return found;
}

}  // namespace

QWidget& Hands::Control(const QString& name) const {
    const QList<QWidget*> found = OnShowBy(stage_.Program(), name);
    Require(found.size() == 1,
            std::to_string(found.size()) + " controls on show are named " + name.toStdString());
    return *found.front();
}

void Hands::Click(QWidget& control, const QString& name) {
    Require(control.isEnabled(), "disabled: " + name.toStdString());
    QWidget& window = *control.window();
    const QPoint middle = control.mapTo(&window, control.rect().center());
    Require(window.childAt(middle) == &control, "something lies in front of " + name.toStdString());
    QTest::mouseMove(window.windowHandle(), middle);
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, middle);
}

void Hands::Press(const QString& name) { Click(Control(name), name); }

void Hands::TakeTheKeys() {
    stage_.WaitUntil(
        [&] {
            if (!stage_.Program().isActiveWindow()) {
                stage_.Program().activateWindow();
            }
            return stage_.Program().isActiveWindow();
        },
        "the main window does not get the keys");
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

bool Hands::OnShow(const QString& name) const { return !OnShowBy(stage_.Program(), name).isEmpty(); }

bool Hands::Enabled(const QString& name) const { return Control(name).isEnabled(); }

bool Hands::PressedIn(const QString& name) const {
    const auto* const button = qobject_cast<QAbstractButton*>(&Control(name));
    Require(button != nullptr && button->isCheckable(), name.toStdString() + " has no two states");
    return button->isChecked();
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

bool Hands::HasPanel(const QString& panel) const {
    return stage_.Program().findChild<QWidget*>(panel, Qt::FindDirectChildrenOnly) != nullptr;
}

}  // namespace workbench::tour
