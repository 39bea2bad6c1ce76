#include "device/Take.h"

#include <algorithm>
#include <exception>
#include <system_error>
#include <utility>

#include "audio/WaveFormat.h"
#include "device/DeviceErrors.h"

namespace tembrel {

namespace {

// Six minutes of the largest format: a disk that lets one wait longer is not coming back.
constexpr std::size_t kMostWaiting = std::size_t{64} << 20U;
constexpr std::uint64_t kSettlesPerSecond = 2;

}  // namespace

std::unique_ptr<Take> Take::Begin(const std::filesystem::path& tempFolder, const FormatChoice& format,
                                  std::string& reason, std::uint64_t mostBytes) {
  std::optional<TakeFile> takeFile = TakeFile::Create(tempFolder, format, reason);
  if (!takeFile) {
    return nullptr;
  }
  auto take = std::make_unique<Take>(std::move(*takeFile), format, mostBytes);
  try {
    take->writer = std::thread([self = take.get()] { self->WriteOn(); });
  } catch (const std::system_error& error) {
    reason = error.code().message();
    take->Remove();
    return nullptr;
  }
  return take;
}

Take::Take(TakeFile takeFile, const FormatChoice& soundFormat, std::uint64_t mostBytes)
    : file(std::move(takeFile)), format(soundFormat), most(mostBytes) {}

Take::~Take() {
  Finish();
}

void Take::FailLocked(DeviceError error, const std::string& reason) {
  if (failure == kDeviceSuccess) {
    failure = error;
    failureReason = reason;
  }
}

void Take::Fail(DeviceError error, const std::string& reason) {
  const std::lock_guard lock(mutex);
  FailLocked(error, reason);
}

void Take::Push(std::span<const std::byte> frames) {
  const std::lock_guard lock(mutex);
  if (failure != kDeviceSuccess || finishing) {
    return;
  }
  const auto part =
      frames.first(static_cast<std::size_t>(std::min<std::uint64_t>(frames.size(), most - taken)));
  if (waiting.size() + part.size() > kMostWaiting) {
    FailLocked(kTakeNotWritten, "the disk does not answer");
    return;
  }
  try {
    waiting.insert(waiting.end(), part.begin(), part.end());
  } catch (const std::exception&) {
    FailLocked(kTakeNotWritten, "there is not enough memory");
    return;
  }
  Measure(part, format, levels);
  taken += part.size();
  if (part.size() < frames.size()) {
    FailLocked(kTakeTooLong, {});
  }
  changed.notify_one();
}

RecordingState Take::Ask() {
  const std::lock_guard lock(mutex);
  RecordingState state;
  const std::uint64_t frames = taken / FrameSize(format.bits, format.channels);
  state.milliseconds = static_cast<std::int64_t>(frames * 1000 / format.rate);
  state.peakLeft = levels.left;
  state.peakRight = levels.right;
  state.clipped = levels.clipped;
  state.failure = failure;
  levels = {};
  return state;
}

DeviceError Take::Failure() const {
  const std::lock_guard lock(mutex);
  return failure;
}

std::string Take::FailureReason() const {
  const std::lock_guard lock(mutex);
  return failureReason;
}

bool Take::WriteOut(std::span<const std::byte> frames, std::string& reason) {
  if (!file.Append(frames, reason)) {
    return false;
  }
  unsettled += frames.size();
  const std::uint64_t second = BytesPerSecond(format.rate, format.bits, format.channels);
  if (unsettled * kSettlesPerSecond < second) {
    return true;
  }
  unsettled = 0;
  return file.Settle(reason);
}

void Take::WriteOn() {
  std::vector<std::byte> writing;
  std::string reason;
  bool failed = false;
  for (;;) {
    {
      std::unique_lock lock(mutex);
      changed.wait(lock, [this] { return !waiting.empty() || finishing; });
      if (waiting.empty()) {
        break;
      }
      writing.clear();
      std::swap(writing, waiting);
    }
    if (failed || WriteOut(writing, reason)) {
      continue;
    }
    failed = true;
    const std::lock_guard lock(mutex);
    FailLocked(kTakeNotWritten, reason);
    taken = file.SoundBytes();
  }
  if (!file.Settle(reason) && !failed) {
    Fail(kTakeNotWritten, reason);
  }
}

void Take::Finish() {
  {
    const std::lock_guard lock(mutex);
    finishing = true;
  }
  changed.notify_one();
  if (writer.joinable()) {
    writer.join();
  }
}

bool Take::MoveTo(const std::filesystem::path& target, const MoveProgress& progress, std::string& reason) {
  return file.MoveTo(target, progress, reason);
}

void Take::Remove() {
  file.Remove();
}

}  // namespace tembrel
