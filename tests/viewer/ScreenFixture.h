#pragma once

#include "ComponentFinder.h"
#include "Screen.h"
#include "TemporaryFolder.h"

#include "nengine/Engine.h"
#include "nengine/scene/Mesh.h"
#include "nengine/scene/meshes/BorderedRectangleMesh.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nengine/texture/ImageFile.h"
#include "nengine/texture/TexturePool.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "support/LogCapture.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace viewer {

/// A headless engine, a folder with a screen and a sheet, and the screen on the stage.
class ScreenFixture : public testing::Test {
protected:
    static nurel::EngineConfig makeConfig() {
        nurel::EngineConfig config = nurel::EngineConfig::headless(800, 600);
        config.fontFile = "tests/data/fonts/DejaVuSans.ttf";
        return config;
    }

    ScreenFixture() : mEngine(makeConfig()) {
        mFolder.write("screen.ui", SCREEN);
        mFolder.write("style/a.css", "");
    }

    ~ScreenFixture() override {
        mScreen.reset();
        nurel::ui::UIManager::shutdown();
        nurel::ui::SkinManager::deleteSingleton();
    }

    void open(const std::vector<std::string> &sheets) {
        std::vector<std::string> paths;
        for (const std::string &sheet : sheets)
            paths.push_back(mFolder.getPath(sheet));
        mScreen.reset();
        mScreen = std::make_unique<Screen>(mFolder.getPath("screen.ui"), paths, "");
        runFrames(2);
    }

    void openWith(const std::string &sheet) {
        mFolder.write("style/a.css", sheet);
        open({"style/a.css"});
    }

    /// Saves a sheet and lets the time pass that a reload may take.
    void save(const std::string &name, const std::string &content) {
        mFolder.write(name, content);
        letSecondPass();
    }

    void restyle(const std::string &sheet) { save("style/a.css", sheet); }

    void letSecondPass() {
        for (int i = 0; i < 10; ++i) {
            mNow += std::chrono::milliseconds(100);
            mScreen->reloadChanged(mNow);
            runFrames(1);
        }
    }

    void runFrames(int count) {
        for (int i = 0; i < count; ++i) {
            mEngine.advance(1.0 / 60);
            nurel::texture::TexturePool::getSingleton().waitUntilLoaded();
            mEngine.pump();
            nurel::ui::UIManager::getSingleton().updateEvents();
            nurel::ui::UIManager::getSingleton().update();
            mEngine.renderFrame(*nurel::ui::UIManager::getSingleton().getRenderPass());
        }
    }

    template <class T = nurel::ui::Component>
    T &find(const char *name) {
        nurel::ui::Component *component = findComponent(name);
        if (!component)
            throw std::runtime_error(std::string("no component ") + name);
        return static_cast<T &>(*component);
    }

    nurel::scene::meshes::BorderedRectangleMesh &box(const char *name) {
        return static_cast<nurel::scene::meshes::BorderedRectangleMesh &>(*find(name).getMesh());
    }

    static nurel::math::Vector4 colorOf(nurel::scene::Frame &frame) {
        using nurel::scene::properties::MaterialProperty;
        return static_cast<MaterialProperty *>(frame.getProperty(nurel::scene::Property::MATERIAL))->getColor();
    }

    void savePicture(const std::string &name, unsigned int side) {
        const std::vector<std::uint8_t> pixels(std::size_t{4} * side * side, 255);
        const std::string path = mFolder.getPath(name + "~");
        nurel::texture::savePng(path.c_str(), side, side, pixels.data());
        std::filesystem::rename(path, mFolder.getPath(name));
    }

    static constexpr const char *SCREEN = R"({"type":"widget","name":"stage","size":[0,0,1,1],"children":[
        {"type":"panel","name":"form","size":[400,200],"children":[
            {"type":"label","name":"title","size":[100,40],"text":"Title"},
            {"type":"button","name":"ok","size":[80,30],"position":[-150,60],"text":"OK","tab-stop":0},
            {"type":"checkbox","name":"agree","size":[80,30],"position":[150,60],"text":"Yes"}]},
        {"type":"panel","name":"list","size":[200,100],"position":[0,200],"children":[
            {"type":"panel","name":"long","size":[180,900],"anchor":"top-left"}]}]})";

    const TemporaryFolder mFolder;
    nurel::Engine mEngine;
    std::unique_ptr<Screen> mScreen;
    WatchedFileSystem::Time mNow{};
    test::LogCapture mLog;
};

} // namespace viewer
