#include "platform/sqlite/Worker.h"

#include <chrono>
#include <pthread.h>
#include <sched.h>

namespace halyard {

Worker::Worker(Task idle) : idle(std::move(idle)), thread([this] { Run(); }) {}

void Worker::Add(Task task) {
    {
        const std::lock_guard held(mutex);
        tasks.push_back(std::move(task));
    }
    changed.notify_one();
}

void Worker::Finish() {
    {
        const std::lock_guard held(mutex);
        ending = true;
    }
    changed.notify_one();
    if (thread.joinable()) thread.join();
}

/// Waits for a task. False when the thread is to end.
bool Worker::Next(std::unique_lock<std::mutex>& held) {
    const auto due = [this] { return ending || !tasks.empty(); };
    if (restless && idle && !changed.wait_for(held, std::chrono::seconds(1), due)) {
        restless = false;
        held.unlock();
        idle();
        held.lock();
    }
    changed.wait(held, due);
    return !tasks.empty();
}

void Worker::Run() {
#ifdef SCHED_BATCH
    // Otherwise the task that the loop hands in may take the processor from it at once, for milliseconds.
    const sched_param none{};
    pthread_setschedparam(pthread_self(), SCHED_BATCH, &none);
#endif
    std::unique_lock held(mutex);
    while (Next(held)) {
        {
            const auto task = std::move(tasks.front());
            tasks.pop_front();
            held.unlock();
            task();
        }
        restless = true;
        held.lock();
    }
}

} // namespace halyard
