#include "workbench/commands/WorldCommands.h"

#include "workbench/commands/TrafficCommands.h"

namespace workbench {

namespace {

std::string Milliseconds(Time time) { return Text(static_cast<double>(time.count()) / 1000.0); }

std::string TipText(const World& world, std::int32_t needle, Time now) {
    return Text(world.TipNow(needle, now)) + Text(world.TipAtRest(needle));
}

std::string Aim(const World& world, const Words& words) {
    return Text(Whole(CountsFor(world.MountOf(NeedleAt(words, 0)), VectorAt(words, 1))));
}

std::string Moving(const World& world, Time now) {
    std::string moving;
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        moving += Flag(world.NeedleMoves(needle, now));
    }
    return moving;
}

std::string CellsText() {
    std::string cells;
    for (const Cell& cell : World::Cells()) {
        cells += Blanked({std::to_string(cell.mirrorX), std::to_string(cell.mirrorY)}) + Text(cell.Place());
    }
    return cells;
}

std::string Crossings(const World& world) {
    std::string text =
        Blanked({std::to_string(world.CrossingsInAll()), std::to_string(world.PairsCrossed())});
    for (const Crossing& crossing : world.Crossings()) {
        text += Blanked({std::to_string(crossing.needleA + 1), std::to_string(crossing.needleB + 1),
                         Milliseconds(crossing.time)}) +
                Text(crossing.place);
    }
    return text;
}

std::string LandingText(const Landings& landings) {
    std::string text = Blanked({std::to_string(landings.InAll()), Text(landings.Worst())});
    if (const std::optional<Landing>& last = landings.Last()) {
        text += Blanked({std::to_string(last->needle + 1), std::to_string(CellNumber(*last)),
                         Text(last->distance), Text(last->height), Milliseconds(last->time)}) +
                Text(last->centre);
    }
    return text;
}

std::string MountText(const Mount& mount) {
    return Blanked({Text(mount.heading), Text(mount.yaw), Text(mount.tilt)}) + Text(mount.offset);
}

Mount HomedMountOf(const Words& words) {
    const double yaw = words.size() > 2 ? RealAt(words, 2) : 0.0;
    const double tilt = words.size() > 3 ? RealAt(words, 3) : 0.0;
    return HomedMount(RealAt(words, 1), yaw, tilt);
}

void AddNeedles(Commands& commands, World& w) {
    commands.Add("world tip <needle>",
                 [&w](const Words& words, Time now) { return TipText(w, NeedleAt(words, 0), now); });
    commands.Add("world counts <needle>",
                 [&w](const Words& words, Time now) { return Text(w.CountsNow(NeedleAt(words, 0), now)); });
    commands.Add("world aim <needle> <X> <Y> <Z>", [&w](const Words& words, Time) { return Aim(w, words); });
    commands.Add("world move <needle> <x> <y> <z>", [&w](const Words& words, Time now) {
        w.MoveNeedle(NeedleAt(words, 0), TripleAt(words, 1), now);
        return std::string();
    });
    commands.Add("world jog <needle> <dx> <dy> <dz>", [&w](const Words& words, Time now) {
        w.JogNeedle(NeedleAt(words, 0), TripleAt(words, 1), now);
        return std::string();
    });
    commands.Add("world moving", [&w](const Words&, Time now) { return Moving(w, now); });
}

void AddPlaces(Commands& commands, World& w) {
    commands.Add("world view", [&w](const Words&, Time now) {
        return Text(w.Optics().ViewNow(now)) + Text(w.Optics().ViewAtRest());
    });
    commands.Add("world view <x> <y>", [](const Words& words, Time) {
        return Text(ViewCentreOf(RealAt(words, 0), RealAt(words, 1)));
    });
    commands.Add("world cells", [](const Words&, Time) { return CellsText(); });
    commands.Add("world clock", [](const Words&, Time now) { return Blanked({Milliseconds(now)}); });
}

void AddScore(Commands& commands, World& w) {
    commands.Add("world crossings", [&w](const Words&, Time) { return Crossings(w); });
    commands.Add("world crossings forget", [&w](const Words&, Time) {
        w.ForgetCrossings();
        return std::string();
    });
    commands.Add("world landing", [&w](const Words&, Time) { return LandingText(w.NeedleLandings()); });
    commands.Add("world landing forget", [&w](const Words&, Time) {
        w.ForgetLandings();
        return std::string();
    });
}

void AddMounts(Commands& commands, World& w) {
    commands.Add("mount <needle>",
                 [&w](const Words& words, Time) { return MountText(w.MountOf(NeedleAt(words, 0))); });
    commands.Add("mount <needle> <heading> [<yaw> [<tilt>]]", [&w](const Words& words, Time now) {
        w.MountNeedle(NeedleAt(words, 0), HomedMountOf(words), now);
        return std::string();
    });
    commands.Add("mount <needle> <heading> <yaw> <tilt> <TX> <TY> <TZ>", [&w](const Words& words, Time now) {
        Mount mount = HomedMountOf(words);
        mount.offset = VectorAt(words, 4);
        w.MountNeedle(NeedleAt(words, 0), mount, now);
        return std::string();
    });
}

}  // namespace

void AddWorldCommands(Commands& commands, World& world) {
    AddNeedles(commands, world);
    AddPlaces(commands, world);
    AddScore(commands, world);
    AddMounts(commands, world);
}

}  // namespace workbench
