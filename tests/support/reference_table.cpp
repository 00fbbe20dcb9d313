#include "tests/support/reference_table.h"

#include "tests/support/utf8_of.h"

#include <fstream>
#include <stdexcept>

namespace tarvolt::testing {

std::string unescaped(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        if (text.front() != '\\') {
            result += text.front();
            text.remove_prefix(1);
            continue;
        }
        const std::size_t end = text.find('}');
        if (!text.starts_with("\\u{") || end == std::string_view::npos) {
            throw std::runtime_error("no escape: " + std::string(text));
        }
        result += utf8Of(static_cast<char32_t>(std::stoul(std::string(text.substr(3, end - 3)), nullptr, 16)));
        text.remove_prefix(end + 1);
    }
    return result;
}

std::vector<ReferenceRow> readReferenceTable(const std::string& name, std::size_t rows, std::size_t columns) {
    std::ifstream file(std::string(TARVOLT_TEST_DATA) + "/reference/" + name, std::ios::binary);
    std::vector<ReferenceRow> table;
    for (std::string line; std::getline(file, line);) {
        ReferenceRow row{name + ':' + std::to_string(table.size() + 1), line, {}};
        for (std::size_t at = 0; at <= line.size();) {
            const std::size_t end = std::min(line.find('\t', at), line.size());
            row.fields.push_back(unescaped(std::string_view(line).substr(at, end - at)));
            at = end + 1;
        }
        if (columns != 0 && row.fields.size() != columns) {
            throw std::runtime_error(row.place + " has " + std::to_string(row.fields.size()) + " fields");
        }
        table.push_back(row);
    }
    if (table.size() != rows) {
        throw std::runtime_error(name + " has " + std::to_string(table.size()) + " rows");
    }
    return table;
}

} // namespace tarvolt::testing
