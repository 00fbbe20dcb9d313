#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

namespace tarvolt {

/// Formats points in time by a pattern of Unicode date fields (UTS #35) such as "h:mm:ss a". Slow to make and quick to
/// use. For use on one thread at a time.
class DateFormatter {
public:
    /// `locale` is an identifier, see UserLocale. `timeZone` is a name from the time zone database ("Europe/Berlin");
    /// empty means the user's own, which each call of `text` takes from the C library (TZ, else the system's). Only its
    /// offset is used, not its name.
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
