#include "app/sections/log_row_texts.h"

#include "foundation/localized.h"

namespace tarvolt {

std::string logRowSentence(const MPCScanner::LogEntry& entry, std::string_view time) {
    std::string sentence = entry.isError ? localized("LogPanel", "Error") + ": " : std::string();
    sentence += entry.message;
    sentence += ", ";
    sentence += time;
    return sentence;
}

} // namespace tarvolt
