#include "tests/support/temporary_folder.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace tarvolt::testing {
namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() {
    std::string pattern = (fs::temp_directory_path() / "tarvolt-test-XXXXXX").native();
    if (mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("no temporary folder to be had");
    }
    path_ = pattern;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    // Make folders that a test has closed accessible first, so that their contents can be removed.
    fs::permissions(path_, fs::perms::owner_all, fs::perm_options::add, ignored);
    for (fs::recursive_directory_iterator at(path_, fs::directory_options::skip_permission_denied, ignored), end;
         at != end; at.increment(ignored)) {
        if (at->is_directory(ignored) && !at->is_symlink(ignored)) {
            fs::permissions(at->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
        }
    }
    fs::remove_all(path_, ignored);
}

fs::path TemporaryFolder::operator/(std::string_view name) const {
    return path_.native() + "/" + std::string(name);
}

fs::path TemporaryFolder::write(std::string_view name, std::string_view contents) const {
    auto file = *this / name;
    fs::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary);
    out.write(contents.data(), static_cast<std::streamsize>(contents.size()));
    out.close();
    if (!out) {
        throw std::runtime_error("could not write " + file.native());
    }
    return file;
}

fs::path TemporaryFolder::makeFolder(std::string_view name) const {
    auto folder = *this / name;
    fs::create_directories(folder);
    return folder;
}

std::vector<std::string> TemporaryFolder::tree() const {
    return treeOf(path_);
}

std::vector<std::string> treeOf(const fs::path& folder) {
    std::vector<std::string> lines;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const auto name = entry.path().native().substr(folder.native().size() + 1);
        if (entry.is_symlink()) {
            lines.push_back(name + "->" + fs::read_symlink(entry.path()).native());
        } else if (entry.is_directory()) {
            lines.push_back(name + "/");
        } else if (entry.is_regular_file()) {
            lines.push_back(name + "=" + readFile(entry.path()));
        } else {
            lines.push_back(name + "!");
        }
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

std::string readFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return std::move(bytes).str();
}

std::optional<std::string> makeSocket(const fs::path& path) {
    sockaddr_un address{};
    if (path.native().size() >= sizeof address.sun_path) {
        return "the path is too long for a socket";
    }
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    address.sun_family = AF_UNIX;
    path.native().copy(address.sun_path, sizeof address.sun_path);
    const bool made = ::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    ::close(socket);
    return made ? std::nullopt : std::optional<std::string>("no socket can be made here");
}

} // namespace tarvolt::testing
