#pragma once

namespace nurel::ui::css::detail {

/// Reads a decimal number at the text's start, after blanks and a sign, and moves the text behind it. False, and
/// nothing changes, where there is none. A number out of range gives the nearest int.
bool scanInt(const char *&text, int &number);

/// Likewise, with a fraction and an exponent. Words such as "inf" are no numbers. A number out of range gives the
/// nearest finite float.
bool scanFloat(const char *&text, float &number);

/// Reads "(n,n,…": the bracket, then that many numbers with a comma between them. What follows the last one is not
/// looked at. Where this fails, numbers may have been written.
bool scanInts(const char *text, int count, int *numbers);
bool scanFloats(const char *text, int count, float *numbers);

} // namespace nurel::ui::css::detail
