#include "workbench/live/Callers.h"

#include <utility>

namespace workbench::live {

Callers::Callers(std::function<void()> nobody, const Limits& limits) : limits_(limits) {
    QObject::connect(&alone_, &QTimer::timeout, &alone_, std::move(nobody));
    alone_.start(limits_.first);
}

bool Callers::Note(const QString& caller) {
    alone_.stop();
    const qsizetype before = callers_.size();
    callers_.insert(caller);
    return callers_.size() > before;
}

void Callers::Gone(const QString& caller) {
    if (callers_.remove(caller) && callers_.isEmpty()) {
        alone_.start(limits_.grace);
    }
}

}  // namespace workbench::live
