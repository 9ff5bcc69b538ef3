#include "Gallery.h"

#include "OnClick.h"
#include "RestylingSkin.h"
#include "ScreenKeyboard.h"

#include "nengine/texture/TexturePool.h"
#include "nmain/stream/InputStream.h"
#include "nui/ui/Dialog.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/UIComponentFactory.h"
#include "nui/ui/UIComponentParser.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/css/CSS.h"
#include "nui/ui/css/CSSParser.h"
#include "nxml/i18n/I18N.h"

#include "foundation/core/Exception.h"
#include "foundation/logging/Logger.h"

#include <filesystem>
#include <memory>
#include <utility>

namespace gallery {

namespace css = nurel::ui::css;
namespace stream = nurel::stream;
namespace ui = nurel::ui;

using logging::Logger;
using nurel::math::Vector2;
using ui::UIManager;
using ui::components::Button;
using ui::components::Label;
using ui::components::Panel;

namespace {

constexpr int FIRST_TAB_STOP = 10;
constexpr float PAGE_BUTTON_HEIGHT = 32;
constexpr const char *SHELL = "gallery";

} // namespace

Gallery::Gallery(const std::string &assets)
    : mFiles({assets + "/gallery", assets + "/style", assets, assets + "/dialogs"}),
      mSkin(new viewer::RestylingSkin()) {
    ui::SkinManager::getSingleton().addSkin(mSkin.get());
    ui::SkinManager::getSingleton().setDefaultSkin(mSkin.get());
    ui::UIComponentFactory::getSingleton().setLoadResolver(&mFiles);
    nurel::texture::TexturePool::getSingleton().setFileSystem(&mFiles);
    const core::SmartPtr<ui::Component> shell = readTemplate(std::string(SHELL) + ".ui");
    if (!shell->instanceOf(ui::Widget::TYPE))
        throw core::IllegalStateException("the gallery's own template is no widget");
    mWidget = static_cast<ui::Widget *>(shell.get());
    loadTexts();
    auto keyboard = std::make_unique<ScreenKeyboard>();
    mKeyboard = keyboard.get();
    UIManager::getSingleton().setKeyboardOverlay(std::move(keyboard));
    addPageButtons();
    connectShell();
    buildPage();
    UIManager::getSingleton().setView(mWidget.get());
    UIManager::getSingleton().addWidget(mWidget.get(), nullptr);
}

Gallery::~Gallery() {
    if (UIManager::isSingletonCreated())
        UIManager::getSingleton().setKeyboardOverlay(nullptr);
    if (nurel::i18n::I18N *texts = nurel::i18n::I18N::getSingletonPtr())
        texts->removeBundle(mTexts.get());
    mSkin->forget();
    nurel::texture::TexturePool::getSingleton().setFileSystem(nullptr);
    ui::UIComponentFactory::getSingleton().clearLoadResolver();
}

template <class T>
T &Gallery::find(const char *path) {
    return PageTools(*this, *mWidget).find<T>(path);
}

/// Those of the answers of dialogs, whatever the language.
void Gallery::loadTexts() {
    const std::unique_ptr<stream::InputStream> stream(mFiles.open("texts.xml"));
    mTexts = nurel::i18n::Bundle::parse(*stream);
    nurel::i18n::I18N::getSingleton().addBundle(mTexts.get());
}

void Gallery::addPageButtons() {
    Panel &list = find<Panel>("navigation/pages");
    int tabStop = FIRST_TAB_STOP;
    for (std::size_t i = 0; i < getPages().size(); ++i) {
        const core::SmartPtr<Button> button = new Button(getPages()[i].name);
        button->setText(getPages()[i].title);
        button->addClass("nav");
        button->setTabStop(tabStop++);
        button->setSize(Vector2(0, PAGE_BUTTON_HEIGHT), Vector2(1, 0));
        onClick(*button, [this, i] { showPage(i); });
        list.addChild(button.get(), true);
        mPageButtons.push_back(button.get());
    }
}

void Gallery::connectShell() {
    mDarkButton = &find<Button>("navigation/dark");
    // A press of the mouse has toggled the button by now; Return has not.
    onClick(*mDarkButton, [this] { setDark(!mShown.dark); });
    onClick(find<Button>("tabs/template"), [this] { setSource(TEMPLATE); });
    onClick(find<Button>("tabs/sheet"), [this] { setSource(SHEET); });
}

void Gallery::showPage(std::size_t index) {
    mWanted.page = index < getPages().size() ? index : 0;
}

void Gallery::setDark(bool dark) {
    mWanted.dark = dark;
}

void Gallery::setSource(Source source) {
    mWanted.source = source;
}

void Gallery::update() {
    if (std::exchange(mForgetRemoved, false))
        mSkin->forgetUnused();
    if (mDarkButton->isChecked() != mShown.dark && mWanted.dark == mShown.dark)
        mWanted.dark = mDarkButton->isChecked(); // released beside it: it toggled without a click
    if (!(mWanted == mShown))
        showWanted();
    focusFirst();
    forgetClosed();
}

void Gallery::showWanted() {
    try {
        if (mWanted.page != mShown.page)
            buildPage();
        else if (mWanted.dark != mShown.dark)
            styleAnew();
        fillSource();
        mShown = mWanted;
    } catch (const core::Exception &e) {
        Logger::mROOT_LOGGER.error("Cannot show the page %s", e, getPages()[mWanted.page].name);
        mWanted = mShown;
        mDarkButton->setChecked(mShown.dark);
    }
}

void Gallery::setFirstFocus(ui::Component &component) {
    mFirstFocus = &component;
}

/// The focus is lost as long as the widget is not on the stage.
void Gallery::focusFirst() {
    if (!mFirstFocus || !UIManager::getSingleton().hasWidget(mWidget.get()))
        return;
    if (mFirstFocus->isDescendantOf(mPage.get())) // else the page was not shown in the end
        mFirstFocus->setFocus();
    mFirstFocus = nullptr;
}

/// The skin holds what it has styled: dialogs and lists that were closed, too.
void Gallery::forgetClosed() {
    const unsigned int count = UIManager::getSingleton().getWidgetCount();
    if (count < mWidgetCount)
        mSkin->forgetUnused();
    mWidgetCount = count;
}

core::SmartPtr<ui::Component> Gallery::readTemplate(const std::string &path) {
    const std::unique_ptr<stream::InputStream> stream(mFiles.open(path.c_str()));
    return ui::UIComponentParser().parse(stream.get());
}

void Gallery::buildPage() {
    const Page &page = getPages()[mWanted.page];
    // Whatever cannot be read is told by an exception while the page before is still in place.
    const core::SmartPtr<ui::Component> built = readTemplate(std::string(page.name) + ".ui");
    mNextKept.clear();
    if (page.connect)
        page.connect(PageTools(*this, *built));
    std::unique_ptr<css::CSS> sheet = readAllSheets();
    leavePage();
    mKept = std::exchange(mNextKept, {});
    applySheet(std::move(sheet));
    mPage = built;
    find<Panel>("main/stage").addChild(mPage.get(), true);
    find<Label>("main/title").setText(page.title);
    find<Label>("main/about").setText(page.about);
    for (std::size_t i = 0; i < mPageButtons.size(); ++i)
        mPageButtons[i]->setChecked(i == mWanted.page);
    fillSource();
}

/// What the page has opened goes with it.
void Gallery::leavePage() {
    if (!mPage)
        return;
    UIManager &manager = UIManager::getSingleton();
    if (ui::KeyboardOverlay *keyboard = manager.getKeyboardOverlay())
        keyboard->resign(nullptr);
    while (ui::Dialog *dialog = ui::Dialog::getCurrentModal())
        dialog->close(ui::DIALOG_CANCELLED);
    const ui::Component *focus = manager.getFocus();
    if (focus && focus->isDescendantOf(mPage.get()))
        manager.setFocus(nullptr);
    find<Panel>("main/stage").removeChild(mPage.get());
    mPage = nullptr;
    mKept.clear();
    mSkin->forgetUnused();
}

std::unique_ptr<css::CSS> Gallery::readSheet(const std::string &path) {
    const std::unique_ptr<stream::InputStream> stream(mFiles.open(path.c_str()));
    css::CSSParser parser;
    parser.setFileName(path.c_str());
    return std::unique_ptr<css::CSS>(parser.parse(stream.get()));
}

std::unique_ptr<css::CSS> Gallery::readAllSheets() {
    // Of two rules that weigh the same the one that was read later counts, so the page's own sheet comes last.
    std::unique_ptr<css::CSS> sheet = readSheet(mWanted.dark ? "dark.css" : "light.css");
    const std::string own = std::string(getPages()[mWanted.page].name) + ".css";
    for (const std::string &path : {std::string(SHELL) + ".css", own}) {
        if (mFiles.exists(path.c_str()))
            sheet->merge(readSheet(path).get());
    }
    return sheet;
}

void Gallery::applySheet(std::unique_ptr<css::CSS> sheet) {
    mDarkButton->setChecked(mWanted.dark);
    mSkin->restyle(std::move(sheet));
}

void Gallery::styleAnew() {
    applySheet(readAllSheets());
}

std::string Gallery::getSourcePath() {
    const std::string name = getPages()[mWanted.page].name;
    if (mWanted.source == TEMPLATE)
        return "gallery/" + name + ".ui";
    const std::string own = "gallery/" + name + ".css";
    if (mFiles.exists(own.c_str()))
        return own;
    return mWanted.dark ? "style/dark.css" : "style/light.css";
}

void Gallery::fillSource() {
    const std::string path = getSourcePath();
    const std::unique_ptr<stream::InputStream> stream(mFiles.open(path.c_str()));
    find<Label>("source/path").setText(("assets/" + path).c_str());
    find<Label>("source/code").setText(stream::readAll(*stream).c_str());
    find<Button>("tabs/template").setChecked(mWanted.source == TEMPLATE);
    find<Button>("tabs/sheet").setChecked(mWanted.source == SHEET);
}

void Gallery::reloadChanged(viewer::WatchedFileSystem::Time now) {
    bool templatesChanged = false;
    bool sheetsChanged = false;
    for (const std::string &path : mFiles.takeChanged(now)) {
        const std::string extension = std::filesystem::path(path).extension().string();
        if (extension == ".ui")
            templatesChanged = true;
        else if (extension == ".css")
            sheetsChanged = true;
        else
            nurel::texture::TexturePool::getSingleton().reload(path.c_str());
    }
    if (!templatesChanged && !sheetsChanged)
        return;
    try {
        ui::UIComponentFactory::getSingleton().unregisterTemplates();
        if (templatesChanged)
            buildPage();
        else
            styleAnew();
        fillSource();
    } catch (const core::Exception &e) {
        Logger::mROOT_LOGGER.error("Cannot reload the page %s", e, getPages()[mWanted.page].name);
    }
}

} // namespace gallery
