#pragma once

#include <QList>
#include <QUrl>

namespace tarvolt {

/// The places that the toolkit's folder panel offers: home, and every mounted drive and card.
QList<QUrl> panelPlaces();

} // namespace tarvolt
