// Work on independent pieces of sound, shared out to all processors.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace tembrel {

// Helping threads that stay for as long as the team: for work that is shared out again and again.
class WorkTeam {
 public:
  WorkTeam() = default;
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

  std::mutex mutex;
  std::condition_variable begun;
  std::condition_variable left;
  Task* current = nullptr;       // helpers may join it
  std::uint64_t taskNumber = 0;  // of the last task that was published
  int helping = 0;               // helpers in the current task
  bool dismissed = false;
  std::vector<std::jthread> helpers;
};

// The same once.
bool ShareOut(std::int64_t count, const std::function<void(std::int64_t)>& work,
              const std::function<bool(std::int64_t done)>& goOn = {});

}  // namespace tembrel
