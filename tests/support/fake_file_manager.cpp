#include "tests/support/fake_file_manager.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace tarvolt::testing {

using Guard = std::lock_guard<std::recursive_mutex>;

FakeFileManager::Item& FakeFileManager::add(const std::string& path, Kind kind) {
    const Guard guard(mutex_);
    auto& placed = items_[path];
    placed.serial = nextSerial_++;
    placed.number = placed.serial;
    placed.item = Item{};
    placed.item.kind = kind;
    return placed.item;
}

FakeFileManager::Item& FakeFileManager::addFile(const std::string& path, std::string contents) {
    auto& item = add(path, Kind::file);
    item.contents = std::move(contents);
    return item;
}

FakeFileManager::Item& FakeFileManager::addFile(const std::string& path, std::int64_t size) {
    auto& item = add(path, Kind::file);
    item.fakeSize = size;
    return item;
}

FakeFileManager::Item& FakeFileManager::addFolder(const std::string& path) {
    return add(path, Kind::folder);
}

FakeFileManager::Item& FakeFileManager::addLink(const std::string& path, const std::string& target) {
    auto& item = add(path, Kind::link);
    item.contents = target;
    return item;
}

FakeFileManager::Item& FakeFileManager::addPipe(const std::string& path) {
    return add(path, Kind::pipe);
}

void FakeFileManager::fail(const std::string& operation, int errorNumber, int nth) {
    const Guard guard(mutex_);
    failures_[operation] = {errorNumber, nth};
}

void FakeFileManager::renumber(const std::string& path) {
    const Guard guard(mutex_);
    if (const auto found = items_.find(path); found != items_.end()) {
        found->second.number = nextSerial_++;
    }
}

void FakeFileManager::lose(const std::string& path) {
    const Guard guard(mutex_);
    items_.erase(path);
}

void FakeFileManager::relocate(const std::string& from, const std::string& to) {
    const Guard guard(mutex_);
    Items moved;
    for (const auto& [path, placed] : items_) {
        const bool inside = path == from || path.starts_with(from + "/");
        moved[inside ? to + path.substr(from.size()) : path] = placed;
    }
    items_ = std::move(moved);
}

std::vector<std::string> FakeFileManager::traffic() const {
    const Guard guard(mutex_);
    return traffic_;
}

std::vector<std::string> FakeFileManager::disk() const {
    const Guard guard(mutex_);
    std::vector<std::string> lines;
    for (const auto& [path, placed] : items_) {
        lines.push_back(placed.item.kind == Kind::folder ? path + "/" : path + "=" + placed.item.contents);
    }
    return lines;
}

int FakeFileManager::begin(const std::string& operation, const std::string& rest) const {
    const auto line = operation + " " + rest;
    if (onCall) {
        onCall(line);
    }
    traffic_.push_back(line);
    const auto failure = failures_.find(operation);
    if (failure == failures_.end() || --failure->second.callsLeft > 0) {
        return 0;
    }
    const int errorNumber = failure->second.errorNumber;
    failures_.erase(failure);
    return errorNumber;
}

const FakeFileManager::Item* FakeFileManager::find(std::string path, bool followLink) const {
    for (int links = 0; links < 8; ++links) {
        const auto found = items_.find(path);
        if (found == items_.end()) {
            return nullptr;
        }
        const auto& item = found->second.item;
        if (item.kind != Kind::link || !followLink) {
            return &item;
        }
        path = item.contents;
    }
    return nullptr;
}

bool FakeFileManager::isInAFolder(const std::filesystem::path& path) const {
    const auto* folder = find(path.parent_path(), true);
    return folder != nullptr && folder->kind == Kind::folder;
}

std::optional<std::int64_t> FakeFileManager::sizeOf(const Item& item) {
    if (item.kind == Kind::folder || item.sizeUnreadable) {
        return std::nullopt;
    }
    return item.fakeSize.value_or(static_cast<std::int64_t>(item.contents.size()));
}

void FakeFileManager::contentsOfDirectory(const std::filesystem::path& folder, LinkPolicy links, Sizes sizes,
                                          const Visitor& visit) const {
    const Guard guard(mutex_);
    if (const int error = begin("list", folder.native())) {
        throw FileError(error, "open", folder);
    }
    const auto* listed = find(folder.native(), links == LinkPolicy::follow);
    if (listed == nullptr || listed->kind != Kind::folder) {
        throw FileError(listed == nullptr ? ENOENT : ENOTDIR, "open", folder);
    }
    std::vector<std::pair<std::uint64_t, Items::const_iterator>> order;
    const auto prefix = folder.native() + "/";
    for (auto at = items_.begin(); at != items_.end(); ++at) {
        const bool inside = at->first.starts_with(prefix) && at->first.find('/', prefix.size()) == std::string::npos;
        if (inside && at->first[prefix.size()] != '.') {
            order.emplace_back(at->second.serial, at);
        }
    }
    std::sort(order.begin(), order.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    int visited = 0;
    for (const auto& [serial, at] : order) {
        if (listed->listError != 0 && visited++ == listed->listErrorAfter) {
            throw FileError(listed->listError, "readdir", folder);
        }
        const auto& item = at->second.item;
        const std::string_view name = std::string_view(at->first).substr(prefix.size());
        DirectoryEntry entry{name, item.kind == Kind::folder, std::nullopt};
        if (item.kindUnreadable) {
            entry.isDirectory.reset();
        }
        if (sizes == Sizes::ask) {
            entry.fileSize = sizeOf(item);
        }
        visit(entry);
    }
    if (listed->listError != 0 && visited <= listed->listErrorAfter) {
        throw FileError(listed->listError, "readdir", folder);
    }
}

bool FakeFileManager::fileExists(const std::filesystem::path& path) const {
    const Guard guard(mutex_);
    begin("exists", path.native());
    return find(path.native(), false) != nullptr;
}

std::optional<FileState> FakeFileManager::state(const std::filesystem::path& path) const {
    const Guard guard(mutex_);
    const int error = begin("state", path.native());
    const auto* item = find(path.native(), false);
    if (error != 0 || (item != nullptr && item->sizeUnreadable)) {
        throw FileError(error != 0 ? error : EACCES, "stat", path);
    }
    return stateOf(path);
}

std::optional<FileState> FakeFileManager::stateOf(const std::filesystem::path& path) const {
    const auto found = items_.find(path.native());
    if (found == items_.end()) {
        return std::nullopt;
    }
    const auto& [serial, number, item] = found->second;
    const auto written = static_cast<std::int64_t>(std::hash<std::string>{}(item.contents) >> 1U);
    return FileState{.identity = {1, number},
                     .kind = static_cast<std::uint32_t>(item.kind),
                     .size = sizeOf(item).value_or(0),
                     .modified = item.fakeDate.value_or(written),
                     .changed = item.fakeDate ? static_cast<std::uint64_t>(*item.fakeDate) : serial};
}

template<class Seen>
void FakeFileManager::expect(const char* call, const std::filesystem::path& path, const Seen& onlyIf) const {
    const auto found = stateOf(path);
    if (!found || *found != onlyIf) {
        throw FileError(found ? EBUSY : ENOENT, call, path);
    }
}

std::optional<FileContents> FakeFileManager::contents(const std::filesystem::path& path) const {
    const Guard guard(mutex_);
    const int error = begin("read", path.native());
    const auto* item = find(path.native(), true);
    if (error != 0 || item == nullptr || item->kind != Kind::file) {
        return std::nullopt;
    }
    FileContents contents{std::make_unique<char[]>(item->contents.size()), item->contents.size()};
    std::ranges::copy(item->contents, contents.bytes.get());
    return contents;
}

std::optional<FileState> FakeFileManager::createFile(const std::filesystem::path& path,
                                                     const ContentsWriter& contents) {
    const Guard guard(mutex_);
    if (begin("create", path.native()) != 0 || find(path.native(), false) != nullptr || !isInAFolder(path)) {
        return std::nullopt;
    }
    std::string bytes;
    contents([&](std::string_view part) { bytes += part; });
    addFile(path.native(), std::move(bytes)).fakeDate = dateOfNewFiles;
    return stateOf(path);
}

void FakeFileManager::moveItem(const std::filesystem::path& from, const std::filesystem::path& to,
                               const FileIdentity& onlyIf) {
    const Guard guard(mutex_);
    if (const int error = begin("move", from.native() + " -> " + to.native())) {
        throw FileError(error, "rename", from);
    }
    expect("rename", from, onlyIf);
    if (find(to.native(), false) != nullptr || !isInAFolder(to)) {
        throw FileError(isInAFolder(to) ? EEXIST : ENOENT, "rename", from);
    }
    relocate(from.native(), to.native());
}

void FakeFileManager::removeItem(const std::filesystem::path& path, const FileState& onlyIf) {
    const Guard guard(mutex_);
    if (const int error = begin("remove", path.native())) {
        throw FileError(error, "unlink", path);
    }
    expect("unlink", path, onlyIf);
    if (find(path.native(), false)->kind == Kind::folder) {
        throw FileError(EISDIR, "unlink", path);
    }
    lose(path.native());
}

} // namespace tarvolt::testing
