#include "nui/ui/css/detail/NumberScan.h"

#include "foundation/text/StringUtil.h"

#include <cstring>

namespace nurel::ui::css::detail {

namespace {

constexpr const char *BLANKS = " \t\n\v\f\r";
constexpr const char *DIGITS = "0123456789";

const char *skipSign(const char *text) {
    text += std::strspn(text, BLANKS);
    return *text == '-' || *text == '+' ? text + 1 : text;
}

/// Behind the exponent at the text's start; the text itself where there is none.
const char *skipExponent(const char *text) {
    if (*text != 'e' && *text != 'E')
        return text;
    const char *const digits = text[1] == '-' || text[1] == '+' ? text + 2 : text + 1;
    const std::size_t count = std::strspn(digits, DIGITS);
    return count > 0 ? digits + count : text;
}

template <class T>
bool scanList(const char *text, int count, T *numbers, bool (&scan)(const char *&, T &)) {
    if (*text++ != '(')
        return false;
    for (int i = 0; i < count; ++i) {
        if (i > 0 && *text++ != ',')
            return false;
        if (!scan(text, numbers[i]))
            return false;
    }
    return true;
}

} // namespace

bool scanInt(const char *&text, int &number) {
    const char *const digits = skipSign(text);
    const std::size_t count = std::strspn(digits, DIGITS);
    if (count == 0)
        return false;
    number = text::StringUtil::parseInt(text);
    text = digits + count;
    return true;
}

bool scanFloat(const char *&text, float &number) {
    const char *const begin = skipSign(text);
    std::size_t digits = std::strspn(begin, DIGITS);
    const char *end = begin + digits;
    if (*end == '.') {
        const std::size_t fraction = std::strspn(end + 1, DIGITS);
        end += 1 + fraction;
        digits += fraction;
    }
    if (digits == 0)
        return false;
    number = text::StringUtil::parseFloat(text);
    text = skipExponent(end);
    return true;
}

bool scanInts(const char *text, int count, int *numbers) {
    return scanList(text, count, numbers, scanInt);
}

bool scanFloats(const char *text, int count, float *numbers) {
    return scanList(text, count, numbers, scanFloat);
}

} // namespace nurel::ui::css::detail
