#pragma once

#include "nmain/json/detail/JSMembers.h"

#include <string>
#include <vector>

namespace nurel::json {

/// Builds a tree from the events of a reader, innermost values first. The events must be balanced: each container is
/// closed, and a key stands before each value in an object.
class TreeBuilder {
public:
    TreeBuilder() = default;
    TreeBuilder(const TreeBuilder &) = delete;
    TreeBuilder &operator=(const TreeBuilder &) = delete;

    void addNone();
    void addBool(bool value);
    void addInt(int value);
    void addFloat(double value);
    void addString(const std::string &text);

    /// Begins an object or an array: what comes next, up to the matching close, belongs to it.
    void open();
    void closeObject();
    void closeArray();

    /// The key of the next value.
    void setKey(const std::string &key);

    /// Objects and arrays that are open now.
    std::size_t getDepth() const { return mOpen.size(); }

    /// The root, once it is complete. It is the caller's.
    JSObject *release();

private:
    JSObject &add();
    JSObject &close();
    static void index(JSObject::Members &members);
    static std::vector<std::uint32_t> sortByKey(const std::vector<JSObject::Member> &list);
    static bool dropDuplicates(std::vector<JSObject::Member> &list, const std::vector<std::uint32_t> &order);

    std::vector<JSObject::Member> mValues;      // the values whose container is still open, outer ones first
    std::vector<std::size_t> mOpen;             // where the values of each open container begin
    std::vector<std::unique_ptr<char[]>> mKeys; // the key under which each open container will stand
    std::unique_ptr<char[]> mKey;               // the key of the next value
};

} // namespace nurel::json
