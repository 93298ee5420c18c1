// One playing sound of the audio module: where its samples come from (a block in memory
// or an OggDecoder), how far it has got, and its volume, pan and loop state. Mix resamples
// it to the output rate by linear interpolation and adds it into a 32-bit stereo
// accumulator; all of it is integer arithmetic, so the same calls give the same samples
// on every machine.
//
// The module owns a fixed array of voices and locks around every call; a voice is reused
// for each new sound (Reset), so starting a sound allocates nothing but its decoder.
#pragma once
#include <memory>

#include "audio/OggDecoder.h"
#include "ostra/AudioMPI.h"

namespace Hollin {
namespace Ostra {

class Voice {
 public:
  static constexpr U32 kBufferFrames = 256;  // source frames decoded at a time

  struct Settings {
    tAudioVolume volume = 100;
    tAudioPriority priority = 0;
    tAudioPan pan = 0;
    IEventListener* listener = nullptr;  // borrowed
    tAudioPayload payload = 0;
    tAudioOptionsFlags flags = 0;
  };

  // Frees the decoder and marks the voice free.
  void Reset();
  void StartMemory(tAudioID id, const Settings& settings, const S16* samples, U32 frames, U32 rate);
  // Takes the decoder; a broken one ends at the first mix.
  void StartStream(tAudioID id, const Settings& settings, std::unique_ptr<OggDecoder> decoder);

  // Adds `frames` output frames at `outputRate` into `accumulator` (interleaved left,
  // right), scaled by the voice's volume and pan and by `master` (0..100). False when
  // the sound came to its end during this mix; the rest of its frames add nothing.
  bool Mix(S32* accumulator, U32 frames, U32 outputRate, U8 master);

  bool IsFree() const { return m_Id == 0; }
  tAudioID GetId() const { return m_Id; }
  Settings& GetSettings() { return m_Settings; }
  const Settings& GetSettings() const { return m_Settings; }
  bool IsPaused() const { return m_bPaused; }
  void SetPaused(bool paused) { m_bPaused = paused; }
  // Complete plays so far (for the done message).
  U32 GetPlayCount() const { return m_PlayCount; }
  U32 GetElapsedMs() const;

 private:
  // Fills the source buffer; false at the end of the sound, loops used up.
  bool Refill();
  // The next source frame into `frame`; false (and zeros) at the end.
  bool NextFrame(S32* frame);
  void TargetGains(U8 master, S32& left, S32& right) const;

  tAudioID m_Id = 0;  // 0: free
  Settings m_Settings;
  bool m_bPaused = false;

  // Source: a mono block in memory, or a decoder.
  const S16* m_pSamples = nullptr;  // borrowed
  U32 m_SampleCount = 0;            // frames
  U32 m_SamplePos = 0;
  std::unique_ptr<OggDecoder> m_pDecoder;
  U32 m_Rate = 0;  // Hz of the source

  S16 m_Buffer[kBufferFrames * 2];  // stereo source frames
  U32 m_BufferCount = 0;
  U32 m_BufferPos = 0;
  U32 m_LoopsLeft = 0;
  U32 m_PlayCount = 0;
  bool m_bFramesSinceRewind = false;  // an empty sound must not loop forever

  // Resampler: output is m_Current + (m_Next - m_Current) * fraction.
  bool m_bPrimed = false;
  bool m_bSourceEnded = false;
  S32 m_Current[2] = {0, 0};
  S32 m_Next[2] = {0, 0};
  U64 m_Fraction = 0;  // Q32 between m_Current and m_Next
  U64 m_FramesPlayed = 0;

  bool m_bGainsSet = false;
  S32 m_Gain[2] = {0, 0};  // Q16, left and right, at the end of the previous mix
};

}  // namespace Ostra
}  // namespace Hollin
