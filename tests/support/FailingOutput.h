// An output in memory whose n-th call fails, the way a full disk fails a real one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/ByteOutput.h"

namespace tembrel::test {

inline constexpr const char* kInjectedReason = "No space left on device";

class FailingOutput : public ByteOutput {
 public:
  // Calls are counted from 1; 0 never fails. What succeeds also goes to `next` when there is one.
  explicit FailingOutput(int failingCall, ByteOutput* nextOutput = nullptr)
      : failAt(failingCall), next(nextOutput) {}

  bool Write(std::span<const std::byte> bytes, std::string& reason) override {
    if (!Count(reason)) {
      return false;
    }
    content.insert(content.end(), bytes.begin(), bytes.end());
    return next == nullptr || next->Write(bytes, reason);
  }

  bool Overwrite(std::uint64_t offset, std::span<const std::byte> bytes, std::string& reason) override {
    if (!Count(reason)) {
      return false;
    }
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      content.at(static_cast<std::size_t>(offset) + i) = bytes[i];
    }
    return next == nullptr || next->Overwrite(offset, bytes, reason);
  }

  const std::vector<std::byte>& Content() const { return content; }
  int Calls() const { return calls; }

 private:
  bool Count(std::string& reason) {
    ++calls;
    if (calls == failAt) {
      reason = kInjectedReason;
      return false;
    }
    return true;
  }

  int failAt;
  int calls = 0;
  ByteOutput* next;
  std::vector<std::byte> content;
};

}  // namespace tembrel::test
