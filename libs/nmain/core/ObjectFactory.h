#pragma once

#include "foundation/core/Exception.h"
#include "foundation/core/Type.h"
#include "foundation/core/less_str.h"
#include "nmain/core/Fwd.h"

#include <map>

namespace nurel::core {

/// Makes objects by their type or by their type's name. It has no lock: one thread uses it.
template <class T>
class ObjectFactory {
public:
    /// Makes a new object with count 0, which belongs to the caller.
    using Creator = T *(*)();

    /// Sets how a type's objects are made. Of two types with one name the one registered last goes by it. A null
    /// creator raises IllegalArgumentException.
    void registerCreator(const ::core::Type &type, Creator creator) {
        if (!creator)
            throw ::core::IllegalArgumentException("No creator given for type %s", type.getName());
        mCreators[&type] = creator;
        mNames[type.getName()] = &type;
    }

    /// A new object of the type, which belongs to the caller; null when nothing is registered for exactly this type.
    T *create(const ::core::Type &type) const {
        const auto found = mCreators.find(&type);
        return found == mCreators.end() ? nullptr : found->second();
    }

    /// A new object of the type with this name, which belongs to the caller; null when there is none.
    T *create(const char *name) const {
        const auto found = mNames.find(name);
        return found == mNames.end() ? nullptr : create(*found->second);
    }

    bool isRegistered(const ::core::Type &type) const { return mCreators.count(&type) != 0; }

    /// Removes a type, and with subtypesToo everything registered that derives from it. Says whether anything was
    /// removed.
    bool unregister(const ::core::Type &type, bool subtypesToo) {
        const std::size_t removed = std::erase_if(mCreators, [&](const auto &entry) {
            return entry.first == &type || (subtypesToo && entry.first->instanceOf(type));
        });
        if (removed == 0)
            return false;
        mNames.clear();
        for (const auto &entry : mCreators)
            mNames[entry.first->getName()] = entry.first;
        return true;
    }

private:
    std::map<const ::core::Type *, Creator> mCreators;
    std::map<const char *, const ::core::Type *, ::core::less_str> mNames;
};

} // namespace nurel::core
