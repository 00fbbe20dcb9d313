#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvolt {

/// Whether `bytes` are well-formed UTF-8: no overlong forms, no surrogates, nothing above U+10FFFF.
bool isValidUtf8(std::string_view bytes);

/// `bytes` as well-formed UTF-8 for display. Each maximal ill-formed part becomes U+FFFD.
std::string displayText(std::string_view bytes);

/// `text` without the white space at both ends: general category Zs and U+0009. Line breaks and ill-formed bytes are
/// not white space. The result points into `text`.
std::string_view trimWhitespace(std::string_view text);

/// Whether `text` contains `search`, ignoring case by the rules of `locale` (an identifier, see UserLocale): full case
/// folding, with the Turkish and Azeri i. Canonically equivalent sequences match; accents count. A match must not end
/// before a character that, decomposed, begins with one of category Mn or Me, nor inside a Hangul syllable; it may
/// start anywhere. An empty `search` is never found.
bool localizedCaseInsensitiveContains(std::string_view text, std::string_view search, std::string_view locale);

/// The order of `localizedCaseInsensitiveCompare`: the indices of `names`, sorted by name, ascending, ignoring case by
/// the rules of `locale`. The collation strength is secondary, punctuation and blanks count, and digits are not read as
/// numbers. Equal names keep their order. A name that is not UTF-8 is sorted by its display form.
std::vector<std::size_t> localizedCaseInsensitiveCompareOrder(const std::vector<std::string_view>& names,
                                                              std::string_view locale);

/// Passes `text` to `write`, part by part, with `oldText` + `tail` replaced by `newText` + `tail` wherever they occur,
/// from left to right without overlap; inserted text is not searched again. Matching is case-sensitive and by canonical
/// equivalence. A match must not end before a character that, decomposed, begins with one of category Mn or Me; it may
/// start anywhere. All other bytes are kept. `text` must be well-formed UTF-8; an `oldText` that is
/// not matches nothing. `tail` must be ASCII and not empty, must not contain K, ; or ` (other characters are equivalent
/// to these), and must not start with a letter that can carry an accent.
void replaceAllBeforeTail(std::string_view text, std::string_view oldText, std::string_view newText,
                          std::string_view tail, const std::function<void(std::string_view part)>& write);

} // namespace tarvolt
