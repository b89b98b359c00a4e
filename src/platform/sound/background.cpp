#include "platform/sound/background.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>

namespace platform::sound {
namespace {

struct Living {
    std::mutex mutex;
    std::condition_variable fewer;
    int count = 0;
};

Living& living() {
    static auto* threads = new Living; // outlives every thread that counts itself out
    return *threads;
}

} // namespace

bool runInBackground(std::function<void()> work) {
    Living& threads = living();
    const std::lock_guard lock(threads.mutex);
    ++threads.count;
    try {
        std::thread([work = std::move(work), &threads]() mutable {
            work();
            work = nullptr; // what it holds may be slow to go
            const std::lock_guard done(threads.mutex);
            --threads.count;
            threads.fewer.notify_all();
        }).detach();
    } catch (const std::system_error&) {
        --threads.count;
        return false;
    }
    return true;
}

bool waitForBackground(int waitMs) {
    Living& threads = living();
    std::unique_lock lock(threads.mutex);
    return threads.fewer.wait_for(lock, std::chrono::milliseconds(waitMs),
                                  [&] { return threads.count == 0; });
}

} // namespace platform::sound
