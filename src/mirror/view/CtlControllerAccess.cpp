#include "mirror/view/CtlControllerAccess.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QWidget>

#include "mirror/view/PadAreas.h"

namespace travo {

namespace {

QStringList AreaNames() {
    QStringList names;
    for (std::int16_t area = 1; area <= PadAreaCount; ++area) {
        names << PadAreaName(area);
    }
    return names;
}

class PadAccess : public QAccessibleWidget {
public:
    PadAccess(QWidget& widget, PadControl& pad)
        : QAccessibleWidget(&widget, QAccessible::Canvas), pad_(pad), names_(AreaNames()) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.pressed = pad_.PressedArea() != NoPadArea;
        return state;
    }

    QStringList actionNames() const override {
        // The widget's own: to take the focus.
        return names_ + QAccessibleWidget::actionNames();
    }

    QString localizedActionName(const QString& name) const override {
        return AreaOf(name) == NoPadArea ? QAccessibleWidget::localizedActionName(name) : name;
    }

    QString localizedActionDescription(const QString& name) const override {
        const std::int16_t area = AreaOf(name);
        return area == NoPadArea ? QAccessibleWidget::localizedActionDescription(name) : PadAreaHelp(area);
    }

    void doAction(const QString& name) override {
        if (const std::int16_t area = AreaOf(name); area != NoPadArea) {
            pad_.PressArea(area);
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

private:
    std::int16_t AreaOf(const QString& name) const {
        return static_cast<std::int16_t>(names_.indexOf(name) + 1);
    }

    PadControl& pad_;
    QStringList names_;
};

QAccessibleInterface* AccessOf(const QString& className, QObject* object) {
    if (className != QLatin1String("travo::CtlController")) {
        return nullptr;
    }
    return new PadAccess(*static_cast<QWidget*>(object), *dynamic_cast<PadControl*>(object));
}

}  // namespace

void InstallPadAccess() { QAccessible::installFactory(AccessOf); }

}  // namespace travo
