#include "Screen.h"

#include "AssetFolder.h"
#include "RestylingSkin.h"

#include "nengine/texture/ImageFile.h"
#include "nengine/texture/TexturePool.h"
#include "nmain/stream/InputStream.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/UIComponentFactory.h"
#include "nui/ui/UIComponentParser.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/css/CSS.h"
#include "nui/ui/skins/DefaultSkin.h"
#include "nxml/i18n/Bundle.h"
#include "nxml/i18n/I18N.h"

#include "foundation/core/Exception.h"
#include "foundation/logging/Logger.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <memory>

namespace viewer {

namespace i18n = nurel::i18n;
namespace stream = nurel::stream;
namespace texture = nurel::texture;
namespace ui = nurel::ui;

using logging::Logger;
using texture::TexturePool;
using ui::Component;
using ui::SkinManager;
using ui::UIComponentFactory;
using ui::UIManager;
using ui::Widget;

namespace {

/// What stands for the sheets among the files that have faults: they are good or bad together.
constexpr const char *SHEETS = "";

std::vector<std::string> listFolders(const std::string &screen, const StyleSheets &sheets) {
    std::vector<std::string> folders{std::filesystem::path(screen).parent_path().string()};
    for (const std::string &folder : sheets.getFolders()) {
        if (std::find(folders.begin(), folders.end(), folder) == folders.end())
            folders.push_back(folder);
    }
    folders.push_back(findAssets() + "/dialogs");
    return folders;
}

std::string joinLines(const std::map<std::string, std::string> &lines) {
    std::string text;
    for (const auto &[file, line] : lines)
        text += (text.empty() ? "" : "\n") + line;
    return text;
}

} // namespace

Screen::Screen(const std::string &path, const std::vector<std::string> &styles, const std::string &locale)
    : mSheets(styles), mFiles(listFolders(path, mSheets)), mFile(std::filesystem::path(path).filename().string()) {
    setUpSkin();
    UIComponentFactory::getSingleton().setLoadResolver(&mFiles);
    TexturePool::getSingleton().setFileSystem(&mFiles);
    try {
        loadCatalogues(locale);
        show(load());
    } catch (...) {
        leave();
        throw;
    }
}

Screen::~Screen() {
    UIManager::getSingleton().removeWidget(mWidget.get());
    leave();
}

void Screen::leave() {
    TexturePool::getSingleton().setFileSystem(nullptr);
    UIComponentFactory::getSingleton().clearLoadResolver();
    if (mStyleSkin)
        mStyleSkin->forget();
}

void Screen::setUpSkin() {
    SkinManager &skins = SkinManager::getSingleton();
    mDefaultSkin = new ui::skins::DefaultSkin();
    skins.addSkin(mDefaultSkin.get());
    skins.setDefaultSkin(mDefaultSkin.get());
    if (mSheets.isEmpty())
        return;
    mStyleSkin = new RestylingSkin();
    mStyleSkin->setStyleSheet(mSheets.load().release());
    skins.addSkin(mStyleSkin.get());
    skins.setDefaultSkin(mStyleSkin.get());
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

core::SmartPtr<Component> Screen::parse(const std::string &file) {
    const std::unique_ptr<stream::InputStream> stream(mFiles.open(file.c_str()));
    try {
        return ui::UIComponentParser().parse(stream.get());
    } catch (const core::IllegalArgumentException &e) {
        throw core::IllegalArgumentException("%s: %s", stream->getName(), e.getMessage());
    }
}

core::SmartPtr<Widget> Screen::load() {
    const core::SmartPtr<Component> root = parse(mFile);
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

void Screen::reloadChanged(WatchedFileSystem::Time now) {
    if (!mSheets.takeChanged(now).empty())
        reloadSheets();
    bool templatesChanged = false;
    for (const std::string &file : mFiles.takeChanged(now)) {
        const std::filesystem::path extension = std::filesystem::path(file).extension();
        if (extension == ".ui" || file == mFile) {
            mChangedTemplates.insert(file);
            templatesChanged = true;
        } else if (extension != ".xml" && extension != ".po") { // the catalogues of the locale stay as they were read
            reloadImage(file);
        }
    }
    if (templatesChanged)
        reloadTemplates();
    restyleLoadedImages();
    mMessage.show(joinLines(mFaults));
}

template <class Load>
bool Screen::tryLoading(const std::string &file, Load load) {
    try {
        load();
    } catch (const core::Exception &e) {
        const bool saysWhere = std::strstr(e.getMessage(), file.c_str()) != nullptr;
        std::string &fault = mFaults[file];
        const std::string text = saysWhere ? e.getMessage() : file + ": " + e.getMessage();
        if (fault != text)
            Logger::mROOT_LOGGER.error("Cannot reload %s", text.c_str());
        fault = text;
        return false;
    }
    mFaults.erase(file);
    Logger::mROOT_LOGGER.info("Reloaded %s", file == SHEETS ? "the sheets" : file.c_str());
    return true;
}

void Screen::reloadSheets() {
    tryLoading(SHEETS, [this] { mStyleSkin->restyle(mSheets.load()); });
}

void Screen::reloadTemplates() {
    // A faulty template costs those that include it no more than a child, so that each is tried alone first.
    bool good = true;
    for (const std::string &file : mChangedTemplates) {
        if (file != mFile)
            good = tryLoading(file, [this, &file] { parse(file); }) && good;
    }
    good = good && tryLoading(mFile, [this] {
               UIComponentFactory::getSingleton().unregisterTemplates();
               show(load());
           });
    if (!good)
        return;
    mChangedTemplates.clear();
    mMessage.raise();
    if (mStyleSkin)
        mStyleSkin->forgetUnused();
}

void Screen::reloadImage(const std::string &name) {
    tryLoading(name, [this, &name] {
        const std::unique_ptr<stream::InputStream> stream(mFiles.open(name.c_str()));
        const std::string content = stream::readAll(*stream);
        texture::decodeImage(content.data(), content.size()); // the pool would tell of a fault in the log alone
        TexturePool::getSingleton().reload(name.c_str());
        mImagesChanged = true;
    });
}

/// What found no picture looks again, and what takes its size from one that changed is placed anew.
void Screen::restyleLoadedImages() {
    if (!mImagesChanged || TexturePool::getSingleton().getPendingCount() > 0)
        return;
    mImagesChanged = false;
    UIManager::getSingleton().refresh();
}

} // namespace viewer
