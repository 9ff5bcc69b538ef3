#pragma once

#include <string>
#include <vector>

namespace nurel::json {
class JSObject;
}

namespace viewer {

class Run;

/// Compares what a script's "expect" step tells with what is shown: one sentence for each thing that differs.
std::vector<std::string> checkExpectation(const nurel::json::JSObject &expectation, Run &run);

/// What is wrong with the form of an "expect" step, as a sentence; empty when nothing is.
std::string findExpectationFault(const nurel::json::JSObject &expectation);

} // namespace viewer
