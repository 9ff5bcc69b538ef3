#include "foundation/text/StringUtil.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace text {

namespace {

bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

char toUpper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// Moves past blanks and one sign, and says whether that was a minus.
bool skipSign(const char *&at) {
    while (isBlank(*at))
        ++at;
    const bool negative = *at == '-';
    if (*at == '-' || *at == '+')
        ++at;
    return negative;
}

/// Moves past digits and says how many there were.
long long skipDigits(const char *&at) {
    const char *const begin = at;
    while (isDigit(*at))
        ++at;
    return at - begin;
}

/// Reads the exponent at the text's start and moves past it; 0 where there is none.
long long skipExponent(const char *&text) {
    if (*text != 'e' && *text != 'E')
        return 0;
    const char *at = text + 1;
    const bool negative = *at == '-';
    if (*at == '-' || *at == '+')
        ++at;
    const char *const digits = at;
    if (skipDigits(at) == 0)
        return 0;
    text = at;
    int exponent = 0;
    if (std::from_chars(digits, at, exponent).ec == std::errc::result_out_of_range)
        exponent = std::numeric_limits<int>::max();
    return negative ? -static_cast<long long>(exponent) : exponent;
}

/// How far a number without a sign reaches: digits, perhaps a point and more digits, perhaps an exponent.
struct Decimal {
    const char *end; ///< the start where there is no number
    bool large;      ///< whether the value is 1 or more
};

Decimal scanDecimal(const char *text) {
    const char *at = text;
    while (*at == '0')
        ++at;
    long long magnitude = skipDigits(at); // digits before the point, or minus the zeros straight after it
    if (*at == '.' && (at != text || isDigit(at[1]))) {
        ++at;
        if (magnitude == 0) {
            const char *const zeros = at;
            while (*at == '0')
                ++at;
            magnitude = zeros - at;
        }
        skipDigits(at);
    }
    if (at != text)
        magnitude += skipExponent(at);
    return {at, magnitude > 0};
}

} // namespace

int StringUtil::parseInt(const char *text) {
    if (!text)
        return 0;
    const bool negative = skipSign(text);
    const char *end = text;
    skipDigits(end);
    int value = 0;
    if (!negative)
        return std::from_chars(text, end, value).ec == std::errc::result_out_of_range ? std::numeric_limits<int>::max()
                                                                                      : value;
    long long magnitude = 0;
    const long long lowest = std::numeric_limits<int>::min();
    if (std::from_chars(text, end, magnitude).ec == std::errc::result_out_of_range)
        return std::numeric_limits<int>::min();
    return static_cast<int>(std::max(-magnitude, lowest));
}

float StringUtil::parseFloat(const char *text) {
    if (!text)
        return 0;
    const bool negative = skipSign(text);
    const Decimal decimal = scanDecimal(text);
    float value = 0;
    const std::errc error = std::from_chars(text, decimal.end, value).ec;
    if (error == std::errc::result_out_of_range || std::isinf(value))
        value = decimal.large ? std::numeric_limits<float>::max() : 0;
    return negative ? -value : value;
}

int StringUtil::compareIgnoreCase(const char *a, const char *b) {
    if (!a)
        a = "";
    if (!b)
        b = "";
    while (*a && toUpper(*a) == toUpper(*b)) {
        ++a;
        ++b;
    }
    return static_cast<unsigned char>(toUpper(*a)) - static_cast<unsigned char>(toUpper(*b));
}

} // namespace text
