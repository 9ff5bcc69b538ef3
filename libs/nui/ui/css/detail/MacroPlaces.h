#pragma once

#include "nmain/core/Names.h"
#include "nui/core/CKHashMap.h"

#include <cstddef>
#include <string>
#include <vector>

namespace nurel::ui::css::detail {

/// Where the names of macros stand in a text, kept up while the names are replaced: of each name that is in the text
/// the first place. What a replacement costs goes mostly by what it changes and not by the text, so that macros without
/// end are found out soon. The names begin with "$".
///
/// Very long names and texts full of "$" can still make it slow. So the work is counted, and past a limit that no sheet
/// of use comes near it is given up.
class MacroPlaces {
public:
    using Macros = core::CKHashMapValue<std::string>;

    struct Place {
        Macros::const_iterator macro;
        std::size_t fromEnd; ///< from the first character of the name to the end of the text
    };

    /// Both have to live as long as this; the text may change by `replace` alone. `longest` is the length of the
    /// longest name, or more.
    MacroPlaces(const Macros &macros, std::size_t longest, std::string &text);

    /// The first place of the first name behind `after`, in the order of names, that is in the text; null when there is
    /// none. With null any name will do. Holds until a name is replaced.
    const Place *findNext(const char *after) const;

    /// Puts the macro's value where the place is.
    void replace(Place place);

    /// Whether the work was given up. The places and the text are of no use then.
    bool isGivenUp() const { return mWork > MAX_WORK; }

private:
    using Places = std::vector<Place>;

    static constexpr std::size_t MAX_WORK = std::size_t{1} << 28; // about a second

    std::size_t getPosition(const Place &place) const { return mText.size() - place.fromEnd; }
    Places::iterator findPlace(const char *name);
    void notePlace(Macros::const_iterator macro, std::size_t position);
    void scan(std::size_t begin, std::size_t end);
    std::size_t findName(const char *name, std::size_t begin);
    Macros::const_iterator findPrefix(Macros::const_iterator macro, const char *text);

    const Macros &mMacros;
    const std::size_t mLongest;
    std::string &mText;
    Places mPlaces;        ///< by name
    std::size_t mWork = 0; ///< about as many steps as characters were compared
};

} // namespace nurel::ui::css::detail
