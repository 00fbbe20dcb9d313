#pragma once

#include <string>

namespace tarvolt::testing {

/// A code point as UTF-8; a surrogate becomes its three bytes all the same.
std::string utf8Of(char32_t character);

} // namespace tarvolt::testing
