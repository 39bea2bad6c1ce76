// Work on independent pieces, shared out to all processors.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace tembrel {

// The machine's processors, as far as work is shared out to them: 1 to 16.
int Processors();

// Helping threads that stay for as long as the team: for work that is shared out again and again. They are
// started when there is work for them; where the system gives none, the caller's thread does it all.
class WorkTeam {
 public:
  // With this many threads at most, the caller's among them.
  explicit WorkTeam(std::int64_t mostThreads = Processors()) : most(mostThreads) {}
  WorkTeam(const WorkTeam&) = delete;
  WorkTeam& operator=(const WorkTeam&) = delete;
  ~WorkTeam();

  // Calls work(0) to work(count - 1), each once, on several threads; returns when all are done. `goOn`, which
  // may be empty, is called on this thread between pieces with the number of those done, and at the end. When
  // it says false, pieces that have not begun are left out and the result is false. Neither function throws,
  // nor shares out work to the same team.
  bool ShareOut(std::int64_t count, const std::function<void(std::int64_t)>& work,
                const std::function<bool(std::int64_t done)>& goOn = {});

 private:
  struct Task;

  void Hire(std::int64_t wanted);
  void Help();
  void Publish(Task& task);
  void Withdraw();

  std::int64_t most;
  std::mutex mutex;
  std::condition_variable begun;
  std::condition_variable left;
  Task* current = nullptr;       // helpers may join it
  std::uint64_t taskNumber = 0;  // of the last task that was published
  int helping = 0;               // helpers in the current task
  bool dismissed = false;
  std::vector<std::jthread> helpers;
};

// The same once, by a team of all processors.
bool ShareOut(std::int64_t count, const std::function<void(std::int64_t)>& work,
              const std::function<bool(std::int64_t done)>& goOn = {});

}  // namespace tembrel
