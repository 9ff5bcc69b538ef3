#pragma once

#include <cstddef>
#include <vector>

namespace nurel::scene {

class Mesh;

/// The meshes that a culler found, in the order of nodes, which is the order of drawing. The meshes are only looked at;
/// they stay valid until the scene changes.
class VisibilitySet {
public:
    void clear() { mMeshes.clear(); }
    void append(Mesh *mesh) { mMeshes.push_back(mesh); }

    std::size_t getCount() const { return mMeshes.size(); }
    Mesh *operator[](std::size_t index) const { return mMeshes[index]; }

    /// For sorters, which may put it in another order.
    std::vector<Mesh *> &getMeshes() { return mMeshes; }
    const std::vector<Mesh *> &getMeshes() const { return mMeshes; }

private:
    std::vector<Mesh *> mMeshes;
};

} // namespace nurel::scene
