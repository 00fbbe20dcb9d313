#include "app/sections/split_width.h"

#include <algorithm>

namespace tarvolt {

double allowedLogWidth(double wanted, double available) {
    const double most = std::clamp(available - leastListWidth, leastLogWidth, mostLogWidth);
    return std::clamp(wanted, leastLogWidth, most);
}

} // namespace tarvolt
