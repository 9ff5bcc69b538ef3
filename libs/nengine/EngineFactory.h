#pragma once

#include "nmain/core/Object.h"
#include "nmain/core/ObjectFactory.h"

namespace nurel {

/// The singleton that makes objects from a type or from the name of one. Made and taken down by the `Engine`.
class EngineFactory : public core::ObjectFactory<core::Object> {
public:
    EngineFactory();
    ~EngineFactory();
    EngineFactory(const EngineFactory &) = delete;
    EngineFactory &operator=(const EngineFactory &) = delete;

    static bool isSingletonCreated() { return mSINGLETON != nullptr; }
    static EngineFactory &getSingleton();
    static EngineFactory *getSingletonPtr() { return mSINGLETON; }

private:
    static EngineFactory *mSINGLETON;
};

} // namespace nurel
