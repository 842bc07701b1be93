// The panels of a main window, of which there is one of each class.
#pragma once

#include <QString>
#include <QWidget>
#include <stdexcept>

namespace travo::test {

// The panel of that class; there is none before start-up.
template <typename Panel>
Panel& PanelOf(const QWidget& window) {
    auto* const panel = window.findChild<Panel*>(QString(), Qt::FindDirectChildrenOnly);
    if (panel == nullptr) {
        throw std::out_of_range("the window has no such panel");
    }
    return *panel;
}

}  // namespace travo::test
