#pragma once

namespace tarvolt {

/// The widths that the two panes under the header keep.
inline constexpr double leastListWidth = 400;
inline constexpr double leastLogWidth = 220;
inline constexpr double mostLogWidth = 280;

/// The log's width nearest to `wanted` in an area of `available`, the divider left out: the log keeps its limits
/// first, then the list its least width.
double allowedLogWidth(double wanted, double available);

} // namespace tarvolt
