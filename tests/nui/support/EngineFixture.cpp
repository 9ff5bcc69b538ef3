#include "support/EngineFixture.h"

#include "nengine/Engine.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/skins/DefaultSkin.h"

namespace test {

using namespace nurel::ui;

EngineFixture::EngineFixture() = default;

EngineFixture::~EngineFixture() = default;

void EngineFixture::SetUp() {
    nurel::EngineConfig config = nurel::EngineConfig::headless(800, 600);
    config.fontFile = "tests/data/fonts/DejaVuSans.ttf";
    mEngine = std::make_unique<nurel::Engine>(config);
    mSkin = new skins::DefaultSkin;
    SkinManager::getSingleton().addSkin(mSkin.get());
    SkinManager::getSingleton().setDefaultSkin(mSkin.get());
}

void EngineFixture::TearDown() {
    stopEngine();
}

void EngineFixture::stopEngine() {
    if (!mEngine)
        return;
    UIManager::shutdown();
    SkinManager::deleteSingleton();
    mSkin = nullptr;
    mEngine.reset();
}

void EngineFixture::show(Widget &widget) {
    UIManager &manager = UIManager::getSingleton();
    manager.setView(&widget);
    manager.addWidget(&widget);
    frame();
}

void EngineFixture::frame() {
    UIManager::getSingleton().updateEvents();
    UIManager::getSingleton().update();
}

} // namespace test
