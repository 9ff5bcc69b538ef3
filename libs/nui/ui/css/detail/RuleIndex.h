#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace nurel::ui {
class Component;
} // namespace nurel::ui

namespace nurel::ui::css {
class CSS;
class Property;
class Rule;
class SelectorElement;
} // namespace nurel::ui::css

namespace nurel::ui::css::detail {

/// Finds the rules of a sheet that match a component without asking each of them.
///
/// Whatever a rule asks for beside states is a word: an element word, a class or a name. A rule stands in the bucket of
/// that of its words which the fewest rules ask for, or in the bucket of those that ask for none. Buckets are cut into
/// groups by the states that their rules ask for. So a component meets only rules that share their rarest word and all
/// their states with it; the other words of those are compared by number.
///
/// It shows the rules as they were when it was made; when one changes, a new index is needed. Matching allocates
/// nothing once its buffers have grown.
class RuleIndex {
public:
    explicit RuleIndex(const CSS &sheet);

    /// What `Selector::getRevision()` was when the index was made.
    unsigned int getRevision() const { return mRevision; }

    /// The places, ascending, of the rules that match the component with these bits of `SelectorState`. Null has no
    /// words. The next call uses the same buffer.
    const std::vector<std::uint32_t> &match(const Component *component, unsigned int states);

    /// The rule at a place in the order of the sheet, and its properties in theirs.
    const Rule *getRule(std::uint32_t place) const { return mRules[place]; }
    const Property *const *beginProperties(std::uint32_t place) const {
        return mProperties.data() + mFirstProperties[place];
    }
    const Property *const *endProperties(std::uint32_t place) const {
        return mProperties.data() + mFirstProperties[place + 1];
    }

private:
    enum Kind : std::uint32_t { KIND_ID, KIND_CLASS, KIND_ELEMENT, KIND_NONE };

    /// The number of a text of one kind. 0 is the bucket of the rules without words.
    using Word = std::uint32_t;
    static constexpr Word NO_WORD = 0;

    struct WordData {
        Kind kind = KIND_NONE;
        std::string text;
        std::uint32_t rules = 0; ///< how many ask for it
        std::uint32_t firstGroup = 0;
        std::uint32_t endGroup = 0;
    };

    struct Slot {
        std::uint32_t hash = 0;
        Word word = NO_WORD;
    };

    /// Those rules of a bucket that ask for the same states.
    struct Group {
        unsigned int states;
        std::uint32_t firstEntry;
        std::uint32_t endEntry;
    };

    /// A rule, and those of its words that its bucket does not tell.
    struct Entry {
        std::uint32_t place;
        std::uint32_t firstWord;
        std::uint32_t endWord;
    };

    struct Candidate;

    // making
    bool readRule(const Rule &rule, Candidate &candidate);
    bool readElement(const SelectorElement &element, Candidate &candidate);
    Word obtainWord(Kind kind, std::string_view text);
    void growTable();
    Word chooseBucket(const Candidate &candidate) const;
    void fillBuckets(std::vector<Candidate> &candidates);

    // matching
    void noteWord(Kind kind, const char *text);
    void searchBucket(const WordData &bucket, unsigned int states);
    bool hasWords(const Entry &entry) const;

    unsigned int mRevision;

    std::vector<const Rule *> mRules;
    std::vector<const Property *> mProperties;
    std::vector<std::uint32_t> mFirstProperties; ///< one for each rule, and one behind the last

    std::vector<WordData> mWords;
    std::vector<Slot> mTable; ///< open addressing; a power of two
    bool mHasKind[KIND_NONE] = {};

    std::vector<Group> mGroups;
    std::vector<Entry> mEntries;
    std::vector<Word> mEntryWords;

    // of the component that is matched
    std::vector<std::uint32_t> mStamps; ///< by word: the number of the last match whose component had it
    std::uint32_t mStamp = 0;
    std::vector<Word> mPresent;
    std::vector<std::uint32_t> mFound;
};

} // namespace nurel::ui::css::detail
