#include "foundation/text.h"
#include "model/folder_scan.h"
#include "model/mpc_scanner.h"
#include "rename/name_validation.h"
#include "rename/rename_error.h"

#include <cerrno>
#include <exception>

namespace tarvolt {
namespace {

using std::filesystem::path;

/// Why a file operation failed, in the operating system's words.
std::string reason(const std::exception& failure) {
    const auto* fileError = dynamic_cast<const FileError*>(&failure);
    return fileError != nullptr ? fileError->localizedDescription() : failure.what();
}

std::optional<FileIdentity> identityOf(const std::optional<FileState>& state) {
    return state ? std::optional(state->identity) : std::nullopt;
}

FileContents readText(const FileManager& fileManager, const path& projectFile) {
    std::optional<FileContents> bytes = fileManager.contents(projectFile);
    if (!bytes || !isValidUtf8(*bytes)) {
        throw RenameError::readFailed(projectFile.filename());
    }
    return *std::move(bytes);
}

FileIdentity writeProjectFile(FileManager& fileManager, const path& projectFile, std::string_view oldText,
                              const std::string& oldName, const std::string& newName) {
    if (!isValidUtf8(newName)) { // the rest of the text is known to be
        throw RenameError::writeFailed("Could not encode updated XML");
    }
    try {
        // References are matched in the raw text: entities are neither read nor written.
        const auto created = fileManager.createFile(projectFile, [&](const FileManager::PartWriter& write) {
            replaceAllBeforeTail(oldText, oldName, newName, dataFolderSuffix, write);
        });
        if (created) {
            return *created;
        }
    } catch (const std::exception&) {
        // Not created, whatever the reason.
    }
    throw RenameError::writeFailed(projectFile.filename());
}

void moveDataFolder(FileManager& fileManager, const path& from, const std::optional<FileState>& seen, const path& to,
                    const path& newProjectFile, const FileIdentity& created) {
    try {
        fileManager.moveItem(from, to, identityOf(seen));
    } catch (const std::exception& moveFailure) {
        try {
            fileManager.removeItem(newProjectFile, created);
        } catch (const std::exception&) {
            // The message is about the failed move. The old project is whole, with or without the new file beside it.
        }
        throw RenameError::writeFailed("Could not rename data folder: " + reason(moveFailure));
    }
}

void removeOldProjectFile(FileManager& fileManager, const path& projectFile, const std::optional<FileState>& seen,
                          const path& newProjectFile, const FileIdentity& created) {
    try {
        // If another process has written to the old file, it holds the only copy of that; if another process has
        // removed the new file, it holds the only copy of everything.
        const auto present = fileManager.state(projectFile);
        if (present && (present != seen || identityOf(fileManager.state(newProjectFile)) != created)) {
            throw FileError(EBUSY, "unlink", projectFile);
        }
        fileManager.removeItem(projectFile, identityOf(seen));
    } catch (const std::exception& failure) {
        // Nothing is rolled back: the project is whole under its new name, and the old file does no harm.
        throw RenameError::deleteFailed("Could not remove old .xpj: " + reason(failure));
    }
}

/// All file operations of a rename. If it throws anything but a RenameError, the disk is unchanged.
void renameOnDisk(FileManager& fileManager, const path& folder, const MPCProject& project, const std::string& newName) {
    if (const auto refusal = validateProjectName(newName)) {
        throw *refusal;
    }
    const path newProjectFile = folder / (newName + std::string(projectFileExtension));
    const path newDataFolder = folder / (newName + std::string(dataFolderSuffix));
    if (fileManager.fileExists(newProjectFile)) {
        throw RenameError::destinationExists(newName);
    }
    // Only what is here now may later be moved and removed.
    const auto oldFileSeen = fileManager.state(project.xpjURL());
    if (!oldFileSeen) {
        throw RenameError::readFailed(project.xpjURL().filename());
    }
    const auto oldFolderSeen =
        project.dataFolderURL() ? fileManager.state(*project.dataFolderURL()) : std::optional<FileState>();
    const FileContents oldText = readText(fileManager, project.xpjURL());
    const FileIdentity created = writeProjectFile(fileManager, newProjectFile, oldText, project.baseName(), newName);
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
        // Out of memory before anything was written: nothing could be read.
        throw RenameError::readFailed(project.xpjURL().filename());
    }
    try {
        log("Renamed \"" + project.baseName() + "\" → \"" + newName + "\"", false);
    } catch (const std::exception&) {
        // Out of memory: the rename is done, only its line is missing.
    }
}

} // namespace tarvolt
