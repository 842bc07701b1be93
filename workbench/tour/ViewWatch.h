// What the position loop sees of the view, tick by tick.
#pragma once

#include <QObject>
#include <vector>

#include "core/ground/Positions.h"
#include "core/state/SharedState.h"

namespace workbench::tour {

// Notes the view, in the mirror frame, right before each tick of the loop. Between that and the synchronised
// step of the same tick no event is served, so that the step finds the same view.
class ViewWatch : public QObject {
public:
    // The state outlives it.
    explicit ViewWatch(const travo::SharedState& state);
    ~ViewWatch() override;

    const std::vector<travo::PositionXYZ>& Seen() const { return seen_; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const travo::SharedState& state_;
    std::vector<travo::PositionXYZ> seen_;
};

}  // namespace workbench::tour
