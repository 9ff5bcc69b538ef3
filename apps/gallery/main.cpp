#include "AssetFolder.h"
#include "Settings.h"
#include "Stage.h"

#include "foundation/logging/Logger.h"

#include <cstdio>
#include <exception>

int main(int argc, char **argv) {
    try {
        gallery::Settings settings = gallery::parseSettings(argc, argv);
        if (settings.help) {
            std::fputs(gallery::USAGE, stdout);
            return 0;
        }
        if (settings.assets.empty())
            settings.assets = viewer::findAssets();
        logging::Logger::mROOT_LOGGER.setLevel(logging::Level::WARN);
        gallery::Stage stage(settings);
        if (stage.isWindow())
            stage.run();
        else
            stage.drawPages(settings.pngDir.empty() ? "out" : settings.pngDir);
        return 0;
    } catch (const std::exception &e) {
        std::fprintf(stderr, "nui-gallery: %s\n", e.what());
        return 2;
    }
}
