// Component templates: whatever the text, a component or an exception; the same for a dialog whose window it is to be.
#include "nengine/Engine.h"
#include "nmain/stream/InputStream.h"
#include "nui/ui/Dialog.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/UIComponentFactory.h"
#include "nui/ui/UIComponentParser.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/skins/DefaultSkin.h"

#include "foundation/core/Exception.h"
#include "foundation/logging/Logger.h"

#include <cstdint>
#include <string>

namespace {

class NoLog : public logging::Sink {
public:
    void write(logging::Level, const char *) override {}
};

/// Everything a template needs, for the time of the program.
class Stage {
public:
    Stage() : mEngine(nurel::EngineConfig::headless(640, 480)), mSkin(new nurel::ui::skins::DefaultSkin()) {
        logging::Logger::mROOT_LOGGER.setSink(&mNoLog);
        nurel::ui::SkinManager::getSingleton().addSkin(mSkin.get());
        nurel::ui::SkinManager::getSingleton().setDefaultSkin(mSkin.get());
    }
    ~Stage() {
        nurel::ui::UIManager::shutdown();
        logging::Logger::mROOT_LOGGER.setSink(nullptr);
    }
    Stage(const Stage &) = delete;
    Stage &operator=(const Stage &) = delete;

    void show(const core::SmartPtr<nurel::ui::Component> &root) {
        nurel::ui::UIManager &manager = nurel::ui::UIManager::getSingleton();
        const core::SmartPtr<nurel::ui::Widget> widget = new nurel::ui::Widget("fuzz");
        widget->addChild(root.get(), false);
        manager.setView(widget.get());
        manager.addWidget(widget.get(), nullptr);
        runFrames(2);
        manager.clearWidgets();
        manager.updateEvents();
    }

    /// Opens and closes a dialog, first with a body and then with a text, made from the template that is both window
    /// and icon body.
    void ask(const core::SmartPtr<nurel::ui::Component> &root) {
        nurel::ui::UIComponentFactory &factory = nurel::ui::UIComponentFactory::getSingleton();
        factory.registerTemplate("dialog", root.get());
        factory.registerTemplate("dialog-icon-body", root.get());
        for (const bool hasBody : {true, false}) {
            try {
                const core::SmartPtr<Dialog> dialog(
                    hasBody ? Dialog::newDialog("fuzz", "Title", new nurel::ui::components::Panel("body"), ALL_BUTTONS)
                            : Dialog::newDialog("fuzz", "Title", "Text", ALL_BUTTONS));
                dialog->showModal(Dialog::BUTTON_YES);
                runFrames(2);
                dialog->setFlags(Dialog::FLAG_OK | Dialog::FLAG_ERROR);
                dialog->close(nurel::ui::DIALOG_ACCEPTED);
                runFrames(FRAMES_OF_AN_ANIMATION);
            } catch (const core::Exception &) {
                Dialog::shutdown();
                nurel::ui::UIManager::getSingleton().clearWidgets();
            }
        }
        factory.unregisterTemplates();
    }

private:
    using Dialog = nurel::ui::Dialog;

    static constexpr unsigned int ALL_BUTTONS = 0x20f;
    static constexpr int FRAMES_OF_AN_ANIMATION = 15;

    void runFrames(int count) {
        nurel::ui::UIManager &manager = nurel::ui::UIManager::getSingleton();
        for (int i = 0; i < count; ++i) {
            mEngine.advance(1.0 / 60);
            manager.updateEvents();
            manager.update();
            mEngine.renderFrame(*manager.getRenderPass());
        }
    }

    NoLog mNoLog;
    nurel::Engine mEngine;
    core::SmartPtr<nurel::ui::Skin> mSkin;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static Stage stage;
    nurel::stream::MemoryInputStream stream("fuzz.ui", std::string(reinterpret_cast<const char *>(data), size));
    try {
        const core::SmartPtr<nurel::ui::Component> root = nurel::ui::UIComponentParser().parse(&stream);
        if (root) {
            stage.show(root);
            if (root->instanceOf(nurel::ui::components::Panel::TYPE))
                stage.ask(root);
        }
    } catch (const core::Exception &) {
        // what bad input is told with
    }
    return 0;
}
