// The template keys of sliders, progress bars and selectors.
#include "nui/ui/UIComponentParser.h"

#include "support/EngineFixture.h"

#include "nui/ui/UIComponentFactory.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/components/Progress.h"
#include "nui/ui/components/Selector.h"
#include "nui/ui/components/Slider.h"

#include "nmain/vfs/MemoryFileSystem.h"
#include "nxml/i18n/Bundle.h"
#include "nxml/i18n/I18N.h"

#include "foundation/core/Exception.h"

namespace nurel::ui {

using components::Progress;
using components::Selector;
using components::Slider;

namespace {

core::SmartPtr<Component> parseTemplate(const std::string &text) {
    stream::MemoryInputStream stream("test.ui", text);
    return UIComponentParser().parse(&stream);
}

template <class Control>
core::SmartPtr<Control> parseControl(const char *type, const std::string &keys) {
    const std::string text =
        std::string(R"({"type":")") + type + R"(","name":"x")" + (keys.empty() ? "" : ",") + keys + "}";
    return static_cast<Control *>(parseTemplate(text).get());
}

core::SmartPtr<Slider> slider(const std::string &keys) {
    return parseControl<Slider>("slider", keys);
}

core::SmartPtr<Progress> progress(const std::string &keys) {
    return parseControl<Progress>("progress", keys);
}

core::SmartPtr<Selector> selector(const std::string &keys) {
    return parseControl<Selector>("selector", keys);
}

std::string messageOf(const std::string &text) {
    try {
        parseTemplate(text);
    } catch (const core::IllegalArgumentException &e) {
        return e.getMessage();
    }
    return "nothing was raised";
}

std::string shownBy(const Selector &selector) {
    return selector.getItem()->getText();
}

const char *const NO_NUMBERS[] = {"null", "true", "\"5\"", "\"\"", "[]", "[5]", "{}", "{\"a\":5}"};
const char *const NO_FLAGS[] = {"null", "0", "1", "1.5", "\"true\"", "[]", "[true]", "{}", "{\"a\":true}"};
const char *const NO_TEXTS[] = {"null", "5", "1.5", "true", "[]", "[\"a\"]", "{}", "{\"a\":\"b\"}"};
const char *const NO_ARRAYS[] = {"null", "5", "1.5", "true", "\"a\"", "{}", "{\"a\":5}"};

class UIComponentParserValuesTest : public test::EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        UIComponentFactory::getSingleton().setLoadResolver(&files);
    }

    vfs::MemoryFileSystem files;
};

} // namespace

TEST_F(UIComponentParserValuesTest, TypeWordsMakeTheirClasses) {
    EXPECT_EQ(&slider("")->getType(), &Slider::TYPE);
    EXPECT_EQ(&progress("")->getType(), &Progress::TYPE);
    EXPECT_EQ(&selector("")->getType(), &Selector::TYPE);
    EXPECT_STREQ(UIComponentParser::getRegisteredTypeName(Slider::TYPE), "slider");
    EXPECT_STREQ(UIComponentParser::getRegisteredTypeName(Progress::TYPE), "progress");
    EXPECT_STREQ(UIComponentParser::getRegisteredTypeName(Selector::TYPE), "selector");
}

// --- slider ---

TEST_F(UIComponentParserValuesTest, ASliderWithoutKeysIsAsNew) {
    const auto made = slider("");
    EXPECT_EQ(made->getMinValue(), 0);
    EXPECT_EQ(made->getMaxValue(), 100);
    EXPECT_EQ(made->getAccuracy(), 0);
    EXPECT_EQ(made->getValue(), 50);
    EXPECT_EQ(made->getEventMask(), Component::EVENT_MASK_DEFAULT | 0xa1);
    EXPECT_EQ(made->getThumb()->getComponentPosition().absolute.x, -0.5f);
}

TEST_F(UIComponentParserValuesTest, ASliderReadsItsKeys) {
    const auto made = slider(R"("value":2.9,"accuracy":0.5,"range":[-1.5,4],"class":"big")");
    EXPECT_EQ(made->getMinValue(), -1.5f);
    EXPECT_EQ(made->getMaxValue(), 4);
    EXPECT_EQ(made->getAccuracy(), 0.5f);
    EXPECT_EQ(made->getValue(), 2.5f);
    EXPECT_TRUE(made->getThumb()->hasClass("big"));
}

TEST_F(UIComponentParserValuesTest, EachKeyOfASliderKeepsTheValueWithinWhatIsThere) {
    EXPECT_EQ(slider(R"("range":[0,10])")->getValue(), 10);
    EXPECT_EQ(slider(R"("range":[60,90])")->getValue(), 60);
    EXPECT_EQ(slider(R"("accuracy":7)")->getValue(), 49);
    EXPECT_EQ(slider(R"("range":[0,10],"accuracy":4)")->getValue(), 8);
    EXPECT_EQ(slider(R"("range":[5,10],"accuracy":4,"value":1)")->getValue(), 4); // the minimum, then the step
    EXPECT_EQ(slider(R"("value":1000)")->getValue(), 100);
}

TEST_F(UIComponentParserValuesTest, TheThumbOfATemplatesSliderIsInItsPlace) {
    const auto made = slider(R"("size":[300,20],"value":0)");
    EXPECT_EQ(made->getThumb()->getComponentPosition().absolute.x, -101); // 100 wide, as it starts
    EXPECT_EQ(made->getThumb()->getPosition().x, -101);
}

TEST_F(UIComponentParserValuesTest, AShortRangeIsFromZeroToOne) {
    const auto empty = slider(R"("range":[])");
    EXPECT_EQ(empty->getMinValue(), 0);
    EXPECT_EQ(empty->getMaxValue(), 1);
    EXPECT_EQ(empty->getValue(), 1);
    const auto one = slider(R"("range":[-5])");
    EXPECT_EQ(one->getMinValue(), -5);
    EXPECT_EQ(one->getMaxValue(), 1);
    const auto more = slider(R"("range":[1,2,3])");
    EXPECT_EQ(more->getMinValue(), 1);
    EXPECT_EQ(more->getMaxValue(), 2);
}

TEST_F(UIComponentParserValuesTest, KeysOfASliderOfTheWrongKindReadAsTheirDefaults) {
    for (const char *value : NO_ARRAYS) {
        const auto made = slider(std::string(R"("range":)") + value);
        EXPECT_EQ(made->getMinValue(), 0) << value;
        EXPECT_EQ(made->getMaxValue(), 100) << value;
    }
    for (const char *value : NO_NUMBERS) {
        const std::string text(value);
        const auto ends = slider(R"("range":[)" + text + "," + text + "]");
        EXPECT_EQ(ends->getMinValue(), 0) << value;
        EXPECT_EQ(ends->getMaxValue(), 1) << value;
        EXPECT_EQ(slider(R"("accuracy":)" + text)->getAccuracy(), 0) << value;
        EXPECT_EQ(slider(R"("value":)" + text)->getValue(), 0) << value;
    }
}

TEST_F(UIComponentParserValuesTest, NumbersBeyondAFloatAreTheLargest) {
    const auto made = slider(R"("size":[200,20],"range":[-1e300,1e300],"accuracy":1e300,"value":1e300)");
    EXPECT_GT(made->getMaxValue(), 3e38f);
    EXPECT_LT(made->getMinValue(), -3e38f);
    EXPECT_EQ(made->getValue(), made->getMaxValue());
}

TEST_F(UIComponentParserValuesTest, ASliderTemplateMayBeTheBaseOfAnother) {
    files.add("volume.ui", R"({"type":"slider","range":[0,11],"accuracy":1,"value":5,"size":[200,20]})");
    const auto made = parseControl<Slider>("volume", R"("value":7.5)");
    EXPECT_EQ(&made->getType(), &Slider::TYPE);
    EXPECT_EQ(made->getMaxValue(), 11);
    EXPECT_EQ(made->getValue(), 7);
    EXPECT_EQ(made->getChildCount(), 1u);
    EXPECT_EQ(parseControl<Slider>("volume", "")->getValue(), 5);
    log().take(logging::Level::INFO);
}

// --- progress ---

TEST_F(UIComponentParserValuesTest, AProgressWithoutKeysIsAsNew) {
    const auto made = progress("");
    EXPECT_EQ(made->getMinValue(), 0);
    EXPECT_EQ(made->getMaxValue(), 100);
    EXPECT_EQ(made->getValue(), 0);
    EXPECT_FALSE(made->getShowText());
    EXPECT_STREQ(made->getTextFormat(), "%d%%");
    EXPECT_EQ(made->getLabel(), nullptr);
}

TEST_F(UIComponentParserValuesTest, AProgressReadsItsKeys) {
    const auto made = progress(
        R"("class":"big","text-format":"%d of 100","show-text":true,"value":15,"max-value":30,"min-value":10)");
    EXPECT_EQ(made->getMinValue(), 10);
    EXPECT_EQ(made->getMaxValue(), 30);
    EXPECT_EQ(made->getValue(), 15);
    EXPECT_EQ(made->getBar()->getComponentSize().relative.x, 0.25f);
    ASSERT_NE(made->getLabel(), nullptr);
    EXPECT_STREQ(made->getLabel()->getText(), "25 of 100");
    EXPECT_TRUE(made->getLabel()->hasClass("big"));
    EXPECT_TRUE(made->getBar()->hasClass("big"));
}

TEST_F(UIComponentParserValuesTest, TheEndsOfAProgressAloneAreNotShown) {
    files.add("half.ui", R"({"type":"progress","value":50})");
    const auto made = parseControl<Progress>("half", R"("min-value":40,"max-value":60)");
    EXPECT_EQ(made->getBar()->getComponentSize().relative.x, 0.5f);
    const auto upper = parseControl<Progress>("half", R"("max-value":200)");
    EXPECT_EQ(upper->getBar()->getComponentSize().relative.x, 0.5f);
    EXPECT_EQ(upper->getMaxValue(), 200);
    const auto renewed = parseControl<Progress>("half", R"("max-value":200,"text-format":"")");
    EXPECT_EQ(renewed->getBar()->getComponentSize().relative.x, 0.25f);
    log().take(logging::Level::INFO);
}

TEST_F(UIComponentParserValuesTest, AProgressTemplateMayBeTheBaseOfAnother) {
    files.add("loading.ui", R"({"type":"progress","value":50,"show-text":true,"text-format":"loading: %d"})");
    const auto made = parseControl<Progress>("loading", "");
    EXPECT_EQ(made->getBar()->getComponentSize().relative.x, 0.5f);
    ASSERT_EQ(made->getChildCount(), 2u);
    EXPECT_EQ(made->getChildAt(1), made->getLabel());
    EXPECT_STREQ(made->getLabel()->getText(), "loading: 50");
    const auto other = parseControl<Progress>("loading", R"("value":75)");
    EXPECT_STREQ(other->getLabel()->getText(), "loading: 75");
    EXPECT_FALSE(parseControl<Progress>("loading", R"("show-text":false)")->getLabel()->isVisible());
    log().take(logging::Level::INFO);
}

TEST_F(UIComponentParserValuesTest, KeysOfAProgressOfTheWrongKindReadAsTheirDefaults) {
    for (const char *value : NO_NUMBERS) {
        const std::string text(value);
        const auto made = progress(R"("min-value":)" + text + R"(,"max-value":)" + text + R"(,"value":)" + text);
        EXPECT_EQ(made->getMinValue(), 0) << value;
        EXPECT_EQ(made->getMaxValue(), 100) << value;
        EXPECT_EQ(made->getValue(), 0) << value;
    }
    for (const char *value : NO_FLAGS)
        EXPECT_TRUE(progress(std::string(R"("show-text":)") + value)->getShowText()) << value;
    for (const char *value : NO_TEXTS)
        EXPECT_STREQ(progress(std::string(R"("text-format":)") + value)->getTextFormat(), "%d%%") << value;
}

TEST_F(UIComponentParserValuesTest, ABrokenNumberOfAProgressIsCutOff) {
    EXPECT_EQ(progress(R"("value":5.9)")->getValue(), 5);
    EXPECT_EQ(progress(R"("value":1e99)")->getValue(), 0); // no integer
}

TEST_F(UIComponentParserValuesTest, NoFormatOfATemplateReachesPrintf) {
    const auto made = progress(R"("value":50,"show-text":true,"text-format":"%s %n %d%% %")");
    EXPECT_STREQ(made->getLabel()->getText(), "%s %n 50% %");
}

// --- selector ---

TEST_F(UIComponentParserValuesTest, ASelectorWithoutKeysIsAsNew) {
    const auto made = selector("");
    EXPECT_EQ(made->getItemCount(), 0u);
    EXPECT_EQ(made->getSelectedIndex(), -1);
    EXPECT_FALSE(made->getCycle());
    EXPECT_EQ(shownBy(*made), "---");
    EXPECT_EQ(made->getChildCount(), 3u);
}

TEST_F(UIComponentParserValuesTest, ASelectorReadsItsKeys) {
    const auto made = selector(R"("selected":1,"items":["low","high"],"cycle":true,"class":"big")");
    ASSERT_EQ(made->getItemCount(), 2u);
    EXPECT_STREQ(made->getItemText(0), "low");
    EXPECT_STREQ(made->getItemText(1), "high");
    EXPECT_EQ(made->getSelectedIndex(), 1);
    EXPECT_EQ(shownBy(*made), "high");
    EXPECT_TRUE(made->getCycle());
    EXPECT_EQ(made->getSelectedItem()->data.get(), nullptr);
    EXPECT_TRUE(made->getItem()->hasClass("big"));
}

TEST_F(UIComponentParserValuesTest, AnIndexIsReadOnlyBesideItems) {
    files.add("levels.ui", R"({"type":"selector","items":["low","high"],"selected":0})");
    EXPECT_EQ(parseControl<Selector>("levels", R"("selected":1)")->getSelectedIndex(), 0);
    const auto longer = parseControl<Selector>("levels", R"("items":["higher"],"selected":2)");
    EXPECT_EQ(longer->getItemCount(), 3u);
    EXPECT_EQ(shownBy(*longer), "higher");
    const auto none = parseControl<Selector>("levels", R"("items":[],"selected":-1)");
    EXPECT_EQ(none->getSelectedIndex(), -1);
    EXPECT_EQ(shownBy(*none), "---");
    EXPECT_EQ(parseControl<Selector>("levels", R"("items":[])")->getSelectedIndex(), 0);
    log().take(logging::Level::INFO);
}

TEST_F(UIComponentParserValuesTest, AnIndexOutOfRangeSelectsNone) {
    for (const char *index : {"-1", "-5", "-2147483648", "2", "3", "2147483647", "1e99"}) {
        const auto made = selector(std::string(R"("items":["low","high"],"selected":)") + index);
        EXPECT_EQ(made->getSelectedIndex(), -1) << index;
        EXPECT_EQ(shownBy(*made), "---") << index;
    }
    for (const char *value : NO_NUMBERS)
        EXPECT_EQ(selector(std::string(R"("items":["low"],"selected":)") + value)->getSelectedIndex(), -1) << value;
}

TEST_F(UIComponentParserValuesTest, ItemsThatAreNoTextsAreSkipped) {
    const auto made = selector(R"("items":["a",null,5,1.5,true,[],{},"","b"])");
    ASSERT_EQ(made->getItemCount(), 3u);
    EXPECT_STREQ(made->getItemText(0), "a");
    EXPECT_STREQ(made->getItemText(1), "");
    EXPECT_STREQ(made->getItemText(2), "b");
}

TEST_F(UIComponentParserValuesTest, ItemsThatAreNoListAreRefused) {
    for (const char *value : NO_ARRAYS) {
        EXPECT_EQ(messageOf(std::string(R"({"type":"selector","name":"x","items":)") + value + "}"),
                  "Invalid item list (not an array)")
            << value;
    }
}

TEST_F(UIComponentParserValuesTest, ASelectorWithABadListCostsItselfAlone) {
    const core::SmartPtr<Component> made = parseTemplate(
        R"({"type":"panel","name":"p","children":[{"type":"selector","name":"x","items":5},{"type":"selector","name":"y"}]})");
    EXPECT_EQ(static_cast<Container &>(*made).getChildCount(), 1u);
    EXPECT_EQ(log().takeOne(logging::Level::ERROR),
              "Error parsing child #0 for component p(panel): Invalid item list (not an array)");
}

TEST_F(UIComponentParserValuesTest, ACycleOfTheWrongKindIsNone) {
    for (const char *value : NO_FLAGS)
        EXPECT_FALSE(selector(std::string(R"("cycle":)") + value)->getCycle()) << value;
    files.add("ring.ui", R"({"type":"selector","cycle":true})");
    EXPECT_TRUE(parseControl<Selector>("ring", "")->getCycle());
    EXPECT_FALSE(parseControl<Selector>("ring", R"("cycle":false)")->getCycle());
    EXPECT_FALSE(parseControl<Selector>("ring", R"("cycle":null)")->getCycle());
    log().take(logging::Level::INFO);
}

TEST_F(UIComponentParserValuesTest, ItemsAreTranslated) {
    i18n::I18N &texts = i18n::I18N::getSingleton();
    const core::SmartPtr<i18n::Bundle> bundle(new i18n::Bundle(""));
    bundle->put("low", "niedrig");
    bundle->put("high", "hoch");
    texts.addBundle(bundle.get());
    const auto made = selector(R"("items":["${low}","so ${high}!","${unknown}"],"selected":1)");
    EXPECT_STREQ(made->getItemText(0), "niedrig");
    EXPECT_STREQ(made->getItemText(2), "unknown");
    EXPECT_EQ(shownBy(*made), "so hoch!");
    const auto format = progress(R"("show-text":true,"text-format":"${low} %d")"); // a format is not
    EXPECT_STREQ(format->getLabel()->getText(), "${low} 0");
    texts.removeBundle(bundle.get());
}

} // namespace nurel::ui
