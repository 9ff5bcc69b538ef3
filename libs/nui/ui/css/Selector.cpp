#include "nui/ui/css/Selector.h"

#include <cstring>

namespace nurel::ui::css {

namespace {

constexpr const char *DELIMITERS = "#.:";

} // namespace

constinit std::atomic<unsigned int> Selector::sRevision{0};

Selector::Selector() = default;

Selector::Selector(const Selector &other) : mPriority(other.mPriority) {
    mElements.reserve(other.mElements.size());
    for (const auto &element : other.mElements)
        mElements.push_back(std::make_unique<SelectorElement>(*element));
}

Selector::~Selector() = default;

Selector *Selector::parse(const char *text) {
    if (!text)
        return nullptr;
    auto selector = std::make_unique<Selector>();
    std::string chunk;
    while (*text) {
        // a chunk begins with its delimiter
        const std::size_t length = 1 + std::strcspn(text + 1, DELIMITERS);
        chunk.assign(text, length);
        if (!parse(chunk.c_str(), selector.get()))
            return nullptr;
        text += length;
    }
    selector->computePriority();
    return selector.release();
}

bool Selector::parse(const char *chunk, Selector *selector) {
    if (!chunk || !*chunk)
        return false;
    const char *rest = chunk + 1;
    switch (*chunk) {
    case ':':
        if (SelectorElement *element = selector->findElement(SelectorElement::TYPE_STATE))
            element->enableState(parseState(rest));
        else
            selector->append(new SelectorElement(parseState(rest)));
        break;
    case '#':
        if (SelectorElement *element = selector->findElement(SelectorElement::TYPE_ID))
            element->setID(rest);
        else
            selector->append(new SelectorElement(SelectorElement::TYPE_ID, rest));
        break;
    case '.':
        if (SelectorElement *element = selector->findElement(SelectorElement::TYPE_CLASS))
            element->addClass(rest);
        else
            selector->append(new SelectorElement(SelectorElement::TYPE_CLASS, rest));
        break;
    default:
        if (SelectorElement *element = selector->findElement(SelectorElement::TYPE_ELEMENT))
            element->setElement(chunk);
        else
            selector->append(new SelectorElement(SelectorElement::TYPE_ELEMENT, chunk));
        break;
    }
    return true;
}

void Selector::append(SelectorElement *element) {
    if (!element)
        return;
    mElements.push_back(std::unique_ptr<SelectorElement>(element));
    mPriority += element->getPriority();
    if (mInRule) {
        element->mInRule = true;
        noteChange();
    }
}

SelectorElement *Selector::findElement(SelectorElement::ElementType type) const {
    for (const auto &element : mElements) {
        if (element->getType() == type)
            return element.get();
    }
    return nullptr;
}

const SelectorElement *Selector::getElement(SelectorElement::ElementType type) const {
    return findElement(type);
}

void Selector::computePriority() {
    mPriority = 0;
    for (const auto &element : mElements)
        mPriority += element->getPriority();
}

void Selector::joinRule() {
    mInRule = true;
    for (const auto &element : mElements)
        element->mInRule = true;
}

bool Selector::matches(const Stylable *stylable) const {
    for (const auto &element : mElements) {
        if (!element->matches(stylable))
            return false;
    }
    return true;
}

const char *Selector::toString(std::string &text) const {
    text.clear();
    for (const auto &element : mElements)
        element->toString(text, false);
    return text.c_str();
}

} // namespace nurel::ui::css
