// The transform of blocks of 2048 values in double precision, four blocks at a time: for sound that is
// filtered by the hour. Its tables hold the twiddles of FourierTransform, so its results differ from those by
// rounding only.
#pragma once

#include <array>
#include <cstddef>

namespace tembrel {

inline constexpr std::size_t kBlockPoints = 2048;
inline constexpr std::size_t kLanes = 4;

// Value i of block `lane` stands at i × kLanes + lane.
struct LaneBlocks {
  std::array<double, kBlockPoints * kLanes> re;
  std::array<double, kBlockPoints * kLanes> im;
};

class LaneTransform {
 public:
  LaneTransform();

  // With sign +1 and -1. Neither scales: forth and back multiplies by 2048.
  void Forward(LaneBlocks& blocks) const;
  void Inverse(LaneBlocks& blocks) const;

 private:
  struct Twiddle {
    double re = 1;
    double im = 0;
  };

  void Transform(double* re, double* im) const;
  static void OneStage(double* re, double* im, std::size_t half, const Twiddle* twiddles);
  static void TwoStages(double* re, double* im, std::size_t half, const Twiddle* twiddles);

  // Those of the stage that joins blocks of `half` values begin at half - 1.
  std::array<Twiddle, kBlockPoints> table;
  std::array<std::size_t, kBlockPoints> mirrored;  // indices with their bits in reverse
};

}  // namespace tembrel
