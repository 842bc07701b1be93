// How near to what it was meant for a needle came to rest.
#pragma once

#include <cstdint>
#include <optional>

#include "workbench/world/Geometry.h"
#include "workbench/world/Travel.h"

namespace workbench {

// A needle that comes to rest within this of a cell's centre, or else of the view's, has landed there. Common
// units, in plan.
inline constexpr double LandingReach = 60.0;

struct Landing {
    std::int32_t needle = 0;           // 0-based
    std::optional<std::int32_t> cell;  // 0-based; none: the view's centre
    double distance = 0.0;             // in plan, from the true tip to the centre
    double height = 0.0;               // of the tip above the centre
    Time time{0};                      // when it came to rest
    PlanPoint centre{};                // the one meant
};

// Where a needle has landed with its tip there, the view's centre lying in the focal plane: at the nearest
// cell within LandingReach, else at the view's centre; nothing where neither is near.
std::optional<Landing> LandingOf(std::int32_t needle, const Vector& tip, const Vector& viewCentre, Time time);

// The landings so far.
class Landings {
public:
    void Take(const Landing& landing);
    void Forget() { *this = Landings(); }

    std::int64_t InAll() const { return inAll_; }
    // The largest distance in plan; 0 without a landing.
    double Worst() const { return worst_; }
    const std::optional<Landing>& Last() const { return last_; }

private:
    std::int64_t inAll_ = 0;
    double worst_ = 0.0;
    std::optional<Landing> last_;
};

}  // namespace workbench
