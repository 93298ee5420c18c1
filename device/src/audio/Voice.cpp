#include "audio/Voice.h"

#include <algorithm>

namespace Hollin {
namespace Ostra {
namespace {

const U64 kOne = 1ull << 32;  // Q32

// Arithmetic shift of a signed value: GCC and Clang, the only compilers this builds with,
// define >> on negative numbers that way.
inline S64 Asr(S64 value, int bits) {
  return value >> bits;
}

}  // namespace

void Voice::Reset() {
  m_Id = 0;
  m_Settings = Settings();
  m_bPaused = false;
  m_pSamples = nullptr;
  m_SampleCount = 0;
  m_SamplePos = 0;
  m_pDecoder.reset();
  m_Rate = 0;
  m_BufferCount = 0;
  m_BufferPos = 0;
  m_LoopsLeft = 0;
  m_PlayCount = 0;
  m_bFramesSinceRewind = false;
  m_bPrimed = false;
  m_bSourceEnded = false;
  m_Current[0] = m_Current[1] = 0;
  m_Next[0] = m_Next[1] = 0;
  m_Fraction = 0;
  m_FramesPlayed = 0;
  m_bGainsSet = false;
  m_Gain[0] = m_Gain[1] = 0;
}

void Voice::StartMemory(tAudioID id, const Settings& settings, const S16* samples, U32 frames, U32 rate) {
  Reset();
  m_Id = id;
  m_Settings = settings;
  m_pSamples = samples;
  m_SampleCount = samples ? frames : 0;
  m_Rate = rate;
  m_LoopsLeft = (settings.flags & kAudioOptionsLooped) ? settings.payload : 0;
}

void Voice::StartStream(tAudioID id, const Settings& settings, std::unique_ptr<OggDecoder> decoder) {
  Reset();
  m_Id = id;
  m_Settings = settings;
  m_Rate = decoder->IsBroken() ? 0 : decoder->GetRate();
  m_pDecoder = std::move(decoder);
  m_LoopsLeft = (settings.flags & kAudioOptionsLooped) ? settings.payload : 0;
}

bool Voice::Refill() {
  m_BufferPos = 0;
  m_BufferCount = 0;
  for (;;) {
    U32 got = 0;
    if (m_pDecoder) {
      got = m_pDecoder->Read(m_Buffer, kBufferFrames);
      if (m_pDecoder->IsBroken()) return false;
    } else {
      got = std::min(kBufferFrames, m_SampleCount - m_SamplePos);
      const S16* in = m_pSamples + m_SamplePos;
      for (U32 i = 0; i < got; ++i) m_Buffer[2 * i] = m_Buffer[2 * i + 1] = in[i];
      m_SamplePos += got;
    }
    if (got > 0) {
      m_BufferCount = got;
      m_bFramesSinceRewind = true;
      return true;
    }
    ++m_PlayCount;
    if (m_LoopsLeft == 0 || !m_bFramesSinceRewind) return false;
    --m_LoopsLeft;
    m_bFramesSinceRewind = false;
    if (m_pDecoder) {
      if (!m_pDecoder->Rewind()) return false;
    } else {
      m_SamplePos = 0;
    }
  }
}

bool Voice::NextFrame(S32* frame) {
  if (m_BufferPos == m_BufferCount && !Refill()) {
    frame[0] = frame[1] = 0;
    return false;
  }
  frame[0] = m_Buffer[2 * m_BufferPos];
  frame[1] = m_Buffer[2 * m_BufferPos + 1];
  ++m_BufferPos;
  return true;
}

void Voice::TargetGains(U8 master, S32& left, S32& right) const {
  S64 volume = std::min<S64>(m_Settings.volume, 100);
  S64 pan = std::max<S64>(-100, std::min<S64>(100, m_Settings.pan));
  S64 both = volume * std::min<S64>(master, 100);
  left = static_cast<S32>(both * (100 - std::max<S64>(pan, 0)) * 65536 / 1000000);
  right = static_cast<S32>(both * (100 + std::min<S64>(pan, 0)) * 65536 / 1000000);
}

bool Voice::Mix(S32* accumulator, U32 frames, U32 outputRate, U8 master) {
  if (m_Rate == 0 || outputRate == 0) return false;
  if (!m_bPrimed) {
    m_bPrimed = true;
    if (!NextFrame(m_Current)) return false;
    m_bSourceEnded = !NextFrame(m_Next);
  }
  if (frames == 0) return true;

  S32 target[2];
  TargetGains(master, target[0], target[1]);
  if (!m_bGainsSet) {
    m_Gain[0] = target[0];
    m_Gain[1] = target[1];
    m_bGainsSet = true;
  }
  // The gain moves from where the last mix left it to the target over this mix, so that
  // a change of volume or pan does not click.
  S64 gain[2] = {static_cast<S64>(m_Gain[0]) * 65536, static_cast<S64>(m_Gain[1]) * 65536};
  const S64 gainStep[2] = {static_cast<S64>(target[0] - m_Gain[0]) * 65536 / frames,
                           static_cast<S64>(target[1] - m_Gain[1]) * 65536 / frames};
  m_Gain[0] = target[0];
  m_Gain[1] = target[1];

  const U64 step = (static_cast<U64>(m_Rate) << 32) / outputRate;
  for (U32 i = 0; i < frames; ++i) {
    const S64 fraction = static_cast<S64>(m_Fraction >> 17);  // Q15
    gain[0] += gainStep[0];
    gain[1] += gainStep[1];
    for (int c = 0; c < 2; ++c) {
      S64 sample = m_Current[c] + Asr((static_cast<S64>(m_Next[c]) - m_Current[c]) * fraction, 15);
      accumulator[2 * i + c] += static_cast<S32>(Asr(sample * Asr(gain[c], 16), 16));
    }
    m_Fraction += step;
    while (m_Fraction >= kOne) {
      m_Fraction -= kOne;
      ++m_FramesPlayed;
      if (m_bSourceEnded) return false;
      m_Current[0] = m_Next[0];
      m_Current[1] = m_Next[1];
      m_bSourceEnded = !NextFrame(m_Next);
    }
  }
  return true;
}

U32 Voice::GetElapsedMs() const {
  return m_Rate == 0 ? 0 : static_cast<U32>(m_FramesPlayed * 1000 / m_Rate);
}

}  // namespace Ostra
}  // namespace Hollin
