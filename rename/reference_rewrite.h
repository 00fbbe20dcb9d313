#pragma once

#include <string>
#include <string_view>

namespace tarvolt {

/// The text of a project file with every reference to the data folder of `oldName` made one to that of `newName`: the
/// two folder names are exchanged wherever they stand, by canonical equivalence, and no other byte changes. No entity
/// is read or written: a reference whose name is written with entities stays. `text` must be well-formed UTF-8.
std::string rewriteReferences(std::string_view text, std::string_view oldName, std::string_view newName);

} // namespace tarvolt
