#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tarvolt {

/// Keeps an observer subscribed for as long as it, or a copy of it, lives.
using Subscription = std::shared_ptr<const void>;

/// A value that notifies its observers before each change, when they still read the old value. One call of `set` or
/// `change` is one change, even if the new value equals the old one. Observers are called in the order in which they
/// subscribed. They may end subscriptions, their own included, and add new ones, which are notified of later changes;
/// they must not change the value. For use on one thread.
template<class Value> class Published {
public:
    using Observer = std::function<void()>;

    Published() = default;
    explicit Published(Value value) : value_(std::move(value)) {}
    Published(const Published&) = delete;
    Published& operator=(const Published&) = delete;

    const Value& get() const { return value_; }

    void set(Value next) {
        willChange();
        value_ = std::move(next);
    }

    /// Makes one change in place: `edit` is passed the value.
    template<class Edit> void change(Edit&& edit) {
        willChange();
        std::forward<Edit>(edit)(value_);
    }

    [[nodiscard]] Subscription observe(Observer observer) {
        auto token = std::make_shared<Observer>(std::move(observer));
        observers_.emplace_back(token);
        return token;
    }

private:
    void willChange() {
        std::erase_if(observers_, [](const auto& weak) { return weak.expired(); });
        const auto current = observers_; // observers may subscribe others
        for (const auto& weak : current) {
            if (const auto observer = weak.lock()) {
                (*observer)();
            }
        }
    }

    Value value_{};
    std::vector<std::weak_ptr<Observer>> observers_;
};

} // namespace tarvolt
