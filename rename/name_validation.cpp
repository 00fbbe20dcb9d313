#include "rename/name_validation.h"

#include "foundation/text.h"

namespace tarvolt {

std::optional<RenameError> validateProjectName(std::string_view newName) {
    // All nine are ASCII, and no byte of a multi-byte UTF-8 sequence is.
    if (newName.find_first_of("/<>:\"|?*\\") != std::string_view::npos) {
        return RenameError::invalidName("Contains invalid characters: / < > : \" | ? * \\");
    }
    if (trimWhitespace(newName).empty()) {
        return RenameError::invalidName("Name cannot be empty");
    }
    return std::nullopt;
}

} // namespace tarvolt
