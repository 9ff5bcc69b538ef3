#include "nengine/font/detail/FontDiscovery.h"

#include "foundation/text/StringUtil.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <memory>

namespace nurel::font::detail {

namespace {

struct PatternDeleter {
    void operator()(FcPattern *pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, PatternDeleter>;

struct FontSetDeleter {
    void operator()(FcFontSet *set) const { FcFontSetDestroy(set); }
};
using FontSet = std::unique_ptr<FcFontSet, FontSetDeleter>;

const FcChar8 *toFc(const char *text) {
    return reinterpret_cast<const FcChar8 *>(text);
}

const char *fromFc(const FcChar8 *text) {
    return reinterpret_cast<const char *>(text);
}

// Names that stand for whatever the system has chosen for them.
const char *const GENERIC_NAMES[] = {"sans-serif", "serif", "monospace", "cursive", "fantasy", "system-ui"};

bool isGeneric(const char *name) {
    return std::any_of(std::begin(GENERIC_NAMES), std::end(GENERIC_NAMES), [name](const char *generic) {
        return ::text::StringUtil::compareIgnoreCase(generic, name) == 0;
    });
}

// What can be rasterised here: outlines, or pictures with colours.
bool isUsable(FcPattern *font) {
    FcBool scalable = FcFalse;
    FcBool colored = FcFalse;
    FcPatternGetBool(font, FC_SCALABLE, 0, &scalable);
    FcPatternGetBool(font, FC_COLOR, 0, &colored);
    FcChar8 *format = nullptr;
    if (FcPatternGetString(font, FC_FONTFORMAT, 0, &format) == FcResultMatch &&
        std::strcmp(fromFc(format), "TrueType") != 0 && std::strcmp(fromFc(format), "CFF") != 0)
        return false;
    return scalable || colored;
}

FontFile toFile(FcPattern *font) {
    FontFile file;
    FcChar8 *path = nullptr;
    if (!font || !isUsable(font) || FcPatternGetString(font, FC_FILE, 0, &path) != FcResultMatch)
        return file;
    file.path = fromFc(path);
    int index = 0;
    if (FcPatternGetInteger(font, FC_INDEX, 0, &index) == FcResultMatch)
        file.index = static_cast<unsigned int>(index);
    return file;
}

// A family that the configuration puts in place of the one that was asked for is bound to it strongly or as the same;
// the general fallbacks, which follow for every name, are bound weakly.
bool isAskedFor(FcPattern *request, FcPattern *font) {
    FcChar8 *family = nullptr;
    for (int i = 0; FcPatternGetString(font, FC_FAMILY, i, &family) == FcResultMatch; ++i) {
        FcValue value;
        FcValueBinding binding;
        for (int j = 0; FcPatternGetWithBinding(request, FC_FAMILY, j, &value, &binding) == FcResultMatch; ++j) {
            if (binding != FcValueBindingWeak && value.type == FcTypeString &&
                FcStrCmpIgnoreCase(value.u.s, family) == 0)
                return true;
        }
    }
    return false;
}

Pattern makeRequest(FcConfig *config, const char *family) {
    Pattern request(FcPatternCreate());
    if (!request)
        return request;
    if (family)
        FcPatternAddString(request.get(), FC_FAMILY, toFc(family));
    FcPatternAddInteger(request.get(), FC_WEIGHT, FC_WEIGHT_REGULAR);
    FcPatternAddInteger(request.get(), FC_SLANT, FC_SLANT_ROMAN);
    FcConfigSubstitute(config, request.get(), FcMatchPattern);
    FcDefaultSubstitute(request.get());
    return request;
}

} // namespace

struct FontDiscovery::Candidate {
    FcPattern *font;
    FcCharSet *characters;
    bool colored;
};

FontDiscovery::FontDiscovery() = default;

FontDiscovery::~FontDiscovery() {
    if (mFonts)
        FcFontSetSortDestroy(mFonts);
    if (mCovered)
        FcCharSetDestroy(mCovered);
    if (mConfig)
        FcConfigDestroy(mConfig);
}

bool FontDiscovery::init() {
    if (!mTried) {
        mTried = true;
        mConfig = FcInitLoadConfigAndFonts();
    }
    return mConfig != nullptr;
}

FontFile FontDiscovery::find(const char *name) {
    if (!init())
        return {};
    FontFile file = match(name, isGeneric(name));
    return file.path.empty() ? findFullName(name) : file;
}

FontFile FontDiscovery::findDefault() {
    if (!init())
        return {};
    return match("sans-serif", true);
}

FontFile FontDiscovery::match(const char *family, bool anyFamily) {
    const Pattern request = makeRequest(mConfig, family);
    if (!request)
        return {};
    FcResult result = FcResultNoMatch;
    const Pattern font(FcFontMatch(mConfig, request.get(), &result));
    if (!font || (!anyFamily && !isAskedFor(request.get(), font.get())))
        return {};
    return toFile(font.get());
}

FontFile FontDiscovery::findFullName(const char *name) {
    const Pattern wanted(FcPatternCreate());
    FcPatternAddString(wanted.get(), FC_FULLNAME, toFc(name));
    FcObjectSet *fields =
        FcObjectSetBuild(FC_FILE, FC_INDEX, FC_SCALABLE, FC_COLOR, FC_FONTFORMAT, static_cast<char *>(nullptr));
    const FontSet fonts(FcFontList(mConfig, wanted.get(), fields));
    FcObjectSetDestroy(fields);
    for (int i = 0; fonts && i < fonts->nfont; ++i) {
        FontFile file = toFile(fonts->fonts[i]);
        if (!file.path.empty())
            return file;
    }
    return {};
}

bool FontDiscovery::needCandidates() {
    if (mSorted)
        return mFonts != nullptr;
    mSorted = true;
    if (!init())
        return false;
    const Pattern request = makeRequest(mConfig, "sans-serif");
    if (!request)
        return false;
    FcResult result = FcResultNoMatch;
    mFonts = FcFontSort(mConfig, request.get(), FcFalse, &mCovered, &result);
    for (int i = 0; mFonts && i < mFonts->nfont; ++i) {
        FcPattern *font = mFonts->fonts[i];
        FcCharSet *characters = nullptr;
        if (!isUsable(font) || FcPatternGetCharSet(font, FC_CHARSET, 0, &characters) != FcResultMatch)
            continue;
        FcBool colored = FcFalse;
        FcPatternGetBool(font, FC_COLOR, 0, &colored);
        mCandidates.push_back({font, characters, colored != FcFalse});
    }
    return mFonts != nullptr;
}

std::size_t FontDiscovery::getCount() {
    needCandidates();
    return mCandidates.size();
}

std::size_t FontDiscovery::findCharacters(std::u32string_view characters, bool colored, std::size_t from) {
    if (!needCandidates())
        return 0;
    const auto hasAll = [&](const FcCharSet *set) {
        return std::all_of(characters.begin(), characters.end(),
                           [set](char32_t c) { return FcCharSetHasChar(set, c); });
    };
    if (mCovered && !hasAll(mCovered))
        return mCandidates.size();
    for (std::size_t i = from; i < mCandidates.size(); ++i) {
        if ((!colored || mCandidates[i].colored) && hasAll(mCandidates[i].characters))
            return i;
    }
    return mCandidates.size();
}

FontFile FontDiscovery::getFile(std::size_t position) const {
    return position < mCandidates.size() ? toFile(mCandidates[position].font) : FontFile();
}

} // namespace nurel::font::detail
