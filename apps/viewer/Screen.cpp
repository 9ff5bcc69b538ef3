#include "Screen.h"

#include "nengine/texture/TexturePool.h"
#include "nmain/stream/InputStream.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/UIComponentFactory.h"
#include "nui/ui/UIComponentParser.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/skins/DefaultSkin.h"
#include "nxml/i18n/Bundle.h"
#include "nxml/i18n/I18N.h"

#include "foundation/core/Exception.h"
#include "foundation/logging/Logger.h"

#include <memory>

namespace viewer {

namespace i18n = nurel::i18n;
namespace math = nurel::math;
namespace stream = nurel::stream;
namespace texture = nurel::texture;
namespace ui = nurel::ui;

using logging::Logger;
using ui::Component;
using ui::UIComponentFactory;
using ui::UIManager;
using ui::Widget;

Screen::Screen(const std::string &path, const std::string &locale)
    : mFiles(std::filesystem::path(path).parent_path().string()), mFile(std::filesystem::path(path).filename().string()), mSkin(new ui::skins::DefaultSkin()) {
    ui::SkinManager::getSingleton().addSkin(mSkin.get());
    ui::SkinManager::getSingleton().setDefaultSkin(mSkin.get());
    UIComponentFactory::getSingleton().setLoadResolver(&mFiles);
    texture::TexturePool::getSingleton().setFileSystem(&mFiles);
    loadCatalogues(locale);
    show(load());
}

Screen::~Screen() {
    texture::TexturePool::getSingleton().setFileSystem(nullptr);
}

void Screen::loadCatalogues(const std::string &locale) {
    if (locale.empty())
        return;
    i18n::I18N &texts = i18n::I18N::getSingleton();
    texts.setLocale(locale.c_str());
    bool found = false;
    const std::string language = locale.substr(0, locale.find_first_of("_-"));
    for (const std::string &name : {language, locale}) {
        for (const char *extension : {".xml", ".po"}) {
            const std::string path = "i18n/" + name + extension;
            if (!mFiles.exists(path.c_str()))
                continue;
            const std::unique_ptr<stream::InputStream> stream(mFiles.open(path.c_str()));
            texts.addBundle(i18n::Bundle::parse(*stream));
            found = true;
        }
        if (locale == language)
            break;
    }
    if (!found)
        Logger::mROOT_LOGGER.warn("No catalogue of texts for locale %s", locale.c_str());
}

core::SmartPtr<Widget> Screen::load() {
    const std::unique_ptr<stream::InputStream> stream(mFiles.open(mFile.c_str()));
    const core::SmartPtr<Component> root = ui::UIComponentParser().parse(stream.get());
    if (root->instanceOf(Widget::TYPE))
        return static_cast<Widget *>(root.get());
    core::SmartPtr<Widget> widget = new Widget("screen");
    widget->addChild(root.get(), false);
    return widget;
}

void Screen::show(const core::SmartPtr<Widget> &widget) {
    UIManager &manager = UIManager::getSingleton();
    if (mWidget)
        manager.removeWidget(mWidget.get());
    mWidget = widget;
    manager.setView(widget.get());
    manager.addWidget(widget.get(), nullptr);
}

void Screen::reloadChanged() {
    bool templatesChanged = false;
    for (const std::string &path : mFiles.takeChanged()) {
        if (std::filesystem::path(path).extension() == ".ui" || path == mFile)
            templatesChanged = true;
        else
            texture::TexturePool::getSingleton().reload(path.c_str());
    }
    if (!templatesChanged)
        return;
    try {
        UIComponentFactory::getSingleton().unregisterTemplates();
        show(load());
        hideMessage();
        Logger::mROOT_LOGGER.info("Reloaded %s", mFile.c_str());
    } catch (const core::Exception &e) {
        Logger::mROOT_LOGGER.error("Cannot reload %s", e, mFile.c_str());
        showMessage(e.getMessage());
    }
}

void Screen::showMessage(const char *text) {
    hideMessage();
    UIManager &manager = UIManager::getSingleton();
    constexpr float HEIGHT = 40;
    mMessage = new Widget("message", math::Vector2(0, HEIGHT), math::Vector2(1, 0));
    mMessage->setAnchor(ui::Component::ANCHOR_BOTTOM_CENTER);
    mMessage->setEventMask(0);
    const core::SmartPtr<ui::components::Label> label = new ui::components::Label("text");
    label->setSize(math::Vector2::ZERO, math::Vector2::ONE);
    label->setText(text);
    mMessage->addChild(label.get(), false);
    manager.setView(mMessage.get());
    manager.addWidget(mMessage.get(), nullptr);
}

void Screen::hideMessage() {
    if (mMessage)
        UIManager::getSingleton().removeWidget(mMessage.get());
    mMessage = nullptr;
}

} // namespace viewer
