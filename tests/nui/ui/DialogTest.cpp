#include "nui/ui/DialogFixture.h"

#include "nui/ui/UIEventHandler.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/components/Image.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Panel.h"
#include "nxml/i18n/Bundle.h"
#include "nxml/i18n/I18N.h"

namespace nurel::ui {

using components::Button;
using components::Image;
using components::Label;
using components::Panel;
using test::DialogTest;

namespace {

/// Says when it goes.
class Witness : public Component::UserData {
public:
    explicit Witness(bool &gone) : mGone(gone) {}
    ~Witness() override { mGone = true; }

private:
    bool &mGone;
};

/// Adds a translation, for as long as the engine runs.
void translate(const char *key, const char *text) {
    core::SmartPtr<i18n::Bundle> bundle(new i18n::Bundle(""));
    bundle->put(key, text);
    i18n::I18N::getSingleton().addBundle(bundle.get());
}

/// The keys are the program's, so a test that changes them puts them back.
class DefaultKeys {
public:
    DefaultKeys() = default;
    ~DefaultKeys() {
        Dialog::setI18N(Dialog::FLAG_OK, "OK");
        Dialog::setI18N(Dialog::FLAG_YES, "YES");
        Dialog::setI18N(Dialog::FLAG_CANCEL, "CANCEL");
        Dialog::setI18N(Dialog::FLAG_NO, "NO");
    }
    DefaultKeys(const DefaultKeys &) = delete;
    DefaultKeys &operator=(const DefaultKeys &) = delete;
};

std::vector<std::string> answerTexts(const Dialog &dialog) {
    std::vector<std::string> texts;
    for (const Dialog::ButtonType type :
         {Dialog::BUTTON_OK, Dialog::BUTTON_YES, Dialog::BUTTON_NO, Dialog::BUTTON_CANCEL})
        texts.emplace_back(dialog.getButtonText(type));
    return texts;
}

using Texts = std::vector<std::string>;

} // namespace

// --- What a dialog is

TEST_F(DialogTest, ADialogIsAWidgetThatFillsTheStageAndTakesKeys) {
    const core::SmartPtr<Dialog> dialog = ask(Dialog::FLAG_OK, "quit");
    EXPECT_TRUE(dialog->instanceOf(Widget::TYPE));
    EXPECT_STREQ(dialog->getType().getName(), "Dialog");
    EXPECT_EQ(dialog->getElement(), "widget");
    EXPECT_STREQ(dialog->getName(), "quit");
    EXPECT_TRUE(dialog->hasClass("modal"));
    EXPECT_EQ(dialog->getComponentSize().absolute, Vector2(0, 0));
    EXPECT_EQ(dialog->getComponentSize().relative, Vector2(1, 1));
    EXPECT_TRUE(dialog->isEventEnabled(UIEvent::ET_KEY_EVENT));
    EXPECT_EQ(dialog->getRefCount(), 1U);
    EXPECT_EQ(manager().getWidgetCount(), 0U);
}

TEST_F(DialogTest, FlagsTypesAndResultsHaveTheirValues) {
    EXPECT_EQ(Dialog::FLAG_OK, 1U);
    EXPECT_EQ(Dialog::FLAG_YES, 2U);
    EXPECT_EQ(Dialog::FLAG_CANCEL, 4U);
    EXPECT_EQ(Dialog::FLAG_NO, 8U);
    EXPECT_EQ(Dialog::FLAG_INFO, 0x10U);
    EXPECT_EQ(Dialog::FLAG_QUESTION, 0x20U);
    EXPECT_EQ(Dialog::FLAG_WARNING, 0x40U);
    EXPECT_EQ(Dialog::FLAG_ERROR, 0x80U);
    EXPECT_EQ(Dialog::FLAG_CLOSE, 0x200U);
    EXPECT_EQ(Dialog::BUTTON_YES, 2);
    EXPECT_EQ(Dialog::BUTTON_NO, 3);
    EXPECT_EQ(Dialog::BUTTON_CANCEL, 4);
    EXPECT_EQ(Dialog::BUTTON_CLOSE, 5);
    EXPECT_EQ(DIALOG_ACCEPTED, 0);
    EXPECT_EQ(DIALOG_DECLINED, 1);
    EXPECT_EQ(DIALOG_CANCELLED, 2);
}

TEST_F(DialogTest, ASkinTakesADialogForTheWidgetThatItIs) {
    const core::SmartPtr<Dialog> dialog = ask();
    const int before = mSkin->mWidgetsVisited;
    const core::SmartPtr<ComponentView> view(mSkin->skin(dialog.get()));
    EXPECT_EQ(mSkin->mWidgetsVisited, before + 1);
    ASSERT_NE(view.get(), nullptr);
    EXPECT_TRUE(dialog->getWindow()->hasView());
}

TEST_F(DialogTest, ACloneIsAPlainWidgetWithACopyOfTheWindow) {
    const core::SmartPtr<Dialog> dialog = ask(Dialog::FLAG_OK | Dialog::FLAG_ERROR);
    const core::SmartPtr<core::Object> copy(dialog->clone());
    EXPECT_STREQ(copy->getType().getName(), "Widget");
    Container &widget = static_cast<Container &>(*copy);
    ASSERT_EQ(widget.getChildCount(), 1U);
    EXPECT_NE(widget.getChildAt(0), dialog->getWindow());
    EXPECT_STREQ(widget.getChildAt(0)->getType().getName(), "IconDialog");
    std::vector<int> answers;
    note(*dialog, answers);
    open(*dialog);
    click(*find<Button>(widget, "bOK"));
    EXPECT_TRUE(answers.empty());
}

// --- The four forms

TEST_F(DialogTest, ADialogWithABodyHasItInItsBodyPart) {
    const core::SmartPtr<Panel> body(new Panel("mine"));
    const core::SmartPtr<Dialog> dialog = form(Dialog::FLAG_OK, body.get());
    ASSERT_NE(dialog->getWindow(), nullptr);
    EXPECT_EQ(dialog->getChildCount(), 1U);
    EXPECT_STREQ(dialog->getWindow()->getName(), "form");
    EXPECT_STREQ(dialog->getWindow()->getType().getName(), "CustomDialog");
    EXPECT_TRUE(dialog->getWindow()->instanceOf(Panel::TYPE));
    EXPECT_EQ(body->getParent(), dialog->getBody());
    EXPECT_STREQ(dialog->getBody()->getName(), "pBody");
    EXPECT_STREQ(dialog->getTitle(), "Title");
    EXPECT_EQ(mFiles.mOpened, 1) << "the body of a text is not asked for";
}

TEST_F(DialogTest, ADialogMayDoWithoutABody) {
    const core::SmartPtr<Dialog> dialog = form();
    EXPECT_EQ(dialog->getBody()->getChildCount(), 0U);
}

TEST_F(DialogTest, ADialogWithATextShowsItInTheIconBody) {
    const core::SmartPtr<Dialog> dialog = Dialog::newDialog("n", "A title", "A text", Dialog::FLAG_OK);
    EXPECT_STREQ(dialog->getWindow()->getType().getName(), "IconDialog");
    ASSERT_EQ(dialog->getBody()->getChildCount(), 1U);
    EXPECT_STREQ(dialog->getBody()->getChildAt(0)->getName(), "icon-body");
    EXPECT_STREQ(part<Label>(dialog, "lText").getText(), "A text");
    EXPECT_STREQ(dialog->getTitle(), "A title");
    EXPECT_NE(dialog->getIcon(), nullptr);
}

TEST_F(DialogTest, TheOtherTwoFormsNameTheirTemplate) {
    mFiles.add("mine.ui", R"({"type":"dialog","name":"based","children":[{"type":"label","name":"extra"}]})");
    const core::SmartPtr<Panel> body(new Panel("b"));
    const core::SmartPtr<Dialog> custom = Dialog::newDialog("mine", "n", "T", body.get(), 1);
    EXPECT_NE(find<Label>(*custom, "extra"), nullptr);
    EXPECT_EQ(body->getParent(), custom->getBody());
    const core::SmartPtr<Dialog> text = Dialog::newDialog("mine", "n", "T", "words", 1);
    EXPECT_NE(find<Label>(*text, "extra"), nullptr);
    EXPECT_STREQ(part<Label>(text, "lText").getText(), "words");
}

TEST_F(DialogTest, NullTextsAreEmpty) {
    const char *none = nullptr;
    const core::SmartPtr<Dialog> dialog = Dialog::newDialog(none, none, none, 1);
    EXPECT_STREQ(dialog->getName(), "");
    EXPECT_STREQ(dialog->getWindow()->getName(), "");
    EXPECT_STREQ(dialog->getTitle(), "");
    EXPECT_STREQ(part<Label>(dialog, "lText").getText(), "");
}

TEST_F(DialogTest, TheTemplateIsReadOnceAndStaysAsItIs) {
    const core::SmartPtr<Dialog> first = ask(Dialog::FLAG_YES);
    const core::SmartPtr<Dialog> second = ask(Dialog::FLAG_NO);
    EXPECT_EQ(mFiles.mOpened, 2) << "the window's template and that of the body";
    const Component *prototype = factory().getTemplate("dialog");
    ASSERT_NE(prototype, nullptr);
    EXPECT_STREQ(prototype->getType().getName(), "Panel");
    EXPECT_STREQ(prototype->getName(), "template");
    EXPECT_EQ(first->getFlags(), Dialog::FLAG_YES);
    EXPECT_EQ(second->getFlags(), Dialog::FLAG_NO);
}

// --- Texts of the answers

TEST_F(DialogTest, WithoutTranslationsTheKeysAreTheTexts) {
    EXPECT_EQ(answerTexts(*ask()), (Texts{"OK", "YES", "NO", "CANCEL"}));
}

TEST_F(DialogTest, TheTextsOfTheAnswersAreTranslated) {
    translate("YES", "Oui");
    EXPECT_EQ(answerTexts(*ask()), (Texts{"OK", "Oui", "NO", "CANCEL"}));
    EXPECT_EQ(answerTexts(*form()), (Texts{"OK", "Oui", "NO", "CANCEL"}));
}

TEST_F(DialogTest, SetI18NIsForTheDialogsThatAreMadeAfterwards) {
    const DefaultKeys keys;
    const core::SmartPtr<Dialog> before = ask();
    Dialog::setI18N(Dialog::FLAG_OK, "K");
    Dialog::setI18N(Dialog::FLAG_CANCEL, "Leave");
    const core::SmartPtr<Dialog> after = ask();
    EXPECT_EQ(answerTexts(*before), (Texts{"OK", "YES", "NO", "CANCEL"}));
    EXPECT_EQ(answerTexts(*after), (Texts{"K", "YES", "NO", "Leave"}));
}

TEST_F(DialogTest, SetI18NIgnoresWhatIsNoAnswer) {
    const DefaultKeys keys;
    for (const unsigned int flag : {0U, 3U, 5U, 0x10U, 0x200U})
        Dialog::setI18N(static_cast<Dialog::Flag>(flag), "wrong");
    EXPECT_EQ(answerTexts(*ask()), (Texts{"OK", "YES", "NO", "CANCEL"}));
}

TEST_F(DialogTest, ANullKeyIsEmpty) {
    const DefaultKeys keys;
    Dialog::setI18N(Dialog::FLAG_NO, nullptr);
    EXPECT_EQ(answerTexts(*ask()), (Texts{"OK", "YES", "", "CANCEL"}));
}

// --- Templates that will not do

TEST_F(DialogTest, AMissingTemplateIsLoggedAndRaised) {
    const std::string message = messageOf([] { Dialog::newDialog("gone", "n", "T", "words", 1); });
    EXPECT_EQ(message, "Cannot open file gone.ui");
    EXPECT_EQ(mLog.takeOne(logging::Level::ERROR), "Unable to load template gone: Cannot open file gone.ui");
    mFiles.remove("dialog-icon-body.ui");
    EXPECT_EQ(messageOf([] { ask(); }), "Cannot open file dialog-icon-body.ui");
    EXPECT_EQ(mLog.takeOne(logging::Level::ERROR),
              "Unable to load template dialog-icon-body: Cannot open file dialog-icon-body.ui");
}

TEST_F(DialogTest, WithoutAFileSystemTheLoadFails) {
    factory().clearLoadResolver();
    EXPECT_EQ(messageOf([] { form(); }), "No file system set");
    EXPECT_EQ(mLog.takeOne(logging::Level::ERROR), "Unable to load template dialog: No file system set");
}

TEST_F(DialogTest, ATemplateThatIsNoPanelIsRefused) {
    mFiles.add("word.ui", R"({"type":"label","name":"l"})");
    mFiles.add("stage.ui", R"({"type":"widget","name":"w"})");
    Component *none = nullptr;
    EXPECT_EQ(messageOf([&] { Dialog::newDialog("word", "n", "T", none, 1); }), "Cannot clone Label as Panel");
    EXPECT_EQ(messageOf([] { Dialog::newDialog("stage", "n", "T", "words", 1); }), "Cannot clone Widget as Panel");
}

TEST_F(DialogTest, ANullTemplateNameIsTheEmptyOne) {
    const char *none = nullptr;
    factory().registerTemplate("", factory().newInstance("dialog"));
    const core::SmartPtr<Dialog> dialog = Dialog::newDialog(none, "n", "T", "words", 1);
    EXPECT_STREQ(dialog->getTitle(), "T");
}

TEST_F(DialogTest, AnyPanelThatIsRegisteredBecomesAWindow) {
    const core::SmartPtr<Dialog> first = form(Dialog::FLAG_YES);
    factory().registerTemplate("window", first->getWindow());
    const core::SmartPtr<Dialog> second = Dialog::newDialog("window", "n", "T", "words", Dialog::FLAG_YES);
    EXPECT_STREQ(second->getWindow()->getType().getName(), "IconDialog");
    EXPECT_EQ(second->getFlags(), Dialog::FLAG_YES);
}

TEST_F(DialogTest, AWindowThatIsClonedKeepsItsFlagsSoTheSameWordChangesNothing) {
    const core::SmartPtr<Dialog> first = form(Dialog::FLAG_YES);
    part<Component>(first, "bYes").setVisible(false);
    factory().registerTemplate("window", first->getWindow());
    Component *none = nullptr;
    const core::SmartPtr<Dialog> second = Dialog::newDialog("window", "n", "T", none, Dialog::FLAG_YES);
    EXPECT_FALSE(second->getButton(Dialog::BUTTON_YES)->isSelfVisible());
    second->setFlags(Dialog::FLAG_YES | Dialog::FLAG_NO);
    EXPECT_TRUE(second->getButton(Dialog::BUTTON_YES)->isSelfVisible());
}

struct MissingPart {
    const char *part;
    const char *classWord;
    bool isForBodies; ///< needed by a dialog with a body
    bool isForTexts;  ///< by one with a text
};

void PrintTo(const MissingPart &row, std::ostream *out) {
    *out << row.part;
}

namespace {

class DialogPartTest : public DialogTest, public testing::WithParamInterface<MissingPart> {};

const MissingPart PARTS[] = {
    {"lTitle", "Label", true, true},      {"lText", "Label", false, true},       {"pTitle", "", false, false},
    {"pBody", "Container", true, true},   {"pButtons", "Container", true, true}, {"bOK", "Button", true, true},
    {"bYes", "Button", true, true},       {"bNo", "Button", true, true},         {"bCancel", "Button", true, true},
    {"bClose", "Component", true, false}, {"iIcon", "Image", false, true},       {"iTitleIcon", "", false, false},
};

std::string missing(const char *window, const MissingPart &row) {
    return std::string("Dialog window ") + window + " has no " + row.classWord + " " + row.part;
}

bool isRaised(const std::string &message, const MissingPart &row) {
    return message == missing("template", row) || message == missing("n", row);
}

} // namespace

TEST_P(DialogPartTest, AMissingPartIsNamedWhereItIsNeeded) {
    const MissingPart &row = GetParam();
    addTemplates(row.part);
    // Without the bars of title and answers, what they hold is missed first: here it stands beside them.
    const std::string bar = row.part == std::string("pButtons") ? "pTitle" : "pButtons";
    if (row.part == std::string("pButtons") || row.part == std::string("pTitle"))
        mFiles.add("dialog.ui", R"({"type":"panel","name":"template","children":[{"type":"label","name":"lTitle"},
            {"type":"panel","name":"pBody"},{"type":"panel","name":"bClose"},{"type":"button","name":"bOK"},
            {"type":"button","name":"bYes"},{"type":"button","name":"bNo"},{"type":"button","name":"bCancel"},
            {"type":"panel","name":")" +
                                    bar + "\"}]}");
    const std::string ofBody = messageOf([] {
        const core::SmartPtr<Dialog> dialog = Dialog::newDialog("n", "T", new Panel("b"), 1);
        dialog->setFlags(2);
    });
    const std::string ofText = messageOf([] {
        const core::SmartPtr<Dialog> dialog = Dialog::newDialog("n", "T", "text", 1);
        dialog->setFlags(2);
    });
    EXPECT_EQ(isRaised(ofBody, row), row.isForBodies) << ofBody;
    EXPECT_EQ(isRaised(ofText, row), row.isForTexts) << ofText;
    EXPECT_EQ(ofBody == "nothing was raised", !row.isForBodies) << ofBody;
    EXPECT_EQ(ofText == "nothing was raised", !row.isForTexts) << ofText;
}

INSTANTIATE_TEST_SUITE_P(Parts, DialogPartTest, testing::ValuesIn(PARTS),
                         [](const auto &row) { return std::string(row.param.part); });

TEST_F(DialogTest, APartOfAnotherClassDoesNotCount) {
    addTemplates("bOK");
    std::string text = R"({"type":"panel","name":"bOK"})";
    mFiles.add("odd.ui", R"({"type":"dialog","name":"odd","children":[)" + text + "]}");
    EXPECT_EQ(messageOf([] { Dialog::newDialog("odd", "n", "T", "text", 1); }), "Dialog window odd has no Button bOK");
}

TEST_F(DialogTest, PartsAreFoundDepthFirst) {
    mFiles.add("two.ui", R"({"type":"panel","name":"two","children":[
        {"type":"panel","name":"first","children":[{"type":"panel","name":"deep","children":[
            {"type":"label","name":"lTitle"}]}]},
        {"type":"label","name":"lTitle"}, {"type":"panel","name":"pBody"}, {"type":"panel","name":"pButtons"},
        {"type":"button","name":"bOK"}, {"type":"button","name":"bYes"}, {"type":"button","name":"bNo"},
        {"type":"button","name":"bCancel"}]})");
    const core::SmartPtr<Dialog> dialog = Dialog::newDialog("two", "n", "T", "text", 1);
    Container &window = *dialog->getWindow();
    EXPECT_STREQ(find<Label>(*static_cast<Container *>(window.getChildAt(0)), "lTitle")->getText(), "T");
    EXPECT_STREQ(static_cast<Label *>(window.getChildAt(1))->getText(), "");
}

TEST_F(DialogTest, ABodyIsTakenOverAlsoWhenTheDialogCannotBeMade) {
    addTemplates("lTitle");
    bool gone = false;
    Panel *body = new Panel("b");
    body->setUserData(new Witness(gone));
    EXPECT_EQ(messageOf([&] { form(1, body); }), "Dialog window form has no Label lTitle");
    EXPECT_TRUE(gone);
}

TEST_F(DialogTest, ABodyThatIsSomebodysChildIsRefused) {
    const core::SmartPtr<Panel> parent(new Panel("p"));
    Panel *body = new Panel("b");
    parent->addChild(body);
    EXPECT_EQ(messageOf([&] { form(1, body); }), "Component already has a parent");
    EXPECT_EQ(body->getParent(), parent.get());
}

// --- What is read and set

TEST_F(DialogTest, TheButtonsAreFoundByTheirTypes) {
    const core::SmartPtr<Dialog> dialog = ask();
    EXPECT_STREQ(dialog->getButton(Dialog::BUTTON_OK)->getName(), "bOK");
    EXPECT_STREQ(dialog->getButton(Dialog::BUTTON_YES)->getName(), "bYes");
    EXPECT_STREQ(dialog->getButton(Dialog::BUTTON_NO)->getName(), "bNo");
    EXPECT_STREQ(dialog->getButton(Dialog::BUTTON_CANCEL)->getName(), "bCancel");
    EXPECT_STREQ(dialog->getButton(Dialog::BUTTON_CLOSE)->getName(), "bClose");
    for (const int other : {0, 6, -1, 1000})
        EXPECT_STREQ(dialog->getButton(static_cast<Dialog::ButtonType>(other))->getName(), "bOK");
}

TEST_F(DialogTest, OnlyAButtonHasAText) {
    const core::SmartPtr<Dialog> dialog = ask();
    dialog->setButtonText(Dialog::BUTTON_NO, "Never");
    EXPECT_STREQ(dialog->getButtonText(Dialog::BUTTON_NO), "Never");
    dialog->setButtonText(Dialog::BUTTON_CLOSE, "x");
    EXPECT_EQ(dialog->getButtonText(Dialog::BUTTON_CLOSE), nullptr) << "it is a panel";
    Component &no = part<Component>(dialog, "bNo");
    no.getParent()->removeChild(&no);
    dialog->setButtonText(Dialog::BUTTON_NO, "x");
    EXPECT_EQ(dialog->getButtonText(Dialog::BUTTON_NO), nullptr);
}

TEST_F(DialogTest, TitleAndIconsAreReachedThroughTheDialog) {
    const core::SmartPtr<Dialog> dialog = ask();
    dialog->setTitle("Another");
    EXPECT_STREQ(part<Label>(dialog, "lTitle").getText(), "Another");
    EXPECT_STREQ(dialog->getTitle(), "Another");
    dialog->setIconClass("sun");
    dialog->setIconClass("moon");
    dialog->setTitleIconClass("star");
    EXPECT_EQ(dialog->getIcon(), &part<Image>(dialog, "iIcon"));
    EXPECT_TRUE(dialog->getIcon()->hasClass("sun"));
    EXPECT_TRUE(dialog->getIcon()->hasClass("moon"));
    EXPECT_EQ(dialog->getTitleIcon(), &part<Image>(dialog, "iTitleIcon"));
    EXPECT_TRUE(dialog->getTitleIcon()->hasClass("star"));
}

TEST_F(DialogTest, ADialogWithoutIconsSaysSo) {
    addTemplates("iTitleIcon");
    const core::SmartPtr<Dialog> dialog = form();
    EXPECT_EQ(dialog->getIcon(), nullptr);
    EXPECT_EQ(dialog->getTitleIcon(), nullptr);
    EXPECT_EQ(messageOf([&] { dialog->setIconClass("c"); }), "Dialog window form has no Image iIcon");
    EXPECT_EQ(messageOf([&] { dialog->setTitleIconClass("c"); }), "Dialog window form has no Image iTitleIcon");
}

TEST_F(DialogTest, ADialogThatLostItsWindowHasNoParts) {
    const core::SmartPtr<Dialog> dialog = ask();
    dialog->clearChildren();
    EXPECT_EQ(dialog->getWindow(), nullptr);
    EXPECT_EQ(dialog->getFlags(), 0U);
    EXPECT_EQ(messageOf([&] { dialog->setFlags(1); }), "Dialog ask has no window");
    EXPECT_EQ(dialog->getBody(), nullptr);
    EXPECT_EQ(dialog->getTitle(), nullptr);
    EXPECT_EQ(dialog->getButton(Dialog::BUTTON_OK), nullptr);
    EXPECT_EQ(messageOf([&] { dialog->setTitle("t"); }), "Dialog window  has no Label lTitle");
    dialog->addChild(new Label("l"));
    EXPECT_EQ(dialog->getWindow(), nullptr);
    dialog->clearChildren();
    dialog->addChild(new Panel("plain"));
    EXPECT_STREQ(dialog->getWindow()->getName(), "plain");
    EXPECT_EQ(messageOf([&] { dialog->setFlags(1); }), "Dialog ask has no window");
}

} // namespace nurel::ui
