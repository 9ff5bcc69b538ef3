#pragma once

#include "foundation/core/SmartPtr.h"
#include "nengine/font/ShapingStatistics.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace nurel::texture {
class Atlas;
class Texture;
} // namespace nurel::texture

namespace nurel::font {

class Font;

namespace detail {
class Face;
class TextSystem;
} // namespace detail

/// Finds fonts by family name, and owns what texts share: shaped paragraphs and glyph bitmaps.
///
/// A name is looked for among the fonts that were added, then among the installed ones. Names do not depend on case. A
/// character that a text's font has not is taken from the added fonts in the order in which they were added, then from
/// the installed ones; where no font has it, the box for missing glyphs is drawn. Used on the render thread.
class FontManager {
public:
    static bool isSingletonCreated() { return sInstance != nullptr; }

    /// Only while isSingletonCreated().
    static FontManager &getSingleton() { return *sInstance; }

    /// Null before the engine was started and after it was taken down.
    static FontManager *getSingletonPtr() { return sInstance; }

    /// Made by the Engine, one at a time. The atlas outlives the manager; null: texts are laid out but not drawn. The
    /// default font is the file when one is given, else the installed or added family of this name, else the system's
    /// sans-serif. A file that cannot be used costs a logged error, a family that there is not a warning when the font
    /// is asked for.
    explicit FontManager(texture::Atlas *atlas, const char *defaultFamily = nullptr, const char *defaultFile = nullptr);
    ~FontManager();
    FontManager(const FontManager &) = delete;
    FontManager &operator=(const FontManager &) = delete;

    /// The font of this name at its own size, which the manager keeps; null when there is none (also for null and "").
    /// A name that was not found is not looked for again until a font is added. "sans-serif", "serif", "monospace",
    /// "cursive", "fantasy" and "system-ui" stand for whatever the system has for them.
    Font *operator[](const char *name);

    /// Never null. With no font at all on the machine it has no glyphs: its texts have no size and draw nothing, and
    /// one logged error says so.
    Font *getDefaultFont();

    /// Reads a font file and gives it a name, in place of an earlier font of that name. A file that cannot be used
    /// costs the logged error "Cannot load font <file>: <reason>" and gives null. `size` is the font's own size in
    /// pixels.
    Font *add(const char *name, const char *file, float size = 16.0f);

    /// The same with a file's bytes, which are copied. Messages call it by its name.
    Font *add(const char *name, std::span<const std::byte> bytes, float size = 16.0f);

    /// Whether installed fonts are looked at for names and missing characters; true at first. A program that ships all
    /// of its fonts looks the same on every machine with false. It holds for what is looked for from here on.
    void setSystemFonts(bool enabled);
    bool isSystemFonts() const;

    /// With true, the next pump drops the glyph bitmaps, and texts get new ones for the size that they have on the
    /// screen then. To be set when the scale of the screen has changed: it saves texts from being drawn with stretched
    /// bitmaps until their size has settled.
    void setRebuildFonts(bool rebuild);
    bool isRebuildFonts() const;

    /// Does what setRebuildFonts asked for, and gives back memory of glyphs and texts that have not been used for a
    /// while. The Engine calls it at the start of each frame.
    void pump();

    const ShapingStatistics &getStatistics() const;

    /// See Font::getTexture().
    texture::Texture *getGlyphTexture();

    /// For the library itself.
    detail::TextSystem &getTextSystem() { return *mSystem; }

private:
    struct Registry;

    ::core::SmartPtr<detail::Face> openFile(const char *file);
    Font *enter(const char *name, detail::Face *face, float size);
    Font *findInstalled(const char *name);
    void chooseDefault();

    static FontManager *sInstance;
    std::unique_ptr<detail::TextSystem> mSystem;
    std::unique_ptr<Registry> mRegistry;
};

} // namespace nurel::font
