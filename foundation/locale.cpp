#include "foundation/locale.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace tarvolt {

namespace {

// The C library's functions depend on the locale themselves; these look at ASCII alone.
bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isLanguage(std::string_view part) {
    return (part.size() == 2 || part.size() == 3) && std::ranges::all_of(part, isLetter);
}

bool isTerritory(std::string_view part) {
    return (part.size() == 2 && std::ranges::all_of(part, isLetter)) ||
           (part.size() == 3 && std::ranges::all_of(part, isDigit));
}

std::string inCase(std::string_view part, char first, char last, int shift) {
    std::string result(part);
    for (char& c : result) {
        c = c >= first && c <= last ? static_cast<char>(c + shift) : c;
    }
    return result;
}

/// The script that a modifier names; what else a modifier may say ("@euro") is no part of an identifier.
std::string_view scriptOf(std::string_view modifier) {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 4> scripts{
        {{"latin", "_Latn"}, {"cyrillic", "_Cyrl"}, {"devanagari", "_Deva"}, {"iqtelif", "_Latn"}}};
    const auto* found = std::ranges::find(scripts, modifier, &std::pair<std::string_view, std::string_view>::first);
    return found == scripts.end() ? std::string_view() : found->second;
}

/// What stands before the first of `separator`; `rest` keeps what follows it.
std::string_view cut(std::string_view& rest, char separator) {
    const std::string_view whole = rest;
    const std::size_t at = std::min(whole.find(separator), whole.size());
    rest = at < whole.size() ? whole.substr(at + 1) : std::string_view();
    return whole.substr(0, at);
}

/// The identifier for language[_TERRITORY][.codeset][@modifier], or nothing for C, POSIX and what is no locale's name.
std::optional<std::string> identifierOf(std::string_view name) {
    std::string_view modifier = name;
    std::string_view codeset = cut(modifier, '@');
    std::string_view territory = cut(codeset, '.');
    const std::string_view language = cut(territory, '_');
    if (!isLanguage(language) || (!territory.empty() && !isTerritory(territory))) {
        return std::nullopt;
    }
    std::string identifier = inCase(language, 'A', 'Z', 'a' - 'A');
    identifier += scriptOf(modifier);
    if (!territory.empty()) {
        identifier += '_' + inCase(territory, 'a', 'z', 'A' - 'a');
    }
    return identifier;
}

} // namespace

UserLocale UserLocale::from(const std::function<std::optional<std::string>(const char*)>& variable) {
    const auto take = [&](const char* category, std::string& identifier) {
        for (const char* name : {"LC_ALL", category, "LANG"}) {
            const std::optional<std::string> value = variable(name);
            if (value && !value->empty()) {
                identifier = identifierOf(*value).value_or(identifier);
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

UserLocale UserLocale::fromEnvironment() {
    return from([](const char* name) -> std::optional<std::string> {
        const char* value = std::getenv(name);
        return value != nullptr ? std::optional<std::string>(value) : std::nullopt;
    });
}

const UserLocale& currentLocale() {
    static const UserLocale locale = UserLocale::fromEnvironment();
    return locale;
}

} // namespace tarvolt
