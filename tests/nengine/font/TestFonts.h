#pragma once

#include "nengine/font/Font.h"
#include "nengine/font/FontManager.h"
#include "nengine/font/detail/TextSystem.h"
#include "nengine/support/Screen.h"
#include "support/LogCapture.h"

#include <gtest/gtest.h>

#include <string>

namespace test {

constexpr const char *SANS_FILE = "tests/data/fonts/DejaVuSans.ttf";
constexpr const char *MONO_FILE = "tests/data/fonts/DejaVuSansMono.ttf";

/// Reads a font file's own numbers, without the code under test.
class FontFacts {
public:
    explicit FontFacts(const char *file = SANS_FILE);
    ~FontFacts();
    FontFacts(const FontFacts &) = delete;
    FontFacts &operator=(const FontFacts &) = delete;

    /// Unhinted, in em; of the missing glyph where the file has not the character.
    float getAdvance(char32_t character) const;

    /// The sum of the advances of a text without kerning or ligatures.
    float getAdvance(const std::u32string &characters) const;

    std::uint32_t getGlyph(char32_t character) const;

    /// In em; both positive.
    float getAscent() const;
    float getDescent() const;

private:
    struct State;
    State *mState;
};

/// A screen with a font manager whose default font is SANS_FILE and that looks at no installed fonts. An unexpected
/// warning or error in the log fails the test.
class TextTest : public testing::Test {
protected:
    TextTest();
    ~TextTest() override;

    /// Starts over with a manager whose default font is this file.
    void useDefault(const char *file);

    nurel::font::detail::TextSystem &getSystem() { return manager->getTextSystem(); }
    const nurel::font::ShapingStatistics &getShaping() const { return manager->getStatistics(); }

    LogCapture log;
    Screen screen;
    std::unique_ptr<nurel::font::FontManager> manager;
    FontFacts facts;
};

} // namespace test
