#include "tests/fuzz/slow_rename.h"

#include "tests/support/slow_text.h"

#include <string_view>

namespace tarvolt::testing {
namespace {

const std::string extension = ".xpj";
const std::string tail = "_[ProjectData]";

constexpr const char* blanks[] = {"\t",     " ",      "\u00a0", "\u1680", "\u2000", "\u2001",
                                  "\u2002", "\u2003", "\u2004", "\u2005", "\u2006", "\u2007",
                                  "\u2008", "\u2009", "\u200a", "\u202f", "\u205f", "\u3000"};

bool isBlank(std::string_view name) {
    for (bool found = true; found && !name.empty();) {
        found = false;
        for (const std::string_view blank : blanks) {
            if (name.starts_with(blank)) {
                name.remove_prefix(blank.size());
                found = true;
            }
        }
    }
    return name.empty();
}

bool hasRefusedCharacter(const std::string& name) {
    for (const char refused : std::string("/<>:\"|?*\\")) {
        if (name.find(refused) != std::string::npos) {
            return true;
        }
    }
    return false;
}

/// The file that is read at `name`, links followed; null if there is none.
const SlowItem* fileAt(const SlowFolder& folder, std::string name) {
    for (int steps = 0; steps < 8; ++steps) {
        const auto found = folder.find(name);
        if (found == folder.end()) {
            return nullptr;
        }
        if (found->second.kind != SlowItem::Kind::link) {
            return found->second.kind == SlowItem::Kind::file ? &found->second : nullptr;
        }
        name = found->second.contents;
    }
    return nullptr;
}

bool isTooLong(const std::string& name, bool hasLimits) {
    return hasLimits && name.size() > 255;
}

bool hasNul(const std::string& name, bool hasLimits) {
    return hasLimits && name.find('\0') != std::string::npos;
}

/// Why the data folder cannot be moved. With several reasons, the system chooses.
std::set<std::string> reasonsAgainstMove(const SlowFolder& folder, const std::string& from, const std::string& to,
                                         bool hasLimits) {
    std::set<std::string> reasons;
    if (!folder.contains(from)) {
        reasons.insert("No such file or directory");
    }
    if (folder.contains(to)) {
        reasons.insert("File exists");
    }
    if (isTooLong(to, hasLimits)) {
        reasons.insert("File name too long");
    }
    std::set<std::string> messages;
    for (const auto& reason : reasons) {
        messages.insert("Failed to write file: Could not rename data folder: " + reason);
    }
    return messages;
}

} // namespace

SlowOutcome slowRename(const SlowFolder& folder, const std::string& oldName, bool hasDataFolder,
                       const std::string& newName, bool hasLimits) {
    const std::string oldFile = oldName + extension;
    const std::string newFile = newName + extension;
    if (hasRefusedCharacter(newName)) {
        return {{R"(Invalid name: Contains invalid characters: / < > : " | ? * \)"}, folder};
    }
    if (isBlank(newName)) {
        return {{"Invalid name: Name cannot be empty"}, folder};
    }
    if (folder.contains(newFile)) {
        return {{"A project named \"" + newName + "\" already exists."}, folder};
    }
    const SlowItem* read = fileAt(folder, oldFile);
    if (read == nullptr || !slowIsValidUtf8(read->contents)) {
        return {{"Failed to read file: " + oldFile}, folder};
    }
    if (!slowIsValidUtf8(newName)) {
        return {{"Failed to write file: Could not encode updated XML"}, folder};
    }
    if (isTooLong(newFile, hasLimits) || hasNul(newFile, hasLimits)) {
        return {{"Failed to write file: " + newFile}, folder};
    }
    if (hasDataFolder) {
        const auto reasons = reasonsAgainstMove(folder, oldName + tail, newName + tail, hasLimits);
        if (!reasons.empty()) {
            return {reasons, folder};
        }
    }
    SlowOutcome outcome{{""}, folder};
    // A name that is not text is in no text.
    outcome.folder[newFile] = {SlowItem::Kind::file,
                               slowIsValidUtf8(oldName) ? slowReplaceAll(read->contents, oldName + tail, newName + tail)
                                                        : read->contents};
    if (hasDataFolder) {
        outcome.folder[newName + tail] = folder.at(oldName + tail);
        outcome.folder.erase(oldName + tail);
    }
    outcome.folder.erase(oldFile);
    return outcome;
}

} // namespace tarvolt::testing
