#include "controls/ControlAccess.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QDialog>

#include "controls/Pressable.h"

namespace travo {

namespace {

class ButtonAccess : public QAccessibleWidget {
public:
    ButtonAccess(QAbstractButton& button, Pressable& pressable)
        : QAccessibleWidget(&button, pressable.AccessibleRole()), button_(button), pressable_(pressable) {}

    // There is no role for a two-state push button, and of a plain button no assistive program tells the
    // state.
    QAccessible::Role role() const override {
        const QAccessible::Role given = QAccessibleWidget::role();
        return given == QAccessible::Button && button_.isCheckable() ? QAccessible::CheckBox : given;
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = button_.isCheckable();
        state.checked = button_.isChecked();
        state.pressed = button_.isDown();
        pressable_.AddToState(state);
        return state;
    }

    QString text(QAccessible::Text kind) const override {
        const QString given = QAccessibleWidget::text(kind);
        if (kind == QAccessible::Name && given.isEmpty()) {
            return pressable_.NameWithoutName();
        }
        return given;
    }

    QStringList actionNames() const override {
        QStringList names{pressAction()};
        if (button_.isEnabled()) {
            names << setFocusAction();
        }
        return names;
    }

    void doAction(const QString& name) override {
        if (name == pressAction()) {
            pressable_.Press();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

private:
    QAbstractButton& button_;
    Pressable& pressable_;
};

class ScrollAccess : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit ScrollAccess(QAbstractSlider& bar)
        : QAccessibleWidget(&bar, QAccessible::ScrollBar), bar_(bar) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface) {
            return static_cast<QAccessibleValueInterface*>(this);
        }
        return QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return bar_.sliderPosition(); }
    void setCurrentValue(const QVariant& value) override {
        if (TakesPress(bar_)) {
            bar_.setValue(value.toInt());
        }
    }
    QVariant maximumValue() const override { return bar_.maximum(); }
    QVariant minimumValue() const override { return bar_.minimum(); }
    QVariant minimumStepSize() const override { return bar_.singleStep(); }

    QStringList actionNames() const override {
        return {increaseAction(), decreaseAction(), setFocusAction()};
    }

    void doAction(const QString& name) override {
        if (name != increaseAction() && name != decreaseAction()) {
            QAccessibleWidget::doAction(name);
        } else if (TakesPress(bar_)) {
            bar_.triggerAction(name == increaseAction() ? QAbstractSlider::SliderSingleStepAdd
                                                        : QAbstractSlider::SliderSingleStepSub);
        }
    }

private:
    QAbstractSlider& bar_;
};

// Qt takes plain windows and panels for mere fillers, which assistive programs pass over. A dialog has its
// role from Qt.
QAccessibleInterface* ContainerAccess(const QString& className, QObject* object) {
    if (className == QLatin1String("travo::PanelCanvas")) {
        return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Pane);
    }
    if (className.startsWith(QLatin1String("travo::Form")) && object->isWidgetType() &&
        qobject_cast<QDialog*>(object) == nullptr) {
        return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Window);
    }
    return nullptr;
}

// Qt asks with the name of the object's class, then of each class above it.
QAccessibleInterface* AccessOf(const QString& className, QObject* object) {
    if (className == QLatin1String("travo::SkinImage")) {
        return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Graphic);
    }
    if (className == QLatin1String("travo::usrKVXscroll")) {
        return new ScrollAccess(*static_cast<QAbstractSlider*>(object));
    }
    auto* const pressable = dynamic_cast<Pressable*>(object);
    auto* const button = qobject_cast<QAbstractButton*>(object);
    if (pressable != nullptr && button != nullptr) {
        return new ButtonAccess(*button, *pressable);
    }
    return ContainerAccess(className, object);
}

}  // namespace

void ShowAsPicture(QWidget& widget) {
    // Qt has made a face of its own already where the widget was given a name.
    QAccessibleInterface* const former = QAccessible::queryAccessibleInterface(&widget);
    QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(former));
    QAccessible::registerAccessibleInterface(new QAccessibleWidget(&widget, QAccessible::Graphic));
}

void InstallControlAccess() { QAccessible::installFactory(AccessOf); }

}  // namespace travo
