// The functions that libFuzzer calls; compiled once per target with its name as VANTRO_FUZZ_TARGET.
#include "fuzz/common/line_mutator.h"
#include "fuzz/targets.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

using vantro::fuzz::Bytes;

namespace {

const vantro::fuzz::Target& target() {
    static const vantro::fuzz::Target& chosen = *vantro::fuzz::findTarget(VANTRO_FUZZ_TARGET);
    return chosen;
}

#ifdef VANTRO_FUZZ_LINES
std::size_t copyOut(const std::string& text, std::uint8_t* data, std::size_t room) {
    const std::size_t size = std::min(text.size(), room);
    std::memcpy(data, text.data(), size);
    return size;
}
#endif

}  // namespace

extern "C" {

std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t room);

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string message = target().run(Bytes(data, size));
    if (message.empty()) return 0;
    std::fputs(message.c_str(), stderr);
    std::abort();
}

#ifdef VANTRO_FUZZ_LINES
// One mutation in four is libFuzzer's own; the others work on lines.
std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t room, unsigned seed);
std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t room, unsigned seed) {
    if (seed % 4 == 0) return LLVMFuzzerMutate(data, size, room);
    vantro::fuzz::LineMutator mutator(seed, target().marks);
    return copyOut(mutator.mutated(Bytes(data, size)), data, room);
}

std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* data, std::size_t size, const std::uint8_t* other,
                                      std::size_t otherSize, std::uint8_t* out, std::size_t room, unsigned seed);
std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* data, std::size_t size, const std::uint8_t* other,
                                      std::size_t otherSize, std::uint8_t* out, std::size_t room, unsigned seed) {
    vantro::fuzz::LineMutator mutator(seed, target().marks);
    return copyOut(mutator.crossed(Bytes(data, size), Bytes(other, otherSize)), out, room);
}
#endif
}
