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

    static RenameError destinationExists(std::string payload) { return {Case::destinationExists, std::move(payload)}; }
    static RenameError readFailed(std::string payload) { return {Case::readFailed, std::move(payload)}; }
    static RenameError writeFailed(std::string payload) { return {Case::writeFailed, std::move(payload)}; }
    static RenameError deleteFailed(std::string payload) { return {Case::deleteFailed, std::move(payload)}; }
    static RenameError invalidName(std::string payload) { return {Case::invalidName, std::move(payload)}; }

    Case kind() const { return kind_; }
    const std::string& payload() const { return payload_; }

    /// The message for the user: the case's fixed text with the payload in it.
    const std::string& errorDescription() const { return description_; }
    const char* what() const noexcept override { return description_.c_str(); }

private:
    RenameError(Case kind, std::string payload);

    Case kind_;
    std::string payload_;
    std::string description_;
};

} // namespace tarvolt
