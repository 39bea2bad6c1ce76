#include "analysis/FourierTransform.h"

#include <bit>
#include <cmath>
#include <utility>

namespace tembrel {

namespace {

using Data = std::span<std::complex<double>>;

// One dimension: lines of `end / inner` values that stand `inner` apart, in blocks of `end`.
struct Dimension {
  std::size_t inner = 1;  // values of the dimensions that vary faster
  std::size_t end = 1;    // the same and those of this one
  std::size_t total = 1;  // of all
};

std::size_t TotalLength(std::span<const std::size_t> dims, std::size_t limit) {
  std::size_t total = 1;
  for (const std::size_t length : dims) {
    if (!std::has_single_bit(length) || length > limit / total) {
      return 0;
    }
    total *= length;
  }
  return total;
}

// Cooley and Tukey's transform by powers of two, in place, for one dimension after the other: first every
// value of a line goes to the index whose bits are its own in reverse order, then transforms of half the
// points are combined, two neighbours at a time, until one is left.

// `i` runs through the indices of a line, and `mirror` is i with its bits reversed: it is counted up from the
// highest bit down. All lines of the dimension are exchanged at once.
void ReverseBits(Data data, const Dimension& dimension) {
  std::size_t mirror = 0;
  for (std::size_t i = 0; i < dimension.end; i += dimension.inner) {
    if (i < mirror) {
      for (std::size_t k = i; k < i + dimension.inner; ++k) {
        for (std::size_t at = k; at < dimension.total; at += dimension.end) {
          std::swap(data[at], data[at - i + mirror]);
        }
      }
    }
    std::size_t bit = dimension.end;
    do {
      bit /= 2;
      mirror ^= bit;
    } while (bit >= dimension.inner && (mirror & bit) == 0);
  }
}

// The butterfly: with w the twiddle, (first, second) becomes (first + w × second, first - w × second). The
// complex product is made of three real ones.
void Combine(std::complex<double>& first, std::complex<double>& second, const TwiddleRecurrence& twiddle) {
  const long double re = second.real();
  const long double im = second.imag();
  const long double byRe = twiddle.Re() * re;
  const long double byIm = twiddle.Im() * im;
  const long double turnedRe = byRe - byIm;
  const long double turnedIm = (twiddle.Re() + twiddle.Im()) * (re + im) - byRe - byIm;
  second = {static_cast<double>(first.real() - turnedRe), static_cast<double>(first.imag() - turnedIm)};
  first = {static_cast<double>(first.real() + turnedRe), static_cast<double>(first.imag() + turnedIm)};
}

// `half` is the way from a value to its partner, in the other one of two neighbouring transforms.
void CombineAll(Data data, const Dimension& dimension, int sign) {
  for (std::size_t points = 2; points / 2 * dimension.inner < dimension.end; points *= 2) {
    const std::size_t half = points / 2 * dimension.inner;
    TwiddleRecurrence twiddle(points, sign);
    for (std::size_t offset = 0; offset < half; offset += dimension.inner) {
      for (std::size_t k = offset; k < offset + dimension.inner; ++k) {
        for (std::size_t at = k; at < dimension.total; at += 2 * half) {
          Combine(data[at], data[at + half], twiddle);
        }
      }
      twiddle.Advance();
    }
  }
}

}  // namespace

TwiddleRecurrence::TwiddleRecurrence(std::size_t points, int sign) {
  const long double angle = sign * 2 * kTransformPi / static_cast<long double>(points);
  const long double halfSine = std::sin(angle / 2);
  stepRe = -2 * halfSine * halfSine;
  stepIm = std::sin(angle);
}

void TwiddleRecurrence::Advance() {
  const long double byRe = re * stepRe;
  const long double byIm = im * stepIm;
  const long double nextIm = (re + im) * (stepRe + stepIm) - byRe - byIm + im;
  re = byRe - byIm + re;
  im = nextIm;
}

std::size_t FourierTransform(Data data, std::span<const std::size_t> dims, int sign) {
  const std::size_t total = TotalLength(dims, data.size());
  std::size_t done = 1;
  for (std::size_t i = dims.size(); total > 0 && i-- > 0;) {
    const Dimension dimension{done, done * dims[i], total};
    ReverseBits(data, dimension);
    CombineAll(data, dimension, sign);
    done *= dims[i];
  }
  return total;
}

}  // namespace tembrel
