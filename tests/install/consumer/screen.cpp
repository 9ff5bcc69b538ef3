// A screen built from code and drawn by the backend that only records.
#include "nengine/Engine.h"
#include "nengine/renderer/RecordingBackend.h"
#include "nui/nui.h"

#include <cstdio>

using nurel::ui::SkinManager;
using nurel::ui::UIManager;
using nurel::ui::Widget;
using nurel::ui::components::Label;
using nurel::ui::skins::DefaultSkin;

int main() {
    nurel::Engine engine(nurel::EngineConfig::headless(640, 360));
    UIManager &manager = UIManager::getSingleton();
    {
        core::SmartPtr<DefaultSkin> skin = new DefaultSkin();
        SkinManager::getSingleton().addSkin(skin.get());
        SkinManager::getSingleton().setDefaultSkin(skin.get());

        core::SmartPtr<Widget> widget = new Widget("screen");
        core::SmartPtr<Label> label = new Label("greeting");
        label->setText("Hello");
        widget->addChild(label.get());
        manager.setView(widget.get());
        manager.addWidget(widget.get());
        std::printf("label '%s' says %s\n", label->getName(), label->getText());
    }
    engine.advance(1.0 / 60);
    manager.updateEvents();
    manager.update();
    engine.renderFrame(*manager.getRenderPass());
    std::printf("%u frame submitted\n", engine.getRecordingBackend()->getSubmitCount());
    UIManager::shutdown();
    return 0;
}
