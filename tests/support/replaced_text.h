#pragma once

#include "foundation/text.h"

#include <string>
#include <string_view>

namespace tarvolt::testing {

/// The parts that replaceAllBeforeTail writes, joined.
inline std::string replacedText(std::string_view text, std::string_view oldText, std::string_view newText,
                                std::string_view tail) {
    std::string joined;
    replaceAllBeforeTail(text, oldText, newText, tail, [&](std::string_view part) { joined += part; });
    return joined;
}

} // namespace tarvolt::testing
