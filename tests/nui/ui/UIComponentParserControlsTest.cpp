// The template keys of buttons, checkboxes and radios, and of the form layout.
#include "nui/ui/UIComponentParser.h"

#include "support/EngineFixture.h"

#include "nui/ui/UIComponentFactory.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/components/Checkbox.h"
#include "nui/ui/components/Image.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/components/Radio.h"
#include "nui/ui/layouts/FormLayout.h"

#include "nmain/vfs/MemoryFileSystem.h"
#include "nxml/i18n/Bundle.h"
#include "nxml/i18n/I18N.h"

namespace nurel::ui {

using components::Button;
using components::Checkbox;
using components::Radio;
using layouts::FormLayout;

namespace {

constexpr unsigned int CHECKED = Component::STATE_CHECKED;

core::SmartPtr<Component> parseTemplate(const std::string &text) {
    stream::MemoryInputStream stream("test.ui", text);
    return UIComponentParser().parse(&stream);
}

std::string describe(const char *type, const std::string &keys) {
    return std::string(R"({"type":")") + type + R"(","name":"x")" + (keys.empty() ? "" : ",") + keys + "}";
}

core::SmartPtr<Button> button(const std::string &keys) {
    return static_cast<Button *>(parseTemplate(describe("button", keys)).get());
}

core::SmartPtr<Checkbox> checkbox(const std::string &keys) {
    return static_cast<Checkbox *>(parseTemplate(describe("checkbox", keys)).get());
}

core::SmartPtr<Radio> radio(const std::string &keys) {
    return static_cast<Radio *>(parseTemplate(describe("radio", keys)).get());
}

/// One value of each kind: no word of the format, no boolean.
const char *const WRONG_FLAGS[] = {"null", "0", "1", "1.5", "\"true\"", "\"\"", "[]", "[true]", "{}", "{\"a\":true}"};
const char *const WRONG_TEXTS[] = {"null", "5", "1.5", "true", "[]", "[\"a\"]", "{}", "{\"a\":\"b\"}"};

class UIComponentParserControlsTest : public test::EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        UIComponentFactory::getSingleton().setLoadResolver(&files);
    }

    vfs::MemoryFileSystem files;
};

} // namespace

TEST_F(UIComponentParserControlsTest, TypeWordsMakeTheirClasses) {
    EXPECT_EQ(&button("")->getType(), &Button::TYPE);
    EXPECT_EQ(&checkbox("")->getType(), &Checkbox::TYPE);
    EXPECT_EQ(&radio("")->getType(), &Radio::TYPE);
    EXPECT_STREQ(UIComponentParser::getRegisteredTypeName(Button::TYPE), "button");
    EXPECT_STREQ(UIComponentParser::getRegisteredTypeName(Checkbox::TYPE), "checkbox");
    EXPECT_STREQ(UIComponentParser::getRegisteredTypeName(Radio::TYPE), "radio");
}

// --- button ---

TEST_F(UIComponentParserControlsTest, AButtonWithoutKeysHasNoParts) {
    const auto made = button("");
    EXPECT_EQ(made->getLabel(), nullptr);
    EXPECT_EQ(made->getIcon(), nullptr);
    EXPECT_FALSE(made->isCheckable());
    EXPECT_FALSE(made->isChecked());
    EXPECT_EQ(made->getEventMask(), Component::EVENT_MASK_DEFAULT | 0xc0);
}

TEST_F(UIComponentParserControlsTest, AButtonReadsItsKeys) {
    const auto made = button(R"("class":["big"],"text":"Text","icon":true,"checkable":true,"checked":true)");
    ASSERT_NE(made->getLabel(), nullptr);
    EXPECT_STREQ(made->getText(), "Text");
    EXPECT_TRUE(made->getLabel()->hasClass("big"));
    EXPECT_TRUE(made->isIconVisible());
    EXPECT_TRUE(made->getIcon()->hasClass("big"));
    EXPECT_TRUE(made->isCheckable());
    EXPECT_TRUE(made->isChecked());
    EXPECT_EQ(made->getLabel()->getState(), CHECKED);
    EXPECT_EQ(made->getIcon()->getState(), CHECKED);
}

TEST_F(UIComponentParserControlsTest, AButtonNeedNotBeCheckableToBeChecked) {
    EXPECT_TRUE(button(R"("checked":true)")->isChecked());
    EXPECT_FALSE(button(R"("checked":true)")->isCheckable());
    EXPECT_FALSE(button(R"("checkable":true)")->isChecked());
}

TEST_F(UIComponentParserControlsTest, AHiddenIconIsMadeAllTheSame) {
    const auto made = button(R"("icon":false)");
    ASSERT_NE(made->getIcon(), nullptr);
    EXPECT_FALSE(made->getIcon()->isSelfVisible());
}

TEST_F(UIComponentParserControlsTest, APartTakesItsStateFromTheButtonWhenTheKeysAreRead) {
    const auto made = button(R"("enabled":false,"text":"Text","checkable":false)");
    EXPECT_EQ(made->getState(), Component::STATE_DISABLED);
    EXPECT_EQ(made->getLabel()->getState(), Component::STATE_DISABLED);
}

TEST_F(UIComponentParserControlsTest, FlagsOfTheWrongKindReadAsFalse) {
    for (const char *value : WRONG_FLAGS) {
        const std::string text(value);
        files.add("base.ui", describe("button", R"("icon":true,"checkable":true,"checked":true)"));
        const core::SmartPtr<Component> made =
            parseTemplate(describe("base", R"("icon":)" + text + R"(,"checkable":)" + text + R"(,"checked":)" + text));
        auto &changed = static_cast<Button &>(*made);
        EXPECT_FALSE(changed.isIconVisible()) << value;
        EXPECT_FALSE(changed.isCheckable()) << value;
        EXPECT_FALSE(changed.isChecked()) << value;
        EXPECT_FALSE(checkbox(R"("checked":)" + text)->isChecked()) << value;
        EXPECT_FALSE(radio(R"("checked":)" + text)->isChecked()) << value;
    }
}

TEST_F(UIComponentParserControlsTest, ATextOfTheWrongKindIsNoText) {
    for (const char *value : WRONG_TEXTS) {
        const std::string key = std::string(R"("text":)") + value;
        EXPECT_EQ(button(key)->getLabel(), nullptr) << value;
        EXPECT_EQ(checkbox(key)->getLabel(), nullptr) << value;
        EXPECT_EQ(radio(key)->getLabel(), nullptr) << value;
    }
    ASSERT_NE(button(R"("text":"")")->getLabel(), nullptr);
    ASSERT_NE(checkbox(R"("text":"")")->getLabel(), nullptr);
}

TEST_F(UIComponentParserControlsTest, AButtonOnTopOfABaseKeepsWhatItDoesNotSay) {
    files.add("base.ui", describe("button", R"("text":"Text","icon":true,"checkable":true,"checked":true)"));
    const core::SmartPtr<Component> plain = parseTemplate(describe("base", ""));
    auto &same = static_cast<Button &>(*plain);
    EXPECT_STREQ(same.getText(), "Text");
    EXPECT_TRUE(same.isIconVisible());
    EXPECT_TRUE(same.isCheckable());
    EXPECT_TRUE(same.isChecked());
    const core::SmartPtr<Component> made = parseTemplate(describe("base", R"("text":"Other","checked":false)"));
    auto &changed = static_cast<Button &>(*made);
    EXPECT_STREQ(changed.getText(), "Other");
    EXPECT_EQ(changed.getChildCount(), 2u); // the base's label is the button's
    EXPECT_FALSE(changed.isChecked());
    EXPECT_EQ(changed.getLabel()->getState(), 0u);
}

TEST_F(UIComponentParserControlsTest, AButtonMayHaveChildrenAndALayout) {
    const auto made = button(R"("text":"Text","layout":"FlowLayout","children":[{"type":"panel","name":"p"}])");
    EXPECT_EQ(made->getChildCount(), 2u);
    EXPECT_EQ(made->getChildIndex(made->getLabel()), 0);
    EXPECT_STREQ(made->getChildAt(1)->getName(), "p");
    EXPECT_TRUE(made->hasLayout());
}

// --- checkbox and radio ---

TEST_F(UIComponentParserControlsTest, CheckboxAndRadioReadTheirKeys) {
    const auto box = checkbox(R"("text":"Text","checked":true)");
    EXPECT_STREQ(box->getText(), "Text");
    EXPECT_TRUE(box->isChecked());
    EXPECT_EQ(box->getCheck()->getState(), CHECKED);
    EXPECT_EQ(box->getElement(), "checkbox");
    const auto choice = radio(R"("text":"Text","checked":true)");
    EXPECT_STREQ(choice->getText(), "Text");
    EXPECT_TRUE(choice->isChecked());
    EXPECT_EQ(choice->getLabel()->getElement(), "radio");
    EXPECT_EQ(checkbox("")->getLabel(), nullptr);
    EXPECT_FALSE(checkbox("")->isChecked());
    EXPECT_FALSE(radio("")->isChecked());
}

TEST_F(UIComponentParserControlsTest, ACheckboxThatDoesNotSayIsUnchecked) {
    files.add("base.ui", describe("checkbox", R"("text":"Text","checked":true)"));
    const core::SmartPtr<Component> made = parseTemplate(describe("base", ""));
    auto &changed = static_cast<Checkbox &>(*made);
    EXPECT_FALSE(changed.isChecked());
    EXPECT_EQ(changed.getCheck()->getState(), 0u);
    EXPECT_STREQ(changed.getText(), "Text");
    const core::SmartPtr<Component> other = parseTemplate(describe("base", R"("checked":true,"text":"Other")"));
    auto &kept = static_cast<Checkbox &>(*other);
    EXPECT_TRUE(kept.isChecked());
    EXPECT_EQ(kept.getCheck()->getState(), CHECKED);
    EXPECT_STREQ(kept.getText(), "Other");
    EXPECT_EQ(kept.getChildCount(), 2u);
}

TEST_F(UIComponentParserControlsTest, KeysOfAButtonMeanNothingToACheckbox) {
    const auto box = checkbox(R"("icon":true,"checkable":true)");
    EXPECT_EQ(box->getChildCount(), 1u);
    EXPECT_FALSE(box->isChecked());
}

TEST_F(UIComponentParserControlsTest, RadiosOfOneTemplateAreCheckedAsTheySay) {
    const core::SmartPtr<Component> made = parseTemplate(describe("panel", R"("children":[
        {"type":"radio","name":"a","checked":true},{"type":"radio","name":"b"},
        {"type":"radio","name":"c","checked":true}])"));
    const auto &group = static_cast<const Container &>(*made);
    const auto at = [&](unsigned int index) { return static_cast<Radio *>(group.getChildAt(index)); };
    EXPECT_TRUE(at(0)->isChecked()); // each was read before it had siblings
    EXPECT_FALSE(at(1)->isChecked());
    EXPECT_TRUE(at(2)->isChecked());
    at(1)->setChecked(true);
    EXPECT_FALSE(at(0)->isChecked());
    EXPECT_FALSE(at(2)->isChecked());
}

TEST_F(UIComponentParserControlsTest, TextsAreTranslated) {
    i18n::I18N &texts = i18n::I18N::getSingleton();
    const core::SmartPtr<i18n::Bundle> bundle(new i18n::Bundle(""));
    bundle->put("ok", "Gut");
    texts.addBundle(bundle.get());
    EXPECT_STREQ(button(R"("text":"- ${ok} -")")->getText(), "- Gut -");
    EXPECT_STREQ(checkbox(R"("text":"${ok}")")->getText(), "Gut");
    EXPECT_STREQ(radio(R"("text":"${unknown}!")")->getText(), "unknown!");
    texts.removeBundle(bundle.get());
}

// --- form layout ---

TEST_F(UIComponentParserControlsTest, AFormComesByItsNameOrWithParameters) {
    const auto form = [](const std::string &layout) {
        const core::SmartPtr<Component> made = parseTemplate(describe("panel", "\"layout\":" + layout));
        const core::SmartPtr<Layout> found(static_cast<Container &>(*made).getLayout());
        return found;
    };
    const auto plain = form("\"FormLayout\"");
    ASSERT_TRUE(plain);
    EXPECT_EQ(&plain->getType(), &FormLayout::TYPE);
    EXPECT_EQ(static_cast<FormLayout &>(*plain).getSpacing(), math::Vector2(10, 5));
    const auto told = form(R"(["FormLayout",{"width":[120,1],"spacing":[8]}])");
    ASSERT_TRUE(told);
    const auto &parameters = static_cast<const FormLayout &>(*told);
    EXPECT_EQ(parameters.getWidth(FormLayout::LABEL), 120);
    EXPECT_EQ(parameters.getWidth(FormLayout::FIELD), 1);
    EXPECT_EQ(parameters.getSpacing(), math::Vector2(8, 5));
}

TEST_F(UIComponentParserControlsTest, AFormIsLaidOutWhenItIsParsed) {
    const core::SmartPtr<Component> made = parseTemplate(describe("panel", R"("size":[300,100],
        "layout":["FormLayout",{"width":[120,1]}],"children":[
        {"type":"label","name":"caption","size":[50,20],"text":"Name"},
        {"type":"button","name":"field","size":[10,30],"anchor":"top-left","text":"Go"},
        {"type":"panel","name":"free","size":[10,10],"laidout":false}])"));
    const auto &form = static_cast<const Container &>(*made);
    EXPECT_EQ(form.getChildAt(0)->getSize(), math::Vector2(120, 30));
    EXPECT_EQ(form.getChildAt(1)->getSize(), math::Vector2(170, 30));
    EXPECT_EQ(form.getChildAt(1)->getComponentPosition().absolute, math::Vector2(130, 0));
    EXPECT_EQ(form.getChildAt(2)->getSize(), math::Vector2(10, 10));
}

// --- under the plain skin ---

TEST_F(UIComponentParserControlsTest, ThePlainSkinDrawsNoneOfThemAndBearsThem) {
    const core::SmartPtr<Component> made = parseTemplate(describe("widget", R"("size":[400,300],"children":[
        {"type":"button","name":"b","text":"Go","icon":true},{"type":"checkbox","name":"c","text":"On"},
        {"type":"radio","name":"r","text":"One"}])"));
    auto &widget = static_cast<Widget &>(*made);
    show(widget);
    frame();
    for (unsigned int i = 0; i < widget.getChildCount(); ++i)
        EXPECT_FALSE(widget.getChildAt(i)->hasView()) << i;
    static_cast<Button *>(widget.getChildAt(0))->setText("Other");
    static_cast<Checkbox *>(widget.getChildAt(1))->setChecked(true);
    frame();
}

} // namespace nurel::ui
