#include "Compared.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return travo::fuzz::Compared(data, size, travo::test::CompareGauge);
}
