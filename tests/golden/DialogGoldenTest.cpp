// Dialogs over a screen, in the starter looks.
#include "GoldenFixture.h"

#include "nengine/texture/TexturePool.h"
#include "nmain/stream/InputStream.h"
#include "nmain/vfs/DirectoryFileSystem.h"
#include "nui/ui/Dialog.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/UIComponentFactory.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/css/CSS.h"
#include "nui/ui/css/CSSParser.h"
#include "nui/ui/css/CSSSkin.h"

#include <string>

namespace golden {

using nurel::math::Vector2;
using nurel::ui::Dialog;
using nurel::ui::SkinManager;
using nurel::ui::UIComponentFactory;
using nurel::ui::Widget;
using nurel::ui::components::Label;
using nurel::ui::components::Panel;
using nurel::ui::css::CSSParser;
using nurel::ui::css::CSSSkin;

namespace {

class DialogGolden : public GoldenFixture {
protected:
    /// A screen with a card, under one of the starter looks.
    void showScreen(const std::string &sheet) {
        nurel::texture::TexturePool::getSingleton().setFileSystem(&mImages);
        UIComponentFactory::getSingleton().setLoadResolver(&mTemplates);
        mLook = new CSSSkin("look");
        SkinManager::getSingleton().addSkin(mLook.get());
        SkinManager::getSingleton().setDefaultSkin(mLook.get());
        nurel::stream::FileInputStream sheetStream((std::string(STYLES "/") + sheet).c_str());
        mLook->setStyleSheet(CSSParser().parse(&sheetStream));
        const core::SmartPtr<Widget> widget(new Widget("screen"));
        const core::SmartPtr<Panel> card(new Panel("card"));
        card->addClass("card");
        card->setPositionData(Vector2(10, 10), Vector2::ZERO, Vector2(200, 300), Vector2::ZERO, Panel::ANCHOR_TOP_LEFT);
        widget->addChild(card.get());
        GoldenFixture::show(widget);
    }

    void open(Dialog *dialog) {
        mDialog = dialog;
        dialog->showModal(Dialog::BUTTON_CLOSE);
        nurel::ui::UIManager &manager = nurel::ui::UIManager::getSingleton();
        manager.updateEvents();
        manager.update();
        nurel::texture::TexturePool::getSingleton().waitUntilLoaded();
        engine().advance(0.3);
    }

    void TearDown() override {
        mDialog = nullptr;
        nurel::texture::TexturePool::getSingleton().setFileSystem(nullptr);
        GoldenFixture::TearDown();
        mLook = nullptr;
    }

private:
    nurel::vfs::DirectoryFileSystem mImages{STYLES};
    nurel::vfs::DirectoryFileSystem mTemplates{DIALOGS};
    core::SmartPtr<CSSSkin> mLook;
    core::SmartPtr<Dialog> mDialog;
};

} // namespace

TEST_F(DialogGolden, ALightQuestion) {
    showScreen("light.css");
    open(Dialog::newDialog("quit", "Leave the game",
                           "All that you have done since you saved the game will be lost. Leave all the same?",
                           Dialog::FLAG_YES | Dialog::FLAG_NO | Dialog::FLAG_CANCEL | Dialog::FLAG_CLOSE |
                               Dialog::FLAG_QUESTION));
    expectPicture("dialog-light");
}

TEST_F(DialogGolden, ADarkErrorWithATitleIcon) {
    showScreen("dark.css");
    Dialog *dialog = Dialog::newDialog("failed", "No connection", "The server does not answer.",
                                       Dialog::FLAG_OK | Dialog::FLAG_ERROR);
    dialog->setTitleIconClass("icon");
    dialog->setTitleIconClass("icon-gear");
    open(dialog);
    expectPicture("dialog-dark");
}

TEST_F(DialogGolden, ABodyThatIsTooHighScrolls) {
    showScreen("light.css");
    const core::SmartPtr<Panel> body(new Panel("body"));
    body->setSize(Vector2(300, 400));
    body->addClass("well");
    const core::SmartPtr<Label> label(new Label("words"));
    label->setText("As high as it likes");
    label->setSize(Vector2(200, 20));
    label->setAnchor(Label::ANCHOR_TOP_LEFT);
    body->addChild(label.get());
    open(Dialog::newDialog("form", "A form", body.get(), Dialog::FLAG_OK | Dialog::FLAG_CANCEL));
    expectPicture("dialog-body");
}

} // namespace golden
