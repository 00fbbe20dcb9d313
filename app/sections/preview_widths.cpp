#include "app/sections/preview_widths.h"

#include <algorithm>

namespace tarvolt {

double oldNameWidth(double oldNatural, double newNatural, double available) {
    return std::min(oldNatural, std::max(available / 2, available - newNatural));
}

} // namespace tarvolt
