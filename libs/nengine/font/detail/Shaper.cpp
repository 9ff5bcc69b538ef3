#include "nengine/font/detail/Shaper.h"

#include "foundation/text/Utf8.h"
#include "nengine/font/Font.h"
#include "nengine/font/detail/Characters.h"
#include "nengine/font/detail/Face.h"
#include "nengine/font/detail/FontFallback.h"
#include "nengine/font/detail/TextBoundaries.h"

#include <harfbuzz/hb.h>

#include <algorithm>

namespace nurel::font::detail {

namespace {

constexpr char32_t ZERO_WIDTH_SPACE = 0x200b;
constexpr std::size_t MOST_KEPT = 65536; // characters of scratch memory that stay between paragraphs

std::uint32_t getScript(char32_t c) {
    if ((c >= U'a' && c <= U'z') || (c >= U'A' && c <= U'Z'))
        return HB_SCRIPT_LATIN;
    if (c < 0x80)
        return HB_SCRIPT_COMMON;
    return hb_unicode_script(hb_unicode_funcs_get_default(), c);
}

bool isShared(std::uint32_t script) {
    return script == HB_SCRIPT_COMMON || script == HB_SCRIPT_INHERITED || script == HB_SCRIPT_UNKNOWN;
}

template <class Vector>
void trim(Vector &scratch) {
    if (scratch.capacity() > MOST_KEPT)
        Vector().swap(scratch);
}

} // namespace

Shaper::Shaper(FontFallback &fallback, TextBoundaries &boundaries)
    : mFallback(fallback), mBoundaries(boundaries), mBuffer(hb_buffer_create()) {}

Shaper::~Shaper() {
    hb_buffer_destroy(mBuffer);
}

ShapedParagraph *Shaper::shape(const Font &font, std::string_view utf8) {
    const std::u32string characters = ::text::decodeUTF8(utf8);
    ::core::SmartPtr<ShapedParagraph> out(new ShapedParagraph(font.getId(), std::string(utf8)));
    out->characterCount = static_cast<std::uint32_t>(characters.size());
    out->baseLevel = mBoundaries.findLevels(characters, mLevels);
    if (Face *primary = font.getFace(); primary && !characters.empty()) {
        findScripts(characters);
        findFaces(*primary, characters);
        itemize(characters);
        prepareCharacters(characters);
        out->runs.reserve(mItems.size());
        out->glyphs.reserve(characters.size());
        for (const Item &item : mItems)
            shapeItem(item, characters, *out);
        out->glyphs.shrink_to_fit();
        double width = 0.0;
        for (const ShapedGlyph &glyph : out->glyphs)
            width += static_cast<double>(glyph.advance);
        out->width = static_cast<float>(width);
    }
    trim(mLevels);
    trim(mScripts);
    trim(mFaces);
    trim(mItems);
    trim(mPrepared);
    return out.release();
}

void Shaper::findScripts(const std::u32string &characters) {
    // What belongs to no script goes with the script before it; at the start, with the first one that follows.
    mScripts.resize(characters.size());
    std::uint32_t current = HB_SCRIPT_COMMON;
    std::size_t undecided = 0;
    for (std::size_t i = 0; i < characters.size(); ++i) {
        const std::uint32_t script = getScript(characters[i]);
        if (!isShared(script)) {
            if (isShared(current)) {
                for (; undecided < i; ++undecided)
                    mScripts[undecided] = script;
            }
            current = script;
        }
        mScripts[i] = current;
    }
}

void Shaper::findFaces(Face &primary, const std::u32string &characters) {
    mFaces.resize(characters.size());
    const std::u32string_view all(characters);
    Face *previous = &primary;
    for (std::size_t i = 0; i < all.size();) {
        const std::u32string_view cluster = all.substr(i, getClusterLength(all.substr(i)));
        if (!isInvisible(cluster.front()))
            previous = &mFallback.find(primary, cluster, isEmoji(cluster));
        else if (cluster.front() == U'\t')
            previous = &primary;
        for (std::size_t end = i + cluster.size(); i < end; ++i)
            mFaces[i] = previous;
    }
}

void Shaper::itemize(const std::u32string &characters) {
    mItems.clear();
    const auto count = static_cast<std::uint32_t>(characters.size());
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint8_t level = mLevels.empty() ? std::uint8_t{0} : mLevels[i];
        if (mItems.empty() || mItems.back().level != level || mItems.back().script != mScripts[i] ||
            mItems.back().face != mFaces[i])
            mItems.push_back({i, i, mScripts[i], mFaces[i], level});
        mItems.back().end = i + 1;
    }
}

void Shaper::prepareCharacters(const std::u32string &characters) {
    // Controls have no glyphs: they become something that every font shows as nothing. A tab gets its width afterwards.
    mPrepared = characters;
    for (char32_t &c : mPrepared) {
        if (c == U'\t')
            c = U' ';
        else if (isControl(c))
            c = ZERO_WIDTH_SPACE;
    }
}

void Shaper::shapeItem(const Item &item, const std::u32string &characters, ShapedParagraph &out) {
    hb_buffer_clear_contents(mBuffer);
    const auto *all = reinterpret_cast<const std::uint32_t *>(mPrepared.data());
    hb_buffer_add_utf32(mBuffer, all, static_cast<int>(mPrepared.size()), item.first,
                        static_cast<int>(item.end - item.first));
    hb_buffer_set_content_type(mBuffer, HB_BUFFER_CONTENT_TYPE_UNICODE);
    hb_buffer_set_direction(mBuffer, (item.level & 1) != 0 ? HB_DIRECTION_RTL : HB_DIRECTION_LTR);
    hb_buffer_set_script(mBuffer, static_cast<hb_script_t>(item.script));
    unsigned int flags = HB_BUFFER_FLAG_DEFAULT;
    if (item.first == 0)
        flags |= HB_BUFFER_FLAG_BOT;
    if (item.end == mPrepared.size())
        flags |= HB_BUFFER_FLAG_EOT;
    hb_buffer_set_flags(mBuffer, static_cast<hb_buffer_flags_t>(flags));
    hb_shape(item.face->getShapingFont(), mBuffer, nullptr, 0);
    appendGlyphs(item, characters, out);
}

void Shaper::appendGlyphs(const Item &item, const std::u32string &characters, ShapedParagraph &out) {
    unsigned int count = 0;
    const hb_glyph_info_t *infos = hb_buffer_get_glyph_infos(mBuffer, &count);
    const hb_glyph_position_t *positions = hb_buffer_get_glyph_positions(mBuffer, &count);
    const auto firstGlyph = static_cast<std::uint32_t>(out.glyphs.size());
    const auto toEm = [](hb_position_t units) {
        return static_cast<float>(units) / static_cast<float>(Face::UNITS_PER_EM);
    };
    for (unsigned int i = 0; i < count; ++i) {
        ShapedGlyph glyph = {infos[i].codepoint, infos[i].cluster, toEm(positions[i].x_advance),
                             toEm(positions[i].x_offset), toEm(positions[i].y_offset)};
        glyph.cluster = std::clamp(glyph.cluster, item.first, item.end - 1);
        if (characters[glyph.cluster] == U'\t')
            glyph.advance *= TAB_SPACES;
        out.glyphs.push_back(glyph);
    }
    out.runs.push_back(
        {item.face, item.first, item.end, firstGlyph, static_cast<std::uint32_t>(out.glyphs.size()), item.level});
}

} // namespace nurel::font::detail
