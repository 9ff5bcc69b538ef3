// The template keys of lists and combos.
#include "nui/ui/UIComponentParser.h"

#include "support/EngineFixture.h"

#include "nui/ui/UIComponentFactory.h"
#include "nui/ui/components/Combo.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/layouts/FlowLayout.h"
#include "nui/ui/layouts/FormLayout.h"

#include "nmain/vfs/MemoryFileSystem.h"
#include "nxml/i18n/Bundle.h"
#include "nxml/i18n/I18N.h"

#include "foundation/core/Exception.h"

namespace nurel::ui {

using components::Combo;
using components::ComboList;
using components::Listbox;
using layouts::FlowLayout;

namespace {

core::SmartPtr<Component> parseTemplate(const std::string &text) {
    stream::MemoryInputStream stream("test.ui", text);
    return UIComponentParser().parse(&stream);
}

std::string describe(const char *type, const std::string &keys) {
    return std::string(R"({"type":")") + type + R"(","name":"x")" + (keys.empty() ? "" : ",") + keys + "}";
}

core::SmartPtr<Listbox> listbox(const std::string &keys) {
    return static_cast<Listbox *>(parseTemplate(describe("listbox", keys)).get());
}

core::SmartPtr<Combo> combo(const std::string &keys) {
    return static_cast<Combo *>(parseTemplate(describe("combo", keys)).get());
}

std::string messageOf(const std::string &text) {
    try {
        parseTemplate(text);
    } catch (const core::IllegalArgumentException &e) {
        return e.getMessage();
    }
    return "nothing was raised";
}

std::string textsOf(const Listbox &list) {
    std::string texts;
    for (int i = 0; i < static_cast<int>(list.getItemCount()); ++i)
        texts += std::string(i == 0 ? "" : " ") + list.getItemText(i);
    return texts;
}

const char *const NO_NUMBERS[] = {"null", "true", "\"5\"", "\"\"", "[]", "[5]", "{}", "{\"a\":5}"};
const char *const NO_TEXTS[] = {"null", "5", "1.5", "true", "[]", "[\"a\"]", "{}", "{\"a\":\"b\"}"};
const char *const NO_ARRAYS[] = {"null", "5", "1.5", "true", "\"a\"", "{}", "{\"a\":5}"};
const char *const THREE = R"("items":["a","b","c"])";

class UIComponentParserListsTest : public test::EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        UIComponentFactory::getSingleton().setLoadResolver(&files);
    }

    vfs::MemoryFileSystem files;
};

} // namespace

TEST_F(UIComponentParserListsTest, TypeWordsMakeTheirClasses) {
    EXPECT_EQ(&listbox("")->getType(), &Listbox::TYPE);
    EXPECT_EQ(&combo("")->getType(), &Combo::TYPE);
    EXPECT_STREQ(UIComponentParser::getRegisteredTypeName(Listbox::TYPE), "listbox");
    EXPECT_STREQ(UIComponentParser::getRegisteredTypeName(Combo::TYPE), "combo");
    EXPECT_FALSE(UIComponentParser::isRegistered(ComboList::TYPE));
}

// --- listbox ---

TEST_F(UIComponentParserListsTest, AListWithoutKeysIsAsNew) {
    const auto made = listbox("");
    EXPECT_EQ(made->getItemCount(), 0u);
    EXPECT_EQ(made->getSelectedIndex(), -1);
    EXPECT_EQ(made->getItemHeight(), 20);
    EXPECT_EQ(made->getItemSpacing(), -1);
    EXPECT_EQ(made->getChildCount(), 1u);
    EXPECT_EQ(made->getEventMask(), Component::EVENT_MASK_DEFAULT | 0xe0);
}

TEST_F(UIComponentParserListsTest, AListReadsItsKeys) {
    const auto made =
        listbox(R"("class":"big","items":["a","b","c"],"selected":1,"item-height":30.5,"item-spacing":4)");
    EXPECT_EQ(textsOf(*made), "a b c");
    EXPECT_EQ(made->getSelectedIndex(), 1);
    EXPECT_EQ(made->getItemHeight(), 30.5f);
    EXPECT_EQ(made->getItemEntry(0)->item->getComponentSize().absolute.y, 30.5f);
    EXPECT_EQ(static_cast<FlowLayout *>(made->getLayout())->getSpacing(), math::Vector2(0, 4));
    EXPECT_TRUE(made->getItemEntry(2)->item->hasClass("big"));
    EXPECT_TRUE(made->getCheck()->hasClass("big"));
    EXPECT_EQ(made->getItemData(0), nullptr);
}

TEST_F(UIComponentParserListsTest, TheSpacingIsThatOfTheLayoutThatTheListHas) {
    const auto made = listbox(R"("layout":["FlowLayout",{"direction":"vertical","spacing":[7,8]}],"item-spacing":4)");
    EXPECT_EQ(static_cast<FlowLayout *>(made->getLayout())->getSpacing(), math::Vector2(7, 4));
    const auto other = listbox(R"("layout":"FormLayout","items":["a","b"],"item-spacing":4)");
    EXPECT_TRUE(other->getLayout()->instanceOf(layouts::FormLayout::TYPE));
    EXPECT_EQ(textsOf(*other), "a b");
}

TEST_F(UIComponentParserListsTest, AnEntryThatIsNoTextIsLeftOut) {
    for (const char *value : NO_TEXTS) {
        const auto made = listbox(std::string(R"("items":["a",)") + value + R"(,"b"],"selected":1)");
        EXPECT_EQ(textsOf(*made), "a b") << value;
        EXPECT_EQ(made->getSelectedIndex(), 1) << value;
        const auto chooser = combo(std::string(R"("items":[)") + value + R"(,"b"])");
        EXPECT_EQ(textsOf(*chooser->getList()), "b") << value;
    }
    EXPECT_EQ(listbox(R"("items":[])")->getItemCount(), 0u);
    EXPECT_EQ(listbox(R"("items":[""])")->getItemCount(), 1u);
}

TEST_F(UIComponentParserListsTest, ItemsThatAreNoArrayAreAnError) {
    for (const char *value : NO_ARRAYS) {
        for (const char *type : {"listbox", "combo"}) {
            EXPECT_EQ(messageOf(describe(type, std::string(R"("item-height":9,"items":)") + value)),
                      "Invalid item list (not an array)")
                << type << value;
        }
    }
}

TEST_F(UIComponentParserListsTest, AListThatFailsIsLeftOutOfItsParent) {
    const auto made = parseTemplate(describe(
        "panel", R"("children":[{"type":"listbox","name":"l","items":5},{"type":"combo","name":"c","items":["a"]}])"));
    ASSERT_EQ(static_cast<Container &>(*made).getChildCount(), 1u);
    EXPECT_STREQ(static_cast<Container &>(*made).getChildAt(0)->getName(), "c");
    EXPECT_EQ(log().takeOne(logging::Level::ERROR).rfind("Error parsing child #0 for component x(panel)", 0), 0u);
}

TEST_F(UIComponentParserListsTest, SelectedCountsBesideItemsOnlyAndWithinThem) {
    files.add("base.ui", describe("listbox", std::string(THREE) + R"(,"selected":1)"));
    const auto selectedIn = [](const std::string &keys) {
        return static_cast<Listbox &>(*parseTemplate(describe("base", keys))).getSelectedIndex();
    };
    EXPECT_EQ(selectedIn(""), 1);
    EXPECT_EQ(selectedIn(R"("selected":2)"), 1);
    EXPECT_EQ(selectedIn(R"("items":["d"],"selected":3)"), 3);
    EXPECT_EQ(selectedIn(R"("items":["d"],"selected":4)"), 1);
    EXPECT_EQ(selectedIn(R"("items":[],"selected":-1)"), -1);
    EXPECT_EQ(selectedIn(R"("items":[],"selected":-7)"), -1);
    EXPECT_EQ(selectedIn(R"("items":[],"selected":2.9)"), 2);
    for (const char *value : NO_NUMBERS)
        EXPECT_EQ(selectedIn(std::string(R"("items":[],"selected":)") + value), 1) << value;
    for (const char *value : {"4294967296", "-4294967297", "1e30", "-1e30"}) // no index of any kind
        EXPECT_EQ(selectedIn(std::string(R"("items":[],"selected":)") + value), 1) << value;
    EXPECT_EQ(selectedIn(R"("items":[],"selected":2147483647)"), 1);
    EXPECT_EQ(selectedIn(R"("items":[],"selected":-2147483648)"), -1);
    const auto made = listbox(R"("items":["a"],"selected":5)");
    EXPECT_EQ(made->getSelectedIndex(), -1);
}

TEST_F(UIComponentParserListsTest, NumbersOfTheWrongKindLeaveHeightAndSpacingAlone) {
    files.add("base.ui", describe("listbox", R"("items":["a"],"item-height":30,"item-spacing":4)"));
    for (const char *value : NO_NUMBERS) {
        const core::SmartPtr<Component> made =
            parseTemplate(describe("base", std::string(R"("item-height":)") + value + R"(,"item-spacing":)" + value));
        EXPECT_EQ(static_cast<Listbox &>(*made).getItemHeight(), 30) << value;
        EXPECT_EQ(static_cast<Listbox &>(*made).getItemSpacing(), 4) << value;
    }
}

TEST_F(UIComponentParserListsTest, AnyNumberDoesForHeightAndSpacing) {
    for (const char *value : {"0", "-7.5", "1e30", "-1e30", "1e300"}) {
        const auto made =
            listbox(std::string(THREE) + R"(,"selected":1,"item-height":)" + value + R"(,"item-spacing":)" + value);
        EXPECT_EQ(textsOf(*made), "a b c") << value;
        EXPECT_EQ(made->getSelectedIndex(), 1) << value;
    }
    EXPECT_EQ(listbox(R"("item-height":-7.5,"item-spacing":0)")->getItemHeight(), -7.5f);
}

TEST_F(UIComponentParserListsTest, AListOnTopOfABaseGetsMoreRows) {
    files.add("base.ui", describe("listbox", std::string(THREE) + R"(,"item-height":30)"));
    const core::SmartPtr<Component> made = parseTemplate(describe("base", R"("items":["d"],"class":"x")"));
    auto &list = static_cast<Listbox &>(*made);
    EXPECT_EQ(textsOf(list), "a b c d");
    EXPECT_EQ(list.getItemEntry(3)->item->getComponentSize().absolute.y, 30);
    EXPECT_TRUE(list.getItemEntry(0)->item->hasClass("x"));
    EXPECT_EQ(static_cast<Listbox &>(*parseTemplate(describe("base", ""))).getItemCount(), 3u);
}

// --- combo ---

TEST_F(UIComponentParserListsTest, AComboWithoutKeysIsAsNew) {
    const auto made = combo("");
    EXPECT_STREQ(made->getText(), "");
    EXPECT_TRUE(made->isIconVisible());
    EXPECT_EQ(made->getList()->getItemCount(), 0u);
    EXPECT_STREQ(made->getList()->getNoItemText(), "");
    EXPECT_EQ(made->getEventMask(), Component::EVENT_MASK_DEFAULT | 0x81);
}

TEST_F(UIComponentParserListsTest, AComboReadsTheKeysOfAButtonFirst) {
    const auto made = combo(R"("text":"choose","icon":false,"checkable":true,"checked":true,"items":["a","b"])");
    EXPECT_STREQ(made->getText(), "choose");
    EXPECT_FALSE(made->isIconVisible());
    EXPECT_TRUE(made->isCheckable());
    EXPECT_TRUE(made->isChecked());
    EXPECT_EQ(textsOf(*made->getList()), "a b");
    EXPECT_EQ(made->getList()->getOwner(), made.get());
    EXPECT_STREQ(made->getList()->getNoItemText(), "choose");
    made->getList()->setSelectedIndex(1, true);
    EXPECT_STREQ(made->getText(), "b");
    made->getList()->setSelectedIndex(-1, true);
    EXPECT_STREQ(made->getText(), "choose");
}

TEST_F(UIComponentParserListsTest, AComboShowsWhatIsSelected) {
    const auto made = combo(std::string(THREE) + R"(,"selected":2)");
    EXPECT_STREQ(made->getText(), "c");
    EXPECT_EQ(made->getList()->getSelectedIndex(), 2);
    EXPECT_STREQ(made->getList()->getNoItemText(), "");
    // The text is what stands there once the selection has been made.
    const auto both = combo(std::string(THREE) + R"(,"selected":0,"text":"choose")");
    EXPECT_STREQ(both->getText(), "a");
    EXPECT_STREQ(both->getList()->getNoItemText(), "a");
    EXPECT_EQ(combo(R"("selected":1)")->getList()->getSelectedIndex(), -1);
    EXPECT_STREQ(combo(std::string(THREE) + R"(,"selected":3,"text":"choose")")->getText(), "");
    for (const char *value : NO_NUMBERS) {
        const auto none = combo(std::string(THREE) + R"(,"selected":)" + value);
        EXPECT_EQ(none->getList()->getSelectedIndex(), -1) << value;
    }
}

TEST_F(UIComponentParserListsTest, AnyTextOfAComboIsKeptAsItsNoItemText) {
    for (const char *value : NO_TEXTS) {
        const auto made = combo(std::string(R"("text":)") + value);
        EXPECT_STREQ(made->getText(), "") << value;
        EXPECT_STREQ(made->getList()->getNoItemText(), "") << value;
    }
    EXPECT_STREQ(combo(R"("text":"choose")")->getList()->getNoItemText(), "choose");
    files.add("base.ui", describe("combo", std::string(THREE) + R"(,"text":"choose")"));
    const core::SmartPtr<Component> made = parseTemplate(describe("base", R"("text":5)"));
    EXPECT_STREQ(static_cast<Combo &>(*made).getList()->getNoItemText(), "choose");
}

TEST_F(UIComponentParserListsTest, AComboOnTopOfABaseHasAListOfItsOwn) {
    files.add("base.ui", describe("combo", std::string(THREE) + R"(,"selected":1)"));
    const core::SmartPtr<Component> first = parseTemplate(describe("base", R"("items":["d"])"));
    const core::SmartPtr<Component> second = parseTemplate(describe("base", ""));
    auto &changed = static_cast<Combo &>(*first);
    auto &plain = static_cast<Combo &>(*second);
    EXPECT_EQ(textsOf(*changed.getList()), "a b c d");
    EXPECT_EQ(textsOf(*plain.getList()), "a b c");
    EXPECT_EQ(plain.getList()->getOwner(), &plain);
    EXPECT_STREQ(plain.getText(), "b");
    plain.getList()->setSelectedIndex(0, true);
    EXPECT_STREQ(plain.getText(), "a");
    EXPECT_STREQ(changed.getText(), "b");
}

TEST_F(UIComponentParserListsTest, TextsAreTranslated) {
    i18n::I18N &texts = i18n::I18N::getSingleton();
    const core::SmartPtr<i18n::Bundle> bundle(new i18n::Bundle(""));
    bundle->put("low", "niedrig");
    bundle->put("any", "egal");
    texts.addBundle(bundle.get());
    EXPECT_EQ(textsOf(*listbox(R"("items":["${low}","so ${low}!","${unknown}"])")), "niedrig so niedrig! unknown");
    const auto made = combo(R"("text":"${any}","items":["${low}"])");
    EXPECT_STREQ(made->getList()->getNoItemText(), "egal");
    made->getList()->setSelectedIndex(0, true);
    EXPECT_STREQ(made->getText(), "niedrig");
    texts.removeBundle(bundle.get());
}

} // namespace nurel::ui
