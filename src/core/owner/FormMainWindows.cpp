#include "core/owner/FormMainWindows.h"

#include <algorithm>

#include "core/ground/Arithmetic.h"
#include "core/state/SettingsKeys.h"
#include "platform/Folders.h"

namespace travo {

FormMainWindows::FormMainWindows(const platform::Machine& machine, SharedState& state,
                                 FormMainObjects& objects, const Owner& owner)
    : BirdView({{owner.window, windowMove_}, state, machine.boxes, owner.birdView},
               machine.folders.Program()),
      ManiInfo({owner.window, windowMove_}, machine.folders.Program()),
      MirrorCtl({{owner.window, windowMove_},
                 state,
                 *objects.cCommunication,
                 *objects.cMirrorMove,
                 machine.display},
                machine.folders.Program()),
      MirrorCtl2({{owner.window, windowMove_}, state, *objects.cCommunication}, machine.folders.Program()),
      entries_{{{1, settings::BirdViewSection, &BirdView},
                {3, settings::NeedleWindowSection, &ManiInfo},
                {2, settings::MirrorWindowSection, &MirrorCtl},
                {4, settings::MagnificationWindowSection, &MirrorCtl2}}} {}

std::vector<StartUp::SmallWindow> FormMainWindows::All() const {
    std::vector<StartUp::SmallWindow> all;
    for (const Entry& entry : entries_) {
        all.push_back({entry.Index, QString(entry.section), entry.window->DesignSize()});
    }
    return all;
}

std::vector<std::pair<QString, MeasuredWindowPlace>> FormMainWindows::Places() const {
    std::vector<std::pair<QString, MeasuredWindowPlace>> places;
    for (const Entry& entry : entries_) {
        places.emplace_back(QString(entry.section), entry.window->Measured());
    }
    return places;
}

void FormMainWindows::CloseAtEnd() {
    for (const Entry& entry : entries_) {
        entry.window->CloseAtEnd();
    }
}

FormSkinned& FormMainWindows::Window(std::int32_t Index) const {
    const auto* const found = std::find_if(entries_.begin(), entries_.end(),
                                           [=](const Entry& entry) { return entry.Index == Index; });
    if (found == entries_.end()) {
        throw BoundsFailure("no such window");
    }
    return *found->window;
}

}  // namespace travo
