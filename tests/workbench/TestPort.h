// A serial port as any program opens it: plain POSIX, raw.
#pragma once

#include <string>
#include <string_view>

namespace workbench {

class TestPort {
public:
    // An exclusive port refuses every further opening, also after its program was killed.
    explicit TestPort(const std::string& path, bool exclusive = false);
    ~TestPort();
    TestPort(const TestPort&) = delete;
    TestPort& operator=(const TestPort&) = delete;

    bool IsOpen() const { return descriptor_ >= 0; }
    // Whether the line came raw from the workbench.
    bool IsRaw() const { return raw_; }
    void Write(std::string_view bytes) const;
    // Reads until the text ends with this, or a limit has passed. What has been read.
    std::string ReadUntil(std::string_view end);
    // What one read gives.
    std::string ReadPiece();
    // Reads until there have been so many bytes, or a limit has passed.
    std::string ReadBytes(std::size_t count);
    // Whether there is nothing more to be read after a time in which all that was under way must have come.
    bool Quiet();
    // Waits until the other side has gone; false when it has not at the end of a limit.
    bool WaitForHangUp();

private:
    // Further bytes, so many at most; false where none have come at the end of the limit.
    bool ReadMore(std::string& text, int limit, std::size_t most);

    int descriptor_ = -1;
    bool raw_ = false;
};

}  // namespace workbench
