#include "workbench/world/Travel.h"

#include <algorithm>
#include <cmath>

namespace workbench {

void Travel::SetOut(const Vector& to, double countsPerMillisecond, Time now) {
    from_ = At(now);
    to_ = to;
    const Vector way = to_ - from_;
    const double longest = std::max({std::abs(way[0]), std::abs(way[1]), std::abs(way[2])});
    start_ = now;
    arrival_ = now + Time(std::llround(std::ceil(longest / countsPerMillisecond * 1000.0)));
}

Vector Travel::At(Time now) const {
    if (now >= arrival_) {
        return to_;
    }
    if (now <= start_) {
        return from_;
    }
    const double share =
        static_cast<double>((now - start_).count()) / static_cast<double>((arrival_ - start_).count());
    return from_ + share * (to_ - from_);
}

}  // namespace workbench
