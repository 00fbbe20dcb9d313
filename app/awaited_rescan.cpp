#include "app/awaited_rescan.h"

#include <utility>

namespace tarvolt {

int AwaitedRescan::begin() {
    return ++begun_;
}

void AwaitedRescan::succeed(std::string name) {
    succeeded_ = begun_;
    name_ = std::move(name);
    due_ = false;
}

void AwaitedRescan::due(int number) {
    if (number == succeeded_) {
        due_ = true;
        scanEnded_ = false;
    }
}

void AwaitedRescan::scanEnded() {
    scanEnded_ = true;
}

std::optional<std::string> AwaitedRescan::take() {
    if (!due_ || !scanEnded_) {
        return std::nullopt;
    }
    due_ = false;
    return name_;
}

} // namespace tarvolt
