#include "AssetFolder.h"
#include "ScriptPlayer.h"
#include "Settings.h"
#include "Stage.h"

#include "foundation/logging/Logger.h"

#include <cstdio>
#include <exception>
#include <memory>

namespace {

enum ExitStatus { DONE = 0, EXPECTATION_FAILED = 1, BAD_INPUT = 2 };

} // namespace

int main(int argc, char **argv) {
    try {
        gallery::Settings settings = gallery::parseSettings(argc, argv);
        if (settings.help) {
            std::fputs(gallery::USAGE, stdout);
            return DONE;
        }
        if (settings.assets.empty())
            settings.assets = viewer::findAssets();
        logging::Logger::mROOT_LOGGER.setLevel(logging::Level::WARN);
        std::unique_ptr<viewer::ScriptPlayer> script;
        if (!settings.script.empty())
            script = std::make_unique<viewer::ScriptPlayer>(settings.script);
        gallery::Stage stage(settings);
        if (script)
            return script->play(stage) ? DONE : EXPECTATION_FAILED;
        if (stage.isWindow())
            stage.run();
        else
            stage.drawPages(settings.pngDir.empty() ? "out" : settings.pngDir);
        return DONE;
    } catch (const std::exception &e) {
        std::fprintf(stderr, "nui-gallery: %s\n", e.what());
        return BAD_INPUT;
    }
}
