#pragma once

#include "nengine/geometry/MeshData.h"

#include <atomic>

namespace nurel::geometry {

/// Says what the data of the meshes made with it looks like, and counts these meshes. A mesh needs none: wherever an
/// allocator is asked for, null is legal.
class MeshDataAllocator : public core::Object {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    /// Null: all attributes, in main memory. The allocator holds a reference.
    explicit MeshDataAllocator(MeshData *data = nullptr);
    ~MeshDataAllocator() override;

    /// Never null.
    MeshData *getMeshData() const { return mMeshData.get(); }

    unsigned int getMeshCount() const { return mAlive; }
    unsigned int getTotalMeshCount() const { return mMade; }

    /// Logs, at debug level, "MeshDataAllocator: %u meshes, %u made in all".
    void dumpLog() const;

    /// For meshes, once each.
    void meshMade();
    void meshGone();

private:
    const core::SmartPtr<MeshData> mMeshData;
    std::atomic<unsigned int> mAlive{0};
    std::atomic<unsigned int> mMade{0};
};

} // namespace nurel::geometry
