#pragma once

#include "foundation/core/SmartPtr.h"
#include "nmain/core/Names.h"
#include "nui/ui/css/Property.h"
#include "nui/ui/css/Selector.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace nurel::ui::css {

class Stylable;

/// Properties and what they are for. The parser makes one rule for each selector of a list; the rules of one list share
/// their properties.
///
/// Rules take effect by ascending priority, and by ascending ID at equal priority. The ID is the number of creation,
/// counted over the whole process from 1, so that a rule that was parsed later counts more than an equally specific one
/// before it, whatever sheet it stands in.
class Rule : public core::IRefCount {
public:
    using Properties = std::map<Property::Name, core::SmartPtr<Property>>;
    using Selectors = std::vector<std::unique_ptr<Selector>>;

    Rule();
    /// The copy has selectors of its own, shares the properties, and keeps the ID.
    Rule(const Rule &other);
    Rule &operator=(const Rule &) = delete;
    ~Rule() override;

    /// Takes the selector, whose priority is added. A rule with several selectors, which the parser never makes,
    /// matches what all of them match. Sheets that have the rule already do not move it to its new place. Null is
    /// ignored.
    void append(Selector *selector);

    /// Holds the property. If the rule has one of that kind already, that one stays and the new one is let go of. Null
    /// is ignored.
    void add(Property *property);

    /// Whether all selectors match, or there is none.
    bool matches(const Stylable *stylable) const;

    /// Hands all properties to the object, by ascending `Property::Name`, whether the rule matches or not.
    void style(Stylable *stylable) const;

    bool operator<(const Rule &other) const;

    /// The sum over the selectors.
    unsigned int getPriority() const { return mPriority; }
    unsigned int getID() const { return mID; }
    const Selectors &getSelectors() const { return mSelectors; }
    const Properties &getProperties() const { return mProperties; }

    /// Where the selector's first word stands. The file may be null; lines count from 1.
    void setSource(const std::shared_ptr<const std::string> &file, int line);
    /// "" when it is not known.
    const char *getFile() const { return mFile ? mFile->c_str() : ""; }
    /// 0 when it is not known.
    int getLine() const { return mLine; }

    /// Replaces the text by that of the selectors, with "&" between several, and returns it.
    const char *toString(std::string &text) const;

private:
    friend class CSS; // joinSheet

    void joinSheet() { mInSheet = true; }
    void changed() const;

    unsigned int mPriority = 0;
    unsigned int mID;
    bool mInSheet = false; ///< never cleared
    int mLine = 0;
    Selectors mSelectors;
    Properties mProperties;
    std::shared_ptr<const std::string> mFile;
};

} // namespace nurel::ui::css
