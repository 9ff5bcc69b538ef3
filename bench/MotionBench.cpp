// Components that move, and how little else does.
#include "Meter.h"
#include "Rows.h"

#include "ninput/input/Mouse.h"
#include "nui/ui/AnimationContext.h"
#include "nui/ui/Layout.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/handlers/CoverFlowHandler.h"
#include "nui/ui/handlers/DataProvider.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <list>
#include <string>

namespace bench {

using benchmark::State;
using nurel::math::Vector2;
using nurel::ui::UIManager;
using nurel::ui::Widget;
using nurel::ui::components::Label;
using nurel::ui::components::Panel;
using nurel::ui::handlers::CoverFlowHandler;

namespace {

constexpr float CARD_SIZE = 30;
constexpr unsigned int CARDS_A_LINE = 40;

/// Until every component has been in every place, and has the memory that it needs there.
constexpr int WARMING_FRAMES = 3600;

/// Counts how often any of them is placed.
class CountedPanel : public Panel {
public:
    using Panel::Panel;

    static inline std::uint64_t PLACED = 0;

protected:
    void updatePosition() override {
        ++PLACED;
        Panel::updatePosition();
    }
};

/// Counts how often any of them is asked to lay out.
class CountedLayout : public nurel::ui::Layout {
public:
    nurel::core::Object *clone(core::CloningOptions &) const override { return new CountedLayout; }

    static inline std::uint64_t PASSES = 0;

protected:
    void _layout(const std::list<nurel::ui::Component *> &) const override { ++PASSES; }
};

core::SmartPtr<Label> makeLabel(const std::string &text, float width) {
    core::SmartPtr<Label> label(new Label("label"));
    label->setSize(Vector2(width, 20));
    label->setText(text.c_str());
    return label;
}

/// A panel around a label under a layout.
core::SmartPtr<Panel> makeCard(Panel *card, unsigned int index) {
    card->setSize(Vector2(CARD_SIZE, CARD_SIZE));
    card->setAnchor(nurel::ui::Component::ANCHOR_TOP_LEFT);
    card->setPosition(Vector2(static_cast<float>(index % CARDS_A_LINE) * CARD_SIZE,
                              static_cast<float>(index / CARDS_A_LINE % 20) * CARD_SIZE),
                      Vector2::ZERO);
    card->setLayout(new CountedLayout);
    card->addChild(makeLabel(std::to_string(index % 100), CARD_SIZE).get(), true);
    return card;
}

/// Position and opacity of that many cards at once, in one transaction that is half way when the measure ends. As many
/// cards again stand beside them.
void moveAndFade(State &state) {
    Stage stage;
    const core::SmartPtr<Widget> widget(new Widget("stage"));
    const core::SmartPtr<Panel> moving(new Panel("moving")), still(new Panel("still"));
    for (const core::SmartPtr<Panel> &panel : {moving, still}) {
        panel->setSize(Vector2::ZERO, Vector2::ONE);
        panel->setScrollMask(0);
        widget->addChild(panel.get());
    }
    for (unsigned int i = 0; i < countOf(state); ++i) {
        moving->addChild(makeCard(new Panel("card"), i).get());
        still->addChild(makeCard(new CountedPanel("card"), i).get());
    }
    stage.show(widget.get());
    UIManager &manager = UIManager::getSingleton();
    manager.beginAnimation();
    manager.getCurrentAnimation()->setDuration(static_cast<float>(state.max_iterations) / 30);
    for (unsigned int i = 0; i < countOf(state); ++i) {
        nurel::ui::Component *card = moving->getChildAt(i);
        card->setPosition(card->getComponentPosition().absolute + Vector2(200, 100), Vector2::ZERO);
        card->setOpacity(0.5F, true);
    }
    manager.commitAnimation();
    for (int i = 0; i < 3; ++i)
        stage.measuredFrame();
    const std::uint64_t placed = CountedPanel::PLACED;
    const std::uint64_t passes = CountedLayout::PASSES;
    {
        const Meter meter(state);
        for (auto _ : state)
            stage.measuredFrame();
    }
    state.counters["placed_still"] = perIteration(CountedPanel::PLACED - placed, state);
    state.counters["layouts"] = perIteration(CountedLayout::PASSES - passes, state);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// A transaction in which that many components get a new position and opacity, up to its commit.
void recordTransaction(State &state) {
    Stage stage;
    const core::SmartPtr<Panel> panel(new Panel("panel"));
    for (unsigned int i = 0; i < countOf(state); ++i)
        panel->addChild(makeCard(new Panel("card"), i).get());
    UIManager &manager = UIManager::getSingleton();
    float x = 0;
    for (auto _ : state) {
        manager.beginAnimation();
        x += 1;
        for (unsigned int i = 0; i < countOf(state); ++i) {
            panel->getChildAt(i)->setPosition(Vector2(x, 0), Vector2::ZERO);
            panel->getChildAt(i)->setOpacity(0.5F, false);
        }
        manager.cancelAnimation();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// Any number of entries, of which none looks different from another.
class Entries : public nurel::ui::handlers::DataProvider {
public:
    explicit Entries(unsigned int count) : mCount(count) {}

    unsigned int getCount() override { return mCount; }
    void update(unsigned int, nurel::ui::Component *) override { ++mUpdates; }

    std::uint64_t mUpdates = 0;

private:
    const unsigned int mCount;
};

/// The mouse over a cover flow: it drags for half a second to the left, lets go, waits for a second, and comes again.
class Thrower {
public:
    explicit Thrower(Stage &stage) : mStage(stage) {}

    void frame() {
        UIManager &manager = UIManager::getSingleton();
        const int step = mStep++ % 90;
        if (step == 0) {
            manager.setMousePos({1000, 360});
        } else if (step == 1) {
            manager.setMouseButton(nurel::input::Mouse::LEFT, nurel::input::Mouse::PRESS);
        } else if (step < 30) {
            manager.setMousePos({1000 - step * 12, 360});
        } else if (step == 30) {
            manager.setMouseButton(nurel::input::Mouse::LEFT, nurel::input::Mouse::RELEASE);
        }
        mStage.measuredFrame();
    }

private:
    Stage &mStage;
    int mStep = 0;
};

/// The first number is that of the entries, the second that of the items on each side.
void throwCovers(State &state) {
    Stage stage;
    const core::SmartPtr<Widget> widget(new Widget("stage"));
    const core::SmartPtr<Panel> cover(new Panel("cover"));
    const core::SmartPtr<Entries> entries(new Entries(countOf(state)));
    const core::SmartPtr<CoverFlowHandler> flow(new CoverFlowHandler);
    cover->setSize(Vector2(300, 300));
    cover->addChild(makeLabel("Cover", 200).get());
    widget->addChild(flow->getContainer());
    stage.show(widget.get());
    flow->setExtraCount(static_cast<unsigned int>(state.range(1)));
    flow->setItemTemplate(cover.get());
    flow->setDataProvider(entries.get());
    Thrower thrower(stage);
    for (int i = 0; i < WARMING_FRAMES; ++i)
        thrower.frame();
    const std::uint64_t updates = entries->mUpdates;
    const unsigned int first = flow->getCurrent();
    {
        const Meter meter(state);
        for (auto _ : state)
            thrower.frame();
    }
    state.counters["components"] = flow->getContainer()->getChildCount();
    state.counters["entries_filled"] = perIteration(entries->mUpdates - updates, state);
    state.counters["entries_passed"] = flow->getCurrent() - first;
}

} // namespace

BENCHMARK(moveAndFade)->Arg(100)->Arg(1000)->Arg(10000)->Iterations(100)->Unit(benchmark::kMicrosecond);
BENCHMARK(recordTransaction)->Arg(100)->Arg(1000)->Arg(10000)->Iterations(3)->Unit(benchmark::kMicrosecond);
BENCHMARK(throwCovers)
    ->Args({100, 3})
    ->Args({10000, 3})
    ->Args({10000, 20})
    ->Iterations(900)
    ->Unit(benchmark::kMicrosecond);

} // namespace bench
