#include "foundation/character_boundary.h"
#include "foundation/icu.h"
#include "foundation/text.h"
#include "foundation/utf8.h"

#include <cstring>
#include <optional>
#include <vector>

#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

namespace tarvolt {

namespace {

struct Span {
    std::size_t start;
    std::size_t end;
};

/// A name as it may stand in a text: itself or any canonically equivalent sequence.
class EquivalentName {
public:
    explicit EquivalentName(std::string_view name) : bytes_(name) {
        UErrorCode status = U_ZERO_ERROR;
        normalizer_ = icu::Normalizer2::getNFDInstance(status);
        throwIfFailed(status, "Normalizer2::getNFDInstance");
        decomposed_ = decomposed(name);
    }

    /// Where the name begins if it ends at `end` and begins at or after `earliest`.
    std::optional<std::size_t> startBefore(std::string_view text, std::size_t earliest, std::size_t end) const {
        const std::string_view front = text.substr(earliest, end - earliest);
        if (front.ends_with(bytes_)) {
            return end - bytes_.size();
        }
        // Equivalent sequences decompose to the same length, so there is one place where the name can begin.
        std::int32_t toCome = decomposed_.length();
        std::size_t start = front.size();
        while (start > 0 && toCome > 0) {
            const DecodedCharacter last = lastCharacter(front.substr(0, start));
            toCome -= decomposedLength(last.character);
            start -= last.length;
            // An ASCII character keeps its place when decomposed, and most other names differ in one of these.
            if (last.character < 0x80 && decomposed_.charAt(toCome) != static_cast<char16_t>(last.character)) {
                return std::nullopt;
            }
        }
        if (decomposed(front.substr(start)) == decomposed_) {
            return earliest + start;
        }
        return std::nullopt;
    }

private:
    icu::UnicodeString decomposed(std::string_view text) const {
        UErrorCode status = U_ZERO_ERROR;
        icu::UnicodeString result = normalizer_->normalize(icu::UnicodeString::fromUTF8(text), status);
        throwIfFailed(status, "Normalizer2::normalize");
        return result;
    }

    std::int32_t decomposedLength(char32_t character) const {
        if (character < 0x80) {
            return 1;
        }
        icu::UnicodeString decomposition;
        if (normalizer_->getDecomposition(static_cast<UChar32>(character), decomposition)) {
            return decomposition.length();
        }
        return U16_LENGTH(character);
    }

    std::string_view bytes_;
    const icu::Normalizer2* normalizer_ = nullptr;
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
    std::size_t free = 0;
    std::size_t from = 0;
    while (const void* found = memmem(text.data() + from, text.size() - from, tail.data(), tail.size())) {
        const auto tailStart = static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
        from = tailStart + 1;
        const std::optional<std::size_t> start = name.startBefore(text, free, tailStart);
        const std::size_t end = tailStart + tail.size();
        if (start && isWhole(text, {*start, end})) {
            matches.push_back({*start, end});
            from = free = end;
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
