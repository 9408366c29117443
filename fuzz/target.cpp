// The entry of a fuzz target: the target fuzz_<name> is this file built
// with FUZZ_TARGET=<name> and linked with the checks that define
// Target::<name> (datafiles.cpp, romreaders.cpp).
#include "fuzz/fuzzinput.h"

namespace Target {
void FUZZ_TARGET(FuzzInput& input);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    Target::FUZZ_TARGET(input);
    return 0;
}
