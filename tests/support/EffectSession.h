// A clip with its history that effects are run on, and sounds that are hard on them.
#pragma once

#include <cmath>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>

#include "audio/Progress.h"
#include "edit/AudioUndo.h"
#include "edit/EditStep.h"
#include "tests/support/EditClips.h"
#include "tests/support/LiteralEffects.h"

namespace tembrel::test {

struct EffectSession {
  AudioClip clip;
  AudioUndo undo;
  EditMemory memory;
  Progress progress;

  EffectSession(const WaveFormat& format, std::span<const std::byte> bytes) : clip(ClipOf(format, bytes)) {}

  EditResult Run(const EditStep& step) {
    EditResult result = step.check ? step.check(clip) : EditResult::Done();
    if (!result.done) {
      return result;
    }
    undo.Push(&clip);
    ClipEditor editor(clip, undo, memory, progress);
    result = step.change(editor);
    if (result.done) {
      undo.KeepPush();
    } else {
      undo.TakeBackPush(editor);
    }
    return result;
  }

  bool Undo() {
    ClipEditor editor(clip, undo, memory);
    return undo.Undo(editor);
  }

  Bytes Content() const { return BytesOfClip(clip); }
};

// The bytes that a step leaves.
inline Bytes After(const WaveFormat& format, std::span<const std::byte> bytes, const EditStep& step) {
  EffectSession session(format, bytes);
  return session.Run(step).done ? session.Content() : Bytes();
}

// The same with an effect that may keep nothing: it computes all that it needs twice.
inline Bytes AfterKeepingNothing(const WaveFormat& format, std::span<const std::byte> bytes,
                                 const EditStep& step) {
  EffectSession session(format, bytes);
  session.memory.largestStore = 0;
  return session.Run(step).done ? session.Content() : Bytes();
}

inline LiteralClip LiteralOf(const WaveFormat& format, const Bytes& bytes) {
  return {format, bytes};
}

enum class Sound { Noise, FullScale, Quiet, Tone, Impulses, Bursts, Constant, kCount };

inline int Level(Sound sound, std::int64_t i, std::int64_t fullScale, Dice& dice) {
  const double angle = static_cast<double>(i) * 0.0627;
  switch (sound) {
    case Sound::Noise:
      return static_cast<int>(dice.Roll(-fullScale - 1, fullScale));
    case Sound::FullScale:
      return static_cast<int>(dice.OneIn(2) ? fullScale : -fullScale - 1);
    case Sound::Quiet:
      return static_cast<int>(dice.Roll(-1, 1));
    case Sound::Tone:
      return static_cast<int>(std::lround(0.6 * static_cast<double>(fullScale) *
                                          (std::sin(angle) + 0.5 * std::sin(angle * 7.3))));
    case Sound::Impulses:
      return i % 1500 == 700 ? static_cast<int>(i % 3000 == 700 ? fullScale : -fullScale - 1) : 0;
    case Sound::Bursts:
      return i / 3000 % 2 == 0 ? static_cast<int>(dice.Roll(-fullScale / 2, fullScale / 2)) : 0;
    default:
      return static_cast<int>(fullScale / 3);
  }
}

// `frames` frames of a kind of sound.
inline Bytes SoundBytes(const WaveFormat& format, std::int64_t frames, Sound sound, Dice& dice) {
  const bool is8Bit = format.wBitsPerSample == 8;
  const std::int64_t count = frames * format.nChannels;
  Bytes bytes(static_cast<std::size_t>(count * (is8Bit ? 1 : 2)));
  for (std::int64_t i = 0; i < count; ++i) {
    const int level = std::clamp<int>(Level(sound, i, is8Bit ? 127 : 32767, dice), is8Bit ? -128 : -32768,
                                      is8Bit ? 127 : 32767);
    if (is8Bit) {
      StoreSample8(bytes.data(), static_cast<std::uint64_t>(i), level + 128);
    } else {
      StoreSample16(bytes.data(), static_cast<std::uint64_t>(i), level);
    }
  }
  return bytes;
}

inline std::string NameOf(const WaveFormat& format, Sound sound) {
  return std::to_string(format.nSamplesPerSec) + " Hz, " + std::to_string(format.wBitsPerSample) + " bits, " +
         std::to_string(format.nChannels) + " channels, sound " + std::to_string(static_cast<int>(sound));
}

// Calls `check` with every layout and kind of sound.
inline void ForEachSound(
    std::int64_t frames,
    const std::function<void(const WaveFormat&, const Bytes&, const std::string&)>& check) {
  Dice dice(1);
  for (const WaveFormat& format : kLayouts) {
    for (int kind = 0; kind < static_cast<int>(Sound::kCount); ++kind) {
      const auto sound = static_cast<Sound>(kind);
      check(format, SoundBytes(format, frames, sound, dice), NameOf(format, sound));
    }
  }
}

}  // namespace tembrel::test
