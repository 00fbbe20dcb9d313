#pragma once

#include <functional>
#include <string>

namespace tarvolt {

/// The user's locale by category, as ICU identifiers ("tr_TR", "sr_Latn_RS"). The empty identifier is the root locale.
struct UserLocale {
    std::string collate;           ///< order of names
    std::string characters;        ///< case rules of the search
    std::string time = "en_US";    ///< times
    std::string numeric = "en_US"; ///< counts and sizes

    /// Reads POSIX locale variables through `variable`, which works like `getenv`. For each category the first that is
    /// set and not empty counts: LC_ALL, the category's own, LANG. With none, or with C or POSIX, the defaults above
    /// apply.
    static UserLocale from(const std::function<const char*(const char*)>& variable);
};

/// The locale of the process's environment, read at the first call. Any thread.
const UserLocale& currentLocale();

} // namespace tarvolt
