#include "Meter.h"
#include "Rows.h"
#include "Sheets.h"

#include "nmain/stream/InputStream.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/css/CSS.h"
#include "nui/ui/css/CSSParser.h"
#include "nui/ui/css/CSSSkin.h"
#include "nui/ui/css/StylableHelper.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

namespace bench {

using benchmark::State;
using nurel::ui::UIManager;
using nurel::ui::components::Panel;
using nurel::ui::css::CSS;
using nurel::ui::css::CSSSkin;
using nurel::ui::css::StylableHelper;

namespace {

constexpr unsigned int MATCHED_ROWS = 1000;

/// To the sheet it is an object that it knows nothing of, and so asked rule by rule.
class ForeignHelper : public StylableHelper {
public:
    using StylableHelper::StylableHelper;
};

std::unique_ptr<CSS> parseSheet(unsigned int rules) {
    nurel::stream::MemoryInputStream stream("bench.css", makeSheetText(rules));
    return std::unique_ptr<CSS>(nurel::ui::css::CSSParser().parse(&stream));
}

/// Matching alone: nothing is applied.
template <class Helper>
void match(State &state) {
    const Stage stage;
    const Rows rows = makeRows(MATCHED_ROWS);
    const std::unique_ptr<CSS> sheet = parseSheet(countOf(state));
    std::vector<std::unique_ptr<StylableHelper>> helpers;
    for (Panel *panel : rows.panels) {
        panel->addClass("row");
        panel->addClass("marked");
        helpers.push_back(std::make_unique<Helper>(panel));
    }
    measuredMatching(*sheet, helpers);
    const Meter meter(state);
    for (auto _ : state)
        measuredMatching(*sheet, helpers);
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * MATCHED_ROWS));
}

void matchByIndex(State &state) {
    match<StylableHelper>(state);
}

void matchByWalk(State &state) {
    match<ForeignHelper>(state);
}

/// Rows on a stage whose default skin has a sheet.
class StyledRows {
public:
    StyledRows(unsigned int rules, unsigned int count) : mSkin(new CSSSkin("bench")) {
        mSkin->setStyleSheet(parseSheet(rules).release());
        nurel::ui::SkinManager::getSingleton().addSkin(mSkin.get());
        nurel::ui::SkinManager::getSingleton().setDefaultSkin(mSkin.get());
        rows = makeRows(count);
        for (Panel *panel : rows.panels)
            panel->addClass("row");
        stage.show(rows.widget.get());
    }

    Stage stage;
    Rows rows;

private:
    core::SmartPtr<CSSSkin> mSkin;
};

void toggleMark(Panel *panel) {
    if (panel->hasClass("marked"))
        panel->removeClass("marked");
    else
        panel->addClass("marked");
}

/// Puts the cursor on a row and beside it by turns.
void hoverOneRow(State &state) {
    StyledRows styled(countOf(state), 1000);
    bool on = false;
    const Meter meter(state);
    for (auto _ : state) {
        on = !on;
        UIManager::getSingleton().setMousePos({on ? 700 : 1279, 100});
        styled.stage.measuredFrame();
    }
}

void markOneRow(State &state) {
    StyledRows styled(countOf(state), static_cast<unsigned int>(state.range(1)));
    const Meter meter(state);
    for (auto _ : state) {
        toggleMark(styled.rows.panels[3]);
        styled.stage.measuredFrame();
    }
}

void markAllRows(State &state) {
    StyledRows styled(countOf(state), 1000);
    const Meter meter(state);
    for (auto _ : state) {
        for (Panel *panel : styled.rows.panels)
            toggleMark(panel);
        styled.stage.measuredFrame();
    }
}

void styledIdleFrame(State &state) {
    StyledRows styled(countOf(state), 1000);
    const Meter meter(state);
    for (auto _ : state)
        styled.stage.measuredFrame();
}

} // namespace

BENCHMARK(matchByIndex)->Arg(10)->Arg(100)->Arg(1000)->Iterations(20)->Unit(benchmark::kMicrosecond);
BENCHMARK(matchByWalk)->Arg(10)->Arg(100)->Arg(1000)->Iterations(20)->Unit(benchmark::kMicrosecond);
BENCHMARK(styledIdleFrame)->Arg(1000)->Iterations(100)->Unit(benchmark::kMicrosecond);
BENCHMARK(hoverOneRow)->Arg(10)->Arg(100)->Arg(1000)->Iterations(100)->Unit(benchmark::kMicrosecond);
BENCHMARK(markOneRow)->ArgsProduct({{10, 100, 1000}, {1000, 10000}})->Iterations(50)->Unit(benchmark::kMicrosecond);
BENCHMARK(markAllRows)->Arg(10)->Arg(100)->Arg(1000)->Iterations(20)->Unit(benchmark::kMicrosecond);

} // namespace bench
