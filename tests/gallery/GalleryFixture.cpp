#include "GalleryFixture.h"

#include "ComponentFinder.h"

#include "nengine/renderer/RenderPass.h"
#include "nengine/texture/TexturePool.h"
#include "ninput/input/InputSystem.h"
#include "ninput/input/Keyboard.h"
#include "ninput/input/Mouse.h"
#include "nui/ui/UIManager.h"

#include "foundation/core/Exception.h"
#include "foundation/core/Type.h"

#include <cstring>

namespace test {

using nurel::input::Mouse;
using nurel::math::Vector2;
using nurel::ui::Component;
using nurel::ui::UIManager;

GalleryFixture::GalleryFixture() : backend(std::make_shared<nurel::renderer::RecordingBackend>()) {
    nurel::EngineConfig config = nurel::EngineConfig::headless(1280, 720);
    config.backend = backend;
    config.fontFile = FONT;
    engine = std::make_unique<nurel::Engine>(config);
    shown = std::make_unique<gallery::Gallery>(ASSETS);
    runFrames(3);
}

GalleryFixture::~GalleryFixture() {
    shown.reset();
    UIManager::shutdown();
}

void GalleryFixture::runFrames(int count) {
    for (int i = 0; i < count; ++i) {
        engine->advance(1.0 / 60);
        shown->update();
        nurel::texture::TexturePool::getSingleton().waitUntilLoaded();
        engine->pump();
        UIManager::getSingleton().updateEvents();
        UIManager::getSingleton().update();
    }
}

void GalleryFixture::draw() {
    engine->renderFrame(*UIManager::getSingleton().getRenderPass());
}

void GalleryFixture::showPage(const char *name) {
    for (std::size_t i = 0; i < gallery::getPages().size(); ++i) {
        if (std::strcmp(gallery::getPages()[i].name, name) == 0)
            shown->showPage(i);
    }
    runFrames(3);
}

Component &GalleryFixture::find(const std::string &path) {
    Component *found = viewer::findComponent(path.c_str());
    if (!found)
        throw core::IllegalArgumentException("there is no '%s'", path.c_str());
    return *found;
}

Component &GalleryFixture::findOf(const std::string &path, const core::Type &type) {
    Component &found = find(path);
    if (!found.instanceOf(type))
        throw core::IllegalArgumentException("'%s' is no %s", path.c_str(), type.getName());
    return found;
}

bool GalleryFixture::exists(const std::string &path) {
    return viewer::findComponent(path.c_str()) != nullptr;
}

bool GalleryFixture::hasFocus(const std::string &path) {
    return UIManager::getSingleton().getFocus() == &find(path);
}

std::string GalleryFixture::textOf(const std::string &path) {
    const char *text = viewer::getComponentText(find(path));
    return text ? text : "";
}

bool GalleryFixture::isChecked(const std::string &path) {
    return viewer::isComponentChecked(find(path));
}

void GalleryFixture::moveTo(const Component &component) {
    const Vector2 point = viewer::getScreenCenter(component);
    UIManager::getSingleton().setMousePos({static_cast<int>(point.x), static_cast<int>(point.y)});
    runFrames(1);
}

void GalleryFixture::press() {
    UIManager::getSingleton().setMouseButton(Mouse::LEFT, Mouse::PRESS);
    runFrames(1);
}

void GalleryFixture::release() {
    UIManager::getSingleton().setMouseButton(Mouse::LEFT, Mouse::RELEASE);
    runFrames(2);
}

void GalleryFixture::click(const Component &component) {
    moveTo(component);
    press();
    release();
}

void GalleryFixture::tap(int key) {
    for (const bool pressed : {true, false}) {
        nurel::input::InputSystem::getSingleton().getKeyboard().inject(key, pressed);
        runFrames(2);
    }
}

void GalleryFixture::type(const char *text) {
    UIManager::getSingleton().textInput(text);
    runFrames(1);
}

} // namespace test
