#pragma once

#include "foundation/file_manager.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvolt::testing {

/// A disk in memory that records its calls and fails where it is told to. Listings are in the order in
/// which the items were added. Calls may come from any thread.
class FakeFileManager final : public FileManager {
public:
    enum class Kind { file, folder, link, pipe };

    struct Item {
        Kind kind = Kind::file;
        std::string contents;                 ///< of a file; of a link, its target
        std::optional<std::int64_t> fakeSize; ///< reported instead of the size of `contents`
        std::optional<std::int64_t> fakeDate; ///< reported as its dates; otherwise writing to it changes them
        bool sizeUnreadable = false;          ///< the size and state are unknown
        bool kindUnreadable = false;          ///< whether it is a folder is unknown
        int listError = 0;                    ///< listing it fails with this error
        int listErrorAfter = 0;               ///< so many entries are visited first
    };

    // Setting it up.
    Item& addFile(const std::string& path, std::string contents = {});
    Item& addFile(const std::string& path, std::int64_t size);
    Item& addFolder(const std::string& path);
    Item& addLink(const std::string& path, const std::string& target);
    Item& addPipe(const std::string& path);

    /// The `nth` call from now on of the operation ("list", "exists", "state", "read", "create", "move", "remove")
    /// fails with this error number; "exists" cannot fail.
    void fail(const std::string& operation, int errorNumber, int nth = 1);

    /// Called before each operation with its line of traffic; may change the scene.
    std::function<void(const std::string& line)> onCall;

    /// Gives the item, if there is one, another number, as user-space file systems do after the system has forgotten
    /// it.
    void renumber(const std::string& path);

    // What another program does; these calls are not recorded and cannot fail.
    void lose(const std::string& path);
    void relocate(const std::string& from, const std::string& to);

    /// Reported as the dates of files that are created from now on.
    std::optional<std::int64_t> dateOfNewFiles;

    // Checking the outcome.
    /// One line per call, in order: "list /p", "exists /p/N.xpj", "state /p/B.xpj", "read /p/B.xpj", "create /p/N.xpj",
    /// "move /a -> /b", "remove /p/B.xpj".
    std::vector<std::string> traffic() const;
    /// Every item: a path ending in "/" for a folder, else "path=contents".
    std::vector<std::string> disk() const;

    void contentsOfDirectory(const std::filesystem::path& folder, LinkPolicy links, Sizes sizes,
                             const Visitor& visit) const override;
    bool fileExists(const std::filesystem::path& path) const override;
    /// A file that is written to gets a new state.
    std::optional<FileState> state(const std::filesystem::path& path) const override;
    std::optional<FileContents> contents(const std::filesystem::path& path) const override;
    std::optional<FileState> createFile(const std::filesystem::path& path, const ContentsWriter& contents) override;
    void moveItem(const std::filesystem::path& from, const std::filesystem::path& to,
                  const FileIdentity& onlyIf) override;
    void removeItem(const std::filesystem::path& path, const FileState& onlyIf) override;

private:
    struct Placed {
        std::uint64_t serial = 0;
        std::uint64_t number = 0; ///< of its identity
        Item item;
    };
    struct Failure {
        int errorNumber = 0;
        int callsLeft = 0;
    };
    using Items = std::map<std::string, Placed>;

    Item& add(const std::string& path, Kind kind);
    /// Records the call and returns the error it is to fail with, or 0.
    int begin(const std::string& operation, const std::string& rest) const;
    template<class Seen> void expect(const char* call, const std::filesystem::path& path, const Seen& onlyIf) const;
    const Item* find(std::string path, bool followLink) const;
    static std::optional<std::int64_t> sizeOf(const Item& item);
    std::optional<FileState> stateOf(const std::filesystem::path& path) const;
    bool isInAFolder(const std::filesystem::path& path) const;

    mutable std::recursive_mutex mutex_;
    mutable std::vector<std::string> traffic_;
    mutable std::map<std::string, Failure> failures_;
    Items items_;
    std::uint64_t nextSerial_ = 1;
};

} // namespace tarvolt::testing
