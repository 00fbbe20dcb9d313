#pragma once

namespace tarvolt {

/// How wide the old name of a preview line is drawn, `available` being for both names: as wide as it is where both
/// fit, else at most half, or more where the new name leaves more.
double oldNameWidth(double oldNatural, double newNatural, double available);

} // namespace tarvolt
