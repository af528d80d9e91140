#include "tests/fuzz/Statement.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tamba::fuzzing::readStatement(data, size, "a.json");
    return 0;
}
