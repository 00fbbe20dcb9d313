#include "rename/rename_error.h"

namespace tarvolt {
namespace {

std::string describe(RenameError::Case kind, const std::string& payload) {
    switch (kind) {
    case RenameError::Case::destinationExists:
        return "A project named \"" + payload + "\" already exists.";
    case RenameError::Case::readFailed:
        return "Failed to read file: " + payload;
    case RenameError::Case::writeFailed:
        return "Failed to write file: " + payload;
    case RenameError::Case::deleteFailed:
        return "Failed to delete: " + payload;
    case RenameError::Case::invalidName:
        return "Invalid name: " + payload;
    }
    return payload;
}

} // namespace

RenameError::RenameError(Case kind, std::string payload)
    : kind_(kind), payload_(std::move(payload)), description_(describe(kind_, payload_)) {}

} // namespace tarvolt
