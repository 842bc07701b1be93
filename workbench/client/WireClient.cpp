// The half of the client that works the wires.
#include "workbench/client/ClientText.h"
#include "workbench/client/WorkbenchClient.h"

namespace workbench {

WorkbenchClient::WireState WorkbenchClient::Wire(const std::string& wire) {
    AnswerReader reader(Ask("wire list"));
    while (!reader.AtEnd()) {
        const auto name = reader.Next<std::string>();
        WireState state;
        state.port = reader.Next<std::int32_t>();
        state.plugged = reader.NextFlag();
        state.open = reader.NextFlag();
        if (name == wire) {
            return state;
        }
    }
    throw travo::NumberFailure("there is no such wire: " + wire);
}

std::map<std::string, std::int64_t> WorkbenchClient::WireCounters(const std::string& wire) {
    AnswerReader reader(Ask("wire counters " + wire));
    std::map<std::string, std::int64_t> counters;
    while (!reader.AtEnd()) {
        const auto name = reader.Next<std::string>();
        counters[name] = reader.Next<std::int64_t>();
    }
    return counters;
}

void WorkbenchClient::ForgetWireCounters(const std::string& wire) {
    Ask("wire counters " + wire + " forget");
}

void WorkbenchClient::LogWire(const std::string& wire, const std::string& path) {
    Ask("wire log " + wire + " " + path);
}

void WorkbenchClient::EndWireLog(const std::string& wire) { Ask("wire log " + wire + " off"); }

void WorkbenchClient::ReplayWire(const std::string& wire, const std::string& path) {
    Ask("wire replay " + wire + " " + path);
}

void WorkbenchClient::PullCable(const std::string& wire) { Fault(wire + " vanish"); }

void WorkbenchClient::PlugCable(const std::string& wire) { Fault(wire + " return"); }

void WorkbenchClient::SilenceInstrument(const std::string& wire, bool silent) {
    Fault(wire + (silent ? " silent on" : " silent off"));
}

void WorkbenchClient::Fault(const std::string& words) { Ask("fault " + words); }

std::string WorkbenchClient::Faults() { return Ask("fault list"); }

void WorkbenchClient::PassErgoLine(const std::string& line) { Ask("ergo " + line); }

void WorkbenchClient::PassErgoLineTogether(const std::string& line) { Ask("ergo together " + line); }

bool WorkbenchClient::GaugeKeysEnabled() { return AnswerReader(Ask("gauge keys")).NextFlag(); }

void WorkbenchClient::PressGaugeZero() { Ask("gauge zero"); }

void WorkbenchClient::WriteSettingsWithPorts(const std::string& path) { Ask("write-settings ports " + path); }

}  // namespace workbench
