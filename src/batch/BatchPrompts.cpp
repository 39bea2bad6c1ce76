#include "batch/BatchPrompts.h"

#include <cstdint>

namespace tembrel {

namespace {

constexpr std::chrono::milliseconds kShowAfter{500};
constexpr std::uint64_t kTenths = 10;

class LineDisplay final : public ProgressDisplay {
 public:
  LineDisplay(std::ostream* lines, std::string task, ProgressClock progressClock)
      : output(lines), text(std::move(task)), clock(std::move(progressClock)), start(clock()) {}

  bool Report(std::uint64_t done, std::uint64_t total) override {
    const std::uint64_t tenth =
        total == 0 ? kTenths
                   : static_cast<std::uint64_t>(static_cast<double>(done) / static_cast<double>(total) *
                                                static_cast<double>(kTenths));
    const bool late = clock() - start >= kShowAfter;
    if (output != nullptr && late && tenth > shownTenth) {
      shownTenth = tenth;
      *output << text << ": " << tenth * kTenths << " %\n" << std::flush;
    }
    return true;
  }

 private:
  std::ostream* output;
  std::string text;
  ProgressClock clock;
  std::chrono::milliseconds start;
  std::uint64_t shownTenth = 0;
};

}  // namespace

std::chrono::milliseconds SteadyMilliseconds() {
  return std::chrono::duration_cast<std::chrono::milliseconds>(
      std::chrono::steady_clock::now().time_since_epoch());
}

std::unique_ptr<ProgressDisplay> BatchPrompts::ShowProgress(const std::string& text) {
  return std::make_unique<LineDisplay>(output, text, clock);
}

}  // namespace tembrel
