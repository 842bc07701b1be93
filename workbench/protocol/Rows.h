// The sections of the table, each where its rows stand.
#pragma once

#include <span>
#include <string_view>

namespace workbench {

struct CommandRow {
    std::string_view form;  // see CommandForm
    std::string_view
        answer;  // what stands behind "ok"; of a driver call, all of it; empty where nothing does
    std::string_view sentence;  // what it does
};

struct CommandSection {
    std::string_view title;
    std::string_view introduction;  // empty where none is needed
    std::span<const CommandRow> rows;
};

namespace rows {

extern const CommandSection Driver;
extern const CommandSection World;
extern const CommandSection Imperfections;
extern const CommandSection Settings;
extern const CommandSection Optics;
extern const CommandSection Wires;
extern const CommandSection Camera;
extern const CommandSection DriverFaults;
extern const CommandSection WireFaults;
extern const CommandSection AllFaults;

}  // namespace rows

}  // namespace workbench
