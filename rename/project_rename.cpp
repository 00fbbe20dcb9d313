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

/// Why a file operation failed, in the operating system's words. Anything but a FileError means that memory ran out.
std::string reason(const std::exception& failure) {
    const auto* error = dynamic_cast<const FileError*>(&failure);
    return error != nullptr ? error->localizedDescription() : FileError(ENOMEM, {}, {}).localizedDescription();
}

/// Stands for an item that was not there. It matches no item, so the move is attempted only for its error message.
constexpr FileState nothing;

/// An item of the project that this rename has seen or made, and may therefore move or remove.
struct OwnItem {
    const path& where;
    FileState seen;
    const FileManager::ContentsWriter* text; ///< of a file
};

bool contains(const FileManager& fileManager, const path& file, const FileManager::ContentsWriter& text) {
    const auto found = fileManager.contents(file);
    std::string_view rest = found ? std::string_view(*found) : std::string_view();
    bool isSame = found.has_value();
    text([&](std::string_view part) {
        isSame = isSame && rest.starts_with(part);
        rest.remove_prefix(isSame ? part.size() : 0);
    });
    return isSame && rest.empty();
}

/// Whether `present` is still the item. The number of a removed file is soon given to another one, and dates may be
/// in whole seconds. So unless number, size and date are all unchanged, the text of a file decides.
bool isStill(const FileManager& fileManager, const OwnItem& item, const std::optional<FileState>& present) {
    if (!present || present == item.seen) {
        return present.has_value();
    }
    const bool maybe = present->identity == item.seen.identity || item.seen.isRenumbered(*present);
    return maybe && (item.text == nullptr || contains(fileManager, item.where, *item.text));
}

/// Calls `act` with the state in which the item was seen and, while it is busy, with the one it is in now.
template<class Act> void actOn(const FileManager& fileManager, const OwnItem& item, Act act, int attempts = 8) {
    try {
        act(item.seen);
    } catch (const FileError& failure) {
        const auto present = failure.code().value() == EBUSY ? fileManager.state(item.where) : std::nullopt;
        if (attempts == 1 || !isStill(fileManager, item, present)) {
            throw;
        }
        actOn(fileManager, {item.where, *present, item.text}, act, attempts - 1);
    }
}

FileContents readText(const FileManager& fileManager, const path& projectFile) {
    std::optional<FileContents> bytes = fileManager.contents(projectFile);
    if (!bytes || !isValidUtf8(*bytes)) {
        throw RenameError::readFailed(projectFile.filename());
    }
    return *std::move(bytes);
}

FileState writeProjectFile(FileManager& fileManager, const path& projectFile, const FileManager::ContentsWriter& text) {
    try {
        if (const auto created = fileManager.createFile(projectFile, text)) {
            return *created;
        }
    } catch (const std::exception&) {
        // Not created, whatever the reason.
    }
    throw RenameError::writeFailed(projectFile.filename());
}

RenameError moveFailed(const std::exception& failure) {
    return RenameError::writeFailed("Could not rename data folder: " + reason(failure));
}

FileState lookBeforeMove(const FileManager& fileManager, const path& dataFolder) {
    try {
        return fileManager.state(dataFolder).value_or(nothing);
    } catch (const FileError& failure) {
        throw moveFailed(failure);
    }
}

/// Whether the folder is at `to` although the move has failed: a network drive can do the move and lose the reply. A
/// folder that was there before makes the move fail with EEXIST.
bool hasMovedAnyway(const FileManager& fileManager, const OwnItem& folder, const path& to,
                    const std::exception& failure) {
    const auto* error = dynamic_cast<const FileError*>(&failure);
    const auto there = error != nullptr && error->code().value() != EEXIST ? fileManager.state(to) : std::nullopt;
    return there && (there->identity == folder.seen.identity || folder.seen.isRenumbered(*there));
}

/// Removes the new file again after the failed move, unless the folder has moved all the same.
void rollBack(FileManager& fileManager, const OwnItem& folder, const path& to, const OwnItem& newFile,
              const std::exception& moveFailure) {
    try {
        if (!hasMovedAnyway(fileManager, folder, to, moveFailure)) {
            actOn(fileManager, newFile, [&](const auto& state) { fileManager.removeItem(newFile.where, state); });
        }
    } catch (const std::exception&) {
        // The message is about the failed move. The old project is whole, with or without the new file beside it.
    }
}

void moveDataFolder(FileManager& fileManager, const OwnItem& folder, const path& to, const OwnItem& newFile) {
    try {
        actOn(fileManager, folder, [&](const auto& state) { fileManager.moveItem(folder.where, to, state.identity); });
    } catch (const std::exception& moveFailure) {
        rollBack(fileManager, folder, to, newFile, moveFailure);
        throw moveFailed(moveFailure);
    }
}

void removeOldProjectFile(FileManager& fileManager, const OwnItem& oldFile, const OwnItem& newFile) {
    try {
        // Without the new file the old one would be the only copy.
        if (!isStill(fileManager, newFile, fileManager.state(newFile.where))) {
            throw FileError(EBUSY, "unlink", oldFile.where);
        }
        // It also stays if others have written to it since, because what they wrote is in no other file.
        actOn(fileManager, oldFile, [&](const auto& state) { fileManager.removeItem(oldFile.where, state); });
    } catch (const std::exception& failure) {
        // Nothing is rolled back: the project is whole under its new name, and the old file does no harm.
        throw RenameError::deleteFailed("Could not remove old .xpj: " + reason(failure));
    }
}

/// If this throws anything but a RenameError, the disk is unchanged and the old file could not be read.
void renameOnDisk(FileManager& fileManager, const path& folder, const MPCProject& project, const std::string& newName) {
    if (const auto refusal = validateProjectName(newName)) {
        throw *refusal;
    }
    const path newProjectFile = folder / (newName + std::string(projectFileExtension));
    const path newDataFolder = folder / (newName + std::string(dataFolderSuffix));
    if (fileManager.fileExists(newProjectFile)) {
        throw RenameError::destinationExists(newName);
    }
    const path oldProjectFile = project.xpjURL();
    const auto oldDataFolder = project.dataFolderURL();
    // Only what is here now may later be moved and removed.
    const auto oldFileSeen = fileManager.state(oldProjectFile);
    if (!oldFileSeen) {
        throw RenameError::readFailed(oldProjectFile.filename());
    }
    const FileState oldFolderSeen = oldDataFolder ? lookBeforeMove(fileManager, *oldDataFolder) : nothing;
    const FileContents oldText = readText(fileManager, oldProjectFile);
    if (!isValidUtf8(newName)) { // the rest of the text is known to be
        throw RenameError::writeFailed("Could not encode updated XML");
    }
    const FileManager::ContentsWriter writeOldText = [&](const auto& write) { write(oldText); };
    // References are matched in the raw text: entities are neither read nor written.
    const FileManager::ContentsWriter writeNewText = [&](const auto& write) {
        replaceAllBeforeTail(oldText, project.baseName(), newName, dataFolderSuffix, write);
    };
    const OwnItem oldFile{oldProjectFile, *oldFileSeen, &writeOldText};
    const OwnItem newFile{newProjectFile, writeProjectFile(fileManager, newProjectFile, writeNewText), &writeNewText};
    if (oldDataFolder) {
        moveDataFolder(fileManager, {*oldDataFolder, oldFolderSeen, nullptr}, newDataFolder, newFile);
    }
    removeOldProjectFile(fileManager, oldFile, newFile);
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
        // The old file cannot be examined, or memory ran out before anything was written.
        throw RenameError::readFailed(project.xpjURL().filename());
    }
    try {
        log("Renamed \"" + project.baseName() + "\" → \"" + newName + "\"", false);
    } catch (const std::exception&) {
        // Out of memory: the rename is done, only its line is missing.
    }
}

} // namespace tarvolt
