#include "nui/core/CallbackList.h"

#include <utility>

namespace core {

namespace {

/// Destroying a callback may run anything that its captures' destructors do, so the chain belongs to nobody by then.
void destroyChain(CallbackList::Entry *entry) {
    while (entry) {
        CallbackList::Entry *next = entry->mNext;
        delete entry;
        entry = next;
    }
}

} // namespace

CallbackList::Pass::Pass(CallbackList &list) : mList(list) {
    ++mList.mPasses;
}

CallbackList::Pass::~Pass() {
    while (mList.mPasses == 1 && !mList.mAbandoned && mList.mHasRemoved)
        mList.sweep();
    if (--mList.mPasses == 0 && mList.mAbandoned)
        delete &mList;
}

CallbackList::Entry *CallbackList::Pass::live(Entry *entry) const {
    if (mList.mAbandoned)
        return nullptr;
    while (entry && entry->mRemoved)
        entry = entry->mNext;
    return entry;
}

CallbackList::~CallbackList() {
    ++mPasses; // the destructors of captures may come back to the list, which must not end it once more
    while (mHead) {
        mTail = nullptr;
        destroyChain(std::exchange(mHead, nullptr));
    }
}

void CallbackList::abandon(CallbackList *list) {
    if (!list)
        return;
    list->mAbandoned = true;
    if (list->mPasses == 0)
        delete list;
}

int CallbackList::append(Entry *entry) {
    entry->mId = ++mLastId;
    link(entry);
    return entry->mId;
}

void CallbackList::appendWithId(Entry *entry) {
    link(entry);
}

CallbackList::Entry *CallbackList::find(int id) const {
    for (Entry *entry = mHead; entry; entry = entry->mNext) {
        if (entry->mId == id && !entry->mRemoved)
            return entry;
    }
    return nullptr;
}

void CallbackList::remove(Entry *entry) {
    if (entry->mRemoved)
        return;
    entry->mRemoved = true;
    if (mPasses != 0) {
        mHasRemoved = true;
        return;
    }
    unlink(entry);
    delete entry;
}

void CallbackList::clear() {
    for (Entry *entry = mHead; entry; entry = entry->mNext)
        entry->mRemoved = true;
    if (mPasses != 0) {
        mHasRemoved = mHead != nullptr;
        return;
    }
    mTail = nullptr;
    destroyChain(std::exchange(mHead, nullptr));
}

void CallbackList::link(Entry *entry) {
    entry->mPrevious = mTail;
    entry->mNext = nullptr;
    (mTail ? mTail->mNext : mHead) = entry;
    mTail = entry;
}

void CallbackList::unlink(Entry *entry) {
    (entry->mPrevious ? entry->mPrevious->mNext : mHead) = entry->mNext;
    (entry->mNext ? entry->mNext->mPrevious : mTail) = entry->mPrevious;
}

void CallbackList::sweep() {
    mHasRemoved = false;
    Entry *removed = nullptr;
    for (Entry *entry = mHead; entry;) {
        Entry *next = entry->mNext;
        if (entry->mRemoved) {
            unlink(entry);
            entry->mNext = removed;
            removed = entry;
        }
        entry = next;
    }
    destroyChain(removed);
}

} // namespace core
