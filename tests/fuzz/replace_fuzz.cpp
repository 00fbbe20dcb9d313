#include "foundation/text.h"
#include "tests/fuzz/input.h"
#include "tests/fuzz/require.h"
#include "tests/support/replaced_text.h"
#include "tests/support/slow_text.h"

#include <cstdint>
#include <string>
#include <string_view>

using namespace tarvolt;

namespace {

constexpr std::string_view tail = "_[ProjectData]";

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
