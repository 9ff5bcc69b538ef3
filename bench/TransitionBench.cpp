// One screen gives way to another: what is in them is drawn from the geometry that it has, and only placed anew.
#include "Meter.h"
#include "Rows.h"

#include "nmain/stream/InputStream.h"
#include "nui/ui/AnimationContext.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/Transition.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/css/CSS.h"
#include "nui/ui/css/CSSParser.h"
#include "nui/ui/css/CSSSkin.h"
#include "nui/ui/layouts/FlowLayout.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

namespace bench {

using benchmark::State;
using nurel::math::Vector2;
using nurel::ui::AnimationContext;
using nurel::ui::Component;
using nurel::ui::Transition;
using nurel::ui::UIManager;
using nurel::ui::Widget;
using nurel::ui::components::Label;
using nurel::ui::components::Panel;
using nurel::ui::css::CSSSkin;

namespace {

constexpr unsigned int COMPONENTS = 500;
constexpr unsigned int COMPONENTS_A_CARD = 3;

constexpr const char *SHEET = R"(
    panel.screen { background: #f4ecd8; }
    panel.card { background: #21497e; }
    panel.mark { background: #f2b84b; }
    label { color: white; background: none; font-size: 13px; vertical-align: center; })";

/// Counts how often any of them places its components.
class CountedFlow : public nurel::ui::layouts::FlowLayout {
public:
    static inline std::uint64_t PASSES = 0;

protected:
    void _layout(const Components &components) const override {
        ++PASSES;
        FlowLayout::_layout(components);
    }
};

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

core::SmartPtr<Panel> makeCard(const std::string &text) {
    const core::SmartPtr<Panel> card(new CountedPanel("card"));
    card->setSize(Vector2(90, 48));
    card->addClass("card");
    card->setLayout(new CountedFlow);
    const core::SmartPtr<Panel> mark(new Panel("mark"));
    mark->setSize(Vector2(12, 48));
    mark->addClass("mark");
    card->addChild(mark.get(), true);
    const core::SmartPtr<Label> label(new Label("label"));
    label->setSize(Vector2(70, 48));
    label->setText(text.c_str());
    card->addChild(label.get(), true);
    return card;
}

/// A screen of about that many components, all in sight.
core::SmartPtr<Panel> makeScreen(const std::string &text) {
    const core::SmartPtr<Panel> screen(new Panel("screen"));
    screen->setSize(Vector2::ZERO, Vector2::ONE);
    screen->setScrollMask(0);
    screen->addClass("screen");
    const core::SmartPtr<CountedFlow> flow(new CountedFlow);
    flow->setSpacing(Vector2(4, 4));
    screen->setLayout(flow.get());
    for (unsigned int i = 0; i < COMPONENTS / COMPONENTS_A_CARD; ++i)
        screen->addChild(makeCard(text + " " + std::to_string(i)).get(), true);
    return screen;
}

/// The type is the first argument, units to a hundred pixels the second. Every frame that is measured lies within the
/// transition.
void changeScreens(State &state) {
    Stage stage;
    const float scale = static_cast<float>(state.range(1)) / 100;
    UIManager::getSingleton().setScale(Vector2(scale, scale));
    const core::SmartPtr<CSSSkin> skin(new CSSSkin("bench"));
    nurel::stream::MemoryInputStream sheet("sheet", SHEET);
    skin->setStyleSheet(nurel::ui::css::CSSParser().parse(&sheet));
    nurel::ui::SkinManager::getSingleton().addSkin(skin.get());
    nurel::ui::SkinManager::getSingleton().setDefaultSkin(skin.get());
    const core::SmartPtr<Widget> widget(new Widget("stage"));
    const core::SmartPtr<Panel> from = makeScreen("From"), to = makeScreen("To");
    widget->setScrollMask(0);
    widget->addChild(from.get());
    widget->addChild(to.get());
    stage.show(widget.get());
    const core::SmartPtr<AnimationContext> change(
        Transition::build(static_cast<Transition::Type>(state.range(0)), from.get(), to.get(),
                          static_cast<float>(state.max_iterations + 20) / 60, nullptr));
    UIManager::getSingleton().commitAnimation(change.get());
    for (int i = 0; i < 10; ++i)
        stage.measuredFrame();
    const std::uint64_t placed = CountedPanel::PLACED;
    const std::uint64_t passes = CountedFlow::PASSES;
    {
        const Meter meter(state);
        for (auto _ : state)
            stage.measuredFrame();
    }
    state.counters["layouts"] = perIteration(CountedFlow::PASSES - passes, state);
    state.counters["cards_placed"] = perIteration(CountedPanel::PLACED - placed, state);
    if (change->getStatus() != AnimationContext::RUNNING)
        state.SkipWithError("the transition does not run");
}

} // namespace

BENCHMARK(changeScreens)
    ->ArgsProduct({benchmark::CreateDenseRange(1, 7, 1), {100, 125}})
    ->Iterations(100)
    ->Unit(benchmark::kMicrosecond);

} // namespace bench
