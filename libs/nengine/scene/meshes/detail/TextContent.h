#pragma once

#include "foundation/core/SmartPtr.h"
#include "nengine/font/detail/ShapedParagraph.h"
#include "nengine/scene/meshes/detail/FirstAndRest.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace nurel::font {
class Font;
}

namespace nurel::font::detail {
class TextSystem;
}

namespace nurel::scene::meshes::detail {

using font::detail::ShapedParagraph;
using font::detail::ShapedRun;

/// A paragraph in its text. A null shape is a paragraph that nobody could shape; it counts as empty.
struct TextParagraph {
    ::core::SmartPtr<ShapedParagraph> shape;
    std::uint32_t firstCharacter = 0; ///< in the text

    std::uint32_t getCount() const { return shape ? shape->characterCount : 0; }
};

/// A line: characters of one paragraph, counted from its start. Widths are in em.
struct TextLine {
    std::uint32_t paragraph = 0;
    std::uint32_t first = 0;
    std::uint32_t contentEnd = 0; ///< spaces from here to the end hang over the end of a broken line
    std::uint32_t end = 0;
    float width = 0.0f;
    float hang = 0.0f; ///< what stands out from the width after the last character
};

/// The lines for one width, in em.
struct TextLayout {
    float limit = -1.0f; ///< what they were broken for; negative: nothing
    float width = 0.0f;  ///< of the widest line
    FirstAndRest<TextLine> lines;
};

/// A stretch of one direction in a line. They stand from left to right.
struct TextPiece {
    const ShapedRun *run = nullptr;
    std::uint32_t first = 0;
    std::uint32_t end = 0;
    std::uint8_t level = 0;
};
using TextPieces = FirstAndRest<TextPiece>;

/// A text that has been shaped, and its lines. Sizes are in em, so a change of size alone costs nothing.
class TextContent {
public:
    /// Shapes it (mostly: finds it shaped). Without a system nothing is known but that there is one line.
    TextContent(const font::Font &font, std::string_view utf8, font::detail::TextSystem *system);
    ~TextContent();

    /// The text system's generation that this was made in.
    std::uint32_t getGeneration() const { return mGeneration; }

    const FirstAndRest<TextParagraph> &getParagraphs() const { return mParagraphs; }

    /// Lines for a width in em, negative for none. The ones without a limit and the last ones with one are kept.
    const TextLayout &getLayout(float limit, font::detail::TextSystem *system);

    /// The pieces of a line, and where the first of them begins relative to the line's left edge, in em.
    float getPieces(const TextLine &line, TextPieces &out) const;

    /// Which line a character of the text is in, and which of its paragraph's characters it is; a line end belongs to
    /// the last line of its paragraph.
    struct Place {
        const TextLine *line;
        std::size_t lineIndex;
        std::uint32_t character;
    };
    Place findPlace(const TextLayout &layout, std::uint32_t character) const;

    /// Where the caret stands in a line, from the line's left edge in em: in front of the character, or after it where
    /// the line ends with it.
    float getCaret(const TextLine &line, std::uint32_t character) const;

private:
    void shape(const font::Font &font, std::string_view utf8, font::detail::TextSystem &system);
    void layOutNaturally();

    FirstAndRest<TextParagraph> mParagraphs;
    TextLayout mNatural;
    std::unique_ptr<TextLayout> mWrapped; ///< null: not asked for
    std::uint32_t mGeneration;
};

} // namespace nurel::scene::meshes::detail
