#pragma once

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

namespace tarvolt::testing {

/// Sets the time zone of the process as long as it lives.
class ProcessTimeZone {
public:
    explicit ProcessTimeZone(const char* zone) {
        if (const char* before = std::getenv("TZ")) {
            before_ = before;
        }
        setenv("TZ", zone, 1);
    }
    ProcessTimeZone(const ProcessTimeZone&) = delete;
    ProcessTimeZone& operator=(const ProcessTimeZone&) = delete;
    ~ProcessTimeZone() {
        before_ ? setenv("TZ", before_->c_str(), 1) : unsetenv("TZ");
        tzset(); // localtime_r need not read the variable again
    }

private:
    std::optional<std::string> before_;
};

} // namespace tarvolt::testing
