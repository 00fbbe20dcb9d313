#pragma once

#include "rename/rename_error.h"

#include <optional>
#include <string_view>

namespace tarvolt {

/// The `invalidName` error that refuses `newName`, or nothing when the name is acceptable. Refused are the nine
/// characters / < > : " | ? * \ anywhere, then a name of nothing but white space (line breaks are none). Looks at no
/// file.
std::optional<RenameError> validateProjectName(std::string_view newName);

} // namespace tarvolt
