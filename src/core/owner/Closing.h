// Closing: asks, saves what is kept between runs, closes windows and instruments, in a fixed order.
#pragma once

#include <QString>
#include <utility>
#include <vector>

#include "core/owner/FormMainObjects.h"
#include "core/owner/PositionLoop.h"
#include "core/state/SharedState.h"
#include "core/state/WindowPlace.h"
#include "platform/MessageBoxes.h"

namespace travo {

class Closing {
public:
    // The main window, as far as the closing needs it: it alone knows its place, its small windows and the
    // switches on its panels.
    class Window {
    public:
        virtual ~Window() = default;
        // Its own place, of the normal state.
        virtual MeasuredWindowPlace Measured() const = 0;
        // Sections and places of the small windows, in the order of their creation.
        virtual std::vector<std::pair<QString, MeasuredWindowPlace>> SmallPlaces() const = 0;
        // Writes which windows are open.
        virtual void SaveOpenWindows() = 0;
        virtual void CloseSmallWindows() = 0;
        // 1 while the offsets' minimum, or the contact check, is switched off, else 0.
        virtual std::int32_t OffsetOFF() const = 0;
        virtual std::int32_t ContactOFF() const = 0;
        // 1 while the bird's-eye view hides the needles' shafts, or its lower panel is open, else 0.
        virtual std::int32_t LineOFF() const = 0;
        virtual std::int32_t BirdOPEN() const = 0;
    };

    Closing(SharedState& state, FormMainObjects& objects, PositionLoop& loop, platform::MessageBoxes& boxes,
            Window& window)
        : state_(state), objects_(objects), loop_(loop), boxes_(boxes), window_(window) {}

    // Asks the operator; false refuses the close.
    bool Ask();
    // Writes all that is kept between runs, in one replacement of the settings file; nothing else changes.
    void Save();
    // Saves and closes. A failure is reported, the remaining steps are skipped, the close goes on.
    void Close();

private:
    void CloseSteps();
    void WriteValues();
    void ClosePorts();

    SharedState& state_;
    FormMainObjects& objects_;
    PositionLoop& loop_;
    platform::MessageBoxes& boxes_;
    Window& window_;
};

}  // namespace travo
