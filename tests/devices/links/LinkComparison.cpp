#include "devices/links/LinkComparison.h"

#include <cstddef>

#include "core/state/FailureHandler.h"
#include "core/state/SharedState.h"
#include "devices/links/ReferenceLinks.h"
#include "devices/links/clsMagnescale.h"
#include "devices/links/clsMirror.h"
#include "devices/links/clsMotor.h"
#include "platform/Windows1252.h"
#include "support/FakeSerialPorts.h"
#include "support/StandIns.h"

namespace travo::test {

namespace {

struct Piece {
    std::string bytes;
    char mark = PieceMark;
};

std::vector<Piece> Pieces(std::string_view script) {
    std::vector<Piece> pieces(1);
    for (const char byte : script) {
        if (byte == PieceMark || byte == InnerPieceMark || byte == OtherEventMark) {
            pieces.back().mark = byte;
            pieces.emplace_back();
        } else {
            pieces.back().bytes += byte;
        }
    }
    return pieces;
}

// Hands the pieces to a receiver: each in its turn, inner ones within what the receiver lets out.
class Player {
public:
    Player(const std::vector<Piece>& pieces, int code) : pieces_(pieces), code_(code) {}

    template <typename Receive>
    void Play(LinkEvents& events, Receive&& receive) {
        const auto next = [&] {
            const Piece& piece = pieces_[place_++];
            receive(piece.bytes, piece.mark == OtherEventMark ? 5 - code_ : code_);
        };
        events.inside = [&] {
            if (depth_ < DeepestNesting && place_ < pieces_.size() &&
                pieces_[place_].mark == InnerPieceMark) {
                ++depth_;
                next();
                --depth_;
            }
        };
        while (place_ < pieces_.size()) {
            next();
        }
        events.inside = [] {};
    }

private:
    static constexpr int DeepestNesting = 16;

    const std::vector<Piece>& pieces_;
    int code_;  // 2 or 3; the other one of the two is the other event
    std::size_t place_ = 0;
    int depth_ = 0;
};

// The machine and the receivers of one link; all that comes out of the link goes to the events.
class LinkComparisonRig : public platform::MessageBoxes,
                          public platform::EventLoop,
                          public SharedState::Listener,
                          public clsMirror::Receiver,
                          public clsMotor::Panel,
                          public clsMagnescale::Receiver {
public:
    // Only what is received is compared, so nothing is kept of what is sent.
    FakeSerialPort& Port() { return *ports.created.front(); }

    platform::BoxAnswer Show(const QString& text, platform::BoxButtons, platform::BoxIcon) override {
        events.Tell("box " + platform::ToWindows1252(text).toStdString());
        return platform::BoxAnswer::OK;
    }
    void Serve() override { events.Tell("serve"); }
    void ServeUntilEventOr(std::int64_t) override {}
    void Queue(std::function<void()>) override {}
    void QueueAfterWaits(std::function<void()>) override {}
    bool Waiting() const override { return false; }
    void BeginStandStill() override {}
    void EndStandStill() override {}
    void MagnificationChanged(std::int16_t) override {}
    void ViewChanged() override {}
    void ReceiveMirrorXData(std::int32_t Data) override { events.Tell("X " + std::to_string(Data)); }
    void ReceiveMirrorYData(std::int32_t Data) override { events.Tell("Y " + std::to_string(Data)); }
    void ReceiveMirrorXYData(std::int32_t PositionX, std::int32_t PositionY) override {
        events.Tell("XY " + std::to_string(PositionX) + " " + std::to_string(PositionY));
    }
    void ReceiveMagnificationData(std::int16_t Magnification) override {
        events.Tell("magnification " + std::to_string(Magnification));
    }
    void ReceiveMotorData(std::int16_t ONOFF) override { events.Tell("motor " + std::to_string(ONOFF)); }
    void MotorErgoConnect(std::string_view strData) override { events.Tell("ergo " + std::string(strData)); }
    void ControlONOFF(bool ONOFF) override { events.Tell(ONOFF ? "unlock" : "lock"); }
    void PortLost(Instrument) override { events.Tell("lost"); }
    void LineDropped(Instrument) override { events.Tell("dropped"); }
    void MagnescaleData(std::int32_t Data) override { events.Tell("Z " + std::to_string(Data)); }

    LinkEvents events;
    Journal journal;
    FakeClock clock;
    clsDebugLog log{clock};  // without a file: what it cannot write, the box still shows
    FailureHandler failures{log, *this};
    SharedState state{*this};
    FakeSerialPorts ports{journal};
};

template <typename Link, typename Reference>
LinkComparison Compare(std::string_view script, int code, LinkComparisonRig& bench, Link& link,
                       Reference& reference, LinkEvents& expected) {
    link.PortOpen(1);
    bench.events.list.clear();
    const std::vector<Piece> pieces = Pieces(script);
    Player(pieces, code).Play(bench.events, [&bench](const std::string& bytes, int event) {
        bench.Port().Receive(bytes, event);
    });
    Player(pieces, code).Play(expected, [&reference](const std::string& bytes, int event) {
        reference.Receive(bytes, event);
    });
    return {bench.events.list, expected.list};
}

}  // namespace

LinkComparison CompareMirror(std::string_view script) {
    LinkComparisonRig bench;
    clsMirror link(bench.ports, bench.failures, bench);
    LinkEvents expected;
    ReferenceMirror reference(expected);
    return Compare(script, platform::ReceptionEvent, bench, link, reference, expected);
}

LinkComparison CompareMotor(std::string_view script) {
    LinkComparisonRig bench;
    clsMotor link(bench.ports, bench, bench.state, bench, bench.failures);
    LinkEvents expected;
    ReferenceMotor reference(expected);
    LinkComparison result = Compare(script, platform::ReceptionEvent, bench, link, reference, expected);
    result.link.push_back(bench.state.bMotorONOFF ? "identified" : "unknown");
    result.reference.push_back(reference.Identified() ? "identified" : "unknown");
    return result;
}

LinkComparison CompareGauge(std::string_view script) {
    LinkComparisonRig bench;
    clsMagnescale link(bench.ports, bench.failures, bench);
    LinkEvents expected;
    ReferenceGauge reference(expected);
    return Compare(script, platform::ClearToSendEvent, bench, link, reference, expected);
}

}  // namespace travo::test
