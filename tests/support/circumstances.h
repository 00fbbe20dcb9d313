#pragma once

#include "tests/support/privileges.h"

#include <functional>
#include <optional>
#include <string>

namespace tarvolt::testing {

/// Runs something under circumstances that make it fail. Returns why these are not available, or nothing.
using Circumstances = std::function<std::optional<std::string>(const std::function<void()>&)>;

inline std::optional<std::string> asUsual(const std::function<void()>& body) {
    body();
    return std::nullopt;
}

inline std::optional<std::string> asOrdinaryUser(const std::function<void()>& body) {
    withoutPrivileges(body);
    return std::nullopt;
}

} // namespace tarvolt::testing
