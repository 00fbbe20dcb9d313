#include "foundation/file_manager.h"

#include "foundation/text.h"

#include <utility>

namespace tarvolt {

FileError::FileError(int errorNumber, const std::string& call, std::filesystem::path path)
    : std::system_error(errorNumber, std::system_category(), call + " " + path.native()), path_(std::move(path)) {}

std::string FileError::localizedDescription() const {
    // The C library uses the character set of the user's locale, which need not be UTF-8.
    return displayText(code().message());
}

} // namespace tarvolt
