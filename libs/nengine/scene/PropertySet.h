#pragma once

#include "foundation/core/SmartPtr.h"
#include "nmain/core/Fwd.h"

namespace nurel::scene {

class Property;

/// The properties of one frame: its own, and those that it inherited when it was last brought up to date. A frame
/// without own properties shares the block of its parent, so that it costs a pointer.
class PropertySet {
public:
    PropertySet();
    ~PropertySet();
    PropertySet(const PropertySet &) = delete;
    PropertySet &operator=(const PropertySet &) = delete;

    /// The frame's own property; null when it has none of this index.
    Property *operator[](unsigned int index) const;

    bool hasOwn() const;

    /// Own, inherited or shared default, as of the last update of the frame: what drawing goes by. Null for an index
    /// that is not in use.
    Property *getEffective(unsigned int index) const;

private:
    friend class Frame;
    class Block;

    void set(Property *property);
    bool remove(unsigned int index);

    /// Takes over what the set above has and this one has not; null: nothing is above.
    void inherit(const PropertySet *above);

    void makeOwnBlock();

    core::SmartPtr<Block> mBlock;
};

} // namespace nurel::scene
