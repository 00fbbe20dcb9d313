#pragma once

#include <QPainterPath>

#include <string_view>

namespace tarvolt {

/// A painter path from path data as vector drawings write it: M, L, H, V, C, A (circular, unrotated) and Z, absolute
/// and relative, numbers as closely packed as the grammar allows. `data` must be well-formed: it is part of the
/// program.
QPainterPath drawingPath(std::string_view data);

} // namespace tarvolt
