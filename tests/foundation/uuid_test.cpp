#include "foundation/uuid.h"
#include "tests/support/call_faults.h"

#include <gtest/gtest.h>

#include <sys/syscall.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <functional>
#include <system_error>
#include <unordered_set>

namespace tarvolt {
namespace {

TEST(UUID, IsOfVersionFourAndOfTheUsualVariant) {
    for (int round = 0; round < 1000; ++round) {
        const UUID id = UUID::random();
        ASSERT_EQ(id.bytes[6] >> 4, 4);
        ASSERT_EQ(id.bytes[8] >> 6, 2);
    }
}

TEST(UUID, DoesNotRepeat) {
    std::unordered_set<UUID> ids;
    for (int round = 0; round < 10000; ++round) {
        const UUID id = UUID::random();
        ASSERT_TRUE(ids.insert(id).second) << round;
    }
}

TEST(UUID, IsRandomInEveryBitButSix) {
    std::array<std::uint8_t, 16> everSet{};
    std::array<std::uint8_t, 16> everClear{};
    for (int round = 0; round < 200; ++round) {
        const UUID id = UUID::random();
        for (std::size_t index = 0; index < id.bytes.size(); ++index) {
            everSet[index] = static_cast<std::uint8_t>(everSet[index] | id.bytes[index]);
            everClear[index] = static_cast<std::uint8_t>(everClear[index] | ~id.bytes[index]);
        }
    }
    for (std::size_t index = 0; index < everSet.size(); ++index) {
        const int fixed = index == 6 ? 0xF0 : index == 8 ? 0xC0 : 0;
        EXPECT_EQ(everSet[index] & everClear[index], 0xFF & ~fixed) << index;
    }
}

TEST(UUID, IsRequestedAgainWhenASignalInterruptsTheWait) {
    int calls = 0;
    const auto interrupting = [&](const testing::SystemCall&) {
        return ++calls < 3 ? std::optional<long>(-EINTR) : std::nullopt;
    };
    UUID id;
    if (const auto reason = testing::withCallsAnswered({SYS_getrandom}, interrupting, [&] { id = UUID::random(); })) {
        GTEST_SKIP() << *reason;
    }
    EXPECT_EQ(calls, 3);
    EXPECT_NE(id, UUID());
}

TEST(UUID, ThrowsWhenThereIsNoRandomness) {
    if (const auto reason = testing::withCallsAnswered({SYS_getrandom}, testing::refuseWith(ENOSYS),
                                                       [] { EXPECT_THROW(UUID::random(), std::system_error); })) {
        GTEST_SKIP() << *reason;
    }
}

TEST(UUID, IsComparedAndHashedByItsBytes) {
    const UUID id = UUID::random();
    const UUID copy = id;
    UUID other = id;
    other.bytes[15] = static_cast<std::uint8_t>(other.bytes[15] ^ 1U);
    EXPECT_EQ(copy, id);
    EXPECT_NE(other, id);
    EXPECT_EQ(std::hash<UUID>{}(copy), std::hash<UUID>{}(id));
    EXPECT_NE(std::hash<UUID>{}(UUID::random()), std::hash<UUID>{}(id));
}

} // namespace
} // namespace tarvolt
