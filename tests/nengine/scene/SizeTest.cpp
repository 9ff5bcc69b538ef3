#include "nengine/scene/Node.h"
#include "nengine/scene/meshes/BorderedRectangleMesh.h"
#include "nengine/scene/properties/MaterialProperty.h"

#include <gtest/gtest.h>

namespace nurel {
namespace {

/// A screen has tens of thousands of these. What fails here has grown: keep out of line what most never use.
TEST(SceneSizes, StaySmall) {
    EXPECT_LE(sizeof(scene::Frame), 112u);
    EXPECT_LE(sizeof(scene::Node), 136u);
    EXPECT_LE(sizeof(scene::Mesh), 120u);
    EXPECT_LE(sizeof(scene::meshes::SizeableRectangleMesh), 136u);
    EXPECT_LE(sizeof(scene::meshes::BorderedRectangleMesh), 160u);
    EXPECT_LE(sizeof(scene::properties::MaterialProperty), 120u);
    RecordProperty("Frame", static_cast<int>(sizeof(scene::Frame)));
    RecordProperty("Node", static_cast<int>(sizeof(scene::Node)));
    RecordProperty("Mesh", static_cast<int>(sizeof(scene::Mesh)));
    RecordProperty("BorderedRectangleMesh", static_cast<int>(sizeof(scene::meshes::BorderedRectangleMesh)));
}

} // namespace
} // namespace nurel
