#include "Allocations.h"
#include "Meter.h"
#include "Rows.h"

#include "nengine/scene/meshes/BorderedRectangleMesh.h"
#include "nengine/scene/meshes/TextMesh.h"
#include "nmain/stream/InputStream.h"
#include "nui/ui/AnimationContext.h"
#include "nui/ui/Container.h"
#include "nui/ui/UIComponentParser.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Image.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Panel.h"

#include <benchmark/benchmark.h>

namespace bench {

using benchmark::State;
using nurel::math::Vector2;
using nurel::ui::UIManager;
using nurel::ui::Widget;
using nurel::ui::components::Panel;

namespace {

void buildFromCode(State &state) {
    Stage stage;
    for (auto _ : state) {
        const Rows rows = makeRows(countOf(state));
        stage.show(rows.widget.get());
        state.PauseTiming();
        UIManager::getSingleton().clearWidgets();
        stage.measuredFrame();
        state.ResumeTiming();
    }
}

void buildFromTemplate(State &state) {
    Stage stage;
    const std::string text = makeRowsTemplate(countOf(state));
    for (auto _ : state) {
        nurel::stream::MemoryInputStream stream("rows.ui", text);
        const core::SmartPtr<nurel::ui::Component> root = nurel::ui::UIComponentParser().parse(&stream);
        stage.show(static_cast<Widget *>(root.get()));
        state.PauseTiming();
        UIManager::getSingleton().clearWidgets();
        stage.measuredFrame();
        state.ResumeTiming();
    }
}

void buildByClone(State &state) {
    Stage stage;
    const core::SmartPtr<Panel> row = makeRow(0);
    for (auto _ : state) {
        const Rows rows = cloneRows(*row, countOf(state));
        stage.show(rows.widget.get());
        state.PauseTiming();
        UIManager::getSingleton().clearWidgets();
        stage.measuredFrame();
        state.ResumeTiming();
    }
}

void idleFrame(State &state) {
    Stage stage;
    const Rows rows = makeRows(countOf(state));
    stage.show(rows.widget.get());
    const Meter meter(state);
    for (auto _ : state)
        stage.measuredFrame();
}

void changeOneLabel(State &state) {
    Stage stage;
    const Rows rows = makeRows(countOf(state));
    stage.show(rows.widget.get());
    unsigned int frame = 0;
    const Meter meter(state);
    for (auto _ : state) {
        rows.labels[3]->setText(++frame % 2 ? "one thing" : "another");
        stage.measuredFrame();
    }
}

void changeOnePercentOfLabels(State &state) {
    Stage stage;
    const Rows rows = makeRows(countOf(state));
    stage.show(rows.widget.get());
    unsigned int next = 0;
    const Meter meter(state);
    for (auto _ : state) {
        for (unsigned int i = 0; i < countOf(state) / 100; ++i) {
            next = (next + 37) % countOf(state);
            rows.labels[next]->setText(std::to_string(next * 7).c_str());
        }
        stage.measuredFrame();
    }
}

void setSameTextAgain(State &state) {
    Stage stage;
    const Rows rows = makeRows(countOf(state));
    stage.show(rows.widget.get());
    const Meter meter(state);
    for (auto _ : state) {
        for (nurel::ui::components::Label *label : rows.labels)
            label->setText(std::string(label->getText()).c_str());
        stage.measuredFrame();
    }
}

/// Position and opacity of that many rows, in one transaction that never ends while it is measured.
void animate(State &state) {
    Stage stage;
    const Rows rows = makeRows(1000);
    stage.show(rows.widget.get());
    UIManager &manager = UIManager::getSingleton();
    manager.beginAnimation();
    manager.getCurrentAnimation()->setDuration(1e6F);
    for (unsigned int i = 0; i < countOf(state); ++i) {
        rows.panels[i]->setPosition(Vector2(50, 50), Vector2::ZERO);
        rows.panels[i]->setOpacity(0.5F, false);
    }
    manager.commitAnimation();
    stage.measuredFrame();
    const Meter meter(state);
    for (auto _ : state)
        stage.measuredFrame();
}

void moveCursor(State &state) {
    Stage stage;
    const Rows rows = makeRows(countOf(state));
    stage.show(rows.widget.get());
    int y = 0;
    const Meter meter(state);
    for (auto _ : state) {
        y = (y + 97) % 720;
        UIManager::getSingleton().setMousePos({120, y});
        stage.measuredFrame();
    }
}

void resizeStage(State &state) {
    Stage stage;
    const Rows rows = makeRows(countOf(state));
    stage.show(rows.widget.get());
    unsigned int width = 1280;
    const Meter meter(state);
    for (auto _ : state) {
        width = width == 1280 ? 1000 : 1280;
        stage.getEngine().resize(width, 720);
        stage.measuredFrame();
    }
}

void heapOfRows(State &state) {
    Stage stage;
    for (auto _ : state) {
        const std::size_t before = getHeapUse().bytes;
        const Rows rows = makeRows(countOf(state));
        const std::size_t built = getHeapUse().bytes;
        stage.show(rows.widget.get());
        state.counters["bytes_a_row_built"] = static_cast<double>(built - before) / static_cast<double>(state.range(0));
        state.counters["bytes_a_row_shown"] =
            static_cast<double>(getHeapUse().bytes - before) / static_cast<double>(state.range(0));
    }
}

/// Starting the engine and showing 100 rows, as far as the first drawn frame.
void firstFrame(State &state) {
    for (auto _ : state) {
        Stage stage;
        const Rows rows = makeRows(100);
        UIManager::getSingleton().setView(rows.widget.get());
        UIManager::getSingleton().addWidget(rows.widget.get(), nullptr);
        stage.measuredFrame();
    }
}

void sizesInBytes(State &state) {
    using namespace nurel::ui;
    for (auto _ : state)
        benchmark::DoNotOptimize(state.iterations());
    state.counters["CriticalSection"] = sizeof(core::CriticalSection);
    state.counters["CallbackSubscriptor"] = sizeof(Component::ClickCallbacks);
    state.counters["Component"] = sizeof(Component);
    state.counters["Container"] = sizeof(Container);
    state.counters["Label"] = sizeof(components::Label);
    state.counters["Frame"] = sizeof(nurel::scene::Frame);
    state.counters["BorderedRectangleMesh"] = sizeof(nurel::scene::meshes::BorderedRectangleMesh);
    state.counters["TextMesh"] = sizeof(nurel::scene::meshes::TextMesh);
}

} // namespace

// Counts of iterations are fixed, so that instructions can be divided by them.
BENCHMARK(sizesInBytes)->Iterations(1);
BENCHMARK(firstFrame)->Iterations(20)->Unit(benchmark::kMillisecond);
BENCHMARK(buildFromCode)->Arg(1000)->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(buildFromCode)->Arg(10000)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(buildFromTemplate)->Arg(1000)->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(buildFromTemplate)->Arg(10000)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(buildByClone)->Arg(1000)->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(buildByClone)->Arg(10000)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(heapOfRows)->Arg(1000)->Iterations(1);
BENCHMARK(idleFrame)->Arg(1000)->Arg(10000)->Iterations(100)->Unit(benchmark::kMicrosecond);
BENCHMARK(changeOneLabel)->Arg(1000)->Arg(10000)->Iterations(100)->Unit(benchmark::kMicrosecond);
BENCHMARK(changeOnePercentOfLabels)->Arg(1000)->Arg(10000)->Iterations(50)->Unit(benchmark::kMicrosecond);
BENCHMARK(setSameTextAgain)->Arg(1000)->Iterations(20)->Unit(benchmark::kMicrosecond);
BENCHMARK(animate)->Arg(100)->Arg(1000)->Iterations(50)->Unit(benchmark::kMicrosecond);
BENCHMARK(moveCursor)->Arg(1000)->Arg(10000)->Iterations(100)->Unit(benchmark::kMicrosecond);
BENCHMARK(resizeStage)->Arg(1000)->Iterations(10)->Unit(benchmark::kMicrosecond);

} // namespace bench

BENCHMARK_MAIN();
