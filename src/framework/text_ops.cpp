#include "framework/text_ops.h"

#include "framework/simd.h"

#include <bit>

namespace vantro {

namespace {

#if VANTRO_SSE2

// Looks for the first and the last searched character at eight places at a time and compares what is between
// them only where both stand.
std::size_t placeOf(TextView text, TextView searched, std::size_t start) {
    if (searched.empty() || text.size() < searched.size()) return text.find(searched, start);
    const std::size_t reach = searched.size() - 1;
    const std::size_t places = text.size() - reach;  // places where the searched text may begin
    std::size_t begin = start;
    for (; begin + simd::charactersPerVector <= places; begin += simd::charactersPerVector) {
        const char16_t* const characters = text.data() + begin;
        const __m128i both = _mm_and_si128(simd::eachEqual(simd::load(characters), searched.front()),
                                           simd::eachEqual(simd::load(characters + reach), searched.back()));
        for (unsigned candidates = simd::bitsOfCharacters(both); candidates != 0; candidates &= candidates - 1) {
            const std::size_t place = begin + static_cast<std::size_t>(std::countr_zero(candidates));
            if (text.substr(place, searched.size()) == searched) return place;
        }
    }
    return text.find(searched, begin);
}

#else

std::size_t placeOf(TextView text, TextView searched, std::size_t start) { return text.find(searched, start); }

#endif

}  // namespace

Column find(TextView text, TextView searched, Column from) {
    if (from.value < 1) fail(Failure::InvalidProcedureCall);
    const std::size_t start = static_cast<std::size_t>(from.value - 1);
    if (start >= text.size()) return Column{0};
    const std::size_t place = placeOf(text, searched, start);
    return place == TextView::npos ? Column{0} : Column{static_cast<int>(place) + 1};
}

Text concat(std::initializer_list<TextView> parts) {
    std::size_t length = 0;
    for (const TextView part : parts) length += part.size();
    Text text;
    text.reserve(length);
    for (const TextView part : parts) text.append(part);
    return text;
}

}  // namespace vantro
