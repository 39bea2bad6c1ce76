// The program's Fourier transform in its plain form: the spectrum shows it, and faster forms are held against
// it.
#pragma once

#include <complex>
#include <cstddef>
#include <cstdint>
#include <span>

namespace tembrel {

// The circle constant of the transform: it differs from pi in the eleventh decimal, and all results with it.
inline constexpr long double kTransformPi = 3.1415926535979L;

// Transforms the first product(dims) values of `data` in place, the last dimension varying fastest. Each
// length is a power of two. `sign` is that of the exponent, +1 or -1. Nothing is scaled: forth and back
// multiplies by the total length, which is returned. 0 and no change when a length is no power of two or
// `data` is too short.
std::size_t FourierTransform(std::span<std::complex<double>> data, std::span<const std::size_t> dims,
                             int sign);

// The rotation by sign × 2 × pi / points, advanced step by step: the numbers that all forms of the transform
// multiply by.
class TwiddleRecurrence {
 public:
  TwiddleRecurrence(std::size_t points, int sign);

  long double Re() const { return re; }
  long double Im() const { return im; }
  void Advance();

 private:
  long double stepRe;
  long double stepIm;
  long double re = 1;
  long double im = 0;
};

}  // namespace tembrel
