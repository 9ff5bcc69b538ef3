#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace nurel::renderer {

/// Callbacks with ids, called in the order of subscription. A callback that returns true is taken out.
///
/// Subscribing and unsubscribing are legal from inside a call: a new callback is called from the next time on, one that
/// is gone is not called any more. Used on the render thread.
template <class Argument>
class SubscriberList {
public:
    using Callback = std::function<bool(Argument)>;

    /// Ids begin with 1 and are not used twice. An empty callback is never called.
    unsigned int subscribe(Callback callback) {
        mEntries.push_back(std::make_shared<Entry>(Entry{++mLastId, std::move(callback)}));
        return mLastId;
    }

    /// False when there is no callback with the id.
    bool unsubscribe(unsigned int id) {
        for (auto &entry : mEntries) {
            if (entry->id == id && id != 0) {
                entry->id = 0;
                removeGone();
                return true;
            }
        }
        return false;
    }

    void notify(Argument argument) {
        const Nesting nesting(*this);
        const std::size_t count = mEntries.size();
        for (std::size_t i = 0; i < count; ++i) {
            const std::shared_ptr<Entry> entry = mEntries[i];
            if (entry->id != 0 && entry->callback && entry->callback(argument))
                entry->id = 0;
        }
    }

    std::size_t getCount() const {
        std::size_t count = 0;
        for (const auto &entry : mEntries)
            count += entry->id != 0;
        return count;
    }

private:
    struct Entry {
        unsigned int id; ///< 0: unsubscribed
        Callback callback;
    };

    /// Keeps the entries in place while they are walked, also when a callback throws.
    class Nesting {
    public:
        explicit Nesting(SubscriberList &list) : mList(list) { ++mList.mDepth; }
        ~Nesting() {
            --mList.mDepth;
            mList.removeGone();
        }
        Nesting(const Nesting &) = delete;
        Nesting &operator=(const Nesting &) = delete;

    private:
        SubscriberList &mList;
    };

    void removeGone() {
        if (mDepth == 0)
            std::erase_if(mEntries, [](const auto &entry) { return entry->id == 0; });
    }

    std::vector<std::shared_ptr<Entry>> mEntries;
    unsigned int mLastId = 0;
    unsigned int mDepth = 0;
};

} // namespace nurel::renderer
