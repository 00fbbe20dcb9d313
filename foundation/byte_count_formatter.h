#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvolt {

/// A short text for a byte count in decimal units: "Zero KB", "1 byte", "12 KB", "1.2 MB", "1.07 GB". KB has no
/// fraction digits, MB at most one, larger units at most two. Halves round to the even digit, trailing zeros are
/// dropped, and what rounds to 1,000 of a unit is 1 of the next. Digits and decimal separator are those of `locale` (an
/// identifier, see UserLocale). `byteCount` must not be negative.
std::string byteCountText(std::int64_t byteCount, std::string_view locale);

/// A whole number with the digits and grouping of `locale`.
std::string integerText(std::int64_t number, std::string_view locale);

} // namespace tarvolt
