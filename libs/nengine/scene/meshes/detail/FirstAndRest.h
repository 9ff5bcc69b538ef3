#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace nurel::scene::meshes::detail {

/// A sequence that mostly has one element, which costs no allocation.
template <class T>
class FirstAndRest {
public:
    std::size_t size() const { return mHasFirst ? 1 + mRest.size() : 0; }
    bool empty() const { return !mHasFirst; }

    T &operator[](std::size_t index) { return index == 0 ? mFirst : mRest[index - 1]; }
    const T &operator[](std::size_t index) const { return index == 0 ? mFirst : mRest[index - 1]; }
    const T &back() const { return (*this)[size() - 1]; }

    void add(T value) {
        if (mHasFirst) {
            mRest.push_back(std::move(value));
        } else {
            mFirst = std::move(value);
            mHasFirst = true;
        }
    }

    void clear() {
        mFirst = T();
        mRest.clear();
        mHasFirst = false;
    }

private:
    T mFirst{};
    std::vector<T> mRest;
    bool mHasFirst = false;
};

} // namespace nurel::scene::meshes::detail
