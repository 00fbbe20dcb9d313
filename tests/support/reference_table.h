#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace tarvolt::testing {

/// One line of a table of known results, with unescaped fields. Printed as in the file.
struct ReferenceRow {
    std::string place; ///< file name and line number
    std::string line;
    std::vector<std::string> fields;

    friend std::ostream& operator<<(std::ostream& out, const ReferenceRow& row) {
        return out << row.place << ": " << row.line;
    }
};

/// The rows of a file in tests/data/reference. Throws unless it has `rows` lines of `columns` fields each; 0 columns
/// mean any number.
std::vector<ReferenceRow> readReferenceTable(const std::string& name, std::size_t rows, std::size_t columns);

/// `text` with each `\u{hex}` replaced by its code point. Throws if one is incomplete.
std::string unescaped(std::string_view text);

} // namespace tarvolt::testing
