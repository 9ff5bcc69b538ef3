// Fields, sliders, bars, lists, selectors and combos in the starter looks, in each of their states.
#include "LookFixture.h"

#include "nui/ui/Container.h"
#include "nui/ui/UIEvent.h"
#include "nui/ui/components/Combo.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Listbox.h"
#include "nui/ui/components/TextField.h"

#include <string>

namespace golden {

using nurel::math::Vector2;
using nurel::ui::ClickEvent;
using nurel::ui::Component;
using nurel::ui::components::Combo;
using nurel::ui::components::Listbox;
using nurel::ui::components::TextField;

namespace {

class ControlsGolden : public LookFixture, public testing::WithParamInterface<const char *> {
protected:
    void SetUp() override {
        LookFixture::SetUp();
        useSheet(std::string(GetParam()) + ".css");
    }

    /// A state may show in a few pixels alone.
    void expectLook(const std::string &name) { expectPicture(name + "-" + GetParam(), 8); }

    static void addStateOfCombo(const std::string &name, unsigned int state) {
        for (const char *part : {"", "/label", "/icon"})
            addState(name + part, state);
    }

    static Component &row(const char *list, int index) { return *find<Listbox>(list).getItemEntry(index)->item; }
};

class PlainControlsGolden : public LookFixture {};

} // namespace

TEST_P(ControlsGolden, TextFields) {
    showTemplate("controls-fields.ui");
    find<TextField>("masked").setText("geheim");
    find<TextField>("masked-off").setText("geheim");
    find<TextField>("scrolled").insertText("A text that is longer than the field it stands in");
    addState("hover", HOVER);
    addState("focus", FOCUSED);
    addState("focus-hover", FOCUSED | HOVER);
    find("typing").setFocus();
    expectLook("controls-fields");
}

TEST_P(ControlsGolden, SlidersAndProgressBars) {
    showTemplate("controls-bars.ui");
    addState("hover/thumb", HOVER);
    addState("drag/thumb", HOVER | ACTIVE);
    addState("focus", FOCUSED);
    expectLook("controls-bars");
}

TEST_P(ControlsGolden, CombosAndSelectors) {
    showTemplate("controls-choices.ui");
    addStateOfCombo("hover", HOVER);
    addStateOfCombo("active", HOVER | ACTIVE);
    addStateOfCombo("focus", FOCUSED);
    addStateOfCombo("focus-hover", FOCUSED | HOVER);
    addState("over", HOVER);
    addState("left-hover/left", HOVER);
    addState("right-active/right", HOVER | ACTIVE);
    addState("focus-too", FOCUSED);
    expectLook("controls-choices");
}

TEST_P(ControlsGolden, Lists) {
    showTemplate("controls-lists.ui");
    addState(row("plain", 1), HOVER);
    addState(row("plain", 4), ACTIVE);
    find("focus").setFocus();
    addState(row("focus", 0), FOCUSED);
    addState(row("focus", 2), HOVER);
    row("focus", 4).setEnabled(false);
    find<Listbox>("scrolled").setScrollOffset(Vector2(0, -70));
    expectLook("controls-lists");
}

TEST_P(ControlsGolden, AnOpenCombo) {
    showTemplate("controls-choices.ui");
    find("plain").handleEvent(ClickEvent({}, {}, {}));
    settle();
    addState(row("combo", 1), HOVER);
    row("combo", 2).setEnabled(false);
    expectLook("controls-combo-open");
}

TEST_F(PlainControlsGolden, WithoutASheetThereAreStageAndLabelsAlone) {
    showTemplate("controls-plain.ui");
    expectPicture("controls-plain");
}

INSTANTIATE_TEST_SUITE_P(StarterLooks, ControlsGolden, testing::Values("light", "dark"),
                         [](const auto &look) { return std::string(look.param); });

} // namespace golden
