#pragma once

#include "foundation/core/SmartPtr.h"
#include "foundation/core/less_str.h"

#include <cstddef>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>

namespace core {

/// A table from texts to values, with a value for the keys that it does not have. Despite its name it is an ordered
/// tree: a walk goes through the keys in byte order. The map owns a copy of each key. A null key is never in it.
///
/// An owning map hands each value that leaves it to handleLost().
///
/// Change it by the operations below alone: those of the tree underneath know nothing of the keys' memory.
template <class T>
class CKHashMapBase : public std::map<const char *, T, less_str> {
public:
    using Map = std::map<const char *, T, less_str>;

    explicit CKHashMapBase(bool owning = false, T defaultValue = T())
        : mOwning(owning), mDefault(std::move(defaultValue)) {}

    /// Copies the keys too.
    CKHashMapBase(const CKHashMapBase &other) : Map(), mOwning(other.mOwning), mDefault(other.mDefault) {
        copyEntries(other);
    }

    CKHashMapBase &operator=(const CKHashMapBase &other) {
        if (this != &other) {
            clear();
            mOwning = other.mOwning;
            mDefault = other.mDefault;
            copyEntries(other);
        }
        return *this;
    }

    /// Frees the keys. Values do not pass handleLost() here: a derived class that owns some clears itself first.
    virtual ~CKHashMapBase() {
        for (auto &entry : *this)
            delete[] entry.first;
    }

    /// Stores the value under the key, in place of one that is there; true if there was one.
    bool put(const char *key, T value) {
        if (!key)
            return false;
        const auto found = this->find(key);
        if (found == this->end()) {
            insertCopy(key, std::move(value));
            return false;
        }
        T lost = std::exchange(found->second, std::move(value));
        if (mOwning)
            handleLost(lost);
        return true;
    }

    bool put(const std::string &key, T value) { return put(key.c_str(), std::move(value)); }

    /// True if the key was there.
    bool remove(const char *key) {
        const auto found = key ? this->find(key) : this->end();
        if (found == this->end())
            return false;
        take(found);
        return true;
    }

    bool containsKey(const char *key) const { return key && this->find(key) != this->end(); }

    /// What get() gives for a key that is absent: the default value here. A derived class may find values elsewhere.
    virtual T resolve(const char *) const { return mDefault; }

protected:
    /// Told of each value that leaves an owning map.
    virtual void handleLost(T &value) = 0;

public:
    /// The value of the key, or else what resolve() finds: the default.
    virtual T get(const char *key) const {
        const auto found = key ? this->find(key) : this->end();
        return found == this->end() ? resolve(key) : found->second;
    }

    T operator[](const char *key) const { return get(key); }

    /// Removes every key.
    void clear() {
        while (!this->empty())
            take(this->begin());
    }

    bool isOwning() const { return mOwning; }
    const T &getDefault() const { return mDefault; }

private:
    void insertCopy(const char *key, T value) {
        const std::size_t size = std::strlen(key) + 1;
        char *copy = new char[size];
        std::memcpy(copy, key, size);
        try {
            this->emplace(copy, std::move(value));
        } catch (...) {
            delete[] copy;
            throw;
        }
    }

    /// The entry has left the map before its value is told of, which may run anything.
    void take(typename Map::iterator entry) {
        auto node = this->extract(entry);
        const std::unique_ptr<const char[]> key(node.key());
        if (mOwning)
            handleLost(node.mapped());
    }

    void copyEntries(const CKHashMapBase &other) {
        for (const auto &entry : other)
            insertCopy(entry.first, entry.second);
    }

    bool mOwning;
    T mDefault;
};

/// The table for values: a value of a counted type that leaves an owning map is released (a plain pointer to a counted
/// object is disposed of unless somebody holds it); any other value is simply dropped.
template <class T>
class CKHashMapValue : public CKHashMapBase<T> {
public:
    using CKHashMapBase<T>::CKHashMapBase;

    CKHashMapValue(const CKHashMapValue &) = default;
    CKHashMapValue &operator=(const CKHashMapValue &) = default;

    ~CKHashMapValue() override { this->clear(); }

protected:
    void handleLost(T &value) override {
        if constexpr (requires { value->getRefCount(); }) {
            if constexpr (std::is_pointer_v<T>)
                const SmartPtr<std::remove_pointer_t<T>> last(value);
            else
                value = T();
        }
    }
};

} // namespace core
