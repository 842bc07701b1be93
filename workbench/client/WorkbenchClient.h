// Works the simulated instruments from another process: the workbench's control commands.
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "core/ground/Positions.h"
#include "workbench/socket/Exchange.h"
#include "workbench/socket/SocketPath.h"

namespace workbench {

// Every call is one blocking exchange, at most ExchangeLimit, and raises travo::Failure with a sentence
// where no workbench answers or where it refuses. Needles are numbered 1 to 4. Places are in the
// common frame, in common units; counts are those of the manipulator frame.
class WorkbenchClient {
public:
    static constexpr std::chrono::milliseconds ExchangeLimit{5000};

    using Place = std::array<double, 3>;

    struct Tip {
        Place now{};
        Place atRest{};  // where it goes; the same as now for a needle at rest
    };

    struct Crossing {
        std::int32_t needleA = 0;  // below needleB
        std::int32_t needleB = 0;
        double milliseconds = 0.0;  // since the workbench began
        double x = 0.0;
        double y = 0.0;
    };

    struct Crossings {
        std::int64_t inAll = 0;
        std::int32_t pairsCrossedNow = 0;
        std::vector<Crossing> last;  // the last 200, oldest first
    };

    struct Cell {
        std::int32_t mirrorX = 0;
        std::int32_t mirrorY = 0;
        Place place{};
    };

    struct Mount {
        double heading = 45.0;  // degrees
        double yaw = 0.0;
        double tilt = 0.0;
    };

    struct MirrorState {
        std::array<double, 2> now{};     // counts, X and Y
        std::array<double, 2> atRest{};  // where it goes
        bool motorsOn = false;
        bool limitX = false;
        bool limitY = false;
    };

    struct FocusState {
        double now = 0.0;     // Z units
        double atRest = 0.0;  // where it goes
        std::int32_t counts = 0;
        std::int32_t countsAtRest = 0;
    };

    struct GaugeState {
        double reading = 0.0;  // Z units from the gauge's own zero
        double zero = 0.0;     // the Z at which it shows 0
    };

    struct WireState {
        std::int32_t port = 0;  // its number in the program folder
        bool plugged = false;
        bool open = false;  // somebody has the port open
    };

    // All that a picture of the view needs, at one moment.
    struct CameraState {
        struct Needle {
            bool connected = false;
            Place tip{};
            std::array<double, 2> rear{};  // end of the shaft in plan
        };
        struct Cell {
            Place place{};
            double radius = 0.0;
        };

        std::array<double, 2> viewCentre{};   // X, Y
        std::int32_t magnification = 0;       // 1 is 0.35x, 2 is 2x, 3 is 4x, 0 between two objectives
        std::array<double, 2> fieldOfView{};  // width and height; 0 at magnification 0
        double focusZ = 0.0;                  // the focal plane
        std::vector<Needle> needles;          // needle 1 first
        std::vector<Cell> cells;
    };

    explicit WorkbenchClient(const std::string& socketPath = SocketPath()) : exchange_(socketPath) {}

    // Waits until a workbench answers. False when none has at the end of the limit.
    bool WaitUntilReady(std::chrono::milliseconds limit);

    Tip TipOf(std::int32_t needle);
    travo::PositionXYZ CountsOf(std::int32_t needle);
    // The whole counts whose tip is nearest to a place; they may lie out of reach.
    travo::PositionXYZ Aim(std::int32_t needle, const Place& place);
    // The joystick: to counts, or by a distance in counts. Returns as soon as the needle has set out.
    void Move(std::int32_t needle, const travo::PositionXYZ& counts);
    void Jog(std::int32_t needle, const travo::PositionXYZ& distance);
    bool AnyNeedleMoves();
    // Waits until no needle moves. False when one still does at the end of the limit.
    bool WaitForRest(std::chrono::milliseconds limit);
    Crossings ShaftCrossings();
    void ForgetCrossings();
    std::vector<Cell> Cells();
    // The centre of the view for mirror counts, X and Y.
    std::array<double, 2> ViewCentre(double mirrorX, double mirrorY);
    // The centre of the view now, X and Y, and where it will come to rest.
    std::array<double, 2> ViewCentreNow();
    std::array<double, 2> ViewCentreAtRest();

    MirrorState Mirror();
    // By hand at the mirror: to counts, or by a distance. Beyond 180 it goes to its limit.
    void MoveMirror(std::int32_t x, std::int32_t y);
    void JogMirror(std::int32_t x, std::int32_t y);
    void SwitchMirrorMotors(bool on);
    std::int32_t Magnification();
    void SetMagnification(std::int32_t index);
    FocusState Focus();
    // By hand at the focus, in motor counts, 100 to a unit of Z.
    void MoveFocus(std::int32_t counts);
    void JogFocus(std::int32_t counts);
    GaugeState Gauge();
    CameraState Camera();

    void FailDriverCalls(std::int32_t calls);
    void FailDriverAlways();
    void HangDriver(double seconds);
    void ChangeCount(std::int32_t count);
    void StrayPosition(std::int32_t needle);
    void ClearFaults();
    void SelectAtHardware(std::int32_t needle);
    void MountNeedle(std::int32_t needle, const Mount& mount);

    // The serial wires by their names: "mirror", "gauge", "motor".
    WireState Wire(const std::string& wire);
    // Commands received on the wire, by name, and "unknown"; what never came is not there.
    std::map<std::string, std::int64_t> WireCounters(const std::string& wire);
    void ForgetWireCounters(const std::string& wire);
    void LogWire(const std::string& wire, const std::string& path);
    void EndWireLog(const std::string& wire);
    void ReplayWire(const std::string& wire, const std::string& path);
    // The cable pulled out: the port vanishes. Plugged in again it is a new one.
    void PullCable(const std::string& wire);
    void PlugCable(const std::string& wire);
    void SilenceInstrument(const std::string& wire, bool silent);
    // Any other fault of docs/workbench.md, by the words behind "fault".
    void Fault(const std::string& words);
    // The faults that are on, in one line.
    std::string Faults();
    void PassErgoLine(const std::string& line);
    // In one piece with a status line behind it.
    void PassErgoLineTogether(const std::string& line);
    bool GaugeKeysEnabled();
    // The gauge's own key; refused while its keys are disabled.
    void PressGaugeZero();

    void WriteSettings(const std::string& path);
    // The same with the numbers of the three serial ports, so that they are opened at the next start.
    void WriteSettingsWithPorts(const std::string& path);
    // Calls received, by their names: "getposition", "moveto", "select", "getcount", "reconnect"; and
    // "refused", how many of them were.
    std::map<std::string, std::int64_t> Counters();
    void ForgetCounters();
    // The workbench ends after it has answered.
    void Shutdown();

    // Any command of docs/workbench.md. What follows "ok " in the answer; for a driver call, all of it.
    std::string Ask(const std::string& line);

private:
    Exchange exchange_;
};

}  // namespace workbench
