#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tarvolt {

/// Ends with its object: when it is destroyed or replaced, its observer is not called again. There is one object to a
/// subscription; it can be moved and not copied.
class Subscription {
public:
    Subscription() = default;
    explicit Subscription(std::shared_ptr<void> token) : token_(std::move(token)) {}
    Subscription(Subscription&&) noexcept = default;
    Subscription& operator=(Subscription&&) noexcept = default;
    ~Subscription() = default;

private:
    std::shared_ptr<void> token_;
};

/// A value that tells its observers before each change. One call of `set` or `change` is one change, also when the new
/// value equals the old one. Observers are called in the order in which they subscribed and still read the old value.
/// Belongs to one thread. An observer may end its own or another subscription, or add one that hears of later changes;
/// it must not change the value it is being told about.
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

    /// One change made in place: `edit` gets the value to alter.
    template<class Edit> void change(Edit&& edit) {
        willChange();
        std::forward<Edit>(edit)(value_);
    }

    [[nodiscard]] Subscription observe(Observer observer) {
        auto token = std::make_shared<Observer>(std::move(observer));
        observers_.emplace_back(token);
        return Subscription(std::move(token));
    }

private:
    void willChange() {
        std::erase_if(observers_, [](const auto& weak) { return weak.expired(); });
        const auto told = observers_;
        for (const auto& weak : told) {
            if (const auto observer = weak.lock()) {
                (*observer)();
            }
        }
    }

    Value value_{};
    std::vector<std::weak_ptr<Observer>> observers_;
};

} // namespace tarvolt
