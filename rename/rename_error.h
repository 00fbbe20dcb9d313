#pragma once

#include <exception>
#include <string>
#include <utility>

namespace tarvolt {

/// Why a rename failed: one of five cases with its text.
class RenameError : public std::exception {
public:
    enum class Case {
        destinationExists, ///< the new name
        readFailed,        ///< the old project file's name
        writeFailed,       ///< the new project file's name, or an explanation
        deleteFailed,      ///< an explanation
        invalidName,       ///< the reason for refusal
    };

    static RenameError destinationExists(const std::string& payload) {
        return {Case::destinationExists, payload, "A project named \"" + payload + "\" already exists."};
    }
    static RenameError readFailed(const std::string& payload) {
        return {Case::readFailed, payload, "Failed to read file: " + payload};
    }
    static RenameError writeFailed(const std::string& payload) {
        return {Case::writeFailed, payload, "Failed to write file: " + payload};
    }
    static RenameError deleteFailed(const std::string& payload) {
        return {Case::deleteFailed, payload, "Failed to delete: " + payload};
    }
    static RenameError invalidName(const std::string& payload) {
        return {Case::invalidName, payload, "Invalid name: " + payload};
    }

    Case kind() const { return kind_; }
    const std::string& payload() const { return payload_; }

    /// The message for the user: the case's fixed text with the payload in it.
    const std::string& errorDescription() const { return description_; }
    const char* what() const noexcept override { return description_.c_str(); }

private:
    RenameError(Case kind, std::string payload, std::string description)
        : kind_(kind), payload_(std::move(payload)), description_(std::move(description)) {}

    Case kind_;
    std::string payload_;
    std::string description_;
};

} // namespace tarvolt
