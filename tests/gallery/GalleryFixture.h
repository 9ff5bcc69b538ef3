#pragma once

#include "Gallery.h"

#include "support/LogCapture.h"

#include "nengine/Engine.h"
#include "nengine/renderer/RecordingBackend.h"
#include "nui/ui/Component.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace test {

/// The gallery on a stage of 1280 x 720, driven by its own clock. Components are named as in `viewer::findComponent()`.
class GalleryFixture : public testing::Test {
protected:
    static constexpr int RETURN_KEY = 0x1c;
    static constexpr int ESCAPE_KEY = 0x01;
    static constexpr int TAB_KEY = 0x0f;
    static constexpr int DOWN_KEY = 0xd0;

    /// Enough for a dialog to open or to close.
    static constexpr int ANIMATION_FRAMES = 20;

    GalleryFixture();
    ~GalleryFixture() override;

    void runFrames(int count);
    void draw();
    void showPage(const char *name);

    /// Raises `core::IllegalArgumentException` when there is none.
    static nurel::ui::Component &find(const std::string &path);

    template <class T>
    static T &find(const std::string &path) {
        return static_cast<T &>(findOf(path, T::TYPE));
    }

    static bool exists(const std::string &path);
    static bool isShown(const std::string &path) { return exists(path) && find(path).isVisible(); }
    static bool hasFocus(const std::string &path);

    /// "" for one that has none.
    static std::string textOf(const std::string &path);
    static bool isChecked(const std::string &path);

    void moveTo(const nurel::ui::Component &component);
    void moveTo(const std::string &path) { moveTo(find(path)); }
    void press();
    void release();
    void click(const nurel::ui::Component &component);
    void click(const std::string &path) { click(find(path)); }
    void tap(int key);
    void type(const char *text);

    LogCapture log; ///< a warning or an error fails the test
    std::shared_ptr<nurel::renderer::RecordingBackend> backend;
    std::unique_ptr<nurel::Engine> engine;
    std::unique_ptr<gallery::Gallery> shown;

private:
    static nurel::ui::Component &findOf(const std::string &path, const core::Type &type);
};

} // namespace test
