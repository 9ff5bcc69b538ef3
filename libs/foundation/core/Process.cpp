#include "foundation/core/Process.h"

#include <utility>

namespace core {

GenericProcess::GenericProcess(std::function<void()> function) : mFunction(std::move(function)) {}

void GenericProcess::run() {
    mFunction();
}

} // namespace core
