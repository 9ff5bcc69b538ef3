// The template keys of text fields.
#include "nui/ui/UIComponentParser.h"

#include "support/EngineFixture.h"

#include "nui/ui/UIComponentFactory.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/TextField.h"

#include "nmain/vfs/MemoryFileSystem.h"
#include "nxml/i18n/Bundle.h"
#include "nxml/i18n/I18N.h"

namespace nurel::ui {

using components::TextField;

namespace {

core::SmartPtr<Component> parseTemplate(const std::string &text) {
    stream::MemoryInputStream stream("test.ui", text);
    return UIComponentParser().parse(&stream);
}

std::string describe(const char *type, const std::string &keys) {
    return std::string(R"({"type":")") + type + R"(","name":"x")" + (keys.empty() ? "" : ",") + keys + "}";
}

core::SmartPtr<TextField> field(const std::string &keys, const char *type = "text") {
    return static_cast<TextField *>(parseTemplate(describe(type, keys)).get());
}

std::string shownBy(const TextField &field) {
    return field.getLabel()->getText();
}

const char *const NO_TEXTS[] = {"null", "5", "1.5", "true", "[]", "[\"a\"]", "{}", "{\"a\":\"b\"}"};
const char *const NO_NUMBERS[] = {"null", "true", "\"5\"", "\"\"", "[]", "[5]", "{}", "{\"a\":5}", "1e30"};

class UIComponentParserTextFieldTest : public test::EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        UIComponentFactory::getSingleton().setLoadResolver(&files);
    }

    vfs::MemoryFileSystem files;
};

} // namespace

TEST_F(UIComponentParserTextFieldTest, TheWordMakesAField) {
    const auto made = field("");
    EXPECT_EQ(&made->getType(), &TextField::TYPE);
    EXPECT_STREQ(UIComponentParser::getRegisteredTypeName(TextField::TYPE), "text");
    EXPECT_EQ(made->getElement(), "text");
    EXPECT_EQ(made->getChildCount(), 0u);
    EXPECT_EQ(made->getTabStop(), 0);
    EXPECT_EQ(made->getMaxLength(), -1);
    EXPECT_EQ(made->getEventMask(), Component::EVENT_MASK_DEFAULT | 0x1e1);
}

TEST_F(UIComponentParserTextFieldTest, ReadsItsKeys) {
    const auto made = field(R"("class":["big"],"placeholder":"Name","password":"•","max-length":12,"tab-stop":3)");
    EXPECT_STREQ(made->getText(), "");
    EXPECT_STREQ(made->getPlaceholderText(), "Name");
    EXPECT_TRUE(made->getPlaceholder()->isVisible());
    EXPECT_TRUE(made->getPlaceholder()->hasClass("big"));
    EXPECT_STREQ(made->getPasswordChar(), "•");
    EXPECT_EQ(made->getKeyboardOptions(), TextField::KEYBOARD_PASSWORD);
    EXPECT_EQ(made->getMaxLength(), 12);
    EXPECT_EQ(made->getTabStop(), 3);
}

TEST_F(UIComponentParserTextFieldTest, APlaceholderBesideATextIsHidden) {
    const auto made = field(R"("placeholder":"Name","text":"Text")");
    EXPECT_STREQ(made->getText(), "Text");
    EXPECT_STREQ(made->getPlaceholderText(), "Name");
    EXPECT_FALSE(made->getPlaceholder()->isSelfVisible());
    EXPECT_TRUE(field(R"("placeholder":"Name","text":"")")->getPlaceholder()->isSelfVisible());
}

TEST_F(UIComponentParserTextFieldTest, ATextBesideAPasswordIsShownUntilItIsSetAgain) {
    const auto made = field(R"("password":"*","text":"Text")");
    EXPECT_EQ(shownBy(*made), "Text");
    made->setText("Text");
    EXPECT_EQ(shownBy(*made), "****");
    files.add("base.ui", describe("text", R"("password":"*")"));
    EXPECT_EQ(shownBy(*field(R"("text":"Text")", "base")), "****"); // the mask was there before it
}

TEST_F(UIComponentParserTextFieldTest, ATextThatIsLongerThanTheMaximumIsLost) {
    const auto made = field(R"("max-length":3,"text":"Text")");
    EXPECT_STREQ(made->getText(), "");
    EXPECT_EQ(shownBy(*made), "");
    EXPECT_STREQ(field(R"("max-length":4,"text":"Text")")->getText(), "Text");
}

TEST_F(UIComponentParserTextFieldTest, ATextOfTheWrongKindIsNoText) {
    files.add("base.ui", describe("text", R"("text":"Text","placeholder":"Name")"));
    for (const char *value : NO_TEXTS) {
        const std::string text(value);
        const auto made = field(R"("text":)" + text + R"(,"placeholder":)" + text, "base");
        EXPECT_STREQ(made->getText(), "Text") << value;
        EXPECT_STREQ(made->getPlaceholderText(), "Name") << value;
        EXPECT_EQ(field(R"("text":)" + text + R"(,"placeholder":)" + text)->getChildCount(), 0u) << value;
    }
    EXPECT_EQ(field(R"("text":"")")->getChildCount(), 1u);
    EXPECT_EQ(field(R"("placeholder":"")")->getChildCount(), 2u);
}

TEST_F(UIComponentParserTextFieldTest, APasswordOfTheWrongKindEndsTheMasking) {
    files.add("base.ui", describe("text", R"("password":"*")"));
    for (const char *value : NO_TEXTS) {
        const auto made = field(std::string(R"("password":)") + value, "base");
        EXPECT_FALSE(made->isPassword()) << value;
        EXPECT_EQ(made->getKeyboardOptions(), 0u) << value;
    }
    EXPECT_FALSE(field(R"("password":"")", "base")->isPassword());
    EXPECT_TRUE(field("", "base")->isPassword());
    EXPECT_STREQ(field(R"("password":"abcdef")")->getPasswordChar(), "abcd");
}

TEST_F(UIComponentParserTextFieldTest, AMaximumOfTheWrongKindTakesNothing) {
    files.add("base.ui", describe("text", R"("text":"Text","max-length":9)"));
    for (const char *value : NO_NUMBERS) {
        const auto made = field(std::string(R"("max-length":)") + value, "base");
        EXPECT_EQ(made->getMaxLength(), 0) << value;
        EXPECT_STREQ(made->getText(), "") << value;
    }
    EXPECT_EQ(field("", "base")->getMaxLength(), 9);
    EXPECT_EQ(field(R"("max-length":-7)", "base")->getMaxLength(), -7);
    EXPECT_EQ(field(R"("max-length":5.9)", "base")->getMaxLength(), 5);
}

TEST_F(UIComponentParserTextFieldTest, AFieldOnTopOfABaseKeepsWhatItDoesNotSay) {
    files.add("base.ui", describe("text", R"("text":"Text","placeholder":"Name","max-length":9)"));
    const auto made = field(R"("placeholder":"Other")", "base");
    EXPECT_STREQ(made->getText(), "Text");
    EXPECT_STREQ(made->getPlaceholderText(), "Other");
    EXPECT_EQ(made->getMaxLength(), 9);
    EXPECT_EQ(made->getChildCount(), 2u); // the base's parts are the field's
}

TEST_F(UIComponentParserTextFieldTest, TextsAreTranslatedAndThePasswordIsNot) {
    i18n::I18N &texts = i18n::I18N::getSingleton();
    const core::SmartPtr<i18n::Bundle> bundle(new i18n::Bundle(""));
    bundle->put("ok", "Gut");
    texts.addBundle(bundle.get());
    const auto made = field(R"("text":"- ${ok} -","placeholder":"${ok}","password":"${ok}")");
    EXPECT_STREQ(made->getText(), "- Gut -");
    EXPECT_STREQ(made->getPlaceholderText(), "Gut");
    EXPECT_STREQ(made->getPasswordChar(), "${ok");
    texts.removeBundle(bundle.get());
}

TEST_F(UIComponentParserTextFieldTest, MayHaveChildren) {
    const auto made = field(R"("text":"Text","children":[{"type":"panel","name":"p"}])");
    EXPECT_EQ(made->getChildCount(), 2u);
    EXPECT_EQ(made->getChildAt(0), made->getLabel());
}

TEST_F(UIComponentParserTextFieldTest, ThePlainSkinDrawsNoneAndBearsThem) {
    const core::SmartPtr<Component> made = parseTemplate(describe("widget", R"("size":[400,300],"children":[
        {"type":"text","name":"t","text":"Text","placeholder":"Name","password":"*"}])"));
    auto &widget = static_cast<Widget &>(*made);
    show(widget);
    auto &text = static_cast<TextField &>(*widget.getChildAt(0));
    EXPECT_FALSE(text.hasView());
    text.setFocus();
    EXPECT_TRUE(text.hasFocus());
    UIManager::getSingleton().textInput("s");
    frame();
    EXPECT_STREQ(text.getText(), "Texts");
}

} // namespace nurel::ui
