#include "analysis/LaneTransform.h"

#include <cmath>
#include <cstring>
#include <numbers>

#include "analysis/FourierTransform.h"
#include "platform/WideLoops.h"

namespace tembrel {

namespace {

constexpr std::size_t kBin = 2 * kLanes;  // doubles
constexpr std::size_t kHalf = kBlockPoints / 2;
constexpr std::size_t kQuarter = kBlockPoints / 4;

// The same number of four blocks.
using Quad = double __attribute__((vector_size(kLanes * sizeof(double))));

struct Complex {
  Quad re;
  Quad im;
};

[[gnu::always_inline]] inline void Load(Quad& value, const double* from) {
  std::memcpy(&value, from, sizeof value);
}

[[gnu::always_inline]] inline void Load(Complex& value, const double* bin) {
  Load(value.re, bin);
  Load(value.im, bin + kLanes);
}

[[gnu::always_inline]] inline void Store(const Quad& value, double* to) {
  std::memcpy(to, &value, sizeof value);
}

[[gnu::always_inline]] inline void Store(const Complex& value, double* bin) {
  Store(value.re, bin);
  Store(value.im, bin + kLanes);
}

[[gnu::always_inline]] inline void Combine(Complex& first, Complex& second, double re, double im) {
  const Quad turnedRe = second.re * re - second.im * im;
  const Quad turnedIm = second.im * re + second.re * im;
  second.re = first.re - turnedRe;
  second.im = first.im - turnedIm;
  first.re += turnedRe;
  first.im += turnedIm;
}

// A twiddle of 1.
[[gnu::always_inline]] inline void CombineStraight(Quad& first, Quad& second) {
  const Quad difference = first - second;
  first += second;
  second = difference;
}

}  // namespace

LaneTransform::LaneTransform(Turns turns) : table{}, mirrored{} {
  for (std::size_t half = 1; half < kBlockPoints; half *= 2) {
    TwiddleRecurrence plain(2 * half, 1);
    for (std::size_t i = 0; i < half; ++i) {
      const double angle = std::numbers::pi * static_cast<double>(i) / static_cast<double>(half);
      Twiddle& twiddle = table.at(half - 1 + i);
      if (turns == Turns::True) {
        twiddle = {std::cos(angle), std::sin(angle)};
      } else {
        twiddle = {static_cast<double>(plain.Re()), static_cast<double>(plain.Im())};
      }
      plain.Advance();
    }
    // The indices below 2 × half, from those below half.
    for (std::size_t i = 0; i < half; ++i) {
      mirrored.at(half + i) = mirrored.at(i) + kBlockPoints / 2 / half;
    }
  }
}

// The stages of 1 and 2, which also bring the values into the mirrored order: the four that are joined come
// from a quarter of the block apart. No imaginary parts yet.
TEMBREL_WIDE_LOOPS
void LaneTransform::FirstForward(const double* values, double* bins, std::size_t section) const {
  const Twiddle turn = table[2];
  for (std::size_t i = section; i < section + kSection; i += 4) {
    const double* const from = values + mirrored[i] * kLanes;
    Quad first;
    Quad second;
    Quad third;
    Quad fourth;
    Load(first, from);
    Load(second, from + 2 * kQuarter * kLanes);
    Load(third, from + kQuarter * kLanes);
    Load(fourth, from + 3 * kQuarter * kLanes);
    CombineStraight(first, second);
    CombineStraight(third, fourth);
    CombineStraight(first, third);
    const Quad turnedRe = fourth * turn.re;
    const Quad turnedIm = fourth * turn.im;
    double* const to = bins + i * kBin;
    Store({first, Quad{}}, to);
    Store({second + turnedRe, turnedIm}, to + kBin);
    Store({third, Quad{}}, to + 2 * kBin);
    Store({second - turnedRe, -turnedIm}, to + 3 * kBin);
  }
}

// The same for complex values; `load` fetches that of an index.
template <typename LoadValue>
[[gnu::always_inline]] inline void JoinFirstFour(const LoadValue& load, std::size_t from, double turnRe,
                                                 double turnIm, double* to) {
  Complex first;
  Complex second;
  Complex third;
  Complex fourth;
  load(first, from);
  load(second, from + 2 * kQuarter);
  load(third, from + kQuarter);
  load(fourth, from + 3 * kQuarter);
  CombineStraight(first.re, second.re);
  CombineStraight(first.im, second.im);
  CombineStraight(third.re, fourth.re);
  CombineStraight(third.im, fourth.im);
  CombineStraight(first.re, third.re);
  CombineStraight(first.im, third.im);
  Combine(second, fourth, turnRe, turnIm);
  Store(first, to);
  Store(second, to + kBin);
  Store(third, to + 2 * kBin);
  Store(fourth, to + 3 * kBin);
}

TEMBREL_WIDE_LOOPS
void LaneTransform::FirstForwardPairs(const double* values, double* bins, std::size_t section) const {
  const auto load = [values](Complex & value, std::size_t index) __attribute__((always_inline)) {
    Load(value, values + index * kBin);
  };
  for (std::size_t i = section; i < section + kSection; i += 4) {
    JoinFirstFour(load, mirrored[i], table[2].re, table[2].im, bins + i * kBin);
  }
}

// Turning the other way is turning the same way with real and imaginary parts exchanged: from here on they
// are, up to the end.
TEMBREL_WIDE_LOOPS
void LaneTransform::FirstInverse(const double* bins, const BinGains& gains, double* turned,
                                 std::size_t section) const {
  const auto load = [ bins, &gains ](Complex & value, std::size_t bin) __attribute__((always_inline)) {
    Load(value.im, bins + bin * kBin);
    Load(value.re, bins + bin * kBin + kLanes);
    value.im *= gains.re[bin];
    value.re *= gains.im[bin];
  };
  for (std::size_t i = section; i < section + kSection; i += 4) {
    JoinFirstFour(load, mirrored[i], table[2].re, table[2].im, turned + i * kBin);
  }
}

TEMBREL_WIDE_LOOPS
void LaneTransform::FirstInversePairs(const double* bins, const EvenGains& gains, double* turned,
                                      std::size_t section) const {
  const auto load = [ bins, &gains ](Complex & value, std::size_t bin) __attribute__((always_inline)) {
    Load(value.im, bins + bin * kBin);
    Load(value.re, bins + bin * kBin + kLanes);
    value.im *= gains[bin];
    value.re *= gains[bin];
  };
  for (std::size_t i = section; i < section + kSection; i += 4) {
    JoinFirstFour(load, mirrored[i], table[2].re, table[2].im, turned + i * kBin);
  }
}

// The stages of `half` and 2 × half, with one way through memory for both.
TEMBREL_WIDE_LOOPS
void LaneTransform::TwoStages(double* bins, std::size_t points, std::size_t half, const Twiddle* twiddles) {
  const Twiddle* const next = twiddles + half;
  const std::size_t step = half * kBin;
  for (std::size_t group = 0; group < points; group += 4 * half) {
    for (std::size_t i = 0; i < half; ++i) {
      double* const at = bins + (group + i) * kBin;
      Complex first;
      Complex second;
      Complex third;
      Complex fourth;
      Load(first, at);
      Load(second, at + step);
      Load(third, at + 2 * step);
      Load(fourth, at + 3 * step);
      Combine(first, second, twiddles[i].re, twiddles[i].im);
      Combine(third, fourth, twiddles[i].re, twiddles[i].im);
      Combine(first, third, next[i].re, next[i].im);
      Combine(second, fourth, next[i + half].re, next[i + half].im);
      Store(first, at);
      Store(second, at + step);
      Store(third, at + 2 * step);
      Store(fourth, at + 3 * step);
    }
  }
}

void LaneTransform::FinishSection(double* bins, std::size_t section) const {
  for (std::size_t half = 4; half < kSection; half *= 4) {
    TwoStages(bins + section * kBin, kSection, half, &table[half - 1]);
  }
}

void LaneTransform::JoinSections(double* bins) const {
  TwoStages(bins, kBlockPoints, kSection, &table[kSection - 1]);
}

TEMBREL_WIDE_LOOPS
void LaneTransform::LastForward(double* bins) const {
  const Twiddle* const twiddles = &table[kHalf - 1];
  for (std::size_t i = 0; i < kHalf; ++i) {
    Complex first;
    Complex second;
    Load(first, bins + i * kBin);
    Load(second, bins + (i + kHalf) * kBin);
    Combine(first, second, twiddles[i].re, twiddles[i].im);
    Store(first, bins + i * kBin);
    Store(second, bins + (i + kHalf) * kBin);
  }
}

// Only what are the real parts again.
TEMBREL_WIDE_LOOPS
void LaneTransform::LastInverse(const double* turned, double* values) const {
  const Twiddle* const twiddles = &table[kHalf - 1];
  for (std::size_t i = 0; i < kHalf; ++i) {
    Quad first;
    Complex second;
    Load(first, turned + i * kBin + kLanes);
    Load(second, turned + (i + kHalf) * kBin);
    const Quad added = second.im * twiddles[i].re + second.re * twiddles[i].im;
    Store(first + added, values + i * kLanes);
    Store(first - added, values + (i + kHalf) * kLanes);
  }
}

TEMBREL_WIDE_LOOPS
void LaneTransform::LastInversePairs(double* turned) const {
  const Twiddle* const twiddles = &table[kHalf - 1];
  for (std::size_t i = 0; i < kHalf; ++i) {
    Complex first;
    Complex second;
    Load(first, turned + i * kBin);
    Load(second, turned + (i + kHalf) * kBin);
    Combine(first, second, twiddles[i].re, twiddles[i].im);
    Store(Complex{first.im, first.re}, turned + i * kBin);
    Store(Complex{second.im, second.re}, turned + (i + kHalf) * kBin);
  }
}

void LaneTransform::Forward(const LaneValues& values, LaneBins& bins) const {
  for (std::size_t section = 0; section < kBlockPoints; section += kSection) {
    FirstForward(values.data(), bins.data(), section);
    FinishSection(bins.data(), section);
  }
  JoinSections(bins.data());
  LastForward(bins.data());
}

void LaneTransform::Inverse(const LaneBins& bins, const BinGains& gains, LaneValues& values) const {
  LaneBins turned;
  for (std::size_t section = 0; section < kBlockPoints; section += kSection) {
    FirstInverse(bins.data(), gains, turned.data(), section);
    FinishSection(turned.data(), section);
  }
  JoinSections(turned.data());
  LastInverse(turned.data(), values.data());
}

void LaneTransform::ForwardPairs(const LaneBins& values, LaneBins& bins) const {
  for (std::size_t section = 0; section < kBlockPoints; section += kSection) {
    FirstForwardPairs(values.data(), bins.data(), section);
    FinishSection(bins.data(), section);
  }
  JoinSections(bins.data());
  LastForward(bins.data());
}

void LaneTransform::InversePairs(const LaneBins& bins, const EvenGains& gains, LaneBins& values) const {
  for (std::size_t section = 0; section < kBlockPoints; section += kSection) {
    FirstInversePairs(bins.data(), gains, values.data(), section);
    FinishSection(values.data(), section);
  }
  JoinSections(values.data());
  LastInversePairs(values.data());
}

}  // namespace tembrel
