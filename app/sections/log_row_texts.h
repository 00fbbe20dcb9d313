#pragma once

#include "model/mpc_scanner.h"

#include <string>
#include <string_view>

namespace tarvolt {

/// A log line as one sentence for a screen reader: its message, the failure that the colour shows, and its time.
std::string logRowSentence(const MPCScanner::LogEntry& entry, std::string_view time);

} // namespace tarvolt
