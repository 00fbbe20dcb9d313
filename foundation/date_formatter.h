#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

namespace tarvolt {

/// Writes points in time by one fixed pattern of Unicode date fields (UTS #35), "h:mm:ss a" for instance. Making one is
/// slow, using one is quick. Not for two threads at once.
class DateFormatter {
public:
    /// `locale` is an identifier, see UserLocale. `timeZone` is a name of the time zone database ("Europe/Berlin");
    /// empty means the user's own as the C library has it each time a text is asked for (TZ, else the system's). Of
    /// that the offset is used and not the name.
    DateFormatter(std::string_view pattern, std::string_view locale, std::string_view timeZone = {});
    DateFormatter(DateFormatter&&) noexcept;
    DateFormatter& operator=(DateFormatter&&) noexcept;
    ~DateFormatter();

    std::string text(std::chrono::system_clock::time_point time) const;

private:
    struct Format;
    std::unique_ptr<Format> format_;
};

} // namespace tarvolt
