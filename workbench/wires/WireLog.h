// What went over a wire, with times: one line of text for each record, written to a file and read back.
#pragma once

#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/instruments/Instrument.h"

namespace workbench {

// A record reads "<ms since the workbench began> <kind> <bytes>". CR, LF, backslash and all that is not
// printable ASCII stand as \r, \n, \\ and \xNN.
struct WireRecord {
    enum class Kind {
        In,     // "in": to the instrument, as it came
        Out,    // "out": a line from the instrument, at the moment of its last byte
        Apart,  // "apart": the same, a line that stands apart
        Whole,  // "whole": the same, lines in one write
        Note,   // "note": the port was opened or closed
    };

    Time time{0};
    Kind kind = Kind::Note;
    std::string bytes;
};

// Bytes and kinds as they stand in a record.
std::string LogText(std::string_view bytes);
std::string_view KindText(WireRecord::Kind kind);

std::string RecordText(const WireRecord& record);
// Nothing for a text that is no record.
std::optional<WireRecord> ReadRecord(std::string_view text);
// All records of a file. travo::Failure for a file that cannot be read, or a line that is no record.
std::vector<WireRecord> ReadRecords(const std::string& path);

WireRecord::Kind KindOf(WireLine::Manner manner);
// The manner of a line from the instrument; nothing for the other kinds.
std::optional<WireLine::Manner> MannerOf(WireRecord::Kind kind);

class WireLog {
public:
    // Begins the file anew. travo::Failure where it cannot be written.
    void Open(const std::string& path);
    void Close() { file_.close(); }
    bool IsOpen() const { return file_.is_open(); }
    // Does nothing while no file is open. Each record is in the file when this returns.
    void Write(const WireRecord& record);

private:
    std::ofstream file_;
};

}  // namespace workbench
