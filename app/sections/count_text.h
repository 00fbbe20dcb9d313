#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvolt {

/// The translation of `key` with its "%lld" replaced by `number` in the digits of `locale`.
std::string localizedCount(const char* context, const char* key, std::int64_t number, std::string_view locale);

} // namespace tarvolt
