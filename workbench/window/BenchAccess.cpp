#include "workbench/window/BenchAccess.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QWidget>

namespace workbench {

namespace {

class ToldAccess : public QAccessibleWidget {
public:
    ToldAccess(QWidget& widget, Told& told)
        : QAccessibleWidget(&widget, told.AccessibleRole()), told_(told) {}

    // Asked each time: Qt may come for the face while the widget is still being made.
    QAccessible::Role role() const override { return told_.AccessibleRole(); }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        told_.AddToState(state);
        return state;
    }

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Accelerator) {
            return told_.AccessibleKeys();
        }
        if (kind == QAccessible::Value) {
            return told_.AccessibleValue();
        }
        return QAccessibleWidget::text(kind);
    }

    QStringList actionNames() const override {
        return told_.AccessibleActions() + QAccessibleWidget::actionNames();
    }

    QString localizedActionName(const QString& name) const override {
        return told_.AccessibleActions().contains(name) ? name : QAccessibleWidget::localizedActionName(name);
    }

    void doAction(const QString& name) override {
        if (!told_.AccessibleActions().contains(name)) {
            QAccessibleWidget::doAction(name);
        } else if (TakesPress(*widget())) {
            told_.DoAccessibleAction(name);
        }
    }

private:
    Told& told_;
};

QAccessibleInterface* AccessOf(const QString&, QObject* object) {
    auto* const widget = qobject_cast<QWidget*>(object);
    auto* const told = dynamic_cast<Told*>(object);
    return widget == nullptr || told == nullptr ? nullptr : new ToldAccess(*widget, *told);
}

}  // namespace

void InstallBenchAccess() { QAccessible::installFactory(AccessOf); }

bool TakesPress(const QWidget& widget) {
    const QWidget* const modal = QApplication::activeModalWidget();
    return widget.isEnabled() &&
           (modal == nullptr || modal == widget.window() || modal->isAncestorOf(&widget));
}

void TellAlert(QWidget& widget) {
    QAccessibleEvent alert(&widget, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

}  // namespace workbench
