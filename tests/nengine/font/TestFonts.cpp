#include "nengine/font/TestFonts.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <stdexcept>

namespace test {

struct FontFacts::State {
    FT_Library library = nullptr;
    FT_Face face = nullptr;
};

FontFacts::FontFacts(const char *file) : mState(new State) {
    if (FT_Init_FreeType(&mState->library) != 0 || FT_New_Face(mState->library, file, 0, &mState->face) != 0)
        throw std::runtime_error(std::string("cannot read ") + file);
}

FontFacts::~FontFacts() {
    FT_Done_Face(mState->face);
    FT_Done_FreeType(mState->library);
    delete mState;
}

std::uint32_t FontFacts::getGlyph(char32_t character) const {
    return FT_Get_Char_Index(mState->face, character);
}

float FontFacts::getAdvance(char32_t character) const {
    FT_Load_Glyph(mState->face, getGlyph(character), FT_LOAD_NO_SCALE);
    return static_cast<float>(mState->face->glyph->metrics.horiAdvance) / mState->face->units_per_EM;
}

float FontFacts::getAdvance(const std::u32string &characters) const {
    float sum = 0;
    for (const char32_t c : characters)
        sum += getAdvance(c);
    return sum;
}

float FontFacts::getAscent() const {
    return static_cast<float>(mState->face->ascender) / mState->face->units_per_EM;
}

float FontFacts::getDescent() const {
    return static_cast<float>(-mState->face->descender) / mState->face->units_per_EM;
}

TextTest::TextTest() {
    useDefault(SANS_FILE);
    screen.pass->setVerify(true);
}

void TextTest::useDefault(const char *file) {
    manager.reset();
    manager = std::make_unique<nurel::font::FontManager>(screen.atlas.get(), nullptr, file);
    manager->setSystemFonts(false);
}

TextTest::~TextTest() {
    EXPECT_EQ(screen.getStatistics().verifyFailures, 0u);
}

} // namespace test
