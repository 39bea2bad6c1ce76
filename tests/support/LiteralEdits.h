// The edits as they are described, byte by byte and with a new block for every change of length: what the
// program's edits are compared with. A block's bytes that nobody has written are 0.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "audio/Samples.h"
#include "tests/support/LiteralUndo.h"

namespace tembrel::test {

inline std::int64_t BytesPerFrame(const WaveFormat& format) {
  const bool stereo = format.nChannels == 2;
  return format.wBitsPerSample == 8 ? (stereo ? 2 : 1) : (stereo ? 4 : 2);
}

class LiteralEdits {
 public:
  explicit LiteralEdits(LiteralClip& document) : clip(document) {}

  void Cut(std::int64_t s, std::int64_t e, LiteralClip& clipboard) {
    Copy(s, e, clipboard);
    const std::int64_t n = e - s;
    std::int64_t length = Length();
    for (std::int64_t i = s; i < length - n; ++i) {
      At(i) = At(i + n);
    }
    length -= n;
    length = std::max<std::int64_t>(length, 1);
    clip.data.resize(static_cast<std::size_t>(length));
  }

  void Copy(std::int64_t s, std::int64_t e, LiteralClip& clipboard) const {
    clipboard = {clip.format, {clip.data.begin() + s, clip.data.begin() + e}};
  }

  void InsertSilence(std::int64_t s, std::int64_t e) {
    const std::int64_t n = e - s;
    const std::int64_t length = Length() + n;
    clip.data.resize(static_cast<std::size_t>(length + 1));  // one spare byte
    for (std::int64_t i = length; i > e; --i) {
      At(i) = At(i - n);
    }
    const bool stereo = clip.format.nChannels == 2;
    if (clip.format.wBitsPerSample == 8 && !stereo) {
      for (std::int64_t i = s; i <= e - 1; ++i) {
        At(i) = std::byte{127};
      }
    } else if (clip.format.wBitsPerSample == 8) {
      for (std::int64_t frame = s / 2; frame <= e / 2 - 1; ++frame) {
        At(2 * frame) = std::byte{127};
        At(2 * frame + 1) = std::byte{127};
      }
    } else if (!stereo) {
      for (std::int64_t sample = s / 2; sample <= e / 2 - 1; ++sample) {
        StoreSample16(clip.data.data(), static_cast<std::uint64_t>(sample), 0);
      }
    } else {
      for (std::int64_t frame = s / 4; frame <= e / 4 - 1; ++frame) {
        StoreSample16(clip.data.data(), static_cast<std::uint64_t>(2 * frame), 0);
        StoreSample16(clip.data.data(), static_cast<std::uint64_t>(2 * frame + 1), 0);
      }
    }
    clip.data.resize(static_cast<std::size_t>(length));
  }

  void PasteInsert(const LiteralClip& clipboard, std::int64_t cursor) {
    const std::int64_t p = cursor * BytesPerFrame(clip.format);
    const auto q = static_cast<std::int64_t>(clipboard.data.size());
    const std::int64_t length = Length() + q;
    clip.data.resize(static_cast<std::size_t>(length + 1));
    for (std::int64_t i = length; i > p + q; --i) {
      At(i) = At(i - q);
    }
    for (std::int64_t i = p; i < p + q && i < length; ++i) {
      At(i) = clipboard.data[static_cast<std::size_t>(i - p)];
    }
    clip.data.resize(static_cast<std::size_t>(length));
  }

  void PasteOverwrite(const LiteralClip& clipboard, std::int64_t cursor) {
    const std::int64_t p = cursor * BytesPerFrame(clip.format);
    const auto q = static_cast<std::int64_t>(clipboard.data.size());
    for (std::int64_t i = p; i < p + q && i < Length(); ++i) {
      At(i) = clipboard.data[static_cast<std::size_t>(i - p)];
    }
  }

  void PasteMerge(const LiteralClip& clipboard, std::int64_t cursor) {
    const std::int64_t frame = BytesPerFrame(clip.format);
    const std::int64_t frames = Length() / frame;
    const std::int64_t pasted = static_cast<std::int64_t>(clipboard.data.size()) / frame;
    const std::int64_t m = std::min(pasted, frames - cursor);
    const bool stereo = clip.format.nChannels == 2;
    std::byte* const start = clip.data.data() + (clip.format.wBitsPerSample == 8 ? cursor : 2 * cursor);
    for (int channel = 0; channel < (stereo ? 2 : 1); ++channel) {
      std::vector<float> sums;
      float peak = 0;
      for (std::int64_t i = 0; i < m; ++i) {
        const std::int64_t index = stereo ? 2 * i + channel : i;
        const float sum = ToFloat(start, index) + ToFloat(clipboard.data.data(), index);
        peak = std::max(peak, std::fabs(sum));
        sums.push_back(sum);
      }
      for (std::int64_t i = 0; i < m; ++i) {
        float sum = sums[static_cast<std::size_t>(i)];
        if (peak > 1.0F) {
          sum = sum / peak;
        }
        FromFloat(sum, start, stereo ? 2 * i + channel : i);
      }
    }
  }

 private:
  std::int64_t Length() const { return static_cast<std::int64_t>(clip.data.size()); }
  std::byte& At(std::int64_t index) { return clip.data.at(static_cast<std::size_t>(index)); }

  float ToFloat(const std::byte* block, std::int64_t index) const {
    const auto at = static_cast<std::uint64_t>(index);
    if (clip.format.wBitsPerSample == 8) {
      return static_cast<float>(Sample8(block, at) - 128) * 0.0078125F;
    }
    return static_cast<float>(static_cast<long double>(Sample16(block, at)) * (1.0L / 32767.0L));
  }
  void FromFloat(float value, std::byte* block, std::int64_t index) const {
    const auto at = static_cast<std::uint64_t>(index);
    if (clip.format.wBitsPerSample == 8) {
      const float scaled = value * 128.0F;
      StoreSample8(block, at, static_cast<std::int32_t>(static_cast<long double>(scaled) + 128.0L));
    } else {
      const float scaled = value * 32767.0F;
      StoreSample16(block, at, static_cast<std::int32_t>(scaled));
    }
  }

  LiteralClip& clip;
};

}  // namespace tembrel::test
