#include "ninput/input/InputSystem.h"

#include "foundation/core/Exception.h"

namespace nurel::input {

constinit InputSystem *InputSystem::mSINGLETON = nullptr;

InputSystem &InputSystem::create() {
    if (mSINGLETON)
        throw ::core::IllegalStateException("There is an input system already");
    mSINGLETON = new InputSystem;
    return *mSINGLETON;
}

void InputSystem::destroy() {
    delete mSINGLETON;
    mSINGLETON = nullptr;
}

InputSystem &InputSystem::getSingleton() {
    if (!mSINGLETON)
        throw ::core::IllegalStateException("There is no input system");
    return *mSINGLETON;
}

} // namespace nurel::input
