#pragma once

#include <functional>

namespace tarvolt::testing {

/// Runs `body` on a thread that has no privileges, so that mode bits hold for it as they do for an ordinary user, also
/// when the tests run as root. What `body` throws is thrown on.
void withoutPrivileges(const std::function<void()>& body);

} // namespace tarvolt::testing
