#pragma once

#include "foundation/core/SmartPtr.h"
#include "nengine/font/detail/ShapedParagraph.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct hb_buffer_t;

namespace nurel::font {
class Font;
}

namespace nurel::font::detail {

class FontFallback;

/// Turns paragraphs into glyphs: splits them by direction, script and face, and shapes each stretch.
class Shaper {
public:
    /// How many spaces a tab is wide.
    static constexpr float TAB_SPACES = 4.0f;

    Shaper(FontFallback &fallback, TextBoundaries &boundaries);
    ~Shaper();
    Shaper(const Shaper &) = delete;
    Shaper &operator=(const Shaper &) = delete;

    /// The new paragraph has count 0 and is the caller's. `utf8` holds no line ends.
    ShapedParagraph *shape(const Font &font, std::string_view utf8);

private:
    struct Item {
        std::uint32_t first;
        std::uint32_t end;
        std::uint32_t script; ///< as the shaping library numbers them
        Face *face;
        std::uint8_t level;
    };

    void findScripts(const std::u32string &characters);
    void findFaces(Face &primary, const std::u32string &characters);
    void itemize(const std::u32string &characters);
    void prepareCharacters(const std::u32string &characters);
    void shapeItem(const Item &item, const std::u32string &characters, ShapedParagraph &out);
    void appendGlyphs(const Item &item, const std::u32string &characters, ShapedParagraph &out);

    FontFallback &mFallback;
    TextBoundaries &mBoundaries;
    hb_buffer_t *mBuffer;
    // Of the paragraph at hand, one a character; kept for their memory.
    std::vector<std::uint8_t> mLevels; ///< empty: all from left to right
    std::vector<std::uint32_t> mScripts;
    std::vector<Face *> mFaces;
    std::vector<Item> mItems;
    std::u32string mPrepared;
};

} // namespace nurel::font::detail
