#include "rename/reference_rewrite.h"

#include "foundation/text.h"
#include "model/folder_scan.h"

namespace tarvolt {

std::string rewriteReferences(std::string_view text, std::string_view oldName, std::string_view newName) {
    return replaceAllBeforeTail(text, oldName, newName, dataFolderSuffix);
}

} // namespace tarvolt
