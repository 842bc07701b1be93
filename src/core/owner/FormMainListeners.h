// All that hear announcements in the running program, by the names of the table.
#pragma once

#include "core/owner/FormMainObjects.h"
#include "core/owner/FormMainPanels.h"
#include "core/owner/FormMainWindows.h"
#include "core/state/FirstAndLast.h"
#include "platform/Machine.h"

namespace travo {

// Panels and windows hear for themselves; for an object below them, which knows of no news, something here
// does. All of them outlive this.
class FormMainListeners {
    // The live camera follows the magnification.
    class CameraMagnification : public HearsMagnification {
    public:
        explicit CameraMagnification(LiveLink& live) : live_(live) {}
        void ChangeMagnification(std::int16_t Magnification) override;

    private:
        LiveLink& live_;
    };
    // The escape keeps the present Z.
    class EscapeHeight : public HearsView {
    public:
        explicit EscapeHeight(clsEscape& escape) : escape_(escape) {}
        void ChangeViewXYZ(const PositionXYZ& CurrentXYZ) override;

    private:
        clsEscape& escape_;
    };
    // The bird's-eye view loads a new still, however often the camera saves one.
    class StillLoader : public HearsStill {
    public:
        StillLoader(platform::Timers& timers, FormBirdView& view);
        void NewStill() override;

    private:
        FirstAndLast load_;
    };
    // What was dropped on a wire is noted beside the log.
    class DroppedLines : public HearsLineDropped {
    public:
        explicit DroppedLines(DetailsLog& details) : details_(details) {}
        void LineDropped(Instrument instrument) override;

    private:
        DetailsLog& details_;
    };

public:
    FormMainListeners(const platform::Machine& machine, FormMainObjects& objects, FormMainPanels& panels,
                      FormMainWindows& windows);
    FormMainListeners(const FormMainListeners&) = delete;
    FormMainListeners& operator=(const FormMainListeners&) = delete;

    CtlExperiment2& CtlExperiment1;
    CtlCalibration& CtlCalibration1;
    CtlCellPosition& CtlCellPosition1;
    CtlEscape& CtlEscape1;
    CtlConnection& CtlConnection1;
    CtlUser& CtlUser1;
    FormBirdView& BirdView;
    FormManiInfo& ManiInfo;
    FormMirrorCtl& MirrorCtl;
    FormMirrorCtl2& MirrorCtl2;
    CameraMagnification Live;
    EscapeHeight cEscape;
    StillLoader Still;
    DroppedLines Details;
};

}  // namespace travo
