#include "ninput/input/Keyboard.h"

#include <algorithm>

namespace nurel::input {

/// Stands apart from the list, so that the list may grow while the callback runs.
struct Keyboard::Subscription {
    unsigned id; // 0 once it has ended
    Callback callback;
};

/// One call of inject. The last one to end takes out the subscriptions that have ended meanwhile, not before, since
/// their callbacks may be running.
class Keyboard::Pass {
public:
    explicit Pass(Keyboard &keyboard) : mKeyboard(keyboard) { ++mKeyboard.mPasses; }
    ~Pass() {
        if (--mKeyboard.mPasses == 0 && mKeyboard.mEnded)
            mKeyboard.removeEnded();
    }
    Pass(const Pass &) = delete;
    Pass &operator=(const Pass &) = delete;

private:
    Keyboard &mKeyboard;
};

Keyboard::Keyboard() : mLastId(0), mPasses(0), mEnded(false) {}

Keyboard::~Keyboard() = default;

unsigned Keyboard::subscribe(Callback callback) {
    if (!callback)
        return 0;
    mSubscriptions.push_back(std::make_unique<Subscription>(Subscription{++mLastId, std::move(callback)}));
    return mLastId;
}

bool Keyboard::unsubscribe(unsigned id) {
    const auto found = std::find_if(mSubscriptions.begin(), mSubscriptions.end(),
                                    [id](const auto &subscription) { return subscription->id == id; });
    if (id == 0 || found == mSubscriptions.end())
        return false;
    (*found)->id = 0;
    mEnded = true;
    if (mPasses == 0)
        removeEnded();
    return true;
}

void Keyboard::inject(int key, bool pressed) {
    const Pass pass(*this);
    const std::size_t count = mSubscriptions.size(); // those that are added meanwhile hear the next key first
    for (std::size_t i = 0; i < count; ++i) {
        Subscription &subscription = *mSubscriptions[i];
        if (subscription.id == 0)
            continue;
        KeyboardCallBackInfo info{key, pressed};
        subscription.callback(info);
    }
}

void Keyboard::removeEnded() {
    // callbacks are destroyed apart from the list: what they hold may unsubscribe others as it ends
    mEnded = false;
    std::vector<std::unique_ptr<Subscription>> ended;
    std::vector<std::unique_ptr<Subscription>> kept;
    for (std::unique_ptr<Subscription> &subscription : mSubscriptions)
        (subscription->id == 0 ? ended : kept).push_back(std::move(subscription));
    mSubscriptions = std::move(kept);
}

} // namespace nurel::input
