// Links whose instruments send without an end.
#include "devices/links/LineLimit.h"

#include <malloc.h>

#include <optional>

#include "devices/links/LinkRig.h"
#include "devices/links/clsMagnescale.h"
#include "devices/links/clsMirror.h"
#include "devices/links/clsMotor.h"

namespace travo::test {
namespace {

const std::string MirrorDropped = "dropped 0";
const std::string GaugeDropped = "dropped 1";
const std::string MotorDropped = "dropped 2";
constexpr std::size_t FloodBytes = std::size_t{16} * 1024 * 1024;

class NoListener : public SharedState::Listener {
    void MagnificationChanged(std::int16_t) override {}
    void ViewChanged() override {}
};

// All three links; what they tell goes to one journal.
class LineLimitTest : public LinkRig,
                      public clsMirror::Receiver,
                      public clsMotor::Panel,
                      public clsMagnescale::Receiver {
protected:
    LineLimitTest() {
        mirror.emplace(serialPorts, failures, *this);
        motor.emplace(serialPorts, eventLoop, state, *this, failures);
        gauge.emplace(serialPorts, failures, *this);
        mirror->PortOpen(1);
        motor->PortOpen(2);
        gauge->PortOpen(3);
        for (FakeSerialPort* const port : serialPorts.created) {
            port->TakeOutput();
        }
        journal.clear();
    }

    void FromMirror(std::string_view text) { serialPorts.created[0]->Receive(text); }
    void FromMotor(std::string_view text) { serialPorts.created[1]->Receive(text); }
    void FromGauge(std::string_view text) {
        serialPorts.created[2]->Receive(text, platform::ClearToSendEvent);
    }

    // A line of so many bytes that gives X 5.
    static std::string MirrorLineOf(std::size_t size) { return "aD2R" + std::string(size - 5, '0') + "5"; }
    // Sends noise in pieces; how many bytes stay with the program for it.
    template <typename Send>
    static std::size_t HeldAfter(Send&& send, char noise = 'x') {
        const std::string piece(4096, noise);
        const std::size_t before = ::mallinfo2().uordblks;
        for (std::size_t sent = 0; sent < FloodBytes; sent += piece.size()) {
            send(piece);
        }
        const std::size_t after = ::mallinfo2().uordblks;
        return after > before ? after - before : 0;
    }

    NoListener listener;
    SharedState state{listener};
    std::optional<clsMirror> mirror;
    std::optional<clsMotor> motor;
    std::optional<clsMagnescale> gauge;

private:
    void ReceiveMirrorXData(std::int32_t Data) override { journal.push_back("X " + std::to_string(Data)); }
    void ReceiveMirrorYData(std::int32_t Data) override { journal.push_back("Y " + std::to_string(Data)); }
    void ReceiveMirrorXYData(std::int32_t, std::int32_t) override {}
    void ReceiveMagnificationData(std::int16_t) override {}
    void ReceiveMotorData(std::int16_t) override {}
    void MotorErgoConnect(std::string_view strData) override {
        journal.push_back("ergo " + std::to_string(strData.size()));
    }
    void ControlONOFF(bool ONOFF) override { journal.push_back(ONOFF ? "unlock" : "lock"); }
    void MagnescaleData(std::int32_t Data) override { journal.push_back("Z " + std::to_string(Data)); }
};

TEST_F(LineLimitTest, AMirrorLineOf64KilobytesIsTakenAndOneByteMoreIsDropped) {
    FromMirror(MirrorLineOf(MostLineBytes) + "\r\n");
    EXPECT_EQ(journal, Journal{"X 5"});
    FromMirror(MirrorLineOf(MostLineBytes + 1) + "\r\naD1R7\r\n");
    EXPECT_EQ(journal, (Journal{"X 5", "Y 7", MirrorDropped}));
}

TEST_F(LineLimitTest, AMirrorLineIsAsLongInPieces) {
    const std::string longest = MirrorLineOf(MostLineBytes);
    FromMirror(longest);
    FromMirror("\r");
    FromMirror("\n");
    EXPECT_EQ(journal, Journal{"X 5"});
    FromMirror(longest);
    FromMirror("0");
    EXPECT_EQ(journal, (Journal{"X 5", MirrorDropped}));
    FromMirror("12\r");
    FromMirror("\naD1R7\r\n");
    EXPECT_EQ(journal, (Journal{"X 5", MirrorDropped, "Y 7"}));
}

TEST_F(LineLimitTest, ALineOfTheErgoUnitIsDroppedUpToItsOwnEnd) {
    const std::string longest = "RZ" + std::string(MostLineBytes - 2, '1');
    FromMirror(longest + "\r");
    EXPECT_EQ(journal, Journal{"ergo 65536"});
    journal.clear();
    FromMirror(longest);
    FromMirror("1");
    FromMirror("11\rRZ1\r");
    EXPECT_EQ(journal, (Journal{MirrorDropped, "ergo 3"}));
}

TEST_F(LineLimitTest, WhatAMirrorSendsWithoutAnEndIsNotKeptAndToldOfOnce) {
    EXPECT_LT(HeldAfter([this](const std::string& piece) { FromMirror(piece); }), 4 * MostLineBytes);
    EXPECT_EQ(journal, Journal{MirrorDropped});
    FromMirror("\r\naD1R7\r\n");
    EXPECT_EQ(journal, (Journal{MirrorDropped, "Y 7"}));
    FromMirror(MirrorLineOf(MostLineBytes + 1) + "\r\n");
    EXPECT_EQ(journal, (Journal{MirrorDropped, "Y 7", MirrorDropped}));
}

TEST_F(LineLimitTest, CarriageReturnsAloneEndNoFloodOfTheMirror) {
    EXPECT_LT(HeldAfter([this](const std::string& piece) { FromMirror(piece); }, '\r'), 4 * MostLineBytes);
    FromMirror("\naD1R7\r\n");
    EXPECT_EQ(journal, (Journal{MirrorDropped, "Y 7"}));
}

TEST_F(LineLimitTest, AnErrorLineOf4MegabytesIsNeitherShownNorLogged) {
    FromMirror("nD2A" + std::string(std::size_t{4} * 1024 * 1024, ' ') + "2\r\n");
    FromMotor(std::string(std::size_t{4} * 1024 * 1024, 'Z') + "\r");
    EXPECT_TRUE(Silent());
    EXPECT_EQ(journal, (Journal{MirrorDropped, MotorDropped}));
}

TEST_F(LineLimitTest, AMotorLineOf64KilobytesIsTakenAndOneByteMoreIsDropped) {
    FromMotor(std::string(MostLineBytes, 'A') + "\r");
    EXPECT_EQ(journal, Journal{"unlock"});
    FromMotor(std::string(MostLineBytes + 1, 'A') + "\rA\r");
    EXPECT_EQ(journal, (Journal{"unlock", "unlock", MotorDropped}));
}

TEST_F(LineLimitTest, WhatAMotorSendsWithoutAnEndIsNotKeptAndToldOfOnce) {
    EXPECT_LT(HeldAfter([this](const std::string& piece) { FromMotor(piece); }), 4 * MostLineBytes);
    EXPECT_EQ(journal, Journal{MotorDropped});
    FromMotor("A\rA\r");
    EXPECT_EQ(journal, (Journal{MotorDropped, "unlock"}));
    EXPECT_TRUE(Silent());
}

TEST_F(LineLimitTest, NoiseOfTheGaugeIsNotKeptToldOfOnceAndAReadingBehindItCounts) {
    EXPECT_LT(HeldAfter([this](const std::string& piece) { FromGauge(piece); }), 4 * MostLineBytes);
    EXPECT_EQ(journal, Journal{GaugeDropped});
    FromGauge("A+01");
    FromGauge(".234");
    EXPECT_EQ(journal, (Journal{GaugeDropped, "Z 1234"}));
}

TEST_F(LineLimitTest, AReadingWhoseBeginningCameBehindLongNoiseIsKept) {
    FromGauge(std::string(MostLineBytes + 1, 'x') + "A+01");
    FromGauge(".234");
    EXPECT_EQ(journal, (Journal{GaugeDropped, "Z 1234"}));
}

TEST_F(LineLimitTest, WhatIsKeptOverAClosingCounts) {
    const std::string half(MostLineBytes / 2 + 1, '0');
    FromMirror("aD2R" + half);
    FromMotor("A" + half);
    mirror->PortClose();
    motor->PortClose();
    mirror->PortOpen(1);
    motor->PortOpen(2);
    journal.clear();
    FromMirror(half + "5\r\naD1R7\r\n");
    FromMotor(half + "\r");
    EXPECT_EQ(journal, (Journal{"Y 7", MirrorDropped, MotorDropped}));
}

TEST_F(LineLimitTest, ADroppedLineGoesOnOverAClosing) {
    FromMirror(MirrorLineOf(MostLineBytes + 1));
    mirror->PortClose();
    mirror->PortOpen(1);
    journal.clear();
    FromMirror("aD2R3\r\naD1R7\r\n");
    EXPECT_EQ(journal, Journal{"Y 7"});
}

}  // namespace
}  // namespace travo::test
