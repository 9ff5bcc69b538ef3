#include "nui/ui/UIComponentParser.h"

#include "support/EngineFixture.h"

#include "nui/ui/Container.h"
#include "nui/ui/Layout.h"
#include "nui/ui/UIComponentFactory.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Image.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/layouts/FlowLayout.h"

#include "nengine/EngineFactory.h"
#include "nengine/scene/meshes/BorderedRectangleMesh.h"
#include "nengine/scene/meshes/SizeableRectangleMesh.h"
#include "nmain/core/CloningOptions.h"
#include "nmain/json/JSONException.h"
#include "nmain/vfs/MemoryFileSystem.h"

#include "foundation/core/Exception.h"

#include <functional>

namespace nurel::ui {

using scene::meshes::BorderedRectangleMesh;

namespace {

core::SmartPtr<Component> parse(const std::string &text) {
    stream::MemoryInputStream stream("test.ui", text);
    return UIComponentParser().parse(&stream);
}

/// A named panel with the keys.
core::SmartPtr<components::Panel> panel(const std::string &keys) {
    const core::SmartPtr<Component> made = parse(R"({"type":"panel","name":"p",)" + keys + "}");
    return static_cast<components::Panel *>(made.get());
}

const char *const TYPE_WORDS[] = {
    "panel",    "button", "label",  "text",   "checkbox", "radio", //
    "selector", "image",  "slider", "widget", "progress", "combo", "listbox",
};

std::string messageOf(const std::string &text) {
    try {
        parse(text);
    } catch (const core::IllegalArgumentException &e) {
        return e.getMessage();
    } catch (const core::Exception &e) {
        return std::string("other: ") + e.getMessage();
    }
    return "nothing was raised";
}

class UIComponentParserTest : public test::EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        UIComponentFactory::getSingleton().setLoadResolver(&files);
    }

    std::string error() { return log().takeOne(logging::Level::ERROR); }

    vfs::MemoryFileSystem files;
};

} // namespace

TEST_F(UIComponentParserTest, TypeWordsMakeTheirClasses) {
    EXPECT_EQ(&parse(R"({"type":"panel","name":"x"})")->getType(), &components::Panel::TYPE);
    EXPECT_EQ(&parse(R"({"type":"label","name":"x"})")->getType(), &components::Label::TYPE);
    EXPECT_EQ(&parse(R"({"type":"image","name":"x"})")->getType(), &components::Image::TYPE);
    EXPECT_EQ(&parse(R"({"type":"widget","name":"x"})")->getType(), &Widget::TYPE);
}

TEST_F(UIComponentParserTest, AMissingTypeAsksForATemplateWithoutAName) {
    EXPECT_EQ(messageOf(R"({"name":"x"})"), "other: Cannot open file .ui");
    EXPECT_EQ(error(), "Unable to load template : Cannot open file .ui");
    files.add(".ui", R"({"type":"panel","name":"anonymous"})");
    EXPECT_STREQ(parse(R"({"name":"x"})")->getName(), "x");
}

TEST_F(UIComponentParserTest, TheExceptionOfATemplateThatCannotBeLoadedPassesThrough) {
    EXPECT_EQ(messageOf(R"({"type":"nowhere","name":"x"})"), "other: Cannot open file nowhere.ui");
    EXPECT_EQ(error(), "Unable to load template nowhere: Cannot open file nowhere.ui");
}

TEST_F(UIComponentParserTest, ATypeThatTheEngineCannotMakeIsRefused) {
    static constinit const core::Type STRANGE("Strange", &components::Panel::TYPE);
    parse(R"({"type":"panel","name":"x"})");
    UIComponentParser::registerType("strange", STRANGE);
    EXPECT_EQ(messageOf(R"({"type":"strange","name":"x"})"), "Unknown component type strange");
    UIComponentParser::unregisterType("strange");
}

TEST_F(UIComponentParserTest, ATypeThatIsNoComponentIsRefused) {
    parse(R"({"type":"panel","name":"x"})");
    UIComponentParser::registerType("flow", layouts::FlowLayout::TYPE);
    EXPECT_EQ(messageOf(R"({"type":"flow","name":"x"})"), "Unknown component type flow");
    UIComponentParser::unregisterType("flow");
}

TEST_F(UIComponentParserTest, AComponentWithoutANameIsNotedAndHasAnEmptyOne) {
    EXPECT_STREQ(parse(R"({"type":"panel"})")->getName(), "");
    EXPECT_EQ(log().takeOne(logging::Level::INFO), "Component 'panel' with no name");
}

TEST_F(UIComponentParserTest, TheAnchorIsTheCentreUnlessAKnownWordSaysOtherwise) {
    EXPECT_EQ(static_cast<unsigned int>(panel(R"("size":[1,1])")->getAnchor()), 0x12U);
    EXPECT_EQ(static_cast<unsigned int>(panel(R"("anchor":"nonsense")")->getAnchor()), 0x12U);
    EXPECT_EQ(static_cast<unsigned int>(panel(R"("anchor":7)")->getAnchor()), 0x12U);
    EXPECT_EQ(static_cast<unsigned int>(panel(R"("anchor":"left")")->getAnchor()), 0x08U);
    EXPECT_EQ(static_cast<unsigned int>(panel(R"("anchor":"bottom-right")")->getAnchor()), 0x24U);
}

TEST_F(UIComponentParserTest, AnAbsentAnchorOverwritesTheBaseTemplates) {
    files.add("base.ui", R"({"type":"panel","name":"base","anchor":"top-left","clip-children":false,"enabled":false})");
    const core::SmartPtr<Component> made = parse(R"({"type":"base","name":"x"})");
    EXPECT_EQ(static_cast<unsigned int>(made->getAnchor()), 0x12U);
    EXPECT_TRUE(static_cast<Container &>(*made).getClipChildren());
    EXPECT_TRUE(made->isEnabled());
}

struct AnchorCase {
    const char *word;
    unsigned int value;
};

TEST_F(UIComponentParserTest, AllThirteenAnchorWordsAreKnown) {
    const AnchorCase words[] = {{"left", 8},
                                {"right", 0x20},
                                {"top", 1},
                                {"bottom", 4},
                                {"center", 0x12},
                                {"center-left", 0xa},
                                {"center-right", 0x22},
                                {"top-left", 9},
                                {"top-right", 0x21},
                                {"top-center", 0x11},
                                {"bottom-left", 0xc},
                                {"bottom-right", 0x24},
                                {"bottom-center", 0x14}};
    for (const AnchorCase &entry : words)
        EXPECT_EQ(static_cast<unsigned int>(UIComponentParser::parseAnchor(entry.word)), entry.value) << entry.word;
    EXPECT_EQ(static_cast<unsigned int>(UIComponentParser::parseAnchor(nullptr)), 0x12U);
    EXPECT_EQ(static_cast<unsigned int>(UIComponentParser::parseAnchor("Left")), 0x12U);
}

struct SizeForm {
    const char *name;
    const char *json;
    math::Vector2 absolute;
    math::Vector2 relative;
    unsigned int autoSize;
};

TEST_F(UIComponentParserTest, TheSizeReadsItsFormsAsTold) {
    const SizeForm forms[] = {
        {"two", "[100, 50]", {100, 50}, {0, 0}, 0},
        {"fill", "[0, 0, 1, 1]", {0, 0}, {1, 1}, 0},
        {"auto width", R"(["auto", 50])", {0, 50}, {0, 0}, 1},
        {"auto height", R"([50, "auto"])", {50, 0}, {0, 0}, 2},
        {"a second pair that is not auto ends it", R"(["auto", 50, 1, 0])", {0, 50}, {1, 0}, 0},
        {"all auto", R"(["auto", "auto", "auto", "auto"])", {0, 0}, {0, 0}, 3},
        {"auto in the second pair only", R"([5, 6, "auto", "auto"])", {5, 6}, {0, 0}, 0},
        {"three elements have no second pair", R"(["auto", 50, 1])", {0, 50}, {0, 0}, 1},
        {"one element", "[100]", {0, 0}, {0, 0}, 0},
        {"no array", "100", {0, 0}, {0, 0}, 0},
        {"a word", R"(["wide", 50])", {0, 50}, {0, 0}, 0},
        {"an object", "{}", {0, 0}, {0, 0}, 0},
    };
    for (const SizeForm &form : forms) {
        const auto made = panel(std::string(R"("size":)") + form.json);
        EXPECT_EQ(made->getComponentSize().absolute, form.absolute) << form.name;
        EXPECT_EQ(made->getComponentSize().relative, form.relative) << form.name;
        EXPECT_EQ(made->getComponentSize().autoSize, form.autoSize) << form.name;
    }
}

TEST_F(UIComponentParserTest, LimitsPositionAndScaleAreSet) {
    const auto made = panel(R"("min-width":1,"max-width":200,"min-height":3,"max-height":400,
                               "position":[5,"auto",0.25,0.5],"scale":2)");
    EXPECT_EQ(made->getMinimumSize(), math::Vector2(1, 3));
    EXPECT_EQ(made->getMaximumSize(), math::Vector2(200, 400));
    EXPECT_EQ(made->getComponentPosition().absolute, math::Vector2(5, 0));
    EXPECT_EQ(made->getComponentPosition().relative, math::Vector2(0.25F, 0.5F));
    EXPECT_EQ(made->getComponentSize().autoSize, 0U);
    EXPECT_EQ(made->getScale(), math::Vector2(2, 2));
}

TEST_F(UIComponentParserTest, EventWordsAreComparedIgnoringCase) {
    EXPECT_EQ(panel(R"("event-mask":"MOUSE")")->getEventMask(), panel(R"("event-mask":"mouse")")->getEventMask());
    EXPECT_EQ(panel(R"("event-mask":"MOUSE")")->getEventMask(), 0x08U);
}

TEST_F(UIComponentParserTest, EventMasksAreSetAddedAndTakenAway) {
    EXPECT_EQ(panel(R"("event-mask":["focus","hover","mouse","wheel","drag","key","click","text"])")->getEventMask(),
              0x1fbU);
    EXPECT_EQ(panel(R"("event-mask":3,"event-mask-enable":["key",512],"event-mask-disable":"focus")")->getEventMask(),
              0x242U);
    EXPECT_EQ(panel(R"("event-mask":"unknown")")->getEventMask(), 0U);
    EXPECT_EQ(panel(R"("event-mask-enable":"key")")->getEventMask(), 0x2cbU);
}

TEST_F(UIComponentParserTest, AnEventDefinitionOfAnotherKindWarnsAndCountsNothing) {
    EXPECT_EQ(panel(R"("event-mask":[1,[2],true])")->getEventMask(), 1U);
    const std::vector<std::string> warnings = log().take(logging::Level::WARN);
    ASSERT_EQ(warnings.size(), 2U);
    EXPECT_EQ(warnings[0], "Invalid event definition: got T_ARRAY, expected int, string or array");
    EXPECT_EQ(warnings[1], "Invalid event definition: got T_BOOL, expected int, string or array");
    EXPECT_EQ(panel(R"("event-mask":{})")->getEventMask(), 0U);
    EXPECT_EQ(log().takeOne(logging::Level::WARN),
              "Invalid event definition: got T_OBJECT, expected int, string or array");
}

TEST_F(UIComponentParserTest, ClassesComeFromAWordOrAnArray) {
    EXPECT_TRUE(panel(R"("class":"big")")->hasClass("big"));
    const auto made = panel(R"("class":["a","b",5])");
    EXPECT_TRUE(made->hasClass("a"));
    EXPECT_TRUE(made->hasClass("b"));
    EXPECT_EQ(made->getClasses().size(), 2U);
    EXPECT_EQ(messageOf(R"({"type":"panel","name":"p","class":5})"), "Invalid class attribute type (panel)");
}

TEST_F(UIComponentParserTest, StateKeysAreSet) {
    const auto made = panel(R"("visible":false,"opacity":0.5,"enabled":false,"tab-stop":3,"z-index":7)");
    EXPECT_FALSE(made->isSelfVisible());
    EXPECT_FLOAT_EQ(made->getOpacity(), 0.5F);
    EXPECT_TRUE(made->hasState(0x40));
    EXPECT_EQ(made->getTabStop(), 3);
    EXPECT_EQ(made->getZIndex(), 7);
}

TEST_F(UIComponentParserTest, StateKeysOfTheWrongKindReadAsTheirDefaults) {
    const auto made = panel(R"("visible":1,"opacity":"x","enabled":"no","tab-stop":"x","z-index":"x")");
    EXPECT_FALSE(made->isSelfVisible());
    EXPECT_FLOAT_EQ(made->getOpacity(), 0);
    EXPECT_FALSE(made->hasState(0x40));
    EXPECT_EQ(made->getTabStop(), 0);
    EXPECT_EQ(made->getZIndex(), 0);
}

TEST_F(UIComponentParserTest, BackgroundColoursReadTheirForms) {
    EXPECT_EQ(panel(R"("background-color":[0.25,0.5])")->getMeshColor(), math::Vector3(1, 1, 1));
    EXPECT_EQ(panel(R"("background-color":[0.25,0.5,0.75])")->getMeshColor(), math::Vector3(0.25F, 0.5F, 0.75F));
    EXPECT_EQ(panel(R"("background-color":["x",0,0])")->getMeshColor(), math::Vector3(1, 0, 0));
    EXPECT_EQ(panel(R"("background-color":"orange")")->getMeshColor(), math::Vector3(1, 0.5F, 0));
    EXPECT_EQ(panel(R"("background-color":"nonsense")")->getMeshColor(), math::Vector3(1, 1, 1));
    EXPECT_EQ(panel(R"("background-color":"#00f")")->getMeshColor().x, 0);
    EXPECT_EQ(panel(R"x("background-color":"rgb(0,0,0)")x")->getMeshColor(), math::Vector3(0, 0, 0));
    EXPECT_EQ(panel(R"("background-color":5)")->getMeshColor(), math::Vector3(1, 1, 1));
}

TEST_F(UIComponentParserTest, AColourThatFailsKeepsWhatWasReadOnTopOfWhite) {
    const math::Vector3 color = panel(R"("background-color":"#0g0")")->getMeshColor();
    EXPECT_EQ(color, math::Vector3(0, 1, 1));
}

TEST_F(UIComponentParserTest, TheBorderFixGoesIntoAMeshThatIsThere) {
    const auto mode = [](const char *word) {
        const auto made = panel(std::string(R"("background-color":"red","border-fix":")") + word + "\"");
        return static_cast<BorderedRectangleMesh &>(*made->getMesh()).getBorderFixMode();
    };
    EXPECT_EQ(mode("none"), BorderedRectangleMesh::BORDER_FIX_NONE);
    EXPECT_EQ(mode("zero"), BorderedRectangleMesh::BORDER_FIX_ZERO);
    EXPECT_EQ(mode("fit"), BorderedRectangleMesh::BORDER_FIX_FIT);
    EXPECT_EQ(mode("other"), BorderedRectangleMesh::BORDER_FIX_NONE);
    EXPECT_FALSE(panel(R"("border-fix":"fit")")->hasMesh());
}

TEST_F(UIComponentParserTest, ScrollMasksEnableDraggingAlsoWhenTheMaskTookItAway) {
    const auto both = panel(R"("event-mask-disable":"drag","scroll-mask":"both")");
    EXPECT_EQ(both->getScrollMask(), 3U);
    EXPECT_TRUE(both->isEventEnabled(0x20));
    EXPECT_EQ(panel(R"("scroll-mask":"horizontal")")->getScrollMask(), 1U);
    EXPECT_EQ(panel(R"("scroll-mask":"vertical")")->getScrollMask(), 2U);
    const auto none = panel(R"("scroll-mask":"none")");
    EXPECT_EQ(none->getScrollMask(), 0U);
    EXPECT_FALSE(none->isEventEnabled(0x20));
    EXPECT_EQ(panel(R"("scroll-mask":"unknown")")->getScrollMask(), 0U);
    EXPECT_EQ(panel(R"("scroll-mask":"")")->getScrollMask(), 3U);
    EXPECT_EQ(panel(R"("scroll-mask":1)")->getScrollMask(), 3U);
}

TEST_F(UIComponentParserTest, ClippingIsOnUnlessTheKeySaysOtherwise) {
    EXPECT_TRUE(panel(R"("size":[1,1])")->getClipChildren());
    EXPECT_FALSE(panel(R"("clip-children":false)")->getClipChildren());
}

TEST_F(UIComponentParserTest, ALayoutComesByItsNameOrWithParameters) {
    const auto plain = panel(R"("layout":"FlowLayout")");
    ASSERT_TRUE(plain->hasLayout());
    EXPECT_EQ(&plain->getLayout()->getType(), &layouts::FlowLayout::TYPE);
    const auto made = panel(R"("layout":["FlowLayout",{"direction":"vertical","limit":5,"spacing":[1,2]}])");
    const auto &flow = static_cast<const layouts::FlowLayout &>(*made->getLayout());
    EXPECT_EQ(flow.getFlowDirection(), 1);
    EXPECT_FLOAT_EQ(flow.getSizeLimit(), 5);
    EXPECT_EQ(flow.getSpacing(), math::Vector2(1, 2));
}

struct LayoutFault {
    const char *json;
    const char *message;
};

TEST_F(UIComponentParserTest, ABadLayoutIsLoggedAndCostsTheLayout) {
    const LayoutFault faults[] = {
        {"5", "Invalid layout attribute for container p(Panel): expeceted T_STRING or T_ARRAY, got T_INT"},
        {"{}", "Invalid layout attribute for container p(Panel): expeceted T_STRING or T_ARRAY, got T_OBJECT"},
        {"[]", "Invalid layout name for container p(Panel): expected T_STRING, got T_NONE"},
        {"[true]", "Invalid layout name for container p(Panel): expected T_STRING, got T_BOOL"},
        {"\"\"", "Empty layout name for container p(Panel)"},
        {"[\"\"]", "Empty layout name for container p(Panel)"},
        {"[\"FlowLayout\",1.5]",
         "Invalid layout parameters for layout FlowLayout on container p(Panel): expected T_OBJECT, got T_FLOAT"},
        {"\"NoLayout\"", "Unable to create layout instance NoLayout for container p(Panel)"},
        {"\"Panel\"", "Unable to create layout instance Panel for container p(Panel)"},
    };
    for (const LayoutFault &fault : faults) {
        EXPECT_FALSE(panel(std::string(R"("layout":)") + fault.json)->hasLayout()) << fault.json;
        EXPECT_EQ(error(), fault.message);
    }
}

TEST_F(UIComponentParserTest, ABadLayoutKeepsTheOneOfTheBaseTemplate) {
    files.add("base.ui", R"({"type":"panel","name":"base","layout":"FlowLayout"})");
    const core::SmartPtr<Component> made = parse(R"({"type":"base","name":"x","layout":5})");
    EXPECT_TRUE(static_cast<Container &>(*made).hasLayout());
    log().take(logging::Level::ERROR);
}

TEST_F(UIComponentParserTest, ALabelTakesItsText) {
    const core::SmartPtr<Component> made = parse(R"({"type":"label","name":"l","text":"Grüße"})");
    EXPECT_STREQ(static_cast<components::Label &>(*made).getText(), "Grüße");
    const core::SmartPtr<Component> none = parse(R"({"type":"label","name":"l","text":5})");
    EXPECT_STREQ(static_cast<components::Label &>(*none).getText(), "");
}

TEST_F(UIComponentParserTest, KeysInsideATextAreTranslated) {
    const core::SmartPtr<Component> made = parse(R"({"type":"label","name":"l","text":"a ${unknown} b"})");
    EXPECT_STREQ(static_cast<components::Label &>(*made).getText(), "a unknown b");
}

TEST_F(UIComponentParserTest, ChildrenAreAddedToTheBaseTemplatesOwn) {
    files.add("base.ui", R"({"type":"panel","name":"base","children":[{"type":"label","name":"old"}]})");
    const core::SmartPtr<Component> made =
        parse(R"({"type":"base","name":"x","children":[{"type":"label","name":"new"}]})");
    const auto &container = static_cast<Container &>(*made);
    ASSERT_EQ(container.getChildCount(), 2U);
    EXPECT_STREQ(container.getChildAt(0)->getName(), "old");
    EXPECT_STREQ(container.getChildAt(1)->getName(), "new");
}

TEST_F(UIComponentParserTest, ALabelBuiltOnABaseTemplateTakesNoChildren) {
    files.add("base.ui", R"({"type":"label","name":"base","text":"t"})");
    EXPECT_EQ(messageOf(R"({"type":"base","name":"x","children":[]})"),
              "Invalid children declaration. Parent is not a valid container type (base)");
}

TEST_F(UIComponentParserTest, AnEmptyChildrenArrayOfALabelIsRefusedToo) {
    EXPECT_EQ(messageOf(R"({"type":"label","name":"l","children":[]})"),
              "Invalid children declaration. Parent is not a valid container type (label)");
}

TEST_F(UIComponentParserTest, ChildrenThatAreNoArrayAreRefused) {
    EXPECT_EQ(messageOf(R"({"type":"panel","name":"p","children":{}})"), "Invalid children list (not an array)");
}

TEST_F(UIComponentParserTest, AChildThatIsNotLaidOutStaysOutOfTheLayout) {
    const auto made = panel(R"("layout":"FlowLayout","children":[
        {"type":"label","name":"in"},{"type":"label","name":"out","laidout":false,"anchor":"bottom-right"}])");
    EXPECT_EQ(made->getChildCount(), 2U);
    EXPECT_EQ(made->getLayout()->getComponentCount(), 1U);
    EXPECT_EQ(static_cast<unsigned int>(made->getChildAt(1)->getAnchor()), 0x24U);
}

TEST_F(UIComponentParserTest, ABadChildCostsThatChildWithItsSubtree) {
    const auto made = panel(R"("children":[{"type":"label","name":"a"},
        {"type":"panel","name":"b","class":1,"children":[{"type":"label","name":"lost"}]},
        {"type":"label","name":"c"}])");
    EXPECT_EQ(error(), "Error parsing child #1 for component p(panel): Invalid class attribute type (panel)");
    ASSERT_EQ(made->getChildCount(), 2U);
    EXPECT_STREQ(made->getChildAt(1)->getName(), "c");
}

TEST_F(UIComponentParserTest, AChildThatIsNoObjectIsLeftOut) {
    EXPECT_EQ(panel(R"("children":[5])")->getChildCount(), 0U);
    EXPECT_EQ(error(), "Unable to load template : Cannot open file .ui");
    EXPECT_EQ(error(), "Error parsing child #0 for component p(panel): Cannot open file .ui");
}

TEST_F(UIComponentParserTest, AFinishedTreeIsLaidOut) {
    const auto made = panel(R"("size":[200,100],"children":[{"type":"panel","name":"c","size":[0,0,0.5,0.5]}])");
    EXPECT_EQ(made->getSize(), math::Vector2(200, 100));
    EXPECT_EQ(made->getChildAt(0)->getSize(), math::Vector2(100, 50));
}

TEST_F(UIComponentParserTest, ATextThatIsNoJSONTellsFileAndPlace) {
    try {
        parse("{\"type\": \"panel\",\n \"name\": }");
        FAIL() << "nothing was raised";
    } catch (const json::JSONException &e) {
        EXPECT_EQ(std::string(e.getMessage()).rfind("test.ui:2:", 0), 0U) << e.getMessage();
    }
}

TEST_F(UIComponentParserTest, ATextNestedTenThousandDeepIsRefused) {
    std::string text;
    for (int i = 0; i < 10000; ++i)
        text += R"({"type":"panel","name":"p","children":[)";
    EXPECT_THROW(parse(text), json::JSONException);
}

TEST_F(UIComponentParserTest, ATreeAsDeepAsTheTextMayBeIsBuilt) {
    std::string text;
    constexpr int DEPTH = 250;
    for (int i = 0; i < DEPTH; ++i)
        text += R"({"type":"panel","name":"p","children":[)";
    for (int i = 0; i < DEPTH; ++i)
        text += "]}";
    EXPECT_NE(parse(text).get(), nullptr);
}

TEST_F(UIComponentParserTest, EveryKeyWithEveryWrongKindIsSurvived) {
    const char *keys[] = {"type",
                          "name",
                          "anchor",
                          "size",
                          "min-width",
                          "max-width",
                          "min-height",
                          "max-height",
                          "position",
                          "scale",
                          "event-mask",
                          "event-mask-enable",
                          "event-mask-disable",
                          "class",
                          "visible",
                          "opacity",
                          "enabled",
                          "tab-stop",
                          "background-color",
                          "border-fix",
                          "z-index",
                          "scroll-mask",
                          "layout",
                          "clip-children",
                          "text",
                          "icon",
                          "checkable",
                          "checked",
                          "items",
                          "selected",
                          "cycle",
                          "range",
                          "accuracy",
                          "value",
                          "min-value",
                          "max-value",
                          "show-text",
                          "text-format",
                          "placeholder",
                          "password",
                          "max-length",
                          "children"};
    const char *values[] = {"null", "true", "5", "-1e30", "\"word\"", "\"\"", "[]", "[1,[2],{}]", "{}", "{\"a\":1}"};
    for (const char *type : TYPE_WORDS) {
        for (const char *key : keys) {
            for (const char *value : values) {
                const std::string text =
                    std::string(R"({"type":")") + type + R"(","name":"x",")" + key + "\":" + value + "}";
                try {
                    parse(text);
                } catch (const core::Exception &) {
                    // told elsewhere; here it matters that nothing worse happens
                }
                log().take(logging::Level::ERROR);
                log().take(logging::Level::WARN);
            }
        }
    }
}

TEST_F(UIComponentParserTest, RegisteredTypesAreFoundByWordAndByType) {
    static constinit const core::Type MINE("Mine", &components::Panel::TYPE);
    parse(R"({"type":"panel","name":"x"})");
    EXPECT_FALSE(UIComponentParser::isRegisteredType("mine"));
    EXPECT_FALSE(UIComponentParser::isRegistered(MINE));
    EXPECT_EQ(UIComponentParser::getRegisteredTypeName(MINE), nullptr);
    EXPECT_EQ(&UIComponentParser::registerType("mine", MINE), &MINE);
    EXPECT_TRUE(UIComponentParser::isRegisteredType("mine"));
    EXPECT_FALSE(UIComponentParser::isRegisteredType("Mine"));
    EXPECT_TRUE(UIComponentParser::isRegistered(MINE));
    EXPECT_STREQ(UIComponentParser::getRegisteredTypeName(MINE), "mine");
    EXPECT_EQ(&UIComponentParser::registerType("mine", Widget::TYPE), &MINE);
    EXPECT_TRUE(UIComponentParser::unregisterType("mine"));
    EXPECT_FALSE(UIComponentParser::unregisterType("mine"));
    EXPECT_FALSE(UIComponentParser::unregisterType(nullptr));
}

TEST_F(UIComponentParserTest, WordsRegisteredAheadOfTheFirstParseAreTheOnlyOnes) {
    parse(R"({"type":"panel","name":"x"})");
    for (const char *word : TYPE_WORDS)
        EXPECT_TRUE(UIComponentParser::unregisterType(word)) << word;
    UIComponentParser::registerType("box", components::Panel::TYPE);
    EXPECT_EQ(&parse(R"({"type":"box","name":"x"})")->getType(), &components::Panel::TYPE);
    EXPECT_EQ(messageOf(R"({"type":"label","name":"x"})"), "other: Cannot open file label.ui");
    error();
    UIComponentParser::unregisterType("box");
    EXPECT_EQ(&parse(R"({"type":"label","name":"x"})")->getType(), &components::Label::TYPE);
}

TEST_F(UIComponentParserTest, ColoursHaveTheirChannelsInOrder) {
    const auto expectColor = [](const char *word, float red, float green, float blue) {
        const math::Vector3 color = panel(std::string(R"("background-color":")") + word + "\"")->getMeshColor();
        EXPECT_NEAR(color.x, red, 1e-5F) << word;
        EXPECT_NEAR(color.y, green, 1e-5F) << word;
        EXPECT_NEAR(color.z, blue, 1e-5F) << word;
    };
    expectColor("#369", 0.2F, 0.4F, 0.6F);
    expectColor("#33cc99", 0.2F, 0.8F, 0.6F);
    expectColor("rgb(51,102,153)", 0.2F, 0.4F, 0.6F);
    expectColor("rgba(204,51,102,255)", 0.8F, 0.2F, 0.4F);
}

namespace {

/// A template whose copies show the mesh that it was given.
class PreparedPanel : public components::Panel {
public:
    explicit PreparedPanel(scene::Mesh *mesh) : Panel("prepared"), mPrepared(mesh) { getMesh(); }

    using Panel::clone;
    core::Object *clone(core::CloningOptions &) const override { return new PreparedPanel(mPrepared.get()); }

protected:
    scene::Mesh *createMesh() override { return mPrepared.get(); }

private:
    core::SmartPtr<scene::Mesh> mPrepared;
};

/// Whether a template with the border fix changes the mesh that its base has.
bool changesMesh(scene::Mesh &mesh, const std::string &word) {
    UIComponentFactory::getSingleton().registerTemplate("prepared", new PreparedPanel(&mesh));
    mesh.setChanged(false);
    const core::SmartPtr<Component> made = parse(R"({"type":"prepared","name":"x","border-fix":")" + word + "\"}");
    EXPECT_EQ(made->getMesh(), &mesh);
    return mesh.isChanged();
}

} // namespace

TEST_F(UIComponentParserTest, ABorderFixChangesTheMeshOnlyWhenItIsAnotherOne) {
    const core::SmartPtr<BorderedRectangleMesh> mesh(
        new BorderedRectangleMesh("mesh", math::Vector2(0, 0), math::Vector4(0, 0, 0, 0)));
    EXPECT_TRUE(changesMesh(*mesh, "fit"));
    EXPECT_FALSE(changesMesh(*mesh, "fit"));
    EXPECT_TRUE(changesMesh(*mesh, "zero"));
    EXPECT_TRUE(changesMesh(*mesh, "unknown"));
    EXPECT_FALSE(changesMesh(*mesh, "none")); // which the unknown word gave
}

TEST_F(UIComponentParserTest, AMeshOfAnotherKindIgnoresTheBorderFix) {
    const core::SmartPtr<scene::meshes::SizeableRectangleMesh> mesh(
        new scene::meshes::SizeableRectangleMesh("mesh", math::Vector2(0, 0)));
    EXPECT_FALSE(changesMesh(*mesh, "fit"));
    EXPECT_FALSE(changesMesh(*mesh, "zero"));
}

} // namespace nurel::ui
