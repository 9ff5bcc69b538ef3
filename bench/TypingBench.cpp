// Typing into one field of many.
#include "Meter.h"
#include "Rows.h"

#include "nmain/stream/InputStream.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/components/TextField.h"
#include "nui/ui/css/CSS.h"
#include "nui/ui/css/CSSParser.h"
#include "nui/ui/css/CSSSkin.h"

#include <benchmark/benchmark.h>

namespace bench {

using benchmark::State;
using nurel::math::Vector2;
using nurel::ui::Component;
using nurel::ui::Container;
using nurel::ui::UIManager;
using nurel::ui::components::TextField;

namespace {

constexpr const char *SHEET = R"(
panel { background: white; background-color: #202830; }
text { background: white; background-color: #101418; color: #ffaa00; overflow: hidden; padding: 0px 8px; }
text:focus { background-color: #303848; }
text#label { background: none; color: #e0e6f0; width: auto; height: 100%; -n-anchor: center-left; }
)";

/// Rows with a field each under a sheet, the first of which has the focus.
class Form {
public:
    explicit Form(unsigned int rows) : mSkin(new nurel::ui::css::CSSSkin("bench")) {
        nurel::stream::MemoryInputStream stream("bench.css", SHEET);
        mSkin->setStyleSheet(nurel::ui::css::CSSParser().parse(&stream));
        nurel::ui::SkinManager::getSingleton().addSkin(mSkin.get());
        nurel::ui::SkinManager::getSingleton().setDefaultSkin(mSkin.get());
        mRows = makeRows(rows);
        for (nurel::ui::components::Panel *panel : mRows.panels) {
            const core::SmartPtr<TextField> field(new TextField("field"));
            field->setSize(Vector2(400, 24));
            field->setAnchor(Component::ANCHOR_CENTER);
            field->setText("text");
            panel->addChild(field.get(), false);
        }
        mStage.show(mRows.widget.get());
        mRows.panels.front()->getChildAt(2)->setFocus();
        mStage.measuredFrame();
    }

    /// Letters whose row does not come again, so that no text has been shaped before.
    void type() {
        mSeed = mSeed * 1103515245u + 12345u;
        const char text[] = {static_cast<char>('a' + (mSeed >> 16) % 26), '\0'};
        UIManager::getSingleton().textInput(text);
    }

    Stage &getStage() { return mStage; }
    Component &getWidget() { return *mRows.widget; }

private:
    Stage mStage;
    core::SmartPtr<nurel::ui::css::CSSSkin> mSkin;
    Rows mRows;
    unsigned int mSeed = 1;
};

/// How many components of the tree have one of the flags.
unsigned int countDirty(const Component &component, unsigned int flags) {
    unsigned int count = component.isDirty(flags) != 0 ? 1 : 0;
    if (component.isContainer()) {
        const auto &container = static_cast<const Container &>(component);
        for (unsigned int i = 0; i < container.getChildCount(); ++i)
            count += countDirty(*container.getChildAt(i), flags);
    }
    return count;
}

/// One more letter: what the update that follows will look at.
void countWork(State &state, Form &form) {
    form.type();
    UIManager::getSingleton().updateEvents();
    const Component &widget = form.getWidget();
    state.counters["restyled"] = countDirty(widget, Component::DIRTY_STYLE);
    state.counters["moved"] = countDirty(widget, Component::DIRTY_POSITION);
    state.counters["laid_out"] = countDirty(widget, Component::DIRTY_CONTENT);
    state.counters["views_updated"] = countDirty(widget, Component::DIRTY_VIEW);
    state.counters["dirty"] = countDirty(widget, Component::DIRTY_ALL);
}

void typeIntoField(State &state) {
    Form form(countOf(state));
    for (int i = 0; i < 10; ++i) { // each letter of the font is drawn once
        form.type();
        form.getStage().measuredFrame();
    }
    {
        const Meter meter(state);
        for (auto _ : state) {
            form.type();
            form.getStage().measuredFrame();
        }
    }
    countWork(state, form);
}

/// For the comparison: the frames in which nothing is typed.
void idleForm(State &state) {
    Form form(countOf(state));
    const Meter meter(state);
    for (auto _ : state)
        form.getStage().measuredFrame();
}

} // namespace

BENCHMARK(typeIntoField)->Arg(1)->Arg(1000)->Arg(10000)->Iterations(20)->Unit(benchmark::kMicrosecond);
BENCHMARK(idleForm)->Arg(1000)->Arg(10000)->Iterations(20)->Unit(benchmark::kMicrosecond);

} // namespace bench
