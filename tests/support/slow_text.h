#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvolt::testing {

// The text services again, in the simplest way and regardless of speed. What they need of Unicode they
// take from the properties of single characters; order and boundaries are computed here.

bool slowIsValidUtf8(std::string_view bytes);

/// The characters of a well-formed text.
std::vector<char32_t> slowDecode(std::string_view text);

/// The canonical decomposition of a well-formed text, in canonical order.
std::vector<char32_t> slowDecompose(std::string_view text);

bool slowContains(std::string_view text, std::string_view search, bool turkic);

std::string slowReplaceAll(std::string_view text, std::string_view oldText, std::string_view newText);

} // namespace tarvolt::testing
