#include "workbench/commands/TrafficCommands.h"

namespace workbench {

namespace {

constexpr std::string_view WorldSource = "world";
constexpr std::string_view EventKind = "event";

}  // namespace

std::int32_t CellNumber(const Landing& landing) { return landing.cell ? *landing.cell + 1 : 0; }

void WorldTap::Crossed(const Crossing& crossing) {
    const std::string needles =
        Blanked({std::to_string(crossing.needleA + 1), std::to_string(crossing.needleB + 1)});
    traffic_.Take(crossing.time, WorldSource, EventKind, "crossing" + needles + Text(crossing.place));
}

void WorldTap::Arrived(std::int32_t needle, Time time, const std::optional<Landing>& landing) {
    std::string text = "arrived" + Blanked({std::to_string(needle + 1)});
    if (landing) {
        text +=
            Blanked({std::to_string(CellNumber(*landing)), Text(landing->distance), Text(landing->height)});
    }
    traffic_.Take(time, WorldSource, EventKind, text);
}

void AddTrafficCommands(Commands& commands, Traffic& traffic, Instruments& instruments) {
    for (Wire& wire : instruments.wires) {
        wire.OnTraffic([&traffic, &wire](Time time, std::string_view kind, std::string_view bytes) {
            traffic.Take(time, wire.Name(), kind, bytes);
        });
    }
    commands.Add("traffic <serial>",
                 [&traffic](const Words& words, Time) { return traffic.From(SerialAt(words, 0)); });
}

}  // namespace workbench
