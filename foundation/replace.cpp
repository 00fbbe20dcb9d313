#include "foundation/character_boundary.h"
#include "foundation/icu.h"
#include "foundation/text.h"
#include "foundation/utf8.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace tarvolt {

namespace {

struct Span {
    std::size_t start;
    std::size_t end;
};

icu::UnicodeString decomposed(std::string_view text) {
    return normalized(nfd(), icu::UnicodeString::fromUTF8(text));
}

std::int32_t decomposedLength(UChar32 character) {
    if (character < 0x80) {
        return 1;
    }
    icu::UnicodeString decomposition;
    return nfd().getDecomposition(character, decomposition) ? decomposition.length() : U16_LENGTH(character);
}

/// A name as it can appear in a text: any sequence that is canonically equivalent to it.
class EquivalentName {
public:
    explicit EquivalentName(std::string_view name) : bytes_(name), decomposed_(decomposed(name)) {}

    /// Where the name starts, if it ends at `end` and starts at or after `earliest`.
    std::optional<std::size_t> startBefore(std::string_view text, std::size_t earliest, std::size_t end) const {
        const std::string_view front = text.substr(earliest, end - earliest);
        if (front.ends_with(bytes_)) {
            return end - bytes_.size();
        }
        // Equivalent sequences decompose to the same length, so there is only one place where the name can start.
        std::int32_t toCome = decomposed_.length();
        std::size_t start = front.size();
        while (start > 0 && toCome > 0) {
            const DecodedCharacter last = lastCharacter(front.substr(0, start));
            toCome -= decomposedLength(last.character);
            start -= last.length;
            // An ASCII character keeps its place when decomposed, and most other names differ in one of them.
            if (last.character < 0x80 && decomposed_.charAt(toCome) != last.character) {
                return std::nullopt;
            }
        }
        if (decomposed(front.substr(start)) == decomposed_) {
            return earliest + start;
        }
        return std::nullopt;
    }

private:
    std::string_view bytes_;
    icu::UnicodeString decomposed_;
};

bool isWhole(std::string_view text, Span match) {
    if (match.end < text.size() && isMark(firstCharacter(text.substr(match.end)).character)) {
        return false;
    }
    return match.start == 0 || !isInsideHangulSyllable(lastCharacter(text.substr(0, match.start)).character,
                                                       firstCharacter(text.substr(match.start)).character);
}

std::vector<Span> matchesBeforeTail(std::string_view text, const EquivalentName& name, std::string_view tail) {
    std::vector<Span> matches;
    std::size_t free = 0; // the end of the last match
    for (auto at = text.find(tail); at != std::string_view::npos; at = text.find(tail, std::max(at + 1, free))) {
        const std::optional<std::size_t> start = name.startBefore(text, free, at);
        const std::size_t end = at + tail.size();
        if (start && isWhole(text, {*start, end})) {
            matches.push_back({*start, end});
            free = end;
        }
    }
    return matches;
}

} // namespace

std::string replaceAllBeforeTail(std::string_view text, std::string_view oldText, std::string_view newText,
                                 std::string_view tail) {
    if (!isValidUtf8(oldText)) {
        return std::string(text);
    }
    const std::vector<Span> matches = matchesBeforeTail(text, EquivalentName(oldText), tail);
    std::size_t size = text.size();
    for (const Span& match : matches) {
        size = size - (match.end - match.start) + newText.size() + tail.size();
    }
    std::string result;
    result.reserve(size);
    std::size_t copied = 0;
    for (const Span& match : matches) {
        result.append(text, copied, match.start - copied).append(newText).append(tail);
        copied = match.end;
    }
    result.append(text, copied);
    return result;
}

} // namespace tarvolt
