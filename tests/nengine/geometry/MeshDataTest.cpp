#include "nengine/geometry/MeshDataAllocator.h"

#include "support/LogCapture.h"

#include <gtest/gtest.h>

namespace nurel {
namespace {

using geometry::MeshData;
using geometry::MeshDataAllocator;

TEST(MeshData, HasTheAttributesOfItsMask) {
    EXPECT_EQ(static_cast<unsigned int>(MeshData::AM_ALL), 0x141u);
    const core::SmartPtr<MeshData> all(new MeshData());
    EXPECT_EQ(all->getAttributeMask(), 0x141u);
    const core::SmartPtr<MeshData> some(new MeshData(MeshData::AM_POSITION | MeshData::AM_INDEX));
    EXPECT_TRUE(some->hasAttribute(MeshData::AM_POSITION));
    EXPECT_FALSE(some->hasAttribute(MeshData::AM_TEXTURE0));
}

TEST(MeshData, KeepsTheStorageOfEachAttribute) {
    const core::SmartPtr<MeshData> data(new MeshData(MeshData::AM_POSITION | MeshData::AM_INDEX));
    EXPECT_EQ(data->getStorage(MeshData::AM_POSITION), MeshData::AS_HOST);
    data->setStorage(MeshData::AM_POSITION, MeshData::AS_DEVICE);
    EXPECT_EQ(data->getStorage(MeshData::AM_POSITION), MeshData::AS_DEVICE);
    EXPECT_EQ(data->getStorage(MeshData::AM_INDEX), MeshData::AS_HOST);
    data->setStorage(MeshData::AM_TEXTURE0, MeshData::AS_DEVICE);
    EXPECT_EQ(data->getStorage(MeshData::AM_TEXTURE0), MeshData::AS_HOST) << "it has none";
    data->setStorage(MeshData::AM_POSITION, MeshData::AS_HOST);
    EXPECT_EQ(data->getStorage(MeshData::AM_POSITION), MeshData::AS_HOST);
    const core::SmartPtr<MeshData> device(new MeshData(MeshData::AM_ALL, MeshData::AS_DEVICE));
    EXPECT_EQ(device->getStorage(MeshData::AM_INDEX), MeshData::AS_DEVICE);
}

TEST(MeshDataAllocator, HasDataOfItsOwnWhenGivenNone) {
    const core::SmartPtr<MeshDataAllocator> allocator(new MeshDataAllocator());
    ASSERT_NE(allocator->getMeshData(), nullptr);
    EXPECT_EQ(allocator->getMeshData()->getAttributeMask(), 0x141u);
    const core::SmartPtr<MeshData> data(new MeshData(0));
    const core::SmartPtr<MeshDataAllocator> given(new MeshDataAllocator(data.get()));
    EXPECT_EQ(given->getMeshData(), data.get());
}

TEST(MeshDataAllocator, LogsItsCounts) {
    test::LogCapture log;
    const core::SmartPtr<MeshDataAllocator> allocator(new MeshDataAllocator());
    allocator->meshMade();
    allocator->meshMade();
    allocator->meshGone();
    allocator->dumpLog();
    EXPECT_EQ(log.takeOne(logging::Level::DEBUG), "MeshDataAllocator: 1 meshes, 2 made in all");
}

} // namespace
} // namespace nurel
