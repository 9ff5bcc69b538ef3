#include "nui/ui/layouts/FormLayout.h"

#include "nui/ui/ManagerTest.h"

#include "nengine/EngineFactory.h"
#include "nengine/support/AllocationCounter.h"
#include "nmain/core/CloningOptions.h"
#include "nmain/json/JSObject.h"
#include "nui/ui/AnimationContext.h"

#include <cmath>
#include <functional>

using namespace nurel::ui;
using layouts::FormLayout;
using nurel::json::JSObject;
using nurel::math::Vector2;
using nurel::math::Vector4;

namespace {

constexpr FormLayout::FieldIndex LABEL = FormLayout::LABEL;
constexpr FormLayout::FieldIndex FIELD = FormLayout::FIELD;

class FormLayoutTest : public test::ManagerTest {
public:
    FormLayoutTest() : mWidget(addWidget("w")), mPanel(addPanel(*mWidget, "panel", 0, 0, 200, 300)) {
        mPanel->setScrollMask(0);
        mLayout = new FormLayout;
        mPanel->setLayout(mLayout.get());
        frame();
    }

    Panel &add(const char *name, float width, float height, Component::Anchor anchor = Component::ANCHOR_TOP_LEFT) {
        Panel *child = new Panel(name);
        child->setSize({width, height});
        child->setAnchor(anchor);
        mPanel->addChild(child);
        return *child;
    }

    /// A label of 20 x 10 and a field of 30 x 12, named after the letter.
    void addPair(const std::string &letter, float labelHeight = 10, float fieldHeight = 12) {
        add(("L" + letter).c_str(), 20, labelHeight);
        add(("F" + letter).c_str(), 30, fieldHeight);
    }

    Component &at(unsigned int index) const { return *mPanel->getChildAt(index); }

    void parameters(const char *text) {
        const std::unique_ptr<JSObject> json(JSObject::parse(text));
        mLayout->setParameters(json.get());
    }

    /// Brings the sizes up to date and lays out once, without what follows from it.
    void lay() {
        mPanel->update();
        mLayout->layout();
    }

    /// Lays out once more, by the next frame.
    void layNextFrame() {
        mPanel->forceDirty(Component::DIRTY_CONTENT);
        mPanel->setZIndex(mPanel->getZIndex()); // so that the frame comes by
        frame();
    }

    /// What the layout declared for the component: "x,y wxh+f", f being the fraction of the width.
    static std::string declared(const Component &component) {
        const Component::ComponentPosition &position = component.getComponentPosition();
        const Component::ComponentSize &size = component.getComponentSize();
        char text[128];
        std::snprintf(text, sizeof text, "%g,%g %gx%g+%g", static_cast<double>(position.absolute.x),
                      static_cast<double>(position.absolute.y), static_cast<double>(size.absolute.x),
                      static_cast<double>(size.absolute.y), static_cast<double>(size.relative.x));
        return text;
    }

    /// Which of the children hide, one letter for each.
    std::string shown() const {
        std::string text;
        for (unsigned int i = 0; i < mPanel->getChildCount(); ++i)
            text += at(i).isSelfVisible() ? '1' : '0';
        return text;
    }

    /// Gives the field of the first pair the focus and hides its label. When the form hides the field too, and it loses
    /// the focus by that, the act is run.
    void prepareToHide(const std::function<void()> &act) {
        at(1).setTabStop(0);
        at(1).setFocus();
        ASSERT_EQ(manager().getFocus(), &at(1));
        manager().getEventObserver().subscribeCallback(
            [this, act](UIEventHandler *, const UIEvent &, UIEventHandler *&) {
                if (mCalls++ == 0) // what is done there may send events as well
                    act();
                return false;
            });
        at(0).setVisible(false);
        ASSERT_EQ(mCalls, 0);
    }

    void hideFirstPair(const std::function<void()> &act) {
        prepareToHide(act);
        layNextFrame();
        EXPECT_GE(mCalls, 1);
    }

    core::SmartPtr<Widget> mWidget;
    core::SmartPtr<Panel> mPanel; ///< 200 wide
    core::SmartPtr<FormLayout> mLayout;
    int mCalls = 0;
};

} // namespace

TEST_F(FormLayoutTest, HasItsDefaults) {
    EXPECT_EQ(mLayout->getWidth(LABEL), 0.5f);
    EXPECT_EQ(mLayout->getWidth(FIELD), 0.5f);
    EXPECT_EQ(mLayout->getSpacing(), Vector2(10, 5));
    EXPECT_EQ(mLayout->getHSpacing(), 10);
    EXPECT_EQ(mLayout->getVSpacing(), 5);
    EXPECT_STREQ(mLayout->getType().getName(), "FormLayout");
    EXPECT_TRUE(mLayout->instanceOf(Layout::TYPE));
}

TEST_F(FormLayoutTest, SettersStoreAndMarkNothing) {
    addPair("a");
    frame();
    frame();
    mPanel->update();
    const unsigned int before = mPanel->isDirty(Component::DIRTY_ALL);
    mLayout->setWidth(LABEL, 3);
    mLayout->setWidth(FIELD, 4);
    mLayout->setSpacing({1, 2});
    mLayout->setHSpacing(5);
    mLayout->setVSpacing(6);
    EXPECT_EQ(mLayout->getWidth(LABEL), 3);
    EXPECT_EQ(mLayout->getWidth(FIELD), 4);
    EXPECT_EQ(mLayout->getSpacing(), Vector2(5, 6));
    EXPECT_EQ(mPanel->isDirty(Component::DIRTY_ALL), before);
}

TEST_F(FormLayoutTest, DoesNothingForAnEmptyListOrWithoutAnOwner) {
    lay();
    const core::SmartPtr<FormLayout> loose(new FormLayout);
    const core::SmartPtr<Panel> panel(new Panel("loose"));
    loose->addComponent(panel.get());
    loose->layout();
    EXPECT_EQ(panel->getAnchor(), Component::ANCHOR_CENTER);
}

TEST_F(FormLayoutTest, HalvesTheContainerByDefault) {
    addPair("a");
    lay();
    EXPECT_EQ(declared(at(0)), "0,0 -5x12+0.5");
    EXPECT_EQ(declared(at(1)), "105,0 -5x12+0.5");
    frame();
    EXPECT_EQ(at(0).getSize(), Vector2(95, 12));
    EXPECT_EQ(at(1).getSize(), Vector2(95, 12));
    EXPECT_EQ(at(1).getPosition().x, -100 + 105 + 47.5f);
}

TEST_F(FormLayoutTest, AFractionalColumnGivesUpTheSpacingAndThePixelsOfTheOther) {
    mPanel->setSize({300, 300});
    mLayout->setWidth(LABEL, 120);
    mLayout->setWidth(FIELD, 1);
    addPair("a");
    lay();
    EXPECT_EQ(declared(at(0)), "0,0 120x12+0");
    EXPECT_EQ(declared(at(1)), "130,0 -130x12+1");
    frame();
    EXPECT_EQ(at(1).getSize().x, 170);
}

namespace {

struct Widths {
    float label;
    float field;
    const char *labelDeclared;
    const char *fieldDeclared;
};

} // namespace

TEST_F(FormLayoutTest, WorksItsColumnsOutOfTheTwoWidths) {
    addPair("a", 12, 12);
    mPanel->update();
    const Widths table[] = {
        {1, 1, "0,0 -5x12+1", "205,0 -5x12+1"},              // 1 is a fraction
        {0.25f, 0.75f, "0,0 -5x12+0.25", "55,0 -5x12+0.75"}, // 10 - 5 + 50
        {0.25f, 40, "0,0 -50x12+0.25", "10,0 40x12+0"},      // 10 - 50 + 50
        {1.5f, 40, "0,0 1.5x12+0", "11.5,0 40x12+0"},        // two fixed columns give up nothing
        {0, 0.5f, "0,0 0x12+0", "10,0 -5x12+0.5"},           // a fraction of 0 gives up nothing
        {0.5f, 0, "0,0 -5x12+0.5", "105,0 0x12+0"},
        {-0.5f, 0.5f, "0,0 0x12+-0.5", "-90,0 -10x12+0.5"}, // a negative other is not within 0 and 1
        {0.5f, -0.5f, "0,0 -10x12+0.5", "100,0 0x12+-0.5"},
        {-2, 30, "0,0 0x12+-2", "-390,0 30x12+0"},
    };
    for (const Widths &widths : table) {
        mLayout->setWidth(LABEL, widths.label);
        mLayout->setWidth(FIELD, widths.field);
        mLayout->layout();
        EXPECT_EQ(declared(at(0)), widths.labelDeclared) << widths.label << " " << widths.field;
        EXPECT_EQ(declared(at(1)), widths.fieldDeclared) << widths.label << " " << widths.field;
    }
}

TEST_F(FormLayoutTest, AWidthThatIsNoNumberCountsNothing) {
    addPair("a");
    mLayout->setWidth(LABEL, NAN);
    lay();
    EXPECT_EQ(declared(at(0)), "0,0 0x12+0");
}

TEST_F(FormLayoutTest, ARowIsAsHighAsTheHigherOfThePair) {
    addPair("a", 30, 12);
    addPair("b", 10, 40);
    addPair("c", 8, 8);
    lay();
    EXPECT_EQ(declared(at(0)), "0,0 -5x30+0.5");
    EXPECT_EQ(declared(at(1)), "105,0 -5x12+0.5"); // the field keeps its height
    EXPECT_EQ(declared(at(2)), "0,35 -5x40+0.5");
    EXPECT_EQ(declared(at(3)), "105,35 -5x40+0.5");
    EXPECT_EQ(declared(at(4)), "0,80 -5x8+0.5");
    EXPECT_EQ(declared(at(5)), "105,80 -5x8+0.5");
}

TEST_F(FormLayoutTest, TheSecondWalkSeesTheLabelsHeightOfBefore) {
    addPair("a", 10, 12);
    addPair("b");
    lay();
    ASSERT_EQ(at(0).getSize().y, 12); // stretched, and updated since
    at(0).setSize({20, 60});          // declared, and not yet updated
    mLayout->layout();
    EXPECT_EQ(at(2).getComponentPosition().absolute.y, 17);
    EXPECT_EQ(at(3).getComponentPosition().absolute.y, 17);
}

TEST_F(FormLayoutTest, ARowDoesNotShrinkSinceItsLabelWasStretched) {
    addPair("a", 10, 40);
    frame();
    at(1).setSize({30, 12});
    frame();
    EXPECT_EQ(at(0).getSize().y, 40);
}

TEST_F(FormLayoutTest, TheMarginsOfAFieldTakeFromItsHeightAtEveryPass) {
    addPair("a", 10, 40);
    frame();
    at(1).setMargin(Vector4(2, 0, 2, 0));
    at(1).update();
    EXPECT_EQ(at(1).getSize().y, 36);
    mLayout->layout();
    EXPECT_EQ(at(1).getComponentSize().absolute.y, 36);
    at(1).update();
    EXPECT_EQ(at(1).getSize().y, 32);
}

TEST_F(FormLayoutTest, LabelsAreAnchoredTopLeftForGood) {
    add("L", 20, 10, Component::ANCHOR_BOTTOM_RIGHT);
    add("F", 30, 12, Component::ANCHOR_CENTER_LEFT);
    at(0).setPosition(Vector2(3, 4), Vector2(0.5f, 0.5f));
    at(1).setPosition(Vector2(3, 4), Vector2(0.5f, 0.5f));
    lay();
    EXPECT_EQ(at(0).getAnchor(), 0x09u);
    EXPECT_EQ(at(0).getComponentPosition().relative, Vector2(0, 0));
    EXPECT_EQ(at(1).getAnchor(), 0x0au);
    EXPECT_EQ(at(1).getComponentPosition().relative, Vector2(0, 0));
    EXPECT_EQ(at(1).getComponentPosition().absolute, Vector2(105, 0));
}

TEST_F(FormLayoutTest, FieldsThatAreNotAnchoredLeftKeepAnchorAndSize) {
    // the last has neither left, centre nor right
    for (const unsigned int anchor : {0x11u, 0x12u, 0x14u, 0x21u, 0x22u, 0x24u, 0x01u}) {
        mPanel->clearChildren();
        addPair("a", 10, 20);
        add("L", 20, 10);
        add("F", 30, 12, anchor);
        at(3).setPosition(Vector2(3, 4), Vector2(0.5f, 0.5f));
        lay();
        EXPECT_EQ(declared(at(3)), "0,25 30x12+0") << anchor;
        EXPECT_EQ(at(3).getComponentPosition().relative, Vector2(0, 0)) << anchor;
        EXPECT_EQ(at(3).getAnchor(), anchor);
    }
    addPair("b");
    lay();
    EXPECT_EQ(at(5).getComponentPosition().absolute.y, 42); // its height counts all the same
}

TEST_F(FormLayoutTest, LeavesUnmanagedChildrenAlone) {
    addPair("a");
    const core::SmartPtr<Panel> free(new Panel("free"));
    mPanel->addChild(free.get(), false);
    addPair("b");
    lay();
    EXPECT_EQ(free->getAnchor(), Component::ANCHOR_CENTER);
    EXPECT_EQ(free->getComponentPosition().absolute, Vector2(0, 0));
    EXPECT_EQ(declared(at(3)), "0,17 -5x12+0.5");
}

TEST_F(FormLayoutTest, PairsGoByTheZIndex) {
    add("field", 30, 12).setZIndex(0);
    Panel *label = new Panel("label");
    label->setSize({20, 10});
    label->setZIndex(-1);
    mPanel->addChild(label);
    lay();
    EXPECT_EQ(declared(*label), "0,0 -5x12+0.5");
}

// --- hidden pairs ---

TEST_F(FormLayoutTest, APairIsHiddenWhenEitherHalfIs) {
    addPair("a");
    addPair("b");
    addPair("c");
    at(0).setVisible(false);
    at(3).setVisible(false);
    lay();
    EXPECT_EQ(shown(), "000011");
    EXPECT_EQ(declared(at(4)), "0,0 -5x12+0.5"); // no room is left for them
    EXPECT_EQ(declared(at(5)), "105,0 -5x12+0.5");
    EXPECT_EQ(declared(at(3)), "0,0 30x12+0");
}

TEST_F(FormLayoutTest, AHiddenPairStaysHiddenUntilBothAreShown) {
    addPair("a");
    at(0).setVisible(false);
    lay();
    at(0).setVisible(true);
    lay();
    EXPECT_EQ(shown(), "00");
    at(0).setVisible(true);
    at(1).setVisible(true);
    lay();
    EXPECT_EQ(shown(), "11");
}

TEST_F(FormLayoutTest, TheHiddenHalfIsGoneInTheSameFrame) {
    addPair("a");
    frame();
    ASSERT_TRUE(at(1).hasView());
    at(0).setVisible(false);
    layNextFrame();
    EXPECT_FALSE(at(1).isSelfVisible());
    EXPECT_TRUE(at(0).getView()->isHidden());
    EXPECT_TRUE(at(1).getView()->isHidden());
}

namespace {

/// Notes how it is shown and hidden.
class NotingPanel : public components::Panel {
public:
    NotingPanel(const char *name, std::vector<std::string> &notes) : Panel(name), mNotes(notes) {}

    void setVisible(bool visible) override {
        mNotes.push_back(std::string(getName()) + (visible ? " show" : " hide"));
        Panel::setVisible(visible);
    }

private:
    std::vector<std::string> &mNotes;
};

} // namespace

TEST_F(FormLayoutTest, TellsTheFieldFirstAndTheLabelAfterIt) {
    Lines notes;
    mPanel->addChild(new NotingPanel("label", notes));
    mPanel->addChild(new NotingPanel("field", notes));
    mPanel->addChild(new NotingPanel("last", notes));
    lay();
    mPanel->update();
    notes.clear();
    mLayout->layout();
    EXPECT_EQ(notes, (Lines{"field show", "label show"})); // a lone label is not told
    at(1).setVisible(false);
    notes.clear();
    mLayout->layout();
    EXPECT_EQ(notes, (Lines{"field hide", "label hide"}));
}

TEST_F(FormLayoutTest, APairUnderAHiddenParentIsHiddenForGood) {
    addPair("a");
    mPanel->update();
    mWidget->setVisible(false);
    mLayout->layout();
    EXPECT_EQ(shown(), "00");
    mWidget->setVisible(true);
    EXPECT_EQ(shown(), "00");
}

TEST_F(FormLayoutTest, AnOpenAnimationDivertsTheHiding) {
    addPair("a");
    lay();
    at(0).setVisible(false);
    manager().beginAnimation();
    mLayout->layout();
    EXPECT_EQ(shown(), "01");
    manager().commitAnimation();
    frame();
    advance(10);
    frame();
    EXPECT_EQ(shown(), "00");
}

// --- an odd count ---

TEST_F(FormLayoutTest, ALoneLabelHasNoHeightAtFirst) {
    add("L", 20, 10, Component::ANCHOR_CENTER);
    lay();
    EXPECT_EQ(at(0).getAnchor(), 0x09u);
    EXPECT_EQ(declared(at(0)), "0,0 -5x0+0.5");
}

TEST_F(FormLayoutTest, ALoneLastLabelHasTheHeightOfTheRowBefore) {
    addPair("a", 10, 40);
    add("L", 20, 10);
    lay();
    EXPECT_EQ(declared(at(2)), "0,45 -5x40+0.5");
}

TEST_F(FormLayoutTest, ALoneLastLabelHasTheHeightOfAHiddenRowToo) {
    addPair("a", 10, 20);
    addPair("b", 10, 40);
    add("L", 20, 10);
    lay();
    at(2).setVisible(false);
    lay();
    EXPECT_EQ(declared(at(4)), "0,25 -5x40+0.5");
}

TEST_F(FormLayoutTest, AHiddenLoneLabelIsLeftAlone) {
    addPair("a");
    add("L", 20, 10, Component::ANCHOR_CENTER);
    at(2).setVisible(false);
    lay();
    EXPECT_EQ(at(2).getAnchor(), 0x12u);
    EXPECT_EQ(declared(at(2)), "0,0 20x10+0");
}

// --- callbacks of the hiding ---

TEST_F(FormLayoutTest, ACallbackMayTakeTheHiddenFieldAway) {
    addPair("a");
    addPair("b");
    frame();
    prepareToHide([this] { mPanel->removeChildAt(1); });
    mLayout->layout();
    EXPECT_GE(mCalls, 1);
    EXPECT_EQ(mPanel->getChildCount(), 3u);
    EXPECT_EQ(declared(at(1)), "0,0 -5x12+0.5"); // the next pair is still one in this pass
    EXPECT_EQ(declared(at(2)), "105,0 -5x12+0.5");
    frame();
}

TEST_F(FormLayoutTest, ACallbackMayTakeTheLabelAway) {
    addPair("a");
    addPair("b");
    frame();
    prepareToHide([this] { mPanel->removeChildAt(0); });
    mLayout->layout();
    EXPECT_GE(mCalls, 1);
    EXPECT_EQ(declared(at(1)), "0,0 -5x12+0.5");
    EXPECT_EQ(declared(at(2)), "105,0 -5x12+0.5");
    frame();
}

TEST_F(FormLayoutTest, ACallbackMayTakeTheNextPairAway) {
    addPair("a");
    addPair("b");
    addPair("c");
    hideFirstPair([this] {
        mPanel->removeChildAt(3);
        mPanel->removeChildAt(2);
    });
    EXPECT_EQ(shown(), "0011");
    EXPECT_EQ(declared(at(2)), "0,0 -5x12+0.5");
    EXPECT_EQ(declared(at(3)), "105,0 -5x12+0.5");
}

TEST_F(FormLayoutTest, ACallbackMayTakeEverythingAwayAndPutOthersThere) {
    addPair("a");
    addPair("b");
    hideFirstPair([this] {
        mPanel->clearChildren();
        addPair("c");
    });
    layNextFrame();
    EXPECT_EQ(declared(at(1)), "105,0 -5x12+0.5");
}

TEST_F(FormLayoutTest, ACallbackMayTakeTheLayoutAway) {
    addPair("a");
    addPair("b");
    hideFirstPair([this] {
        mLayout = nullptr;
        mPanel->setLayout(nullptr);
    });
    EXPECT_EQ(mPanel->getChildCount(), 4u);
    EXPECT_EQ(shown(), "0011");
}

TEST_F(FormLayoutTest, ACallbackMayTakeTheFormAway) {
    addPair("a");
    addPair("b");
    hideFirstPair([this] {
        mPanel = nullptr;
        mWidget->clearChildren();
    });
    EXPECT_EQ(mWidget->getChildCount(), 0u);
    EXPECT_EQ(mLayout->getOwner(), nullptr);
}

TEST_F(FormLayoutTest, ACallbackMayTakeTheScreenAway) {
    addPair("a");
    addPair("b");
    hideFirstPair([this] {
        manager().clearWidgets();
        mPanel = nullptr;
        mWidget->clearChildren();
        mWidget = nullptr;
    });
    frame();
    EXPECT_EQ(manager().getWidgetCount(), 0u);
}

TEST_F(FormLayoutTest, ACallbackMayLayOutOnceMore) {
    addPair("a");
    addPair("b");
    hideFirstPair([this] {
        mLayout->layout();
        mPanel->update();
    });
    EXPECT_EQ(shown(), "0011");
    EXPECT_EQ(declared(at(2)), "0,0 -5x12+0.5");
}

TEST_F(FormLayoutTest, SetsALayoutUpWhoseCallbacksTakeTheFormAway) {
    addPair("a");
    frame();
    prepareToHide([this] { mWidget->clearChildren(); });
    const core::SmartPtr<Component> field(&at(1));
    mPanel->forceDirty(Component::DIRTY_CONTENT);
    Panel *panel = mPanel.get();
    mPanel = nullptr;
    panel->setLayout(mLayout.get()); // the one that it has: it lays out at once
    EXPECT_EQ(mWidget->getChildCount(), 0u);
    EXPECT_FALSE(field->hasParent());
}

// --- parameters and clones ---

namespace {

struct Parameters {
    const char *json;
    float label;
    float field;
    Vector2 spacing;
};

} // namespace

TEST_F(FormLayoutTest, ReadsItsParameters) {
    const Parameters table[] = {
        {R"({})", 3, 4, {5, 6}},
        {R"({"width":[120,1]})", 120, 1, {5, 6}},
        {R"({"width":[120]})", 120, 4, {5, 6}}, // an element that is missing changes nothing
        {R"({"width":[]})", 3, 4, {5, 6}},
        {R"({"width":[0.25,0.75,9]})", 0.25f, 0.75f, {5, 6}},
        {R"({"width":["x",7]})", 3, 7, {5, 6}},
        {R"({"width":[7,null]})", 7, 4, {5, 6}},
        {R"({"width":7})", 3, 4, {5, 6}},
        {R"({"width":"7"})", 3, 4, {5, 6}},
        {R"({"width":true})", 3, 4, {5, 6}},
        {R"({"width":{"a":7,"b":8}})", 3, 4, {5, 6}},
        {R"({"width":null})", 3, 4, {5, 6}},
        {R"({"spacing":[1,2]})", 3, 4, {1, 2}},
        {R"({"spacing":[1]})", 3, 4, {1, 6}},
        {R"({"spacing":[]})", 3, 4, {5, 6}},
        {R"({"spacing":[{},2.5]})", 3, 4, {5, 2.5f}},
        {R"({"spacing":1})", 3, 4, {5, 6}},
        {R"({"spacing":{"x":1,"y":2}})", 3, 4, {5, 6}},
        {R"({"Width":[1,2],"SPACING":[1,2]})", 3, 4, {5, 6}},
        {R"({"spacing":[-1,-2],"width":[-3,1e9]})", -3, 1e9f, {-1, -2}},
        {R"([[1,2],[3,4]])", 3, 4, {5, 6}},
    };
    for (const Parameters &row : table) {
        mLayout->setWidth(LABEL, 3);
        mLayout->setWidth(FIELD, 4);
        mLayout->setSpacing({5, 6});
        parameters(row.json);
        EXPECT_EQ(mLayout->getWidth(LABEL), row.label) << row.json;
        EXPECT_EQ(mLayout->getWidth(FIELD), row.field) << row.json;
        EXPECT_EQ(mLayout->getSpacing(), row.spacing) << row.json;
    }
    mLayout->setParameters(nullptr);
}

TEST_F(FormLayoutTest, ACloneOfTheContainerHasAFormOfItsOwn) {
    mLayout->setWidth(LABEL, 60);
    mLayout->setWidth(FIELD, 0.75f);
    mLayout->setSpacing({1, 2});
    addPair("a");
    mPanel->addChild(new Panel("free"), false);
    const core::SmartPtr<Panel> copy(static_cast<Panel *>(mPanel->clone()));
    ASSERT_NE(copy->getLayout(), nullptr);
    ASSERT_EQ(&copy->getLayout()->getType(), &FormLayout::TYPE);
    const auto &form = static_cast<const FormLayout &>(*copy->getLayout());
    EXPECT_NE(&form, mLayout.get());
    EXPECT_EQ(form.getOwner(), copy.get());
    EXPECT_EQ(form.getComponentCount(), 2u);
    EXPECT_EQ(form.getWidth(LABEL), 60);
    EXPECT_EQ(form.getWidth(FIELD), 0.75f);
    EXPECT_EQ(form.getSpacing(), Vector2(1, 2));
}

TEST_F(FormLayoutTest, IsClonedIntoAnythingWithoutHarm) {
    mLayout->setWidth(LABEL, 60);
    nurel::core::CloningOptions options;
    mLayout->_clone(mPanel.get(), options);
    const core::SmartPtr<FormLayout> copy(static_cast<FormLayout *>(mLayout->Layout::clone()));
    EXPECT_EQ(copy->getWidth(LABEL), 60);
    EXPECT_EQ(copy->getOwner(), nullptr);
}

// --- speed ---

TEST_F(FormLayoutTest, APassOverAFormThatStandsAllocatesNothingAndMarksNothing) {
    for (int i = 0; i < 50; ++i)
        addPair(std::to_string(i));
    frame();
    frame();
    mPanel->update();
    mLayout->layout();
    mPanel->update();
    const unsigned int before = mPanel->isDirty(Component::DIRTY_ALL);
    const std::size_t allocations = test::getAllocationCount();
    mLayout->layout();
    EXPECT_EQ(test::getAllocationCount(), allocations);
    EXPECT_EQ(mPanel->isDirty(Component::DIRTY_ALL), before);
}

TEST_F(FormLayoutTest, LaysOutWhatNobodyHoldsAndLeavesItAlive) {
    components::Panel label("label");
    components::Panel field("field");
    mLayout->addComponent(&label);
    mLayout->addComponent(&field);
    mLayout->layout();
    EXPECT_EQ(declared(label), "0,0 -5x0+0.5"); // it was never updated
    EXPECT_EQ(declared(field), "0,0 100x64+0"); // anchored in the centre
    EXPECT_EQ(label.getRefCount(), 0u);
}

TEST_F(FormLayoutTest, ACallbackMayTakeTheOnlyHoldOfTheLayoutAway) {
    addPair("a");
    frame();
    const FormLayout *layout = mLayout.get();
    mLayout = nullptr;
    prepareToHide([this] { mPanel->setLayout(nullptr); });
    layout->Layout::layout();
    EXPECT_FALSE(mPanel->hasLayout());
    EXPECT_EQ(shown(), "00");
}
