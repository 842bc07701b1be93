// Small files, whole.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace gcode {

// Nothing where there is no such file, or something that is no regular file. Of one beyond 1 MB its first 1
// MB.
std::optional<std::string> ReadWholeFile(const std::string& name);

// Through a temporary file that takes its place: whoever reads gets the old text or the new one.
bool WriteWholeFile(const std::string& name, std::string_view text);

// The folder of the file that holds this function: of the driver library, or of the program; "." where it is
// not known.
std::string OwnFolder();

}  // namespace gcode
