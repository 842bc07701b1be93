#include "workbench/commands/NeedleCommands.h"

namespace workbench {

namespace {

// Changes one imperfection of a needle; the others stay.
template <typename Change>
std::string Spoil(World& world, const Words& words, Time now, Change change) {
    const std::int32_t needle = NeedleAt(words, 0);
    Imperfections imperfections = world.ImperfectionsOf(needle);
    change(imperfections);
    world.SpoilNeedle(needle, imperfections, now);
    return {};
}

std::string State(const World& world, const Manipulators& manipulators, std::int32_t needle) {
    const Imperfections& imperfections = world.ImperfectionsOf(needle);
    return Blanked({Text(manipulators.NoiseOf(needle + 1))}) + Text(imperfections.backlash) +
           Text(imperfections.drift) + Text(imperfections.bend);
}

}  // namespace

std::string NeedleFaults(const World& world, const Manipulators& manipulators) {
    std::string faults;
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        const std::string name = " needle" + std::to_string(needle + 1) + ":";
        const Imperfections& imperfections = world.ImperfectionsOf(needle);
        faults += manipulators.NoiseOf(needle + 1) > 0.0 ? name + "noise" : "";
        faults += imperfections.backlash != travo::PositionXYZ{} ? name + "backlash" : "";
        faults += imperfections.drift != Vector{} ? name + "drift" : "";
        faults += imperfections.bend != Vector{} ? name + "bend" : "";
    }
    return faults;
}

void AddNeedleCommands(Commands& commands, World& world, Manipulators& manipulators) {
    World& w = world;
    Manipulators& m = manipulators;
    commands.Add("needle noise <needle> <counts>", [&m](const Words& words, Time) {
        m.MakeNoisy(NeedleAt(words, 0) + 1, RealAt(words, 1));
        return std::string();
    });
    commands.Add("needle backlash <needle> <x> <y> <z>", [&w](const Words& words, Time now) {
        return Spoil(w, words, now, [&](Imperfections& one) { one.backlash = TripleAt(words, 1); });
    });
    commands.Add("needle drift <needle> <x> <y> <z>", [&w](const Words& words, Time now) {
        return Spoil(w, words, now, [&](Imperfections& one) { one.drift = VectorAt(words, 1); });
    });
    commands.Add("needle bend <needle> <X> <Y> <Z>", [&w](const Words& words, Time now) {
        return Spoil(w, words, now, [&](Imperfections& one) { one.bend = VectorAt(words, 1); });
    });
    commands.Add("needle state <needle>",
                 [&w, &m](const Words& words, Time) { return State(w, m, NeedleAt(words, 0)); });
}

}  // namespace workbench
