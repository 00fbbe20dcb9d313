#include "app/sections/list_texts.h"

#include "foundation/byte_count_formatter.h"
#include "foundation/localized.h"

namespace tarvolt {
namespace {

/// `text` with its "%lld" replaced by `number`. A translation may have left the placeholder out.
std::string withNumber(std::string text, std::int64_t number, std::string_view locale) {
    constexpr std::string_view placeholder = "%lld";
    if (const auto at = text.find(placeholder); at != std::string::npos) {
        text.replace(at, placeholder.size(), integerText(number, locale));
    }
    return text;
}

} // namespace

std::string projectCountText(std::int64_t count, std::string_view locale) {
    return withNumber(localized("HeaderView", "%lld"), count, locale) + " project" + (count == 1 ? "" : "s");
}

std::string fileCountText(std::int64_t fileCount, std::string_view locale) {
    return withNumber(localized("ProjectRow", "%lld files"), fileCount, locale);
}

std::string projectDetailsSentence(const MPCProject& project, bool renamed, std::string_view locale) {
    std::string sentence =
        fileCountText(project.fileCount(), locale) + ", " + byteCountText(project.totalSize(), locale);
    if (!project.dataFolderURL()) {
        sentence += ", " + localized("ProjectRow", "No data folder");
    }
    if (renamed) {
        sentence += ", " + localized("ProjectRow", "Renamed");
    }
    return sentence;
}

std::string projectRowSentence(const MPCProject& project, bool renamed, std::string_view locale) {
    return project.baseName() + ", " + projectDetailsSentence(project, renamed, locale);
}

std::string renameButtonSentence(const MPCProject& project) {
    return localized("ProjectRow", "Rename") + " " + project.baseName();
}

} // namespace tarvolt
