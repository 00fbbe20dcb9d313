#include "foundation/icu.h"
#include "foundation/text.h"
#include "foundation/utf8.h"

#include <algorithm>
#include <optional>

namespace tarvolt {

namespace {

/// Where `part` occurs in `text` at or after `from`; the end of `text` if it does not. Looks for the last character of
/// `part` first, because that of a tail is rarer than any other in a project file.
std::size_t positionOf(std::string_view part, std::string_view text, std::size_t from) {
    for (auto last = text.find(part.back(), from); last != text.npos; last = text.find(part.back(), last + 1)) {
        if (text.substr(from, last + 1 - from).ends_with(part)) {
            return last + 1 - part.size();
        }
    }
    return text.size();
}

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
    explicit EquivalentName(std::string_view name)
        : spelling_(name), otherSpelling_(name), decomposed_(decomposed(name)) {}

    /// Where the name starts, if it ends at `end` and starts at or after `earliest`.
    std::optional<std::size_t> startBefore(std::string_view text, std::size_t earliest, std::size_t end) {
        const std::string_view front = text.substr(earliest, end - earliest);
        for (const std::string_view spelling : {spelling_, otherSpelling_}) {
            if (front.ends_with(spelling)) {
                return end - spelling.size();
            }
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
            otherSpelling_ = front.substr(start); // a text seldom has more than two
            return earliest + start;
        }
        return std::nullopt;
    }

private:
    std::string_view spelling_;
    std::string_view otherSpelling_; ///< the last that differed; lives as long as the text
    icu::UnicodeString decomposed_;
};

/// Whether a match may end at `end`, after the tail. Its last character is ASCII, so no Hangul syllable goes on there.
bool isCharacterEnd(std::string_view text, std::size_t end) {
    return end == text.size() || !isMark(firstCharacter(text.substr(end)).character);
}

} // namespace

void replaceAllBeforeTail(std::string_view text, std::string_view oldText, std::string_view newText,
                          std::string_view tail, const std::function<void(std::string_view part)>& write) {
    const std::string replacement = std::string(newText).append(tail);
    std::size_t written = 0; // the end of the last match
    if (isValidUtf8(oldText)) {
        EquivalentName name(oldText);
        for (auto at = positionOf(tail, text, 0); at < text.size();
             at = positionOf(tail, text, std::max(at + 1, written))) {
            const std::optional<std::size_t> start = name.startBefore(text, written, at);
            const std::size_t end = at + tail.size();
            if (start && isCharacterEnd(text, end)) {
                write(text.substr(written, *start - written));
                write(replacement);
                written = end;
            }
        }
    }
    write(text.substr(written));
}

} // namespace tarvolt
