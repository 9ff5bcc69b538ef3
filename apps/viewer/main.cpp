#include "Options.h"
#include "ScriptPlayer.h"
#include "Session.h"

#include "foundation/core/Exception.h"
#include "foundation/logging/Logger.h"

#include <cstdio>
#include <exception>
#include <memory>

namespace {

enum ExitStatus { DONE = 0, EXPECTATION_FAILED = 1, BAD_INPUT = 2 };

ExitStatus show(const viewer::Options &options) {
    std::unique_ptr<viewer::ScriptPlayer> script;
    if (!options.script.empty())
        script = std::make_unique<viewer::ScriptPlayer>(options.script);
    viewer::Session session(options);
    bool passed = true;
    if (script)
        passed = script->play(session);
    if (!script || options.stay)
        session.run();
    if (!options.png.empty())
        session.savePicture(options.png);
    if (!options.dump.empty())
        session.saveDump(options.dump);
    return passed ? DONE : EXPECTATION_FAILED;
}

} // namespace

int main(int argc, char **argv) {
    try {
        const viewer::Options options = viewer::parseOptions(argc, argv);
        if (options.help) {
            std::fputs(viewer::USAGE, stdout);
            return DONE;
        }
        logging::Logger::mROOT_LOGGER.setLevel(options.verbose ? logging::Level::DEBUG : logging::Level::WARN);
        return show(options);
    } catch (const std::exception &e) {
        std::fprintf(stderr, "nui-viewer: %s\n", e.what());
        return BAD_INPUT;
    }
}
