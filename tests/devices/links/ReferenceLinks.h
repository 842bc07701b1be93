// The rules of the three serial links once more, written as plainly as they can be said: no marks of
// what has been searched, no views, every text copied. What the links do must equal what these do.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace travo::test {

// Everything that a link lets out, in its order. `inside` runs at each entry, as a box or a served
// event loop would run there.
struct LinkEvents {
    void Tell(const std::string& event) {
        list.push_back(event);
        inside();
    }

    std::vector<std::string> list;
    std::function<void()> inside = [] {};
};

class ReferenceMirror {
public:
    explicit ReferenceMirror(LinkEvents& events) : events_(events) {}
    void Receive(const std::string& bytes, int code);

private:
    void DivideReceivedLines(std::string text);
    void ParseReceivedLine(const std::string& line);
    bool Act(const std::string& line, const std::string& value);
    bool Status(const std::string& value);
    bool Limit(const std::string& field, bool& shown, bool& isUp, const std::string& text);
    void Error(const std::string& line, const std::string& value);

    LinkEvents& events_;
    std::string LastLine_ = "0";
    std::string PendingText_;
    std::string dropUpTo_;  // the end of a line that is too long
    bool LimitYShown_ = false;
    bool LimitXShown_ = false;
    bool LimitYUp_ = false;
    bool LimitXUp_ = false;
};

class ReferenceMotor {
public:
    explicit ReferenceMotor(LinkEvents& events) : events_(events) {}
    void Receive(const std::string& bytes, int code);
    bool Identified() const { return identified_; }

private:
    void DivideReceivedLines(std::string text);
    void ParseReceivedLine(const std::string& line);

    LinkEvents& events_;
    std::string buffer_;
    std::string PendingText_;
    bool dropping_ = false;
    bool identified_ = false;
};

class ReferenceGauge {
public:
    explicit ReferenceGauge(LinkEvents& events) : events_(events) {}
    void Receive(const std::string& bytes, int code);

private:
    LinkEvents& events_;
    std::string buffer_;
    std::string PendingText_;
    bool hasDropped_ = false;
};

}  // namespace travo::test
