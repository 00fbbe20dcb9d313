#pragma once

#include "rename/rename_error.h"

#include <optional>
#include <string_view>

namespace tarvolt {

/// The `invalidName` error for `newName`, or nothing when the name is acceptable. The nine characters
/// / < > : " | ? * \ are refused anywhere, then names that consist only of white space (line breaks do not count as
/// white space). Touches no file.
std::optional<RenameError> validateProjectName(std::string_view newName);

} // namespace tarvolt
