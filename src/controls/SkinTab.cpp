#include "controls/SkinTab.h"

#include <QShowEvent>

namespace travo {

void SkinTab::AddToState(QAccessible::State& state) const {
    state.selectable = true;
    state.selected = Selected();
}

void SkinTab::showEvent(QShowEvent* event) {
    SkinButton::showEvent(event);
    // A window that comes back from the task bar selects nothing anew.
    if (Selected() && !event->spontaneous()) {
        QAccessibleEvent selected(this, QAccessible::Selection);
        QAccessible::updateAccessibility(&selected);
    }
}

}  // namespace travo
