#pragma once

#include "model/mpc_project.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvolt {

/// The header's badge: "0 projects", "1 project", "2 projects", with the number as `locale` writes it.
std::string projectCountText(std::int64_t count, std::string_view locale);

/// "12 files", and "1 files" for one, with the number as `locale` writes it.
std::string fileCountText(std::int64_t fileCount, std::string_view locale);

/// The whole row as one sentence for a screen reader: the name, the counts, and in words what the row shows by colour,
/// a missing data folder and the highlight (`renamed`).
std::string projectRowSentence(const MPCProject& project, bool renamed, std::string_view locale);

/// The same without the name.
std::string projectDetailsSentence(const MPCProject& project, bool renamed, std::string_view locale);

/// The name of the row's button for a screen reader: "Rename" and the project's name.
std::string renameButtonSentence(const MPCProject& project);

} // namespace tarvolt
