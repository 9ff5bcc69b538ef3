#include "nengine/scene/PropertySet.h"

#include "nengine/geometry/detail/Revision.h"
#include "nengine/scene/Property.h"

#include <array>

namespace nurel::scene {

/// The properties of one frame with own ones, and of the frames below it that have none.
class PropertySet::Block : public core::IRefCount {
public:
    explicit Block(const PropertySet &owner) : mOwner(&owner) {}

    const PropertySet *mOwner; ///< the set whose own properties are in it; null when that one has gone
    std::array<core::SmartPtr<Property>, Property::INDEX_COUNT> mEntries;
    std::uint8_t mOwnMask = 0; ///< bit n: entry n is the owner's

    bool isOwn(unsigned int index) const { return (mOwnMask >> index & 1u) != 0; }
};

static_assert(Property::INDEX_COUNT <= 8, "the mask of own properties is a byte");

PropertySet::PropertySet() = default;

PropertySet::~PropertySet() {
    // The block may live on below; another set may get this one's address.
    if (hasOwn())
        mBlock->mOwner = nullptr;
}

bool PropertySet::hasOwn() const {
    return mBlock && mBlock->mOwner == this;
}

Property *PropertySet::operator[](unsigned int index) const {
    return index < Property::INDEX_COUNT && hasOwn() && mBlock->isOwn(index) ? mBlock->mEntries[index].get() : nullptr;
}

Property *PropertySet::getEffective(unsigned int index) const {
    if (index < Property::INDEX_COUNT && mBlock && mBlock->mEntries[index])
        return mBlock->mEntries[index].get();
    return Property::getDefault(index);
}

void PropertySet::set(Property *property) {
    makeOwnBlock();
    mBlock->mEntries[property->getIndex()] = property;
    mBlock->mOwnMask = static_cast<std::uint8_t>(mBlock->mOwnMask | 1u << property->getIndex());
    geometry::noteLookChange();
}

bool PropertySet::remove(unsigned int index) {
    if (!(*this)[index])
        return false;
    mBlock->mOwnMask = static_cast<std::uint8_t>(mBlock->mOwnMask & ~(1u << index));
    mBlock->mEntries[index] = nullptr;
    geometry::noteLookChange();
    if (mBlock->mOwnMask == 0) {
        mBlock->mOwner = nullptr;
        mBlock = nullptr;
    }
    return true;
}

void PropertySet::inherit(const PropertySet *above) {
    Block *const source = above ? above->mBlock.get() : nullptr;
    if (!hasOwn()) {
        if (mBlock.get() != source) {
            mBlock = source;
            geometry::noteLookChange();
        }
        return;
    }
    for (unsigned int index = 0; index < Property::INDEX_COUNT; ++index) {
        Property *const inherited = source ? source->mEntries[index].get() : nullptr;
        if (!mBlock->isOwn(index) && mBlock->mEntries[index].get() != inherited) {
            mBlock->mEntries[index] = inherited;
            geometry::noteLookChange();
        }
    }
}

void PropertySet::makeOwnBlock() {
    if (hasOwn())
        return;
    const core::SmartPtr<Block> shared = mBlock;
    mBlock = new Block(*this);
    if (shared)
        mBlock->mEntries = shared->mEntries;
}

} // namespace nurel::scene
