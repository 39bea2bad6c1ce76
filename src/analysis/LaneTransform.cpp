#include "analysis/LaneTransform.h"

#include <algorithm>
#include <cstring>

#include "analysis/FourierTransform.h"
#include "platform/WideLoops.h"

namespace tembrel {

namespace {

// The same value of four blocks.
using Quad = double __attribute__((vector_size(kLanes * sizeof(double))));

struct Complex {
  Quad re;
  Quad im;
};

[[gnu::always_inline]] inline void Load(Complex& value, const double* re, const double* im) {
  std::memcpy(&value.re, re, sizeof value.re);
  std::memcpy(&value.im, im, sizeof value.im);
}

[[gnu::always_inline]] inline void Store(const Complex& value, double* re, double* im) {
  std::memcpy(re, &value.re, sizeof value.re);
  std::memcpy(im, &value.im, sizeof value.im);
}

[[gnu::always_inline]] inline void Combine(Complex& first, Complex& second, double re, double im) {
  const Quad turnedRe = second.re * re - second.im * im;
  const Quad turnedIm = second.im * re + second.re * im;
  second.re = first.re - turnedRe;
  second.im = first.im - turnedIm;
  first.re += turnedRe;
  first.im += turnedIm;
}

}  // namespace

LaneTransform::LaneTransform() : table{}, mirrored{} {
  for (std::size_t half = 1; half < kBlockPoints; half *= 2) {
    TwiddleRecurrence twiddle(2 * half, 1);
    for (std::size_t i = 0; i < half; ++i) {
      table.at(half - 1 + i) = {static_cast<double>(twiddle.Re()), static_cast<double>(twiddle.Im())};
      twiddle.Advance();
    }
    // The indices below 2 × half, from those below half.
    for (std::size_t i = 0; i < half; ++i) {
      mirrored.at(half + i) = mirrored.at(i) + kBlockPoints / 2 / half;
    }
  }
}

TEMBREL_WIDE_LOOPS
void LaneTransform::OneStage(double* re, double* im, std::size_t half, const Twiddle* twiddles) {
  for (std::size_t group = 0; group < kBlockPoints; group += 2 * half) {
    for (std::size_t i = 0; i < half; ++i) {
      const std::size_t at = (group + i) * kLanes;
      const std::size_t other = at + half * kLanes;
      Complex first;
      Complex second;
      Load(first, re + at, im + at);
      Load(second, re + other, im + other);
      Combine(first, second, twiddles[i].re, twiddles[i].im);
      Store(first, re + at, im + at);
      Store(second, re + other, im + other);
    }
  }
}

// The stages of `half` and 2 × half, with one way through memory for both.
TEMBREL_WIDE_LOOPS
void LaneTransform::TwoStages(double* re, double* im, std::size_t half, const Twiddle* twiddles) {
  const Twiddle* const next = twiddles + half;
  const std::size_t step = half * kLanes;
  for (std::size_t group = 0; group < kBlockPoints; group += 4 * half) {
    for (std::size_t i = 0; i < half; ++i) {
      const std::size_t at = (group + i) * kLanes;
      Complex first;
      Complex second;
      Complex third;
      Complex fourth;
      Load(first, re + at, im + at);
      Load(second, re + at + step, im + at + step);
      Load(third, re + at + 2 * step, im + at + 2 * step);
      Load(fourth, re + at + 3 * step, im + at + 3 * step);
      Combine(first, second, twiddles[i].re, twiddles[i].im);
      Combine(third, fourth, twiddles[i].re, twiddles[i].im);
      Combine(first, third, next[i].re, next[i].im);
      Combine(second, fourth, next[i + half].re, next[i + half].im);
      Store(first, re + at, im + at);
      Store(second, re + at + step, im + at + step);
      Store(third, re + at + 2 * step, im + at + 2 * step);
      Store(fourth, re + at + 3 * step, im + at + 3 * step);
    }
  }
}

void LaneTransform::Transform(double* re, double* im) const {
  for (std::size_t i = 0; i < kBlockPoints; ++i) {
    const std::size_t other = mirrored[i];
    if (i < other) {
      std::swap_ranges(re + i * kLanes, re + (i + 1) * kLanes, re + other * kLanes);
      std::swap_ranges(im + i * kLanes, im + (i + 1) * kLanes, im + other * kLanes);
    }
  }
  std::size_t half = 1;
  for (; 4 * half <= kBlockPoints; half *= 4) {
    TwoStages(re, im, half, &table[half - 1]);
  }
  for (; half < kBlockPoints; half *= 2) {
    OneStage(re, im, half, &table[half - 1]);
  }
}

void LaneTransform::Forward(LaneBlocks& blocks) const {
  Transform(blocks.re.data(), blocks.im.data());
}

// Turning the other way is turning the same way with real and imaginary parts exchanged.
void LaneTransform::Inverse(LaneBlocks& blocks) const {
  Transform(blocks.im.data(), blocks.re.data());
}

}  // namespace tembrel
