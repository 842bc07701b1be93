// Where all that is news comes in, and from where it is told on.
#pragma once

#include <QString>
#include <cstdint>
#include <utility>

#include "core/owner/AnnouncementTable.h"
#include "core/owner/PositionLoop.h"
#include "core/state/LiveLink.h"
#include "core/state/SharedState.h"
#include "devices/links/clsCommunication.h"

namespace travo {

// Shared state, position loop, instruments and camera tell what has happened; each listener of that
// announcement is told in the order of the table, at once and in the same call. Nobody hears anything before
// there is a table. What a listener raises goes to whoever told; those behind it are not told then.
class Announcements : public SharedState::Listener,
                      public PositionLoop::Listener,
                      public clsCommunication::Listener,
                      public LiveLink::Listener {
public:
    // The state, which tells in here, comes into being behind this: hence its place. It is read when there is
    // something to tell.
    explicit Announcements(const SharedState* state) : state_(state) {}
    Announcements(const Announcements&) = delete;
    Announcements& operator=(const Announcements&) = delete;

    // From now on these hear. An empty table, for the end of the listeners: nobody does. Not from within
    // news.
    void Listen(AnnouncementTable table) { table_ = std::move(table); }

    // What panels and small windows have for others; see News.h.
    void ChangeCellXYZ(std::int16_t Index, const PositionXYZ& CellXYZ);
    void SetCalibTime(std::int16_t ManiNo, const QString& CalibTime, std::int16_t CalibOrRe);
    void chkMirror(bool isConnected);
    void FormClose(std::int32_t Index);

    // SharedState::Listener
    void MagnificationChanged(std::int16_t magnification) override;
    void ViewChanged() override;
    // PositionLoop::Listener
    void TotalManipulatorNumber(std::int16_t number) override;
    void ManipulatorChange(std::int16_t number) override;
    void ChangeNeedleXYZ(std::int16_t index, const PositionXYZ& root) override;
    void ChangeZeroPosition() override;
    void ChangeCurrentXYZ(const PositionXYZ& currentXYZ) override;
    // clsCommunication::Listener
    void checkMotor(std::int16_t ONOFF) override;
    void ControlONOFF(bool ONOFF) override;
    void PortLost(Instrument instrument) override;
    void LineDropped(Instrument instrument) override;
    // LiveLink::Listener
    void Live_BirdViewSave() override;
    void Live_WindowHide() override;
    void Live_WindowClose() override;
    void LiveDied() override;

private:
    const SharedState* state_;
    AnnouncementTable table_;
};

}  // namespace travo
