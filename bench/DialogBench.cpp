// Dialogs from a template that has been read.
#include "Allocations.h"
#include "Meter.h"
#include "Rows.h"

#include "nmain/vfs/DirectoryFileSystem.h"
#include "nui/ui/Dialog.h"
#include "nui/ui/UIComponentFactory.h"
#include "nui/ui/UIManager.h"

#include <benchmark/benchmark.h>

namespace bench {

using benchmark::State;
using nurel::ui::Dialog;

namespace {

constexpr int FRAMES_OF_AN_ANIMATION = 15;

/// The templates that come along; counts what is opened.
class DialogFiles : public nurel::vfs::DirectoryFileSystem {
public:
    DialogFiles() : DirectoryFileSystem(DIALOGS) {}

    nurel::stream::InputStream *open(const char *path) override {
        ++mOpened;
        return DirectoryFileSystem::open(path);
    }

    std::uint64_t mOpened = 0;
};

/// From the call to the first frame in which the dialog is on the stage.
void openDialog(State &state) {
    Stage stage;
    DialogFiles files;
    nurel::ui::UIComponentFactory::getSingleton().setLoadResolver(&files);
    const core::SmartPtr<Dialog> first(Dialog::newDialog("first", "Leave", "Leave the game?", Dialog::FLAG_OK));
    const std::uint64_t opened = files.mOpened;
    std::uint64_t allocations = 0;
    for (auto _ : state) {
        const std::uint64_t before = getHeapUse().allocations;
        const core::SmartPtr<Dialog> dialog(
            Dialog::newDialog("quit", "Leave", "Leave the game?", Dialog::FLAG_YES | Dialog::FLAG_NO));
        dialog->showModal(Dialog::BUTTON_YES);
        stage.measuredFrame();
        allocations += getHeapUse().allocations - before;
        state.PauseTiming();
        dialog->close(nurel::ui::DIALOG_DECLINED);
        for (int i = 0; i < FRAMES_OF_AN_ANIMATION; ++i)
            stage.measuredFrame();
        state.ResumeTiming();
    }
    state.counters["files_opened"] = perIteration(files.mOpened - opened, state);
    state.counters["allocations"] = perIteration(allocations, state);
    nurel::ui::UIComponentFactory::getSingleton().clearLoadResolver();
}

} // namespace

BENCHMARK(openDialog)->Iterations(100)->Unit(benchmark::kMicrosecond);

} // namespace bench
