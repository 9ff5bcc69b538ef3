#pragma once

namespace text {

/// Numbers and comparisons that do not depend on the process's locale. A null text counts as an empty one.
class StringUtil {
public:
    StringUtil() = delete;

    /// The decimal number at the start of the text, after blanks and a sign; stops at the first character that cannot
    /// belong to it, 0 where there is none. A number out of range gives the nearest int.
    static int parseInt(const char *text);

    /// Likewise, with a fraction and an exponent: "12.5px" gives 12.5, ".5" 0.5, "1e3" 1000. Only digits make a number,
    /// words such as "inf" do not. A number out of range gives the nearest finite float, one too small 0.
    static float parseFloat(const char *text);

    /// Below 0, 0 or above 0 as a comes before b, is equal or comes after it; letters a to z count as A to Z,
    /// everything else by its bytes. An empty text comes first.
    static int compareIgnoreCase(const char *a, const char *b);
};

} // namespace text
