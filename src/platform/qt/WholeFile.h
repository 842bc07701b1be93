// Files that are read whole and replaced whole.
#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <optional>

namespace travo::platform {

// By which one sees whether a file is still the one, and as it was.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t number = 0;
    std::int64_t size = 0;
    std::int64_t written = 0;  // nanoseconds
    std::int64_t changed = 0;
    // False where the file has been written so lately that a further write might leave the same stamp, and
    // where there is none.
    bool settled = false;

    bool operator==(const FileStamp&) const = default;
};

// Of the file at the end of symbolic links.
FileStamp StampOf(const QString& path);

// The bytes of a plain file, through symbolic links; nothing where there is none or it cannot be
// read. Devices, pipes and folders count as not readable.
std::optional<QByteArray> ReadWholeFile(const QString& path);

// The same, for a file that is to be replaced afterwards: a missing file is empty, and one that may
// not be written gives nothing as well.
std::optional<QByteArray> ReadFileToReplace(const QString& path);

// Writes the bytes to a temporary file in the same folder, has them on the disk, and renames it over
// the old file: whoever reads, and a kill at any moment, finds the old file or the new one. A link is
// followed to its target; owner and permissions are kept. The new name is on the disk as well. Removes what
// earlier replacements of this file have left behind when they were killed, and nothing that another program
// is just writing. False where it fails; the file is then as it was.
bool ReplaceWholeFile(const QString& path, const QByteArray& bytes);

}  // namespace travo::platform
