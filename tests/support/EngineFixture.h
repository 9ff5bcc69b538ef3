#pragma once

#include "support/LogCapture.h"

#include "foundation/core/SmartPtr.h"

#include <gtest/gtest.h>

#include <memory>

namespace nurel {
class Engine;
} // namespace nurel

namespace nurel::ui {
class Component;
class Widget;
} // namespace nurel::ui

namespace nurel::ui::skins {
class DefaultSkin;
} // namespace nurel::ui::skins

namespace test {

/// A headless engine of 800 x 600 with a manual clock and a font of the test data, the style-free skin as the default
/// one, and a capture of the log. The manager is shut down before the engine goes.
class EngineFixture : public testing::Test {
protected:
    EngineFixture();
    ~EngineFixture() override;

    void SetUp() override;
    void TearDown() override;

    nurel::Engine &engine() { return *mEngine; }
    nurel::ui::skins::DefaultSkin &skin() { return *mSkin; }
    LogCapture &log() { return mLog; }

    /// Ends manager and engine ahead of time.
    void stopEngine();

    /// Gives the widget views of the style-free skin and puts it on the stage, where it is live at once.
    static void show(nurel::ui::Widget &widget);

    /// One frame: events, then the update.
    static void frame();

private:
    LogCapture mLog;
    std::unique_ptr<nurel::Engine> mEngine;
    core::SmartPtr<nurel::ui::skins::DefaultSkin> mSkin;
};

} // namespace test
