#include "platform/WorkTeam.h"

#include <algorithm>
#include <atomic>
#include <exception>

namespace tembrel {

namespace {

constexpr unsigned kMostThreads = 16;

}  // namespace

int Processors() {
  return static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 1U, kMostThreads));
}

struct WorkTeam::Task {
  const std::function<void(std::int64_t)>& work;
  std::int64_t count;
  std::atomic<std::int64_t> next = 0;
  std::atomic<std::int64_t> done = 0;

  bool WorkOnOne() {
    const std::int64_t piece = next.fetch_add(1);
    if (piece >= count) {
      return false;
    }
    work(piece);
    done.fetch_add(1);
    return true;
  }
};

WorkTeam::~WorkTeam() {
  const std::lock_guard lock(mutex);
  dismissed = true;
  begun.notify_all();
}

bool WorkTeam::ShareOut(std::int64_t count, const std::function<void(std::int64_t)>& work,
                        const std::function<bool(std::int64_t done)>& goOn) {
  Task task{work, count};
  Hire(count - 1);
  Publish(task);
  bool wanted = true;
  while (wanted && task.WorkOnOne()) {
    wanted = !goOn || goOn(task.done);
  }
  if (!wanted) {
    task.next = count;
  }
  Withdraw();
  return wanted && (!goOn || goOn(task.done));
}

void WorkTeam::Hire(std::int64_t wanted) {
  try {
    while (static_cast<std::int64_t>(helpers.size()) < std::min(most - 1, wanted)) {
      helpers.emplace_back([this] { Help(); });
    }
  } catch (const std::exception&) {
    // No more threads or memory for them to be had: those that run, and the caller's, do all the work.
  }
}

void WorkTeam::Publish(Task& task) {
  const std::lock_guard lock(mutex);
  current = &task;
  ++taskNumber;
  begun.notify_all();
}

// Helpers that have not joined yet no longer can.
void WorkTeam::Withdraw() {
  std::unique_lock lock(mutex);
  current = nullptr;
  left.wait(lock, [this] { return helping == 0; });
}

void WorkTeam::Help() {
  std::uint64_t seen = 0;
  std::unique_lock lock(mutex);
  for (;;) {
    begun.wait(lock, [&] { return dismissed || (current != nullptr && taskNumber != seen); });
    if (dismissed) {
      return;
    }
    seen = taskNumber;
    Task& task = *current;
    ++helping;
    lock.unlock();
    while (task.WorkOnOne()) {
    }
    lock.lock();
    if (--helping == 0) {
      left.notify_all();
    }
  }
}

bool ShareOut(std::int64_t count, const std::function<void(std::int64_t)>& work,
              const std::function<bool(std::int64_t done)>& goOn) {
  return WorkTeam().ShareOut(count, work, goOn);
}

}  // namespace tembrel
