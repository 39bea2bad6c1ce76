// The effects as they are described, a sample at a time and with a whole channel in one buffer: what the
// program's effects are compared with. Arithmetic is in double precision where nothing else is wanted; what
// is kept in a float is rounded to it.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <utility>
#include <vector>

#include "analysis/FourierTransform.h"
#include "audio/Conversion.h"
#include "audio/Samples.h"
#include "edit/FilterPresets.h"
#include "tests/support/Blocks.h"
#include "tests/support/LiteralUndo.h"

namespace tembrel::test {

using Floats = std::vector<float>;

// The low 32 bits of a number truncated toward zero, as the processor converts.
inline std::int32_t Trunc(long double value) {
  return value > -2147483649.0L && value < 2147483648.0L ? static_cast<std::int32_t>(value) : INT32_MIN;
}

// One band of the equaliser.
inline long double LiteralBandGain(std::span<const Breakpoint> table, std::int64_t rate, std::int64_t k) {
  const std::int64_t f = k * rate / 2048;
  std::size_t i = 0;
  while (i < table.size() && f >= table[i].frequency) {
    ++i;
  }
  std::int64_t gain = 0;
  if (i == 0) {
    gain = table[0].gain;
  } else if (i == table.size() || f == table[i - 1].frequency) {
    gain = table[i - 1].gain;
  } else {
    gain = table[i - 1].gain + (table[i].gain - table[i - 1].gain) * (f - table[i - 1].frequency) /
                                   (table[i].frequency - table[i - 1].frequency);
  }
  return static_cast<long double>(gain) * 0.01L;
}

inline void LiteralFilterBlock(std::span<float> block, std::int64_t rate, int mode,
                               std::span<const Breakpoint> table) {
  constexpr std::array<std::size_t, 1> kDims{2048};
  std::vector<std::complex<double>> bins(2048);
  for (std::size_t n = 0; n < 2048; ++n) {
    bins[n] = {block[n], 0.0};
  }
  FourierTransform(bins, kDims, 1);
  if (mode == 2) {
    for (std::size_t k = 0; k < 1024; ++k) {
      const auto g = static_cast<double>(LiteralBandGain(table, rate, static_cast<std::int64_t>(k)));
      bins[k] = {bins[k].real() * g, bins[k].imag() * g};
      if (2047 - k != 1024) {
        bins[2047 - k] = {bins[2047 - k].real() * g, bins[2047 - k].imag() * g};
      }
    }
  } else if (mode == 0) {
    double largest = bins[0].real();
    double smallest = bins[0].real();
    for (const auto& bin : bins) {
      largest = std::max(largest, bin.real());
      smallest = std::min(smallest, bin.real());
    }
    for (auto& bin : bins) {
      if (std::fabs(std::trunc(bin.real())) < 0.05 * (largest - smallest)) {
        bin = {bin.real() / 2, bin.imag()};
      }
    }
  } else {
    for (std::int64_t k = 0; k < 2048; ++k) {
      if (!(rate * k / 2048 >= 64 && rate * (2048 - k) / 2048 >= 64)) {
        auto& bin = bins[static_cast<std::size_t>(k)];
        bin = {bin.real() / 2, bin.imag()};
      }
    }
  }
  FourierTransform(bins, kDims, -1);
  for (std::size_t n = 0; n < 2048; ++n) {
    block[n] = static_cast<float>(bins[n].real() * 0.00048828125);
    const long double index = static_cast<long double>(n);
    const long double window = n < 1024 ? index / 1024 : 1 - (index - 1024) / 1024;
    block[n] = static_cast<float>(block[n] * window);
  }
}

inline void LiteralFilterRange(Floats& buffer, std::int64_t rate, std::span<const Breakpoint> table) {
  Floats copy = buffer;
  const auto end = static_cast<std::int64_t>(buffer.size());
  for (std::int64_t at = 0; at < end - 2048; at += 2048) {
    LiteralFilterBlock(std::span(buffer).subspan(static_cast<std::size_t>(at), 2048), rate, 2, table);
  }
  for (std::int64_t at = 1024; at < end - 2048; at += 2048) {
    LiteralFilterBlock(std::span(copy).subspan(static_cast<std::size_t>(at), 2048), rate, 2, table);
  }
  for (std::int64_t i = 1024; i < end; ++i) {
    const auto at = static_cast<std::size_t>(i);
    buffer[at] = copy[at] + buffer[at];
  }
}

inline void LiteralFilterWithoutOverlap(Floats& buffer, std::int64_t rate, int mode) {
  const auto end = static_cast<std::int64_t>(buffer.size());
  for (std::int64_t at = 0; at < end - 2048; at += 2048) {
    LiteralFilterBlock(std::span(buffer).subspan(static_cast<std::size_t>(at), 2048), rate, mode, {});
  }
}

inline void LiteralNormalizeBuffer(Floats& buffer, bool removeDc, int targetPercent) {
  float sum = 0;
  float peak = 0;
  for (const float value : buffer) {
    sum += value;
    if (value > peak) {
      peak = value;
    }
  }
  if (!(peak > 0)) {
    return;
  }
  const auto mean = static_cast<float>(static_cast<double>(sum) / static_cast<double>(buffer.size()));
  for (float& value : buffer) {
    if (removeDc) {
      value = value - mean;
    }
    value = static_cast<float>(value / (static_cast<double>(peak) * 100 / targetPercent));
  }
}

inline void LiteralLimitToUnity(Floats& buffer) {
  float largest = 0;
  for (const float value : buffer) {
    if (std::fabs(value) > largest) {
      largest = std::fabs(value);
    }
  }
  if (largest > 1.0F) {
    for (float& value : buffer) {
      value = value / largest;
    }
  }
}

inline void LiteralAddEchoes(Floats& buffer, std::int64_t limit, std::int64_t delay, int taps, int percent) {
  const auto count = static_cast<std::int64_t>(buffer.size());
  for (int k = 0; k < taps; ++k) {
    for (std::int64_t j = k * delay; j < count && j < limit; ++j) {
      const std::int64_t t = (k + 1) * delay + j;
      if (t < limit) {
        float& echoed = buffer[static_cast<std::size_t>(t)];
        echoed = static_cast<float>(echoed + static_cast<double>(percent) *
                                                 buffer[static_cast<std::size_t>(j)] * 0.01);
      }
    }
  }
}

// All on one clip, for byte offsets within it.
class LiteralEffects {
 public:
  explicit LiteralEffects(LiteralClip& document) : clip(document) {}

  void Amplify(std::int64_t s, std::int64_t e, int percent) {
    const auto g = static_cast<float>(static_cast<long double>(percent) * 0.01L);
    float gain = g;
    ForStored(s, e, [&](std::uint64_t i) {
      const int level = Is8Bit() ? Distance(Sample8(Data(), i)) : Sample16(Data(), i);
      const float scaled = g * static_cast<float>(level);
      const std::int32_t m = std::abs(Trunc(scaled));
      if (m >= (Is8Bit() ? 127 : 32767)) {
        const auto candidate = static_cast<float>((Is8Bit() ? 126 : 32767) * static_cast<double>(g) / m);
        gain = std::min(gain, candidate);
      }
    });
    ForStored(s, e, [&](std::uint64_t i) { Scale(i, gain); });
  }

  void Silence(std::int64_t s, std::int64_t e) {
    if (Is8Bit()) {
      for (std::int64_t i = Stereo() ? s / 2 * 2 : s; i < (Stereo() ? e / 2 * 2 : e); ++i) {
        StoreSample8(Data(), static_cast<std::uint64_t>(i), 127);
      }
    } else {
      const std::int64_t channels = clip.format.nChannels;
      for (std::int64_t i = s / (2 * channels) * channels; i < e / (2 * channels) * channels; ++i) {
        StoreSample16(Data(), static_cast<std::uint64_t>(i), 0);
      }
    }
  }

  void Fade(std::int64_t s, std::int64_t e, bool in) {
    const std::int64_t i0 = Is8Bit() ? s : s / 2;
    const std::int64_t i1 = Is8Bit() ? e : e / 2;
    for (std::int64_t i = i0; i < i1; ++i) {
      const std::int64_t p = (i - i0) * 100 / (i1 - i0);
      const auto gain = static_cast<float>(0.01L * static_cast<long double>(in ? p : 100 - p));
      Scale(static_cast<std::uint64_t>(i), gain);
    }
  }

  void Compress(std::int64_t s, std::int64_t e) {
    ForStored(s, e, [&](std::uint64_t i) {
      if (Is8Bit()) {
        const int b = Sample8(Data(), i);
        const int d = Distance(b);
        const int a = d > 0 ? std::min(d, 3) : std::max(d, -3);
        const int c = d > 95 ? 92 : d < -95 ? -92 : d - a;
        const int bent = a / 2 + c + (d - a - c) / 2;
        StoreSample8(Data(), i, (d > 0 ? 127 : 128) - bent);
      } else {
        const int v = Sample16(Data(), i);
        const int a = v > 0 ? std::min(v, 327) : std::max(v, -327);
        const int b = v > 24575 ? 24248 : v < -24575 ? -24248 : v - a;
        StoreSample16(Data(), i, a / 2 + b + (v - a - b) / 2);
      }
    });
  }

  void Normalize(std::int64_t s, std::int64_t e) {
    ForChannels(
        s, e, [](Floats& buffer) { LiteralNormalizeBuffer(buffer, true, 90); }, false);
  }

  void Reverb(std::int64_t s, std::int64_t e) {
    const std::int64_t delay = clip.format.nSamplesPerSec / 15;
    ForChannels(
        s, e,
        [delay](Floats& buffer) {
          LiteralAddEchoes(buffer, static_cast<std::int64_t>(buffer.size()), delay, 4, 22);
        },
        true);
  }

  void Filter(std::int64_t s, std::int64_t e, int preset) {
    const PresetTable table = BuildPresetTable(preset);
    ForChannels(
        s, e, [&](Floats& buffer) { LiteralFilterRange(buffer, clip.format.nSamplesPerSec, table); }, true);
  }

  void FilterByMode(std::int64_t s, std::int64_t e, int mode) {
    ForChannels(
        s, e, [&](Floats& buffer) { LiteralFilterWithoutOverlap(buffer, clip.format.nSamplesPerSec, mode); },
        true);
  }

  void ChangeFormat(std::uint32_t rate, std::uint16_t bits, std::uint16_t channels) {
    const WaveFormat record = clip.format;
    if (rate != record.nSamplesPerSec) {
      Convert(rate, record.wBitsPerSample, record.nChannels);
    }
    if (bits != record.wBitsPerSample) {
      Convert(record.nSamplesPerSec, bits, record.nChannels);
    }
    if (channels != record.nChannels) {
      Convert(record.nSamplesPerSec, bits, channels);
    }
    clip.format = PcmFormat(rate, bits, channels);
  }

 private:
  bool Is8Bit() const { return clip.format.wBitsPerSample == 8; }
  bool Stereo() const { return clip.format.nChannels == 2; }
  std::byte* Data() { return clip.data.data(); }
  static int Distance(int byte) { return byte <= 127 ? 127 - byte : 128 - byte; }

  void ForStored(std::int64_t s, std::int64_t e, const std::function<void(std::uint64_t)>& work) {
    for (std::int64_t i = Is8Bit() ? s : s / 2; i < (Is8Bit() ? e : e / 2); ++i) {
      work(static_cast<std::uint64_t>(i));
    }
  }

  void Scale(std::uint64_t i, float gain) {
    if (Is8Bit()) {
      const int b = Sample8(Data(), i);
      const float scaled = gain * static_cast<float>(Distance(b));
      StoreSample8(Data(), i,
                   b <= 127 ? Trunc(127 - static_cast<long double>(scaled))
                            : Trunc(-(static_cast<long double>(scaled) + 128)));
    } else {
      StoreSample16(Data(), i, Trunc(static_cast<long double>(gain) * Sample16(Data(), i)));
    }
  }

  void ForChannels(std::int64_t s, std::int64_t e, const std::function<void(Floats&)>& work, bool limits) {
    const std::int64_t channels = clip.format.nChannels;
    const std::int64_t frame = (Is8Bit() ? 1 : 2) * channels;
    const std::int64_t first = s / frame;
    const std::int64_t count = e / frame - first;
    for (std::int64_t channel = 0; channel < channels; ++channel) {
      Floats buffer;
      for (std::int64_t i = 0; i < count; ++i) {
        const auto index = static_cast<std::uint64_t>((first + i) * channels + channel);
        buffer.push_back(
            Is8Bit() ? static_cast<float>(Sample8(Data(), index) - 128) * 0.0078125F
                     : static_cast<float>(static_cast<long double>(Sample16(Data(), index)) / 32767.0L));
      }
      work(buffer);
      if (limits) {
        LiteralLimitToUnity(buffer);
      }
      for (std::int64_t i = 0; i < count; ++i) {
        const auto index = static_cast<std::uint64_t>((first + i) * channels + channel);
        const float value = buffer[static_cast<std::size_t>(i)];
        if (Is8Bit()) {
          StoreSample8(Data(), index, Trunc(static_cast<long double>(value * 128.0F) + 128));
        } else {
          StoreSample16(Data(), index, Trunc(value * 32767.0F));
        }
      }
    }
  }

  void Convert(std::uint32_t rate, std::uint16_t bits, std::uint16_t channels) {
    auto size = static_cast<std::uint32_t>(clip.data.size());
    const auto block = ConvertData(rate, bits, channels, clip.format, BlockOf(clip.data), size);
    clip.data = BytesOfBlock(block.value(), size);
  }

  LiteralClip& clip;
};

}  // namespace tembrel::test
