#include "platform/qt/SerialSettings.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace travo::platform::qt {
namespace {

using Parity = SerialSettings::Parity;
using StopBits = SerialSettings::StopBits;

TEST(SerialSettingsTest, TheTextsOfTheInstrumentsAreRead) {
    EXPECT_EQ(ReadSerialSettings("9600,N,8,1"), (SerialSettings{9600, Parity::None, 8, StopBits::One}));
    EXPECT_EQ(ReadSerialSettings("2400,N,8,1"), (SerialSettings{2400, Parity::None, 8, StopBits::One}));
}

TEST(SerialSettingsTest, EveryFieldIsReadInEachOfItsForms) {
    EXPECT_EQ(ReadSerialSettings("1,E,5,1.5"), (SerialSettings{1, Parity::Even, 5, StopBits::OneAndHalf}));
    EXPECT_EQ(ReadSerialSettings("115200,O,6,2"), (SerialSettings{115200, Parity::Odd, 6, StopBits::Two}));
    EXPECT_EQ(ReadSerialSettings("999999999,N,7,1"),
              (SerialSettings{999999999, Parity::None, 7, StopBits::One}));
}

TEST(SerialSettingsTest, AnyOtherTextIsRefused) {
    for (const char* text : {"",
                             ",,,",
                             "9600",
                             "9600,N,8",
                             "9600,N,8,",
                             "9600,N,8,1,",
                             "9600,N,8,1,1",
                             "9600,N,,1",
                             ",N,8,1",
                             " 9600,N,8,1",
                             "9600, N,8,1",
                             "9600,N,8,1 ",
                             "9600,n,8,1",
                             "9600,M,8,1",
                             "9600,NN,8,1",
                             "9600,N,4,1",
                             "9600,N,9,1",
                             "9600,N,08,1",
                             "9600,N,8,0",
                             "9600,N,8,3",
                             "9600,N,8,1.0",
                             "9600,N,8,1.50",
                             "0,N,8,1",
                             "09600,N,8,1",
                             "-9600,N,8,1",
                             "+9600,N,8,1",
                             "96e2,N,8,1",
                             "0x10,N,8,1",
                             "1000000000,N,8,1",
                             "9600.0,N,8,1",
                             "9600;N;8;1"}) {
        EXPECT_THROW(ReadSerialSettings(text), std::runtime_error) << text;
    }
}

TEST(SerialSettingsTest, ANulInTheTextIsRefused) {
    EXPECT_THROW(ReadSerialSettings(std::string_view("9600,N,8,1\0", 11)), std::runtime_error);
}

}  // namespace
}  // namespace travo::platform::qt
