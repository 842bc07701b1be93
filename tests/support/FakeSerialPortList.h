// A list of serial ports that the test writes.
#pragma once

#include <stdexcept>
#include <vector>

#include "platform/SerialPortList.h"

namespace travo::test {

class FakeSerialPortList : public platform::SerialPortList {
public:
    std::vector<Entry> List() override {
        ++asked;
        if (absent) {
            if (throwsNumbers) {
                throw 42;
            }
            throw std::runtime_error("the system gives no list");
        }
        return entries;
    }

    std::vector<Entry> entries;
    bool absent = false;         // List raises
    bool throwsNumbers = false;  // what it raises is no std::exception
    int asked = 0;
};

}  // namespace travo::test
