#pragma once

#include <memory>
#include <string>

namespace nurel::json {
class JSObject;
}

namespace viewer {

class Run;

/// Plays a script of input, pictures and expectations: a JSON array of steps, each one an object. docs/viewer.md tells
/// the steps.
class ScriptPlayer {
public:
    /// Reads the script and checks every step, so that a faulty one plays nothing; raises a `core::Exception` that
    /// tells the file and the step.
    explicit ScriptPlayer(const std::string &path);
    ~ScriptPlayer();

    /// Plays all steps. False when an expectation failed; each failure is told on stderr and the play goes on.
    bool play(Run &run);

private:
    [[noreturn]] void fail(unsigned int step, const std::string &reason) const;
    void check(unsigned int step) const;

    std::string mPath;
    std::unique_ptr<nurel::json::JSObject> mScript;
};

} // namespace viewer
