#include "model/services.h"

#include <cassert>
#include <optional>
#include <utility>

namespace tarvolt {
namespace {

std::optional<Services>& installed() {
    static std::optional<Services> services;
    return services;
}

} // namespace

void installServices(Services services) {
    installed() = std::move(services);
}

const Services& processServices() {
    assert(installed().has_value());
    return *installed();
}

} // namespace tarvolt
