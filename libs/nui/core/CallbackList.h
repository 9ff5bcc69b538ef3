#pragma once

#include "foundation/core/CriticalSection.h"

namespace core {

/// The subscribers of one publisher, in the order of subscription; what all instantiations of `CallbackSubscriptor`
/// share. It is made with the first subscription, so that a publisher that nobody listens to is one null pointer.
///
/// A pass over the list survives everything that a callback may do: entries that go while a pass runs are only marked
/// and are freed after the outermost pass, and a list whose publisher dies lives on, marked as a whole, until then. The
/// publisher's thread alone uses it.
class CallbackList {
public:
    struct Entry {
        Entry() = default;
        Entry(const Entry &) = delete;
        Entry &operator=(const Entry &) = delete;
        virtual ~Entry() = default;

        Entry *mPrevious = nullptr;
        Entry *mNext = nullptr;
        int mId = 0;
        bool mRemoved = false; ///< no longer a subscriber; a pass that is under way frees it
    };

    /// One walk over the list. It keeps the list and its entries in memory for as long as it lives.
    class Pass {
    public:
        explicit Pass(CallbackList &list);
        ~Pass();
        Pass(const Pass &) = delete;
        Pass &operator=(const Pass &) = delete;

        /// The first subscriber; null when there is none.
        Entry *first() const { return live(mList.mHead); }

        /// The subscriber behind an entry, as the list stands now; null at the end, and when the publisher has gone.
        Entry *next(const Entry *entry) const { return live(entry->mNext); }

    private:
        Entry *live(Entry *entry) const;

        CallbackList &mList;
    };

    CallbackList() = default;
    CallbackList(const CallbackList &) = delete;
    CallbackList &operator=(const CallbackList &) = delete;

    /// Ends the list with its publisher. The memory goes at once, or with the last pass that is under way.
    static void abandon(CallbackList *list);

    /// Appends the entry, which the list owns from now on, and returns its id: 1 for the first, never one that was
    /// given before.
    int append(Entry *entry);

    /// Appends an entry that keeps the id which it brings.
    void appendWithId(Entry *entry);

    void setLastId(int id) { mLastId = id; }
    int getLastId() const { return mLastId; }

    /// The subscriber of the id, or null.
    Entry *find(int id) const;

    /// Ends one subscription. An entry that is marked already is left alone.
    void remove(Entry *entry);

    /// Ends all subscriptions; the count of ids goes on.
    void clear();

private:
    ~CallbackList();

    void link(Entry *entry);
    void unlink(Entry *entry);
    void sweep();

    int mLastId = 0;
    Entry *mHead = nullptr;
    Entry *mTail = nullptr;
    CriticalSection mSection; ///< for a publisher that serves several threads; no operation of the list enters it
    unsigned int mPasses = 0;
    bool mAbandoned = false;
    bool mHasRemoved = false;
};

} // namespace core
