#pragma once

#include <map>
#include <set>
#include <string>

namespace tarvolt::testing {

/// An item of a folder. A folder holds one file, `contents`; a link leads to the item named `contents`.
struct SlowItem {
    enum class Kind { file, folder, link, pipe } kind = Kind::file;
    std::string contents;

    friend bool operator==(const SlowItem&, const SlowItem&) = default;
};

using SlowFolder = std::map<std::string, SlowItem>;

/// What is said in the end, any of these, and what is on the disk.
struct SlowOutcome {
    std::set<std::string> messages; ///< an empty one for a rename that succeeds
    SlowFolder folder;
};

/// A rename, in the simplest way: each step as it is described, on a folder that is a list of names. `hasLimits`: the
/// disk takes no name of more than 255 bytes and none with a NUL byte.
SlowOutcome slowRename(const SlowFolder& folder, const std::string& oldName, bool hasDataFolder,
                       const std::string& newName, bool hasLimits);

} // namespace tarvolt::testing
