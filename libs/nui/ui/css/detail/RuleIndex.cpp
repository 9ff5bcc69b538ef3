#include "nui/ui/css/detail/RuleIndex.h"

#include "nui/ui/Component.h"
#include "nui/ui/css/CSS.h"
#include "nui/ui/css/Rule.h"

#include <algorithm>
#include <cstring>
#include <tuple>

namespace nurel::ui::css::detail {

namespace {

constexpr std::size_t SMALLEST_TABLE = 16;

/// FNV-1a, begun with the kind.
class Hash {
public:
    explicit Hash(std::uint32_t kind) { add(static_cast<unsigned char>(kind + 1)); }

    void add(unsigned char byte) { mValue = (mValue ^ byte) * 16777619U; }

    /// The low bits choose the slot, and FNV's are the weaker ones.
    std::uint32_t get() const { return mValue ^ (mValue >> 15); }

private:
    std::uint32_t mValue = 2166136261U;
};

} // namespace

/// A rule that some component may match.
struct RuleIndex::Candidate {
    std::uint32_t place = 0;
    unsigned int states = 0;
    std::vector<Word> words; ///< each once
    Word bucket = NO_WORD;
};

RuleIndex::RuleIndex(const CSS &sheet) : mRevision(Selector::getRevision()), mWords(1), mTable(SMALLEST_TABLE) {
    mRules.reserve(sheet.size());
    mFirstProperties.reserve(sheet.size() + 1);
    std::vector<Candidate> candidates;
    candidates.reserve(sheet.size());
    for (const core::SmartPtr<Rule> &rule : sheet) {
        Candidate candidate;
        candidate.place = static_cast<std::uint32_t>(mRules.size());
        if (readRule(*rule, candidate))
            candidates.push_back(std::move(candidate));
        mRules.push_back(rule.get());
        mFirstProperties.push_back(static_cast<std::uint32_t>(mProperties.size()));
        for (const auto &property : rule->getProperties())
            mProperties.push_back(property.second.get());
    }
    mFirstProperties.push_back(static_cast<std::uint32_t>(mProperties.size()));
    fillBuckets(candidates);
    mStamps.resize(mWords.size());
}

/// False for a rule that nothing can match. One of several selectors that asks for two names or two element words is
/// kept: no component has both.
bool RuleIndex::readRule(const Rule &rule, Candidate &candidate) {
    for (const auto &selector : rule.getSelectors()) {
        for (const auto &element : selector->getElements()) {
            if (!readElement(*element, candidate))
                return false;
        }
    }
    std::sort(candidate.words.begin(), candidate.words.end());
    candidate.words.erase(std::unique(candidate.words.begin(), candidate.words.end()), candidate.words.end());
    for (const Word word : candidate.words)
        ++mWords[word].rules;
    return true;
}

bool RuleIndex::readElement(const SelectorElement &element, Candidate &candidate) {
    const std::string &value = element.getValue();
    switch (element.getType()) {
    case SelectorElement::TYPE_NONE:
        return false;
    case SelectorElement::TYPE_STATE:
        candidate.states |= element.getState();
        return true;
    case SelectorElement::TYPE_ELEMENT:
        if (!element.isAnyElement())
            candidate.words.push_back(obtainWord(KIND_ELEMENT, value));
        return true;
    case SelectorElement::TYPE_CLASS:
        for (std::size_t first = 0; first < value.size();) {
            const std::string_view name(value.data() + first);
            candidate.words.push_back(obtainWord(KIND_CLASS, name));
            first += name.size() + 1;
        }
        return true;
    case SelectorElement::TYPE_ID:
        candidate.words.push_back(obtainWord(KIND_ID, value));
        return true;
    }
    return false;
}

RuleIndex::Word RuleIndex::obtainWord(Kind kind, std::string_view text) {
    if (mWords.size() * 2 > mTable.size())
        growTable();
    Hash hash(kind);
    for (const char c : text)
        hash.add(static_cast<unsigned char>(c));
    const std::size_t mask = mTable.size() - 1;
    std::size_t place = hash.get() & mask;
    for (; mTable[place].word != NO_WORD; place = (place + 1) & mask) {
        const WordData &other = mWords[mTable[place].word];
        if (mTable[place].hash == hash.get() && other.kind == kind && other.text == text)
            return mTable[place].word;
    }
    const Word word = static_cast<Word>(mWords.size());
    mTable[place] = {hash.get(), word};
    mWords.push_back({kind, std::string(text)});
    mHasKind[kind] = true;
    return word;
}

void RuleIndex::growTable() {
    std::vector<Slot> table(mTable.size() * 2);
    const std::size_t mask = table.size() - 1;
    for (const Slot &slot : mTable) {
        if (slot.word == NO_WORD)
            continue;
        std::size_t place = slot.hash & mask;
        while (table[place].word != NO_WORD)
            place = (place + 1) & mask;
        table[place] = slot;
    }
    mTable = std::move(table);
}

/// The word that the fewest rules ask for; of equally rare ones a name before a class before an element word.
RuleIndex::Word RuleIndex::chooseBucket(const Candidate &candidate) const {
    const auto rarer = [this](Word a, Word b) {
        return std::tie(mWords[a].rules, mWords[a].kind) < std::tie(mWords[b].rules, mWords[b].kind);
    };
    const auto rarest = std::min_element(candidate.words.begin(), candidate.words.end(), rarer);
    return rarest == candidate.words.end() ? NO_WORD : *rarest;
}

void RuleIndex::fillBuckets(std::vector<Candidate> &candidates) {
    for (Candidate &candidate : candidates)
        candidate.bucket = chooseBucket(candidate);
    std::sort(candidates.begin(), candidates.end(), [](const Candidate &a, const Candidate &b) {
        return std::tie(a.bucket, a.states, a.place) < std::tie(b.bucket, b.states, b.place);
    });
    for (const Candidate &candidate : candidates) {
        WordData &bucket = mWords[candidate.bucket];
        if (bucket.firstGroup == bucket.endGroup)
            bucket.firstGroup = bucket.endGroup = static_cast<std::uint32_t>(mGroups.size());
        const auto entry = static_cast<std::uint32_t>(mEntries.size());
        if (bucket.firstGroup == bucket.endGroup || mGroups.back().states != candidate.states) {
            mGroups.push_back({candidate.states, entry, entry});
            ++bucket.endGroup;
        }
        mGroups.back().endEntry = entry + 1;
        const auto firstWord = static_cast<std::uint32_t>(mEntryWords.size());
        for (const Word word : candidate.words) {
            if (word != candidate.bucket)
                mEntryWords.push_back(word);
        }
        mEntries.push_back({candidate.place, firstWord, static_cast<std::uint32_t>(mEntryWords.size())});
    }
}

const std::vector<std::uint32_t> &RuleIndex::match(const Component *component, unsigned int states) {
    mFound.clear();
    mPresent.clear();
    if (++mStamp == 0) {
        std::fill(mStamps.begin(), mStamps.end(), 0U);
        mStamp = 1;
    }
    if (component) {
        noteWord(KIND_ELEMENT, component->getElement().c_str());
        noteWord(KIND_ID, component->getName());
        for (const auto &entry : component->getClasses())
            noteWord(KIND_CLASS, entry.first);
    }
    searchBucket(mWords[NO_WORD], states);
    for (const Word word : mPresent)
        searchBucket(mWords[word], states);
    if (!std::is_sorted(mFound.begin(), mFound.end()))
        std::sort(mFound.begin(), mFound.end());
    return mFound;
}

/// Looks up what the component is called, if any rule asks for words of this kind.
void RuleIndex::noteWord(Kind kind, const char *text) {
    if (!mHasKind[kind])
        return;
    Hash hash(kind);
    for (const char *c = text; *c; ++c)
        hash.add(static_cast<unsigned char>(*c));
    const std::size_t mask = mTable.size() - 1;
    for (std::size_t place = hash.get() & mask; mTable[place].word != NO_WORD; place = (place + 1) & mask) {
        const Slot &slot = mTable[place];
        const WordData &data = mWords[slot.word];
        if (slot.hash == hash.get() && data.kind == kind && std::strcmp(data.text.c_str(), text) == 0) {
            mStamps[slot.word] = mStamp;
            mPresent.push_back(slot.word);
            return;
        }
    }
}

void RuleIndex::searchBucket(const WordData &bucket, unsigned int states) {
    for (std::uint32_t g = bucket.firstGroup; g != bucket.endGroup; ++g) {
        const Group &group = mGroups[g];
        if ((states & group.states) != group.states)
            continue;
        for (std::uint32_t e = group.firstEntry; e != group.endEntry; ++e) {
            if (hasWords(mEntries[e]))
                mFound.push_back(mEntries[e].place);
        }
    }
}

bool RuleIndex::hasWords(const Entry &entry) const {
    for (std::uint32_t w = entry.firstWord; w != entry.endWord; ++w) {
        if (mStamps[mEntryWords[w]] != mStamp)
            return false;
    }
    return true;
}

} // namespace nurel::ui::css::detail
