#include "Gallery.h"

#include "ComponentFinder.h"
#include "support/LogCapture.h"

#include "nengine/Engine.h"
#include "nengine/texture/TexturePool.h"
#include "nui/ui/Component.h"
#include "nui/ui/Dialog.h"
#include "nui/ui/UIEvent.h"
#include "nui/ui/UIManager.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <unistd.h>

namespace {

using gallery::Gallery;
using nurel::ui::Component;
using nurel::ui::Dialog;
using nurel::ui::UIManager;

/// The gallery on a copy of its files that may be changed.
class GalleryReload : public testing::Test {
protected:
    void SetUp() override {
        const auto *info = testing::UnitTest::GetInstance()->current_test_info();
        folder = std::filesystem::temp_directory_path() /
                 (std::string("nui-gallery-reload-") + info->name() + "-" + std::to_string(getpid()));
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
        for (const char *part : {"gallery", "style", "dialogs"})
            std::filesystem::copy(std::filesystem::path(ASSETS) / part, folder / part,
                                  std::filesystem::copy_options::recursive);
        nurel::EngineConfig config = nurel::EngineConfig::headless(1280, 720);
        config.fontFile = FONT;
        engine = std::make_unique<nurel::Engine>(config);
        shown = std::make_unique<Gallery>(folder.string());
        runFrames();
    }

    void TearDown() override {
        shown.reset();
        UIManager::shutdown();
        engine.reset();
        std::filesystem::remove_all(folder);
    }

    void runFrames() {
        for (int i = 0; i < 3; ++i) {
            engine->advance(1.0 / 60);
            shown->update();
            nurel::texture::TexturePool::getSingleton().waitUntilLoaded();
            engine->pump();
            UIManager::getSingleton().updateEvents();
            UIManager::getSingleton().update();
        }
    }

    void showPage(const char *name) {
        for (std::size_t i = 0; i < gallery::getPages().size(); ++i) {
            if (std::strcmp(gallery::getPages()[i].name, name) == 0)
                shown->showPage(i);
        }
        runFrames();
    }

    std::string load(const char *file) const {
        std::ifstream stream(folder / file);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }

    void save(const char *file, const std::string &text) const { std::ofstream(folder / file) << text; }

    /// Looks for changes until they count as settled.
    void reload() {
        for (int i = 0; i < 10; ++i) {
            now += std::chrono::milliseconds(100);
            shown->reloadChanged(now);
        }
        runFrames();
    }

    std::filesystem::path folder;
    std::unique_ptr<nurel::Engine> engine;
    std::unique_ptr<Gallery> shown;
    viewer::WatchedFileSystem::Time now = std::chrono::steady_clock::now();
};

} // namespace

TEST_F(GalleryReload, ASavedSheetRestylesThePage) {
    const test::LogCapture log;
    Component *button = viewer::findComponent("start/tour");
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->getSize().y, 44);
    save("gallery/welcome.css", "button.large { height: 60px; }");
    reload();
    EXPECT_EQ(viewer::findComponent("start/tour"), button) << "a sheet alone builds nothing anew";
    EXPECT_EQ(button->getSize().y, 60);
    save("gallery/welcome.css", "button.small { height: 60px; }");
    reload();
    EXPECT_EQ(button->getSize().y, 44);
}

TEST_F(GalleryReload, ASavedTemplateIsShown) {
    const test::LogCapture log;
    save("gallery/welcome.ui", R"({"type": "panel", "name": "welcome", "size": [0, 0, 1, 1], "children": [
        {"type": "button", "name": "tour", "text": "New"}, {"type": "button", "name": "theme"}]})");
    reload();
    ASSERT_NE(viewer::findComponent("stage/tour"), nullptr);
    EXPECT_STREQ(viewer::getComponentText(*viewer::findComponent("stage/tour")), "New");
}

TEST_F(GalleryReload, WhatDoesNotLoadLeavesThePageUp) {
    test::LogCapture log;
    save("gallery/welcome.ui", "{ oops");
    reload();
    EXPECT_NE(viewer::findComponent("start/tour"), nullptr);
    EXPECT_NE(log.takeOne(logging::Level::ERROR).find("Cannot reload the page welcome"), std::string::npos);
    save("style/light.css", "button { color red; }");
    reload();
    EXPECT_NE(log.takeOne(logging::Level::ERROR).find("Cannot reload the page welcome"), std::string::npos);
    Component *button = viewer::findComponent("start/tour");
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->getSize().y, 44);
}

TEST_F(GalleryReload, APageThatCannotBeReadIsNotShown) {
    test::LogCapture log;
    save("gallery/boxes.ui", "[");
    shown->showPage(1);
    runFrames();
    EXPECT_NE(log.takeOne(logging::Level::ERROR).find("Cannot show the page boxes"), std::string::npos);
    EXPECT_EQ(shown->getPage(), 0U);
    EXPECT_NE(viewer::findComponent("start/tour"), nullptr);
    shown->showPage(2);
    runFrames();
    EXPECT_STREQ(viewer::getComponentText(*viewer::findComponent("main/title")), "Text");
}

TEST_F(GalleryReload, ASavedTemplateOfDialogsIsForTheNextOne) {
    const test::LogCapture log;
    showPage("dialogs");
    const auto open = [this] {
        const nurel::ui::Ray ray;
        const nurel::ui::CursorPosition origin;
        viewer::findComponent("messages/info")->handleEvent(nurel::ui::ClickEvent(ray, origin, origin));
        runFrames();
        return Dialog::getCurrentModal();
    };
    std::string text = load("dialogs/dialog.ui");
    const std::size_t title = text.find("\"lTitle\"");
    ASSERT_NE(title, std::string::npos);
    text.insert(title + 1, "other\", \"class\": \"heading\"}, {\"type\": \"label\", \"name\": \"");
    ASSERT_NE(open(), nullptr);
    EXPECT_EQ(viewer::findComponent("info/other"), nullptr);
    save("dialogs/dialog.ui", text);
    reload();
    EXPECT_NE(viewer::findComponent("stage/dialogs"), nullptr);
    ASSERT_NE(open(), nullptr);
    EXPECT_NE(viewer::findComponent("info/other"), nullptr);
}
