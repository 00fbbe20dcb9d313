#include "foundation/text.h"
#include "tests/fuzz/require.h"
#include "tests/support/replaced_text.h"
#include "tests/support/slow_text.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

using namespace tarvolt;

namespace {

constexpr std::string_view tail = "_[ProjectData]";

std::string_view cutLine(std::string_view& rest) {
    const std::string_view whole = rest;
    const std::size_t end = std::min(whole.find('\n'), whole.size());
    rest = whole.substr(std::min(end + 1, whole.size()));
    return whole.substr(0, end);
}

/// `text` with "\1" made the tail and "\2" the old name: what the fuzzer would hardly ever write of itself.
std::string expanded(std::string_view text, std::string_view oldName) {
    std::string result;
    for (const char byte : text) {
        if (byte == '\1') {
            result += tail;
        } else if (byte == '\2') {
            result += oldName;
        } else {
            result += byte;
        }
    }
    return result;
}

} // namespace

// A line with the old name, a line with the new one, and the text.
// NOLINTNEXTLINE(readability-identifier-naming): the name that libFuzzer calls.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    const std::string oldName = expanded(cutLine(rest), {});
    const std::string newName = expanded(cutLine(rest), {});
    const std::string text = displayText(expanded(rest, oldName));
    const std::string result = testing::replacedText(text, oldName, newName, tail);
    if (testing::slowIsValidUtf8(oldName)) {
        const std::string tailText(tail);
        require(result == testing::slowReplaceAll(text, oldName + tailText, newName + tailText),
                "replaces as an obvious replacement does");
    } else {
        require(result == text, "replaces nothing for a name that is not UTF-8");
    }
    return 0;
}
