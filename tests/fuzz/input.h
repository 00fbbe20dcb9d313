#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace tarvolt {

/// Takes the first line off an input.
inline std::string_view cutLine(std::string_view& rest) {
    const std::string_view whole = rest;
    const std::size_t end = std::min(whole.find('\n'), whole.size());
    rest = whole.substr(std::min(end + 1, whole.size()));
    return whole.substr(0, end);
}

/// `text` with \1 made the tail of a data folder's name, \2 the old name, \3 a line break and \4 a long run: what the
/// fuzzer would hardly ever write of itself.
inline std::string expanded(std::string_view text, std::string_view oldName) {
    std::string result;
    for (const char byte : text) {
        switch (byte) {
        case '\1':
            result += "_[ProjectData]";
            break;
        case '\2':
            result += oldName;
            break;
        case '\3':
            result += '\n';
            break;
        case '\4':
            result.append(60, 'n');
            break;
        default:
            result += byte;
        }
    }
    return result;
}

} // namespace tarvolt
