#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace tarvolt {

/// `bytes` for display: what is not UTF-8 becomes U+FFFD.
QString displayString(std::string_view bytes);

/// The same for a text of one line: line breaks and other controls are drawn as blanks.
QString singleLineString(std::string_view bytes);

/// What was typed, as UTF-8. A surrogate without its partner keeps its three bytes, which are no UTF-8, so that it is
/// never taken for another character further on.
std::string typedBytes(const QString& text);

/// `bytes` for editing: the reverse of `typedBytes`, and U+FFFD for anything else that is not UTF-8.
QString editableString(std::string_view bytes);

/// The same for a field of one line: line breaks and other controls are drawn as blanks.
QString fieldString(std::string_view bytes);

/// `bytes` after their `fieldString` has been edited into `typed`: the controls that were not edited are kept.
std::string editedBytes(std::string_view bytes, const QString& typed);

} // namespace tarvolt
