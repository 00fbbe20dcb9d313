#include "foundation/published.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tarvolt {
namespace {

TEST(Published, NotifiesItsObserversBeforeTheChange) {
    Published<int> value(1);
    std::vector<int> seen;
    const auto subscription = value.observe([&] { seen.push_back(value.get()); });
    value.set(2);
    value.set(3);
    EXPECT_EQ(seen, (std::vector<int>{1, 2}));
    EXPECT_EQ(value.get(), 3);
}

TEST(Published, NotifiesOfAChangeToAnEqualValueToo) {
    Published<int> value(7);
    int told = 0;
    const auto subscription = value.observe([&] { ++told; });
    value.set(7);
    EXPECT_EQ(told, 1);
}

TEST(Published, CountsAnEditInPlaceAsOneChange) {
    Published<std::vector<int>> value;
    int told = 0;
    const auto subscription = value.observe([&] {
        ++told;
        EXPECT_TRUE(value.get().empty());
    });
    value.change([](std::vector<int>& list) { list = {1, 2, 3}; });
    EXPECT_EQ(told, 1);
    EXPECT_EQ(value.get().size(), 3U);
}

TEST(Published, CallsObserversInTheOrderOfTheirSubscription) {
    Published<int> value;
    std::string order;
    const auto a = value.observe([&] { order += 'a'; });
    const auto b = value.observe([&] { order += 'b'; });
    value.set(1);
    EXPECT_EQ(order, "ab");
}

TEST(Published, ForgetsAnObserverWhoseSubscriptionHasEnded) {
    Published<int> value;
    int told = 0;
    {
        const auto subscription = value.observe([&] { ++told; });
        value.set(1);
    }
    value.set(2);
    EXPECT_EQ(told, 1);
}

TEST(Published, LetsAnObserverEndAnotherSubscriptionDuringANotification) {
    Published<int> value;
    int told = 0;
    Subscription second;
    const auto first = value.observe([&] { second = Subscription(); });
    second = value.observe([&] { ++told; });
    value.set(1);
    EXPECT_EQ(told, 0);
}

TEST(Published, LetsAnObserverEndItsOwnSubscriptionDuringANotification) {
    Published<int> value;
    int told = 0;
    Subscription own;
    own = value.observe([&, text = std::string(100, 'x')] {
        own = Subscription();
        told += static_cast<int>(text.size()); // what the observer captures is still alive
    });
    value.set(1);
    value.set(2);
    EXPECT_EQ(told, 100);
}

TEST(Published, NotifiesAnObserverAddedDuringAChangeOnlyOfLaterOnes) {
    Published<int> value;
    std::vector<int> seen;
    Subscription late;
    Subscription first;
    first = value.observe([&] {
        late = value.observe([&] { seen.push_back(value.get()); });
        first = Subscription();
    });
    value.set(1);
    EXPECT_TRUE(seen.empty());
    value.set(2);
    EXPECT_EQ(seen, std::vector<int>{1});
}

TEST(Published, KeepsASubscriptionThatMovesToAnotherObject) {
    Published<int> value;
    int told = 0;
    {
        Subscription later;
        {
            Subscription sooner = value.observe([&] { ++told; });
            later = std::move(sooner);
        }
        value.set(1);
    }
    value.set(2);
    EXPECT_EQ(told, 1);
}

TEST(Published, CanBeDestroyedBeforeItsSubscriptions) {
    const auto held = std::make_shared<int>();
    Subscription subscription;
    {
        Published<int> value;
        subscription = value.observe([held] {});
    }
    subscription = {};
    EXPECT_EQ(held.use_count(), 1) << "the observer is kept";
}

} // namespace
} // namespace tarvolt
