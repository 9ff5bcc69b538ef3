#pragma once

#include "support/LogCapture.h"

#include "foundation/core/SmartPtr.h"
#include "nengine/Engine.h"
#include "nui/ui/Skin.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace nurel::gles {
class GlesBackend;
}
namespace nurel::scene {
class Node;
}
namespace nurel::ui {
class Component;
} // namespace nurel::ui

namespace golden {

/// An engine that draws by the real backend into memory, with a manual clock and the font of the test data, and the
/// style-free skin.
class GoldenFixture : public testing::Test {
protected:
    static constexpr unsigned int WIDTH = 480;
    static constexpr unsigned int HEIGHT = 320;

    void SetUp() override;
    void TearDown() override;

    /// Puts a component onto the stage, in a widget that fills it if it is none itself.
    void show(const core::SmartPtr<nurel::ui::Component> &component);

    /// A node at the stage's centre, above the widgets; x to the right, y down, one unit a pixel.
    nurel::scene::Node &makeNode();

    /// The stage as it is at the clock's time: WIDTH * HEIGHT pixels of four bytes, rows from the top.
    std::vector<std::uint8_t> draw();

    /// One pixel in a thousand.
    static constexpr std::size_t OUTLIERS = std::size_t{WIDTH} * HEIGHT / 1000;

    /// Draws a few frames and compares the last with the reference of that name: at most 4 of 255 a channel, but for
    /// so many pixels, which must be fewer than what the picture is to show. On a difference the picture and what
    /// differs are left in out/golden. With NUI_UPDATE_GOLDEN set the reference is written instead.
    void expectPicture(const std::string &name, std::size_t outliers = OUTLIERS);

    /// The same for pictures that draw() gave, in a row from left to right; so many pixels may differ for each.
    static void expectPictures(const std::string &name, const std::vector<std::vector<std::uint8_t>> &pictures,
                               std::size_t outliers = OUTLIERS);

    nurel::Engine &engine() { return *mEngine; }

private:
    test::LogCapture mLog;
    std::shared_ptr<nurel::gles::GlesBackend> mBackend;
    std::unique_ptr<nurel::Engine> mEngine;
    core::SmartPtr<nurel::ui::Skin> mSkin;
};

} // namespace golden
