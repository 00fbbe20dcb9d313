#pragma once

#include <cstddef>
#include <random>
#include <span>
#include <string>
#include <string_view>

namespace tarvolt::testing {

/// Up to `most` pieces in a row. A seed gives the same texts on every machine.
inline std::string randomText(std::mt19937& random, std::span<const std::string_view> pieces, std::size_t most) {
    std::string text;
    for (std::size_t count = random() % (most + 1); count > 0; --count) {
        text += pieces[random() % pieces.size()];
    }
    return text;
}

} // namespace tarvolt::testing
