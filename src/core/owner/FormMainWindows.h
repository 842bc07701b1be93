// The small windows of the program, one of each.
#pragma once

#include <QLatin1String>
#include <QString>
#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include "core/owner/FormMainObjects.h"
#include "core/owner/StartUp.h"
#include "core/state/SharedState.h"
#include "core/state/WindowPlace.h"
#include "core/view/FormSkinned.h"
#include "experiment/bird/FormBirdView.h"
#include "mirror/view/FormMirrorCtl.h"
#include "mirror/view/FormMirrorCtl2.h"
#include "platform/Machine.h"
#include "workflows/FormManiInfo.h"

namespace travo {

// Windows of the system's own, hidden at first. They come into being, are placed, saved and closed in the
// order in which they stand here; their numbers are those of the operator's window buttons.
class FormMainWindows {
public:
    struct Owner {
        FormSkinned::Owner& window;
        FormBirdView::Owner& birdView;
    };

    // The objects are alive. With the mirror's port open, the motors of the mirror are switched on.
    FormMainWindows(const platform::Machine& machine, SharedState& state, FormMainObjects& objects,
                    const Owner& owner);
    FormMainWindows(const FormMainWindows&) = delete;
    FormMainWindows& operator=(const FormMainWindows&) = delete;

    std::vector<StartUp::SmallWindow> All() const;
    std::vector<std::pair<QString, MeasuredWindowPlace>> Places() const;
    void CloseAtEnd();
    // Index is 1 to 4, else BoundsFailure.
    void Place(std::int32_t Index, const WindowPlace& place) { Window(Index).Place(place); }
    void Show(std::int32_t Index) { Window(Index).ShowWindow(); }
    void Hide(std::int32_t Index) { Window(Index).HideWindow(); }

private:
    // The edges of a window follow the mouse by the window system.
    SystemWindowMove windowMove_;

public:
    FormBirdView BirdView;
    FormManiInfo ManiInfo;
    FormMirrorCtl MirrorCtl;
    FormMirrorCtl2 MirrorCtl2;

private:
    struct Entry {
        std::int32_t Index;
        QLatin1String section;
        FormSkinned* window;
    };

    FormSkinned& Window(std::int32_t Index) const;

    std::array<Entry, 4> entries_;
};

}  // namespace travo
