#include "foundation/dispatch_queue.h"

#include <atomic>
#include <thread>
#include <utility>

namespace tarvolt {
namespace {

std::atomic<int> running{0};

class BackgroundQueue final : public DispatchQueue {
public:
    void async(Task task) override { asyncAfter(std::chrono::milliseconds{0}, std::move(task)); }

    void asyncAfter(std::chrono::milliseconds delay, Task task) override {
        const auto deadline = std::chrono::steady_clock::now() + delay;
        running.fetch_add(1);
        try {
            std::thread([deadline, task = std::move(task)]() mutable {
                std::this_thread::sleep_until(deadline);
                task();
                // Release what the task holds before the count falls: its destructors may use static objects too.
                task = nullptr;
                running.fetch_sub(1);
            }).detach();
        } catch (...) {
            running.fetch_sub(1);
            throw;
        }
    }
};

} // namespace

std::shared_ptr<DispatchQueue> makeBackgroundQueue() {
    return std::make_shared<BackgroundQueue>();
}

int runningBackgroundTasks() {
    return running.load();
}

} // namespace tarvolt
