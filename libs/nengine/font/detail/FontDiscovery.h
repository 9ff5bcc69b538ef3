#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

struct _FcCharSet;
struct _FcConfig;
struct _FcFontSet;

namespace nurel::font::detail {

/// A face in a font file; an empty path stands for none.
struct FontFile {
    std::string path;
    unsigned int index = 0;
};

/// The fonts that are installed. Nothing is looked at before the first question, since that takes a while.
class FontDiscovery {
public:
    FontDiscovery();
    ~FontDiscovery();
    FontDiscovery(const FontDiscovery &) = delete;
    FontDiscovery &operator=(const FontDiscovery &) = delete;

    /// The regular face of a family, of a font by its full name ("Some Family Bold"), or what the system has for a
    /// generic name such as "serif" or puts in place of a family of the same metrics. Without a path when there is
    /// none.
    FontFile find(const char *name);

    /// What the system takes for a text that asks for nothing.
    FontFile findDefault();

    /// The fonts that have all of these characters, from the best on: the position of the first one at or after `from`,
    /// or getCount(). `colored` looks at fonts with coloured glyphs alone.
    std::size_t findCharacters(std::u32string_view characters, bool colored, std::size_t from);
    std::size_t getCount();

    /// A font that findCharacters gave the position of.
    FontFile getFile(std::size_t position) const;

private:
    struct Candidate;

    bool init();
    bool needCandidates();
    FontFile match(const char *family, bool anyFamily);
    FontFile findFullName(const char *name);

    _FcConfig *mConfig = nullptr;
    bool mTried = false;
    bool mSorted = false;
    _FcFontSet *mFonts = nullptr;
    _FcCharSet *mCovered = nullptr; ///< what any of the candidates has
    std::vector<Candidate> mCandidates;
};

} // namespace nurel::font::detail
