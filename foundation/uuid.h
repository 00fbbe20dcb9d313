#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>

namespace tarvolt {

/// A 128-bit identity (RFC 9562).
struct UUID {
    std::array<std::uint8_t, 16> bytes{};

    /// A random identity, version 4. Throws std::system_error when the operating system has no randomness to give. Any
    /// thread.
    static UUID random();

    friend bool operator==(const UUID&, const UUID&) = default;
};

} // namespace tarvolt

template<> struct std::hash<tarvolt::UUID> { std::size_t operator()(const tarvolt::UUID& id) const noexcept; };
