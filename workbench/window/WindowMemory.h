// Keeps where the window was, how large, and whether its card was hidden.
#pragma once

#include <QRect>
#include <QString>
#include <optional>

namespace workbench {

class WindowMemory {
public:
    struct Kept {
        std::optional<QRect> place;  // inner rectangle on the desk, in device-independent pixels
        bool isCardShown = true;

        bool operator==(const Kept&) const = default;
    };

    // A file in the user's configuration folder, of the workbench's own.
    static WindowMemory OfUser();
    // `file` need not exist. A folder is made when it is written.
    explicit WindowMemory(QString file);

    // What cannot be read, or makes no sense, is as if it had never been kept.
    Kept Read() const;
    // A file that cannot be written is no failure: the window opens as new then.
    void Write(const Kept& kept) const;

private:
    QString file_;
};

// The place to open at on a screen of `available`: the kept one where all of its header can be reached; on a
// desk of at least 1900 x 1150 the right upper corner; else none, and the window system decides.
std::optional<QRect> OpeningPlace(const std::optional<QRect>& kept, const QRect& available);

}  // namespace workbench
