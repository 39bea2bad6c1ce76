#include "batch/BatchPrompts.h"

#include <chrono>
#include <cstdint>

namespace tembrel {

namespace {

constexpr std::chrono::milliseconds kShowAfter{500};
constexpr std::uint64_t kTenths = 10;

class LineDisplay final : public ProgressDisplay {
 public:
  LineDisplay(std::ostream* lines, std::string task) : output(lines), text(std::move(task)) {}

  bool Report(std::uint64_t done, std::uint64_t total) override {
    const std::uint64_t tenth =
        total == 0 ? kTenths
                   : static_cast<std::uint64_t>(static_cast<double>(done) / static_cast<double>(total) *
                                                static_cast<double>(kTenths));
    const bool late = std::chrono::steady_clock::now() - start >= kShowAfter;
    if (output != nullptr && late && tenth > shownTenth) {
      shownTenth = tenth;
      *output << text << ": " << tenth * kTenths << " %\n" << std::flush;
    }
    return true;
  }

 private:
  std::ostream* output;
  std::string text;
  std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
  std::uint64_t shownTenth = 0;
};

}  // namespace

std::unique_ptr<ProgressDisplay> BatchPrompts::ShowProgress(const std::string& text) {
  return std::make_unique<LineDisplay>(output, text);
}

Progress ProgressOf(ProgressDisplay& display) {
  return [&display](std::uint64_t done, std::uint64_t total) { return display.Report(done, total); };
}

}  // namespace tembrel
