#include "framework/int16.h"

#include "framework/text_ops.h"

#include <string>

namespace vantro {

std::int16_t toInt16(TextView text) {
    TextView digits = trimmed(text);
    const bool negative = !digits.empty() && digits.front() == u'-';
    if (negative || (!digits.empty() && digits.front() == u'+')) digits.remove_prefix(1);
    if (!isNumeric(digits)) fail(Failure::TypeMismatch);

    constexpr long long beyond = 100000;  // overflows in any case, so further digits do not matter
    long long number = 0;
    for (const char16_t digit : digits) {
        if (number < beyond) number = number * 10 + (digit - u'0');
    }
    return toInt16(negative ? -number : number);
}

std::int16_t toInt16(const ItemValue& value) {
    if (const auto* number = std::get_if<std::int16_t>(&value)) return *number;
    if (const auto* truth = std::get_if<bool>(&value)) return *truth ? std::int16_t{-1} : std::int16_t{0};
    if (const auto* text = std::get_if<Text>(&value)) return toInt16(TextView(*text));
    fail(Failure::TypeMismatch);
}

Text decimal(std::int16_t number) {
    const std::string digits = std::to_string(number);
    return Text(digits.begin(), digits.end());
}

}  // namespace vantro
