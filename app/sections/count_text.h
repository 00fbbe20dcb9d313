#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvolt {

/// `text` with its "%lld" replaced by `number` in the digits of `locale`.
std::string withNumber(std::string text, std::int64_t number, std::string_view locale);

} // namespace tarvolt
