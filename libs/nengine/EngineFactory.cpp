#include "nengine/EngineFactory.h"

namespace nurel {

constinit EngineFactory *EngineFactory::mSINGLETON = nullptr;

EngineFactory::EngineFactory() {
    if (mSINGLETON)
        throw core::IllegalStateException("The engine factory is there already");
    mSINGLETON = this;
}

EngineFactory::~EngineFactory() {
    mSINGLETON = nullptr;
}

EngineFactory &EngineFactory::getSingleton() {
    if (!mSINGLETON)
        throw core::IllegalStateException("There is no engine factory: the engine is not running");
    return *mSINGLETON;
}

} // namespace nurel
