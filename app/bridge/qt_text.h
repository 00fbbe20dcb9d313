#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace tarvolt {

/// `bytes` for display: what is not UTF-8 becomes U+FFFD.
QString displayString(std::string_view bytes);

/// The same for a text of one line: line breaks and other controls are drawn as blanks.
QString singleLineString(std::string_view bytes);

/// The same for a field of one line, where a surrogate that `editedBytes` has kept is that surrogate again.
QString fieldString(std::string_view bytes);

/// `bytes` after their `fieldString` has been edited into `typed`: the controls that were not edited are kept. A typed
/// surrogate without its partner is kept too, as three bytes that are not UTF-8.
std::string editedBytes(std::string_view bytes, const QString& typed);

} // namespace tarvolt
