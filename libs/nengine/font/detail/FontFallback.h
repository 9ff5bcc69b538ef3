#pragma once

#include "foundation/core/SmartPtr.h"
#include "nengine/font/detail/FontDiscovery.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace nurel::font {
struct ShapingStatistics;
}

namespace nurel::font::detail {

class Face;
class FontLibrary;

/// Chooses a face for characters that a text's font has not: the added faces in their order, then the installed fonts.
/// What was found for a character is remembered, and no more than MAX_INSTALLED installed fonts are ever opened, so a
/// text with all characters there are cannot exhaust the machine.
class FontFallback {
public:
    static constexpr std::size_t MAX_INSTALLED = 64;
    static constexpr std::size_t MAX_REMEMBERED = 65536;

    FontFallback(FontLibrary &library, ShapingStatistics &statistics);
    ~FontFallback();
    FontFallback(const FontFallback &) = delete;
    FontFallback &operator=(const FontFallback &) = delete;

    FontDiscovery &getDiscovery() { return mDiscovery; }

    /// Adds a face at the end of those that are asked first, unless it is there.
    void addFace(Face *face);
    void removeFace(Face *face);

    /// What all texts fall back to between the added faces and the installed ones; null for none.
    void setDefaultFace(Face *face);

    void setSystemFonts(bool enabled);
    bool isSystemFonts() const { return mSystemFonts; }

    /// The face for a cluster: the primary one if it has all of it, else the first that has all of it, else the first
    /// that has its first character, else the primary one. `colored` prefers faces with coloured glyphs.
    Face &find(Face &primary, std::u32string_view cluster, bool colored);

    /// Opens a face of an installed font that was asked for by name, or gives the one that is open; null (with the
    /// error logged, once) when it cannot be used. Does not count for MAX_INSTALLED.
    Face *openInstalled(const FontFile &file);

private:
    Face *findOther(std::u32string_view cluster, bool colored, const Face &primary);
    Face *search(std::u32string_view cluster, bool colored);
    Face *findAdded(std::u32string_view cluster, bool colored) const;
    Face *findInstalled(std::u32string_view cluster, bool colored);
    Face *openForFallback(const FontFile &file);
    void forget();

    FontLibrary &mLibrary;
    ShapingStatistics &mStatistics;
    FontDiscovery mDiscovery;
    std::vector<::core::SmartPtr<Face>> mAdded;
    ::core::SmartPtr<Face> mDefault;
    std::unordered_map<std::string, ::core::SmartPtr<Face>> mInstalled; ///< by path and index; null: cannot be used
    std::unordered_map<std::u32string, Face *> mRemembered; ///< by 'c' or 'm' and the cluster; null: nobody has it
    std::size_t mOpened = 0;
    bool mSystemFonts = true;
};

} // namespace nurel::font::detail
