#include "nmain/core/CloningOptions.h"

#include "nmain/core/Object.h"

#include <algorithm>

namespace nurel::core {

CloningOptions::CloningOptions() = default;
CloningOptions::~CloningOptions() = default;

CloningOptions::Option *CloningOptions::get(const ::core::Type &type, bool searchParents) const {
    if (Option *option = find(type))
        return option;
    if (!searchParents)
        return nullptr;
    for (const ::core::Type *parent = type.getParent(); parent; parent = parent->getParent()) {
        Option *option = find(*parent);
        if (option && option->isInherited())
            return option;
    }
    return nullptr;
}

void CloningOptions::put(const ::core::Type &type, Option *option) {
    const ::core::SmartPtr<Option> kept(option);
    remove(type, false);
    if (option)
        mOptions.push_back({&type, kept});
}

bool CloningOptions::remove(const ::core::Type &type, bool subtypesToo) {
    return std::erase_if(mOptions, [&](const Entry &entry) {
               return entry.type == &type || (subtypesToo && entry.type->instanceOf(type));
           }) != 0;
}

Object *CloningOptions::getCloned(const Object *source) const {
    const auto found = mCloned.find(source);
    return found == mCloned.end() ? nullptr : found->second;
}

void CloningOptions::setCloned(const Object *source, Object *copy) {
    if (source)
        mCloned[source] = copy;
}

CloningOptions::Option *CloningOptions::find(const ::core::Type &type) const {
    const auto found =
        std::find_if(mOptions.begin(), mOptions.end(), [&](const Entry &entry) { return entry.type == &type; });
    return found == mOptions.end() ? nullptr : found->option.get();
}

} // namespace nurel::core
