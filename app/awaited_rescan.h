#pragma once

#include <optional>
#include <string>

namespace tarvolt {

/// Tells when the scan that follows a rename has listed the new name: of several renames the last one that went well
/// counts, and a scan that has ended before its rescan was due does not.
class AwaitedRescan {
public:
    /// A rename begins; returns the number it is called by.
    int begin();

    /// The rename that was begun last went well and made `name`.
    void succeed(std::string name);

    /// The time for the scan after rename `number` has come.
    void due(int number);

    void scanEnded();

    /// The new name once it can be looked for, and only once.
    std::optional<std::string> take();

private:
    int begun_ = 0;
    int succeeded_ = 0; ///< the last rename that went well
    std::string name_;  ///< what it made
    bool due_ = false;
    bool scanEnded_ = false; ///< a scan has ended since it was due
};

} // namespace tarvolt
