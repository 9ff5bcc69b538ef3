// Lists of many rows.
#include "Meter.h"
#include "Rows.h"

#include "nui/ui/ComponentView.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/UIEvent.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Listbox.h"
#include "nui/ui/skins/DefaultSkin.h"

#include <benchmark/benchmark.h>

#include <cstring>

namespace bench {

using benchmark::State;
using nurel::math::Vector2;
using nurel::ui::UIManager;
using nurel::ui::Widget;
using nurel::ui::components::Listbox;

namespace {

/// The style-free skin draws no lists.
class ListSkin : public nurel::ui::skins::DefaultSkin {
public:
    using DefaultSkin::visit;

    nurel::ui::ComponentView *visit(Listbox *listbox) override {
        core::SmartPtr<nurel::ui::ComponentView> view(new nurel::ui::ComponentView("list", listbox, this));
        visitContainer(listbox, view.get());
        return view.release();
    }
};

/// A list that fills the stage, shown with the rows that it has.
class ListStage : public Stage {
public:
    explicit ListStage(unsigned int rows) {
        nurel::ui::SkinManager::getSingleton().addSkin(mListSkin.get());
        nurel::ui::SkinManager::getSingleton().setDefaultSkin(mListSkin.get());
        mList->setSize(Vector2::ZERO, Vector2::ONE);
        addRows(rows);
        mWidget->addChild(mList.get());
        show(mWidget.get());
    }

    void addRows(unsigned int count) {
        for (unsigned int i = 0; i < count; ++i)
            mList->addItem(("Row " + std::to_string(mList->getItemCount())).c_str(), nullptr);
    }

    Listbox &getList() { return *mList; }

private:
    const core::SmartPtr<ListSkin> mListSkin{new ListSkin};
    const core::SmartPtr<Widget> mWidget{new Widget("stage")};
    const core::SmartPtr<Listbox> mList{new Listbox("list")};
};

/// To a list that is shown and has a scroll bar already.
void addItems(State &state) {
    ListStage stage(100);
    for (auto _ : state) {
        const std::size_t before = getHeapUse().allocations;
        stage.addRows(countOf(state));
        state.PauseTiming();
        state.counters["allocations_a_row"] =
            static_cast<double>(getHeapUse().allocations - before) / static_cast<double>(state.range(0));
        while (stage.getList().getItemCount() > 100)
            stage.getList().removeItem(stage.getList().getItemCount() - 1, false);
        stage.measuredFrame();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void addItemsAndShowThem(State &state) {
    for (auto _ : state) {
        ListStage stage(countOf(state));
        state.PauseTiming();
        stage.getList().clearItems();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void clearItems(State &state) {
    ListStage stage(0);
    for (auto _ : state) {
        state.PauseTiming();
        stage.addRows(countOf(state));
        stage.measuredFrame();
        state.ResumeTiming();
        stage.getList().clearItems();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void cloneList(State &state) {
    ListStage stage(countOf(state));
    for (auto _ : state) {
        const core::SmartPtr<nurel::core::Object> copy(stage.getList().clone());
        benchmark::DoNotOptimize(copy.get());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void sortItems(State &state) {
    ListStage stage(countOf(state));
    int direction = -1;
    for (auto _ : state) {
        direction = -direction;
        stage.getList().sort([direction](const Listbox::ItemEntry &a, const Listbox::ItemEntry &b) {
            return direction * std::strcmp(a.item->getText(), b.item->getText()) < 0;
        });
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// The vertices are those of the rows in sight, and no text is shaped, whatever the count.
void scrollList(State &state) {
    ListStage stage(countOf(state));
    for (int step = 0; step < 100; ++step) { // the texts that come into sight are shaped once
        stage.getList().scrollVerticalPercent(static_cast<float>(step) / 100);
        stage.measuredFrame();
    }
    int step = 0;
    const Meter meter(state);
    for (auto _ : state) {
        step = (step + 1) % 100;
        stage.getList().scrollVerticalPercent(static_cast<float>(step) / 100);
        stage.measuredFrame();
    }
}

void stepFocus(State &state) {
    ListStage stage(countOf(state));
    const Meter meter(state);
    for (auto _ : state) {
        stage.getList().handleEvent(nurel::ui::KeyEvent(nurel::input::Keyboard::K_DOWN, false));
        stage.measuredFrame();
    }
}

void clickRow(State &state) {
    ListStage stage(countOf(state));
    UIManager &manager = UIManager::getSingleton();
    int y = 0;
    const Meter meter(state);
    for (auto _ : state) {
        y = (y + 97) % 700;
        manager.setMousePos({50, y});
        stage.measuredFrame();
        manager.setMouseButton(nurel::input::Mouse::LEFT, nurel::input::Mouse::PRESS);
        stage.measuredFrame();
        manager.setMouseButton(nurel::input::Mouse::LEFT, nurel::input::Mouse::RELEASE);
        stage.measuredFrame();
    }
}

} // namespace

BENCHMARK(addItems)->Arg(1000)->Arg(10000)->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(addItemsAndShowThem)->Arg(1000)->Arg(10000)->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(clearItems)->Arg(1000)->Arg(10000)->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(cloneList)->Arg(1000)->Arg(10000)->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(sortItems)->Arg(1000)->Arg(10000)->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(scrollList)->Arg(1000)->Arg(10000)->Iterations(50)->Unit(benchmark::kMicrosecond);
BENCHMARK(stepFocus)->Arg(1000)->Arg(10000)->Iterations(50)->Unit(benchmark::kMicrosecond);
BENCHMARK(clickRow)->Arg(1000)->Arg(10000)->Iterations(20)->Unit(benchmark::kMicrosecond);

} // namespace bench
