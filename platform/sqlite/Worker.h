#pragma once

// A thread that runs tasks in the order they came in. Owned by a SqliteDatabase; nothing else makes threads.

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace halyard {

class Worker {
  public:
    using Task = std::function<void()>;

    /// `idle` runs on the thread once nothing came in for a second after a task; may be empty.
    explicit Worker(Task idle = nullptr);
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;
    /// Stops, after the tasks that came in.
    ~Worker() { Finish(); }

    void Add(Task task);
    /// Runs what came in, then ends the thread. Nothing may be added any more.
    void Finish();

  private:
    void Run();
    bool Next(std::unique_lock<std::mutex>& held);

    Task idle;
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<Task> tasks;
    bool ending = false;
    bool restless = false; ///< the thread's own: a task ran since it was idle last
    std::thread thread;
};

} // namespace halyard
