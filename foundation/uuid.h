#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace tarvolt {

/// A 128-bit identity (RFC 9562). A default-made one is the nil UUID.
struct UUID {
    std::array<std::uint8_t, 16> bytes{};

    /// A random identity, version 4, from the operating system's generator. Any thread.
    static UUID random();

    /// The 36 characters of the usual form, in lower case.
    std::string uuidString() const;

    friend bool operator==(const UUID&, const UUID&) = default;
};

} // namespace tarvolt

template<> struct std::hash<tarvolt::UUID> { std::size_t operator()(const tarvolt::UUID& id) const noexcept; };
