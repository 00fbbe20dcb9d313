#include "foundation/uuid.h"
#include "tests/support/call_faults.h"

#include <gtest/gtest.h>

#include <sys/syscall.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <system_error>
#include <unordered_set>

namespace tarvolt {
namespace {

TEST(UUID, IsNilWhenDefaultMade) {
    EXPECT_EQ(UUID{}.uuidString(), "00000000-0000-0000-0000-000000000000");
}

TEST(UUID, WritesItsBytesInOrderInLowerCase) {
    const UUID id{{0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF, 0xFE, 0xDC, 0xBA, 0x98, 0x76, 0x54, 0x32, 0x10}};
    EXPECT_EQ(id.uuidString(), "01234567-89ab-cdef-fedc-ba9876543210");
}

TEST(UUID, IsOfVersionFourAndOfTheUsualVariant) {
    const std::string_view form = "xxxxxxxx-xxxx-4xxx-vxxx-xxxxxxxxxxxx";
    const auto fits = [](char written, char place) {
        const std::string_view digits = place == 'x' ? "0123456789abcdef" : place == 'v' ? "89ab" : "";
        return digits.empty() ? written == place : digits.find(written) != std::string_view::npos;
    };
    for (int round = 0; round < 1000; ++round) {
        const std::string text = UUID::random().uuidString();
        ASSERT_TRUE(std::equal(text.begin(), text.end(), form.begin(), form.end(), fits)) << text;
    }
}

TEST(UUID, DoesNotRepeat) {
    std::unordered_set<UUID> ids;
    for (int round = 0; round < 10000; ++round) {
        const UUID id = UUID::random();
        ASSERT_TRUE(ids.insert(id).second) << id.uuidString();
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

TEST(UUID, IsAskedForAgainWhenASignalBreaksTheWaitOff) {
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

TEST(UUID, IsRefusedWhereThereIsNothingRandom) {
    if (const auto reason = testing::withCallsAnswered({SYS_getrandom}, testing::refuseWith(ENOSYS),
                                                       [] { EXPECT_THROW(UUID::random(), std::system_error); })) {
        GTEST_SKIP() << *reason;
    }
}

TEST(UUID, IsEqualAndHashesEquallyByItsBytes) {
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
