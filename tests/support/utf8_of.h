#pragma once

#include <string>

namespace tarvolt::testing {

/// A code point as UTF-8; even a surrogate is encoded, in three bytes.
std::string utf8Of(char32_t character);

} // namespace tarvolt::testing
