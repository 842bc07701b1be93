// Private profile files: the platform's calls for text files of sections, keys and values.
#pragma once

#include <QString>
#include <cstdint>
#include <optional>

namespace travo::platform {

// Sections and keys match without regard to case; the first of two equal ones counts. Each call
// reads or rewrites the whole file by itself. Texts are held in Windows-1252; characters that it
// lacks become "?". Nothing raises.
class PrivateProfile {
public:
    virtual ~PrivateProfile() = default;

    // The value with blanks and one pair of quotes taken off, or the default, cut to size - 1
    // characters. Size counts characters with the NUL that the platform's buffer would end in.
    virtual QString GetString(const QString& section, const QString& key, const QString& defaultValue,
                              int size, const QString& file) = 0;
    // Blanks skipped, sign, digits; 0 where no digit stands there; beyond 32 bits it wraps as the
    // platform's reading does. The default where section, key or file is missing.
    virtual std::int32_t GetInt(const QString& section, const QString& key, std::int32_t defaultValue,
                                const QString& file) = 0;
    // Names, each ended by NUL, with a further NUL behind the last; the count is that of the characters
    // before this one. What does not fit the size is cut: then it is size - 2 characters, which are the
    // count, and two NULs.
    struct Names {
        QString buffer;
        std::int32_t count = 0;
    };
    virtual Names GetSectionNames(int size, const QString& file) = 0;
    virtual Names GetKeyNames(const QString& section, int size, const QString& file) = 0;
    // Writes a value; without a value removes the key; without a key removes the section. The file is
    // replaced whole: a kill at any moment leaves the old one or the new one. Unknown sections, keys
    // and comments survive. True on success; a failed write leaves the file as it was.
    virtual bool Write(const QString& section, const std::optional<QString>& key,
                       const std::optional<QString>& value, const QString& file) = 0;
    // What is written between these two replaces each file once, at the end; who reads in between reads it
    // already. The second is true when all files could be replaced. They may be nested; the outermost counts.
    virtual void BeginTogether() {}
    virtual bool EndTogether() { return true; }
};

}  // namespace travo::platform
