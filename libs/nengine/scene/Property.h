#pragma once

#include "nengine/scene/HandledObject.h"

#include <cstdint>

namespace nurel::scene {

/// One aspect of how a frame is drawn. A frame has at most one property of each index of its own; what it has not it
/// takes from its parents, and what these have not either from a shared default.
///
/// A property may belong to several frames. The shared defaults (`isDefault()`) belong to all: clone one before writing
/// to it. Used on the render thread.
class Property : public HandledObject {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    /// The indexes in use. Those between are free for applications.
    enum Index : unsigned int { ALPHA = 0, MATERIAL = 1, DEPTH = 3, TEXTURE = 5, STENCIL = 6 };

    /// Indexes are below this number.
    static constexpr unsigned int INDEX_COUNT = 8;

    unsigned int getIndex() const { return mIndex; }

    /// Whether this is a default that all frames share. False for a new property and for a clone.
    bool isDefault() const { return mDefault; }
    void setDefault(bool isDefault) { mDefault = isDefault; }

    /// A number that no property had before and that changes with every change of this one.
    std::uint64_t getRevision() const { return mRevision; }

    /// The default of an index, the same object every time; null for an index that is not in use.
    static Property *getDefault(unsigned int index);

    void _clone(core::Object *target, core::CloningOptions &options) const override;

protected:
    /// Raises `core::IllegalArgumentException` "Property index %u is out of range" for an index of `INDEX_COUNT` or
    /// more.
    Property(unsigned int index, const char *name);

    /// To be called by every setter that changed something.
    void touch();

private:
    std::uint64_t mRevision;
    const std::uint8_t mIndex;
    bool mDefault = false;
};

} // namespace nurel::scene
