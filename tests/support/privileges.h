#pragma once

#include <functional>

namespace tarvolt::testing {

/// Runs `body` on a thread without privileges, so that mode bits apply to it as to an ordinary user even
/// when the tests run as root. Rethrows what `body` throws.
void withoutPrivileges(const std::function<void()>& body);

} // namespace tarvolt::testing
