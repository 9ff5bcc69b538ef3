#include "nmain/json/detail/TreeBuilder.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <numeric>

namespace nurel::json {

namespace {

std::unique_ptr<char[]> copy(const std::string &text) {
    auto copied = std::make_unique_for_overwrite<char[]>(text.size() + 1);
    std::memcpy(copied.get(), text.c_str(), text.size() + 1);
    return copied;
}

} // namespace

void TreeBuilder::addNone() {
    add();
}

void TreeBuilder::addBool(bool value) {
    JSObject &added = add();
    added.mBool = value;
    added.mType = JSObject::T_BOOL;
}

void TreeBuilder::addInt(int value) {
    JSObject &added = add();
    added.mInt = value;
    added.mType = JSObject::T_INT;
}

void TreeBuilder::addFloat(double value) {
    JSObject &added = add();
    added.mNumber = value;
    added.mType = JSObject::T_FLOAT;
}

void TreeBuilder::addString(const std::string &text) {
    std::unique_ptr<char[]> copied = copy(text);
    JSObject &added = add();
    added.mText = copied.release();
    added.mType = JSObject::T_STRING;
}

void TreeBuilder::open() {
    mKeys.push_back(std::move(mKey));
    mOpen.push_back(mValues.size());
}

void TreeBuilder::closeObject() {
    const auto first = mValues.begin() + static_cast<std::ptrdiff_t>(mOpen.back());
    auto members = std::make_unique<JSObject::Members>();
    members->list = std::vector<JSObject::Member>(std::move_iterator(first), std::move_iterator(mValues.end()));
    index(*members);

    JSObject &added = close();
    added.mLength = static_cast<unsigned>(members->list.size());
    added.mMembers = members.release();
    added.mType = JSObject::T_OBJECT;
}

void TreeBuilder::closeArray() {
    const std::size_t first = mOpen.back();
    const std::size_t length = mValues.size() - first;
    std::unique_ptr<JSObject[]> elements(new JSObject[length]);
    for (std::size_t i = 0; i < length; ++i)
        new (&elements[i]) JSObject(std::move(mValues[first + i].value));

    JSObject &added = close();
    added.mLength = static_cast<unsigned>(length);
    added.mElements = elements.release();
    added.mType = JSObject::T_ARRAY;
}

void TreeBuilder::setKey(const std::string &key) {
    mKey = copy(key);
}

JSObject *TreeBuilder::release() {
    return new JSObject(std::move(mValues.front().value));
}

JSObject &TreeBuilder::add() {
    mValues.push_back(JSObject::Member{std::move(mKey), JSObject()});
    return mValues.back().value;
}

JSObject &TreeBuilder::close() {
    while (mValues.size() > mOpen.back())
        mValues.pop_back();
    mOpen.pop_back();
    mKey = std::move(mKeys.back());
    mKeys.pop_back();
    return add();
}

void TreeBuilder::index(JSObject::Members &members) {
    std::vector<JSObject::Member> &list = members.list;
    std::vector<std::uint32_t> order = sortByKey(list);
    if (dropDuplicates(list, order))
        order = sortByKey(list);
    if (list.size() > JSObject::Members::FEW)
        members.order = std::move(order);
}

std::vector<std::uint32_t> TreeBuilder::sortByKey(const std::vector<JSObject::Member> &list) {
    std::vector<std::uint32_t> order(list.size());
    std::iota(order.begin(), order.end(), 0u);
    std::sort(order.begin(), order.end(), [&list](std::uint32_t a, std::uint32_t b) {
        const int comparison = std::strcmp(list[a].key.get(), list[b].key.get());
        return comparison != 0 ? comparison < 0 : a < b;
    });
    return order;
}

bool TreeBuilder::dropDuplicates(std::vector<JSObject::Member> &list, const std::vector<std::uint32_t> &order) {
    bool dropped = false;
    std::size_t first = 0; // of the equal keys, the one that stands first in the document
    for (std::size_t i = 1; i < order.size(); ++i) {
        JSObject::Member &kept = list[order[first]];
        JSObject::Member &later = list[order[i]];
        if (std::strcmp(kept.key.get(), later.key.get()) != 0) {
            first = i;
            continue;
        }
        std::destroy_at(&kept.value);
        new (&kept.value) JSObject(std::move(later.value));
        later.key.reset();
        dropped = true;
    }
    if (!dropped)
        return false;
    std::vector<JSObject::Member> distinct;
    for (JSObject::Member &member : list) {
        if (member.key)
            distinct.push_back(std::move(member));
    }
    list = std::move(distinct);
    return true;
}

} // namespace nurel::json
