#include "workbench/window/FaultTable.h"

#include <algorithm>
#include <array>

namespace workbench {

namespace {

constexpr const char* MotorsOff = "motors";  // of the mirror: a state that no list of faults names
constexpr const char* DriverFail = "fail";

QString Q(const std::string& text) { return QString::fromStdString(text); }

// A fault of a wire, the words of its lines being those behind "fault <wire>".
Fault OfWire(int column, const std::string& wire, const std::string& key, const char* text, const char* name,
             const std::string& on, const std::string& off, const std::string& listed,
             const std::string& numbers) {
    Fault fault;
    fault.column = column;
    fault.object = Q("fault_" + wire + '_' + key);
    fault.text = QString::fromUtf8(text);
    fault.name = Q(std::string(1, static_cast<char>(wire.front() - 'a' + 'A')) + wire.substr(1) + ' ' + name);
    fault.on = "fault " + wire + ' ' + on;
    fault.off = off.empty() ? "" : "fault " + wire + ' ' + off;
    fault.litBy = listed.empty() ? "" : wire + ':' + listed;
    fault.numbers = numbers;
    fault.wire = wire;
    return fault;
}

void AddWire(std::vector<Fault>& faults, int column, const std::string& wire) {
    const auto add = [&](const char* key, const char* text, const char* name, const char* on, const char* off,
                         const char* listed, const char* numbers) {
        faults.push_back(OfWire(column, wire, key, text, name, on, off, listed, numbers));
    };
    add("silent", "Silent", "silent", "silent on", "silent off", "silent", "");
    add("cable", "Cable out", "cable out", "vanish", "return", "vanished", "");
    add("noise", "Noise", "noise", "noise 20", "", "", "noise");
    add("garble", "Garble", "garble", "garble 1", "garble 0", "garble", "garble");
    add("cut", "Cut", "cut", "cut 4", "cut off", "cut", "cut");
    add("flood", "Flood", "flood", "flood 200", "", "", "flood");
}

void AddMirror(std::vector<Fault>& faults) {
    const auto add = [&](const char* key, const char* text, const char* name, const char* on, const char* off,
                         const char* listed, const char* numbers) {
        faults.push_back(OfWire(1, "mirror", key, text, name, on, off, listed, numbers));
    };
    add("error", "Error 8", "error", "error 8", "error 8 0", "error", "error");
    add("fields", "7 fields", "fields", "fields 7", "fields 8 0", "fields", "fields");
    add("limitx", "Limit X", "limit X", "limit x on", "limit x off", "limitx", "");
    add("limity", "Limit Y", "limit Y", "limit y on", "limit y off", "limity", "");
    add("motors", "Motors off", "motors off", "motors off", "motors on", "", "");
    faults.back().litBy = MotorsOff;
}

void AddNeedles(std::vector<Fault>& faults) {
    const auto add = [&](const char* object, const char* text, const char* name, const char* on,
                         const char* off, const char* listed, const char* numbers) {
        faults.push_back({NeedleColumn, Q(object), Q(text), Q(name), on, off, listed, numbers, {}});
    };
    add("fault_driver_once", "Fails once", "Driver fails once", "fault driver fail 1",
        "fault driver fail off", DriverFail, "fail");
    add("fault_driver_fails", "Fails", "Driver fails", "fault driver fail always", "fault driver fail off",
        DriverFail, "always");
    add("fault_driver_hang", "Hangs 3 s", "Driver hangs", "fault driver hang 3", "fault driver hang off",
        "hang", "hang");
    add("fault_count", "3 needles", "Three needles", "fault count 3", "fault count 4", "count", "count");
    add("fault_range", "Range", "Out of range", "fault range {N}", "fault range off", "range", "range");
    add("fault_key", "Key moves", "Key moves on", "hardware select {M}", "", "", "");
}

void AddCamera(std::vector<Fault>& faults) {
    const auto add = [&](const char* object, const char* text, const char* name, const char* on,
                         const char* numbers) {
        faults.push_back({CameraColumn, Q(object), Q(text), Q(name), on, "", "", numbers, {}});
    };
    add("fault_camera_hide", "Hides", "Camera hides", "camera hide", "");
    add("fault_camera_close", "Closes", "Camera closes", "camera close", "");
    add("fault_camera_kill", "Killed", "Camera killed", "camera kill", "");
    add("fault_camera_hang", "Hangs 3 s", "Camera hangs", "camera hang 3", "cameraHang");
    add("fault_camera_fail", "Fails once", "Camera fails", "camera fail 1", "cameraFail");
}

std::vector<Fault> MakeFaults() {
    std::vector<Fault> faults;
    AddWire(faults, 0, "mirror");
    AddMirror(faults);
    AddWire(faults, 2, "gauge");
    faults.push_back(
        OfWire(2, "gauge", "garbage", "Garbage", "garbage", "garbage on", "garbage off", "garbage", ""));
    AddWire(faults, 3, "motor");
    faults.push_back(
        OfWire(3, "motor", "refuse", "Refuses", "refuses", "refuse", "refuse 0", "refuse", "refuse"));
    AddNeedles(faults);
    AddCamera(faults);
    return faults;
}

bool IsListed(const Scene& scene, const std::string& name) {
    return std::find(scene.faults.begin(), scene.faults.end(), name) != scene.faults.end();
}

}  // namespace

const std::vector<Fault>& Faults() {
    static const std::vector<Fault> all = MakeFaults();
    return all;
}

FaultChoice FirstChoice(const Fault& fault) {
    // "Fails once" says how often already.
    const bool saysOnce = fault.numbers == "fail";
    return {{}, {}, fault.text, saysOnce ? QStringLiteral("Fails") : fault.text, fault.on};
}

std::string ForNeedle(const std::string& line, int picked) {
    std::string filled = line;
    const std::array<std::pair<const char*, int>, 2> places{{{"{N}", picked}, {"{M}", picked % 4 + 1}}};
    for (const auto& [mark, number] : places) {
        if (const std::size_t at = filled.find(mark); at != std::string::npos) {
            filled.replace(at, 3, std::to_string(number));
        }
    }
    return filled;
}

bool IsLit(const Fault& fault, const Scene& scene) {
    if (!fault.Lasts()) {
        return false;
    }
    if (fault.litBy == MotorsOff) {
        return !scene.mirror.motorsOn;
    }
    if (!IsListed(scene, fault.litBy)) {
        return false;
    }
    if (fault.litBy != DriverFail) {
        return true;
    }
    // Two chips share it: one for a number of calls, one for all of them.
    const auto left = scene.faultsLeft.find(DriverFail);
    const bool always = left != scene.faultsLeft.end() && left->second < 0;
    return always == (fault.numbers == "always");
}

QString LeftText(const Fault& fault, const Scene& scene) {
    const auto left = scene.faultsLeft.find(fault.litBy);
    if (left == scene.faultsLeft.end()) {
        return {};
    }
    return QStringLiteral("×") + (left->second < 0 ? QStringLiteral("∞") : QString::number(left->second));
}

int FaultsOn(const Scene& scene) {
    // A flag that is held up stands in the list twice: as itself, and by its axis.
    const auto listed = std::count_if(scene.faults.begin(), scene.faults.end(),
                                      [](const std::string& name) { return name != "mirror:limit"; });
    return static_cast<int>(listed) + (scene.mirror.motorsOn ? 0 : 1);
}

}  // namespace workbench
