#include "foundation/localized.h"

#include <utility>

namespace tarvolt {

namespace {

Translator& installedTranslator() {
    static Translator translator;
    return translator;
}

} // namespace

std::string localized(const char* context, const char* key) {
    const Translator& translator = installedTranslator();
    return translator ? translator(context, key) : std::string(key);
}

void setTranslator(Translator translator) {
    installedTranslator() = std::move(translator);
}

} // namespace tarvolt
