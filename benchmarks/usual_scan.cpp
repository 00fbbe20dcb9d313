// The scan as one would write it at first, with the standard library and whole paths: usual_scan FOLDER
#include <cstdint>
#include <cstdio>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

struct Sum {
    std::size_t projects = 0;
    std::size_t entries = 0;
    std::uintmax_t bytes = 0;
};

void addDataFolder(Sum& sum, const fs::path& folder) {
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.path().filename().string().front() != '.') {
            ++sum.entries;
            sum.bytes += entry.is_directory() ? 0 : entry.file_size();
        }
    }
}

void addProject(Sum& sum, const fs::directory_entry& file) {
    ++sum.projects;
    sum.bytes += file.file_size();
    fs::path data = file.path();
    data.replace_extension();
    data += "_[ProjectData]";
    if (fs::is_directory(fs::symlink_status(data))) {
        addDataFolder(sum, data);
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: usual_scan FOLDER\n", stderr);
        return 2;
    }
    Sum sum;
    for (const auto& item : fs::directory_iterator(argv[1])) {
        if (item.path().extension() == ".xpj") {
            addProject(sum, item);
        }
    }
    std::printf("%zu projects, %zu entries, %ju bytes\n", sum.projects, sum.entries, sum.bytes);
    return 0;
}
