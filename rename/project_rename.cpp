#include "foundation/text.h"
#include "model/folder_scan.h"
#include "model/mpc_scanner.h"
#include "rename/name_validation.h"
#include "rename/reference_rewrite.h"
#include "rename/rename_error.h"

#include <cerrno>
#include <exception>

namespace tarvolt {
namespace {

using std::filesystem::path;

/// Why a call of the file manager failed, in the operating system's own words.
std::string reason(const std::exception& failure) {
    const auto* fileError = dynamic_cast<const FileError*>(&failure);
    return fileError != nullptr ? fileError->localizedDescription() : failure.what();
}

std::optional<FileIdentity> identityOf(const std::optional<FileState>& state) {
    return state ? std::optional(state->identity) : std::nullopt;
}

std::string readText(const FileManager& fileManager, const path& projectFile) {
    std::optional<std::string> bytes = fileManager.contents(projectFile);
    if (!bytes || !isValidUtf8(*bytes)) {
        throw RenameError::readFailed(projectFile.filename());
    }
    return *std::move(bytes);
}

std::string updatedText(const std::string& text, const std::string& oldName, const std::string& newName) {
    std::optional<std::string> updated;
    try {
        updated = rewriteReferences(text, oldName, newName);
    } catch (const std::exception&) {
        // No memory for it: there is no updated text.
    }
    // The rest of the text is known to be UTF-8.
    if (!updated || !isValidUtf8(newName)) {
        throw RenameError::writeFailed("Could not encode updated XML");
    }
    return *std::move(updated);
}

FileIdentity writeProjectFile(FileManager& fileManager, const path& projectFile, const std::string& text) {
    std::optional<FileIdentity> created;
    try {
        created = fileManager.createFile(projectFile, text);
    } catch (const std::exception&) {
        // Not created, whatever the reason.
    }
    if (!created) {
        throw RenameError::writeFailed(projectFile.filename());
    }
    return *created;
}

void moveDataFolder(FileManager& fileManager, const path& from, const std::optional<FileState>& seen, const path& to,
                    const path& newProjectFile, const FileIdentity& created) {
    try {
        fileManager.moveItem(from, to, identityOf(seen));
    } catch (const std::exception& moveFailure) {
        try {
            fileManager.removeItem(newProjectFile, created);
        } catch (const std::exception&) {
            // The user is told of the failed move; the old project is whole, with or without the new file beside it.
        }
        throw RenameError::writeFailed("Could not rename data folder: " + reason(moveFailure));
    }
}

void removeOldProjectFile(FileManager& fileManager, const path& projectFile, const std::optional<FileState>& seen,
                          const path& newProjectFile, const FileIdentity& created) {
    try {
        // The old file is the last copy of what somebody else wrote into it meanwhile, and of everything should
        // somebody have taken the new one away.
        const auto present = fileManager.state(projectFile);
        if (present && (present != seen || identityOf(fileManager.state(newProjectFile)) != created)) {
            throw FileError(EBUSY, "unlink", projectFile);
        }
        fileManager.removeItem(projectFile, identityOf(seen));
    } catch (const std::exception& failure) {
        // Nothing is rolled back: the project is whole under its new name, and the old file harms nothing.
        throw RenameError::deleteFailed("Could not remove old .xpj: " + reason(failure));
    }
}

/// Every file operation of a rename. Where it throws anything but a RenameError, the disk has not been changed.
void renameOnDisk(FileManager& fileManager, const path& folder, const MPCProject& project, const std::string& newName) {
    if (const auto refusal = validateProjectName(newName)) {
        throw *refusal;
    }
    const path newProjectFile = appending(folder, newName + std::string(projectFileExtension));
    const path newDataFolder = appending(folder, newName + std::string(dataFolderSuffix));
    if (fileManager.fileExists(newProjectFile)) {
        throw RenameError::destinationExists(newName);
    }
    // What is moved and removed later is what was here now, where that can be told.
    const auto oldFileSeen = fileManager.state(project.xpjURL());
    const auto oldFolderSeen =
        project.dataFolderURL() ? fileManager.state(*project.dataFolderURL()) : std::optional<FileState>();
    const std::string oldText = readText(fileManager, project.xpjURL());
    const std::string newText = updatedText(oldText, project.baseName(), newName);
    const FileIdentity created = writeProjectFile(fileManager, newProjectFile, newText);
    if (project.dataFolderURL()) {
        moveDataFolder(fileManager, *project.dataFolderURL(), oldFolderSeen, newDataFolder, newProjectFile, created);
    }
    removeOldProjectFile(fileManager, project.xpjURL(), oldFileSeen, newProjectFile, created);
}

} // namespace

void MPCScanner::rename(const MPCProject& project, const std::string& newName) {
    const auto& folder = folderURL.get();
    if (!folder) {
        return;
    }
    try {
        renameOnDisk(*services_.fileManager, *folder, project, newName);
    } catch (const RenameError&) {
        throw;
    } catch (const std::exception&) {
        // No memory: nothing can be read here.
        throw RenameError::readFailed(project.xpjURL().filename());
    }
    try {
        log("Renamed \"" + project.baseName() + "\" → \"" + newName + "\"", false);
    } catch (const std::exception&) {
        // No memory: the rename is done, though its line is missing.
    }
}

} // namespace tarvolt
