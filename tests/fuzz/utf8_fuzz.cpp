#include "foundation/text.h"
#include "foundation/utf8.h"
#include "tests/fuzz/require.h"
#include "tests/support/slow_text.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

using namespace tarvolt;

namespace {

void checkBothDirections(std::string_view text) {
    std::vector<char32_t> forward;
    std::vector<char32_t> backward;
    for (std::string_view rest = text; !rest.empty(); rest.remove_prefix(firstCharacter(rest).length)) {
        forward.push_back(static_cast<char32_t>(firstCharacter(rest).character));
    }
    for (std::string_view rest = text; !rest.empty(); rest.remove_suffix(lastCharacter(rest).length)) {
        backward.push_back(static_cast<char32_t>(lastCharacter(rest).character));
    }
    require(forward == testing::slowDecode(text), "reads forward what the bits say");
    require(std::vector(backward.rbegin(), backward.rend()) == forward, "reads the same from both ends");
}

} // namespace

// Any bytes are a text to check, to show and to read.
// NOLINTNEXTLINE(readability-identifier-naming): the name that libFuzzer calls.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const bool valid = testing::slowIsValidUtf8(bytes);
    require(isValidUtf8(bytes) == valid, "answers as an obvious decoder");
    const std::string shown = displayText(bytes);
    require(testing::slowIsValidUtf8(shown), "shows well-formed text");
    require((shown == bytes) == valid, "shows well-formed text as it is");
    if (valid) {
        checkBothDirections(bytes);
    }
    return 0;
}
