#pragma once

#include "nui/ui/css/Property.h"

#include <span>

namespace nurel::ui::css {

/// One row of the table of names: a name of the style language, the kind of property that it writes into, and where.
///
/// The table is constant data: it can be read from any thread and by what runs before main.
struct PropertyEntry {
    Property::Name name;
    const char *cssName;

    /// The value that the first word of a declaration with this name is.
    int index;

    /// Makes a new property of the kind, count 0: the caller's.
    Property *(*create)();

    /// The row of a name, letter for letter; null for an unknown one and for a null text.
    static const PropertyEntry *find(const char *cssName);

    /// The first row of a kind, so its shorthand; null for what is no kind.
    static const PropertyEntry *find(Property::Name name);

    /// Every row; those of one kind stand together, the shorthand first.
    static std::span<const PropertyEntry> all();
};

} // namespace nurel::ui::css
