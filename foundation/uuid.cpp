#include "foundation/uuid.h"

#include <bit>
#include <cerrno>
#include <system_error>

#include <unistd.h>

namespace tarvolt {

UUID UUID::random() {
    // A scan draws thousands. One call gives at most this much; it has been in POSIX since 2024.
    thread_local std::array<UUID, 256 / sizeof(UUID)> drawn;
    thread_local std::size_t left = 0;
    if (left == 0) {
        if (::getentropy(drawn.data(), sizeof drawn) != 0) {
            throw std::system_error(errno, std::generic_category(), "getentropy");
        }
        left = drawn.size();
    }
    UUID id = drawn[--left];
    id.bytes[6] = static_cast<std::uint8_t>((id.bytes[6] & 0x0F) | 0x40); // version 4
    id.bytes[8] = static_cast<std::uint8_t>((id.bytes[8] & 0x3F) | 0x80); // the variant of RFC 9562
    return id;
}

} // namespace tarvolt

std::size_t std::hash<tarvolt::UUID>::operator()(const tarvolt::UUID& id) const noexcept {
    // Almost all bits are random, so any of the bytes will do.
    return static_cast<std::size_t>(std::bit_cast<std::array<std::uint64_t, 2>>(id.bytes)[0]);
}
