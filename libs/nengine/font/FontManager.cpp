#include "nengine/font/FontManager.h"

#include "foundation/logging/Logger.h"
#include "foundation/text/StringUtil.h"
#include "nengine/font/Font.h"
#include "nengine/font/detail/Face.h"
#include "nengine/font/detail/TextSystem.h"
#include "nengine/texture/Atlas.h"
#include "nengine/texture/Texture.h"

#include <cassert>
#include <map>
#include <string>
#include <vector>

namespace nurel::font {

namespace {

struct IgnoreCase {
    bool operator()(const std::string &a, const std::string &b) const {
        return ::text::StringUtil::compareIgnoreCase(a.c_str(), b.c_str()) < 0;
    }
};

bool isEmpty(const char *text) {
    return !text || *text == '\0';
}

constexpr std::size_t MOST_MISSES = 1024; // names that are remembered as unknown

} // namespace

struct FontManager::Registry {
    texture::Atlas *atlas = nullptr;
    std::string defaultFamily;
    ::core::SmartPtr<detail::Face> defaultFile; ///< null: none was given, or it cannot be used
    std::map<std::string, ::core::SmartPtr<Font>, IgnoreCase> added;
    std::map<std::string, ::core::SmartPtr<Font>, IgnoreCase> installed; ///< null: not found
    std::vector<::core::SmartPtr<Font>> replaced;                        ///< whoever looked one up may still look at it
    ::core::SmartPtr<Font> defaultFont;
    ::core::SmartPtr<texture::Texture> glyphTexture;
    bool rebuild = false;
};

FontManager *FontManager::sInstance = nullptr;

FontManager::FontManager(texture::Atlas *atlas, const char *defaultFamily, const char *defaultFile)
    : mSystem(std::make_unique<detail::TextSystem>(atlas)), mRegistry(std::make_unique<Registry>()) {
    assert(!sInstance && "one font manager at a time");
    sInstance = this;
    mRegistry->atlas = atlas;
    mRegistry->defaultFamily = defaultFamily ? defaultFamily : "";
    if (!isEmpty(defaultFile)) {
        mRegistry->defaultFile = openFile(defaultFile);
        mSystem->getFallback().setDefaultFace(mRegistry->defaultFile.get());
    }
}

FontManager::~FontManager() {
    sInstance = nullptr;
}

Font *FontManager::operator[](const char *name) {
    if (isEmpty(name))
        return nullptr;
    const auto added = mRegistry->added.find(name);
    if (added != mRegistry->added.end())
        return added->second.get();
    const auto installed = mRegistry->installed.find(name);
    if (installed != mRegistry->installed.end())
        return installed->second.get();
    if (mRegistry->installed.size() >= MOST_MISSES)
        std::erase_if(mRegistry->installed, [](const auto &entry) { return !entry.second; });
    Font *font = findInstalled(name);
    mRegistry->installed[name] = font;
    return font;
}

Font *FontManager::findInstalled(const char *name) {
    detail::FontFallback &fallback = mSystem->getFallback();
    if (!fallback.isSystemFonts())
        return nullptr;
    const detail::FontFile file = fallback.getDiscovery().find(name);
    detail::Face *face = file.path.empty() ? nullptr : fallback.openInstalled(file);
    return face ? new Font(name, face, Font::DEFAULT_SIZE) : nullptr;
}

Font *FontManager::getDefaultFont() {
    if (!mRegistry->defaultFont)
        chooseDefault();
    return mRegistry->defaultFont.get();
}

void FontManager::chooseDefault() {
    detail::FontFallback &fallback = mSystem->getFallback();
    const std::string &family = mRegistry->defaultFamily;
    ::core::SmartPtr<detail::Face> face = mRegistry->defaultFile;
    if (!face && !family.empty()) {
        mRegistry->defaultFont = (*this)[family.c_str()];
        if (mRegistry->defaultFont)
            face = mRegistry->defaultFont->getFace();
        else
            logging::Logger::mROOT_LOGGER.warn("Cannot find font %s: the system's sans-serif stands in for it",
                                               family.c_str());
    }
    if (!face && fallback.isSystemFonts()) {
        const detail::FontFile found = fallback.getDiscovery().findDefault();
        if (!found.path.empty())
            face = fallback.openInstalled(found);
    }
    if (!face)
        logging::Logger::mROOT_LOGGER.error("No font found: texts are not shown");
    if (!mRegistry->defaultFont)
        mRegistry->defaultFont = new Font("default", face.get(), Font::DEFAULT_SIZE);
    fallback.setDefaultFace(face.get());
}

::core::SmartPtr<detail::Face> FontManager::openFile(const char *file) {
    std::string reason;
    ::core::SmartPtr<detail::Face> face = detail::Face::openFile(mSystem->getLibrary(), file, 0, reason);
    if (!face)
        logging::Logger::mROOT_LOGGER.error("Cannot load font %s: %s", file, reason.c_str());
    return face;
}

Font *FontManager::add(const char *name, const char *file, float size) {
    const auto face = openFile(file ? file : "");
    return face ? enter(name, face.get(), size) : nullptr;
}

Font *FontManager::add(const char *name, std::span<const std::byte> bytes, float size) {
    std::string reason;
    const auto face = detail::Face::openMemory(mSystem->getLibrary(), bytes.data(), bytes.size(), reason);
    if (!face) {
        logging::Logger::mROOT_LOGGER.error("Cannot load font %s: %s", name ? name : "", reason.c_str());
        return nullptr;
    }
    return enter(name, face.get(), size);
}

Font *FontManager::enter(const char *name, detail::Face *face, float size) {
    detail::FontFallback &fallback = mSystem->getFallback();
    ::core::SmartPtr<Font> &entry = mRegistry->added[name ? name : ""];
    if (entry) {
        fallback.removeFace(entry->getFace());
        mRegistry->replaced.push_back(entry);
    }
    entry = new Font(name, face, size);
    fallback.addFace(face);
    std::erase_if(mRegistry->installed, [](const auto &known) { return !known.second; });
    mSystem->fontsChanged();
    return entry.get();
}

void FontManager::setSystemFonts(bool enabled) {
    if (enabled == isSystemFonts())
        return;
    mSystem->getFallback().setSystemFonts(enabled);
    std::erase_if(mRegistry->installed, [](const auto &known) { return !known.second; });
    mSystem->fontsChanged();
}

bool FontManager::isSystemFonts() const {
    return mSystem->getFallback().isSystemFonts();
}

void FontManager::setRebuildFonts(bool rebuild) {
    mRegistry->rebuild = rebuild;
}

bool FontManager::isRebuildFonts() const {
    return mRegistry->rebuild;
}

void FontManager::pump() {
    if (mRegistry->rebuild) {
        mRegistry->rebuild = false;
        mSystem->rebuildGlyphs();
    }
    if (detail::GlyphCache *glyphs = mSystem->getGlyphs())
        glyphs->collect();
}

const ShapingStatistics &FontManager::getStatistics() const {
    return mSystem->getStatistics();
}

texture::Texture *FontManager::getGlyphTexture() {
    texture::RenderData *page = mRegistry->atlas ? mRegistry->atlas->getPage(0) : nullptr;
    if (!page)
        return nullptr;
    if (!mRegistry->glyphTexture)
        mRegistry->glyphTexture = new texture::Texture("font", page);
    return mRegistry->glyphTexture.get();
}

} // namespace nurel::font
