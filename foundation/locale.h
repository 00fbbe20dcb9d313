#pragma once

#include <functional>
#include <optional>
#include <string>

namespace tarvolt {

/// The user's locale, by category, as identifiers of the text services ("tr_TR", "sr_Latn_RS"). An empty identifier is
/// the root locale.
struct UserLocale {
    std::string collate;           ///< order of names; root when the user has none
    std::string characters;        ///< case rules of the search; root when the user has none
    std::string time = "en_US";    ///< time texts
    std::string numeric = "en_US"; ///< counts and sizes

    /// From the environment as POSIX says: LC_ALL, else the category's variable, else LANG, the first that is set and
    /// not empty. "C" and "POSIX" count as none: root for order and search, English (US) for formats.
    static UserLocale fromEnvironment();

    /// The same from any look-up of variables; an absent or empty value is not set.
    static UserLocale from(const std::function<std::optional<std::string>(const char*)>& variable);
};

/// The process's user locale, read from the environment at the first call. Any thread.
const UserLocale& currentLocale();

} // namespace tarvolt
