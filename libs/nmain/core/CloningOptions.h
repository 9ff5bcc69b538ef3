#pragma once

#include "foundation/core/IRefCount.h"
#include "foundation/core/SmartPtr.h"
#include "nmain/core/Fwd.h"

#include <unordered_map>
#include <vector>

namespace nurel::core {

/// What goes along with one clone operation: options of the classes that take part, and the map from each source object
/// to its copy. It owns its options; the objects in the map are only pointed at.
class CloningOptions {
public:
    /// Base of one option. It is registered for a type and may hold for that type's subtypes too.
    class Option : public ::core::IRefCount {
    public:
        explicit Option(bool inherited) : mInherited(inherited) {}
        bool isInherited() const { return mInherited; }

    private:
        const bool mInherited;
    };

    CloningOptions();
    ~CloningOptions();
    CloningOptions(const CloningOptions &) = delete;
    CloningOptions &operator=(const CloningOptions &) = delete;

    /// The option of a type; with searchParents, otherwise the one of its nearest ancestor that has one which holds for
    /// subtypes. Null when there is none.
    Option *get(const ::core::Type &type, bool searchParents) const;

    /// Sets the option of a type in place of the one before; null removes it.
    void put(const ::core::Type &type, Option *option);

    /// Removes the option of a type, and with subtypesToo those of its subtypes. Says whether anything was removed.
    bool remove(const ::core::Type &type, bool subtypesToo);

    /// The copy that was made of an object in this operation; null when there is none, or for null.
    Object *getCloned(const Object *source) const;

    /// Notes a copy. Object::_clone does it for every object.
    void setCloned(const Object *source, Object *copy);

private:
    struct Entry {
        const ::core::Type *type;
        ::core::SmartPtr<Option> option;
    };

    Option *find(const ::core::Type &type) const;

    std::vector<Entry> mOptions;
    std::unordered_map<const Object *, Object *> mCloned;
};

} // namespace nurel::core
