#pragma once

#include "model/mpc_project.h"

#include <string>
#include <string_view>

namespace tarvolt {

/// "12 files", also "1 files", from the key "%lld files".
std::string fileCountText(std::int64_t fileCount, std::string_view locale);

/// "music.note.list" for a project with a data folder, else "music.note".
std::string_view projectSymbol(const MPCProject& project);

/// The whole row as one sentence for a screen reader: name, counts, the missing folder and the success that the icon's
/// colour shows. `renamed` says whether the row is highlighted.
std::string projectRowSentence(const MPCProject& project, bool renamed, std::string_view locale);

/// The same without the name.
std::string projectDetailsSentence(const MPCProject& project, bool renamed, std::string_view locale);

/// What the row's button is called for a screen reader: "Rename" and the project's name.
std::string renameButtonSentence(const MPCProject& project);

} // namespace tarvolt
