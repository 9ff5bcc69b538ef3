#pragma once

#include <cstddef>
#include <string_view>

namespace nurel::font::detail {

/// Characters that show nothing and need no glyph: controls, joiners, direction marks, variation selectors and the
/// like.
bool isInvisible(char32_t character);

/// C0 and C1 controls, the line separators among them.
bool isControl(char32_t character);

/// The length of the cluster at the start of the text that must come from one face: a letter with its marks, an emoji
/// sequence. At least 1 for a text that is not empty, and at most 16.
std::size_t getClusterLength(std::u32string_view text);

/// Whether a cluster is to be shown as a picture with colours.
bool isEmoji(std::u32string_view cluster);

} // namespace nurel::font::detail
