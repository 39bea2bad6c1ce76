// The transform of blocks of 2048 real values and back in double precision, four blocks at a time: for sound
// that is filtered by the hour.
#pragma once

#include <array>
#include <cstddef>

namespace tembrel {

inline constexpr std::size_t kBlockPoints = 2048;
inline constexpr std::size_t kLanes = 4;

// Value i of block `lane` stands at i × kLanes + lane.
using LaneValues = std::array<double, kBlockPoints * kLanes>;

// Bin i of block `lane`: its real part stands at 2 × i × kLanes + lane, its imaginary part kLanes further on.
using LaneBins = std::array<double, 2 * kBlockPoints * kLanes>;

// What the parts of every bin are multiplied by.
struct BinGains {
  std::array<double, kBlockPoints> re;
  std::array<double, kBlockPoints> im;
};

// What both parts of bin k are multiplied by; the same as for bin 2048 - k.
using EvenGains = std::array<double, kBlockPoints>;

// By which turns of the circle a transform goes.
enum class Turns {
  // Those of FourierTransform, whose results then differ by rounding only. They miss the true ones by
  // parts in 10¹², and so does the transform of real values miss the symmetry that it should have.
  OfPlainForm,
  True,
};

class LaneTransform {
 public:
  explicit LaneTransform(Turns turns = Turns::OfPlainForm);

  // With sign +1.
  void Forward(const LaneValues& values, LaneBins& bins) const;
  // With sign -1, after the gains; only the real parts. Nothing is scaled: forth and back multiplies by 2048.
  void Inverse(const LaneBins& bins, const BinGains& gains, LaneValues& values) const;

  // The same with two blocks of real values in every lane, for the work of one: the second block's values
  // stand where imaginary parts do. By true turns, and when bins k and 2048 - k have the same gain, the two
  // come back apart: each gets no more of the other than its rounding.
  void ForwardPairs(const LaneBins& values, LaneBins& bins) const;
  void InversePairs(const LaneBins& bins, const EvenGains& gains, LaneBins& values) const;

 private:
  struct Twiddle {
    double re = 1;
    double im = 0;
  };

  // The first eight stages join the bins of a section only, which stays in the processor's first cache for
  // all of them.
  static constexpr std::size_t kSection = 256;

  void FirstForward(const double* values, double* bins, std::size_t section) const;
  void FirstForwardPairs(const double* values, double* bins, std::size_t section) const;
  void FirstInverse(const double* bins, const BinGains& gains, double* turned, std::size_t section) const;
  void FirstInversePairs(const double* bins, const EvenGains& gains, double* turned,
                         std::size_t section) const;
  void FinishSection(double* bins, std::size_t section) const;
  static void TwoStages(double* bins, std::size_t points, std::size_t half, const Twiddle* twiddles);
  void JoinSections(double* bins) const;
  void LastForward(double* bins) const;
  void LastInverse(const double* turned, double* values) const;
  void LastInversePairs(double* turned) const;

  // Those of the stage that joins blocks of `half` values begin at half - 1.
  std::array<Twiddle, kBlockPoints> table;
  std::array<std::size_t, kBlockPoints> mirrored;  // indices with their bits in reverse
};

}  // namespace tembrel
