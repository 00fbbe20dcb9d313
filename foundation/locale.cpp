#include "foundation/locale.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <utility>

#include <unicode/localebuilder.h>

namespace tarvolt {

namespace {

/// The script that a modifier names; empty for other modifiers ("euro"), which identifiers have no place for.
std::string_view scriptOf(std::string_view modifier) {
    using Script = std::pair<std::string_view, std::string_view>;
    for (const auto& [name, script] : {Script{"latin", "Latn"}, Script{"cyrillic", "Cyrl"},
                                       Script{"devanagari", "Deva"}, Script{"iqtelif", "Latn"}}) {
        if (modifier == name) {
            return script;
        }
    }
    return {};
}

/// Takes the part before the first `separator` off the front of `rest`, and the separator with it.
std::string_view cut(std::string_view& rest, char separator) {
    const std::string_view whole = rest;
    const std::size_t at = std::min(whole.find(separator), whole.size());
    rest = at < whole.size() ? whole.substr(at + 1) : std::string_view();
    return whole.substr(0, at);
}

/// The identifier for language[_TERRITORY][.codeset][@modifier]; absent for C, POSIX and anything else.
std::optional<std::string> identifierOf(std::string_view name) {
    std::string_view modifier = name;
    std::string_view codeset = cut(modifier, '@');
    std::string_view territory = cut(codeset, '.');
    const std::string_view language = cut(territory, '_');
    if (language.size() < 2 || language.size() > 3) {
        return std::nullopt; // ICU accepts up to eight letters: "posix", "turkish"
    }
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale locale =
        icu::LocaleBuilder().setLanguage(language).setScript(scriptOf(modifier)).setRegion(territory).build(status);
    return U_SUCCESS(status) ? std::optional<std::string>(locale.getName()) : std::nullopt;
}

} // namespace

UserLocale UserLocale::from(const std::function<const char*(const char*)>& variable) {
    const auto take = [&](const char* category, std::string& identifier) {
        for (const char* name : {"LC_ALL", category, "LANG"}) {
            if (const char* value = variable(name); value != nullptr && *value != '\0') {
                identifier = identifierOf(value).value_or(identifier);
                return;
            }
        }
    };
    UserLocale locale;
    take("LC_COLLATE", locale.collate);
    take("LC_CTYPE", locale.characters);
    take("LC_TIME", locale.time);
    take("LC_NUMERIC", locale.numeric);
    return locale;
}

const UserLocale& currentLocale() {
    static const UserLocale locale = UserLocale::from(std::getenv);
    return locale;
}

} // namespace tarvolt
