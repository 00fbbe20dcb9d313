#include "foundation/localized.h"

#include <utility>

namespace tarvolt {

namespace {

Translator installed;

} // namespace

std::string localized(const char* context, const char* key) {
    return installed ? installed(context, key) : std::string(key);
}

void setTranslator(Translator translator) {
    installed = std::move(translator);
}

} // namespace tarvolt
