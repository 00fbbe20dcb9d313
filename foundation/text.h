#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace tarvolt {

/// Whether `bytes` are well-formed UTF-8 (Unicode, table 3-7): no overlong forms, no surrogates, nothing above
/// U+10FFFF.
bool isValidUtf8(std::string_view bytes);

/// `bytes` as well-formed UTF-8 for display: each maximal ill-formed part becomes U+FFFD.
std::string displayText(std::string_view bytes);

/// `text` without the characters of general category Zs and U+0009 at both ends. Line breaks stay. Ill-formed bytes are
/// no white space. The view is into `text`.
std::string_view trimWhitespace(std::string_view text);

/// Whether `text` holds `search` without regard to case by the rules of `locale` (an identifier, see UserLocale):
/// full case folding, with Turkish and Azeri i; canonically equivalent sequences match; accents count. A match does not
/// end before a character that, decomposed, begins with one of category Mn or Me, and does not cut a Hangul syllable.
/// An empty `search` is in nothing.
bool localizedCaseInsensitiveContains(std::string_view text, std::string_view search, std::string_view locale);

/// Orders names without regard to case by the rules of a locale: secondary strength, punctuation and blanks count,
/// digits are no numbers. Texts that are not UTF-8 are ordered by their display form. Not for two threads at once.
class CaseInsensitiveOrder {
public:
    explicit CaseInsensitiveOrder(std::string_view locale);
    ~CaseInsensitiveOrder();

    /// Negative, zero or positive as `a` is before, equal to or after `b`.
    int compare(std::string_view a, std::string_view b) const;

    /// Bytes whose byte-wise order is the order of the texts; the same for texts that are equal.
    std::string sortKey(std::string_view text) const;

private:
    struct Rules;
    std::unique_ptr<Rules> rules_;
};

/// Replaces `oldText` + `tail` by `newText` + `tail` wherever the two stand in `text`, by canonical equivalence, case
/// counting, from left to right, not overlapping; what was inserted is not searched again. A match does not end before
/// a character that, decomposed, begins with one of category Mn or Me, and does not cut a Hangul syllable. All other
/// bytes are kept as they are. `text` must be well-formed UTF-8. `tail` must be ASCII, not empty, without K, ; and `
/// (other characters are equivalent to these), and its first character must not begin an accented letter (punctuation
/// does not). Where `oldText` is not well-formed UTF-8 nothing matches.
std::string replaceAllBeforeTail(std::string_view text, std::string_view oldText, std::string_view newText,
                                 std::string_view tail);

} // namespace tarvolt
