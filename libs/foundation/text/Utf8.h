#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// UTF-8 texts by characters, that is, code points. A byte that does not belong to a well-formed sequence counts as a
/// character of its own, so every text can be walked; nothing is read past the terminator.
namespace text {

/// The number of characters; 0 for null.
unsigned getUTF8Length(const char *text);

/// The byte index of the character with this index, counted from the given pointer; the length in bytes where the text
/// has not so many characters. Its cost is in proportion to that index, not to the text.
unsigned getUTF8Index(const char *text, unsigned character);

/// The index of the first byte that does not belong to a well-formed sequence; std::string_view::npos when all do.
std::size_t findMalformedUTF8(std::string_view text);

/// The characters of the text, U+FFFD for each malformed byte.
std::u32string decodeUTF8(std::string_view text);

} // namespace text
