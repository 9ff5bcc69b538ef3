#pragma once

#include "nmain/core/Object.h"

namespace nurel::geometry {

/// Describes the data of meshes: which attributes their vertices have and where each of these is kept.
class MeshData : public core::Object {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    enum Attribute : unsigned int { AM_POSITION = 0x001, AM_INDEX = 0x040, AM_TEXTURE0 = 0x100 };
    static constexpr unsigned int AM_ALL = AM_POSITION | AM_INDEX | AM_TEXTURE0;

    /// Host: in main memory, where it can be written at any time. Device: with the renderer alone.
    enum Storage : unsigned int { AS_HOST, AS_DEVICE };

    explicit MeshData(unsigned int attributeMask = AM_ALL, Storage storage = AS_HOST);

    unsigned int getAttributeMask() const { return mAttributeMask; }
    bool hasAttribute(Attribute attribute) const { return (mAttributeMask & attribute) != 0; }

    /// `AS_HOST` for an attribute that is not there.
    Storage getStorage(Attribute attribute) const;

    /// Ignored for an attribute that is not there.
    void setStorage(Attribute attribute, Storage storage);

private:
    const unsigned int mAttributeMask;
    unsigned int mDeviceMask;
};

} // namespace nurel::geometry
