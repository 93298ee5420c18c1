// The audio module: plays streamed ".ogg" files and blocks of samples in memory on up to
// kMaxAudioVoices voices at once, mixed to one stereo output.
//
// Every CAudioMPI object talks to the same module; the objects hold nothing. An audio id
// names one started sound until it ends; ids count up from 1 and are never reused while
// the process runs. kNoAudioID is the failure answer of StartAudio.
//
// Volumes run 0..100 (larger values count as 100) and scale the amplitude linearly; the
// master volume scales everything. Pan runs -100 (left only) .. 0 (centre) .. 100 (right
// only). Priority decides who keeps a voice when all are taken: a new sound takes the
// voice of the lowest-priority sound only if that priority is strictly below its own;
// otherwise StartAudio fails.
//
// Flags: kAudioOptionsDoneMsgAfterComplete asks for a done message when the sound ends,
// by itself or by StopAudio(id, false) or by losing its voice. kAudioOptionsLooped plays
// the sound again from the start each time it ends, `payload` more times (0x40000000 is in
// effect forever); without it the payload is only handed back in the done message.
//
// Done messages (CAudioEventMessage, type kAudioCompletedEvent) are delivered on the
// module's own thread, never on the caller's: to the listener given to StartAudio, or to
// the default listener when none was given. After SetDefaultAudioEventListener returns,
// the previous default listener is not called again. A listener given to StartAudio must
// stay alive until its sound's done message arrived or the sound was stopped without one.
//
// When the output runs depends on the host (see ostra/HostAudio.h): from the sound
// device, or on demand from the virtual clock in headless runs.
#pragma once
#include <string>

#include "ostra/EventMPI.h"

namespace Hollin {
namespace Ostra {

typedef U32 tAudioID;
typedef U8 tAudioVolume;    // 0..100
typedef U8 tAudioPriority;  // larger is more important
typedef S8 tAudioPan;       // -100..100
typedef U32 tAudioPayload;  // loop count, or the caller's own word
typedef U32 tAudioOptionsFlags;

const tAudioID kNoAudioID = 0xFFFFFFFFu;
const U32 kMaxAudioVoices = 32;

const tAudioOptionsFlags kAudioOptionsNoDoneMsg = 0;
const tAudioOptionsFlags kAudioOptionsDoneMsgAfterComplete = 1u;
const tAudioOptionsFlags kAudioOptionsLooped = 2u;

// Audio messages take the range 0x10000400..0x100007ff of the message types.
const tEventType kGroupAudio = 0x10000400u;
const tEventType kAudioCompletedEvent = kGroupAudio | 1u;

// What a block of samples in memory holds. Type kAudioTypePCM16Mono is the only type:
// signed 16-bit native-endian mono samples, `dataSize` bytes starting `offsetToData`
// bytes after the samples pointer, played at `dataSampleRate` Hz.
const U16 kAudioTypePCM16Mono = 0;

struct tAudioHeader {
  U32 offsetToData = 0;  // bytes
  U16 type = kAudioTypePCM16Mono;
  U16 reserved = 0;
  U32 dataSampleRate = 16000;  // Hz
  U32 dataSize = 0;            // bytes
};

// Asked for more samples of a memory block; the module plays without one. Kept for the
// shape of the interface: a callback given to StartAudio is never called.
typedef bool (*tGetStereoAudioStreamFcn)(U16 numSamples, S16* pStereoBuffer);

struct tAudioMsgAudioCompleted {
  tAudioID audioID;
  tAudioPayload payload;
  U32 count;  // how many times the sound was played through (0 when stopped early)
};

struct tAudioMsgData {
  tAudioMsgAudioCompleted audioCompleted;
};

class CAudioEventMessage : public IEventMessage {
 public:
  explicit CAudioEventMessage(const tAudioMsgAudioCompleted& data) : IEventMessage(kAudioCompletedEvent) {
    audioMsgData.audioCompleted = data;
  }
  tAudioMsgData audioMsgData;
};

class CAudioMPI {
 public:
  CAudioMPI() {}
  bool IsValid() const { return true; }

  // A streamed ".ogg" file: `path` as given when it exists, else under the resource path.
  // kNoAudioID when the file cannot be opened or no voice is free. A file that opens but
  // does not decode plays nothing and ends with its done message.
  tAudioID StartAudio(const std::string& path, tAudioVolume volume, tAudioPriority priority, tAudioPan pan,
                      IEventListener* listener = nullptr, tAudioPayload payload = 0,
                      tAudioOptionsFlags flags = kAudioOptionsNoDoneMsg);
  // A block of samples that the caller keeps alive and unchanged while the sound runs.
  tAudioID StartAudio(const tAudioHeader& header, const void* samples, tGetStereoAudioStreamFcn callback,
                      tAudioVolume volume, tAudioPriority priority, tAudioPan pan,
                      IEventListener* listener = nullptr, tAudioPayload payload = 0,
                      tAudioOptionsFlags flags = kAudioOptionsNoDoneMsg);

  tErrType StopAudio(tAudioID id, bool noDoneMessage);
  // Stops every sound; each sends the done message it asked for.
  tErrType StopAllAudio();
  tErrType PauseAudio(tAudioID id);
  tErrType ResumeAudio(tAudioID id);
  // The whole output: paused sounds keep their place and their elapsed time.
  tErrType PauseAudioSystem();
  tErrType ResumeAudioSystem();

  // A sound is playing from StartAudio until it ends or is stopped, paused or not.
  bool IsAudioPlaying(tAudioID id) const;
  bool IsAudioPlaying() const;

  // Getters of an unknown id answer 0.
  tAudioVolume GetAudioVolume(tAudioID id) const;
  void SetAudioVolume(tAudioID id, tAudioVolume volume);
  tAudioPriority GetAudioPriority(tAudioID id) const;
  void SetAudioPriority(tAudioID id, tAudioPriority priority);
  tAudioPan GetAudioPan(tAudioID id) const;
  void SetAudioPan(tAudioID id, tAudioPan pan);
  U8 GetMasterVolume() const;
  void SetMasterVolume(U8 volume);
  // ms of the sound played so far, loops included, pauses not.
  U32 GetAudioTime(tAudioID id) const;

  tErrType SetDefaultAudioEventListener(IEventListener* listener);
  IEventListener* GetDefaultAudioEventListener() const;
  tErrType SetAudioResourcePath(const std::string& path);
  std::string GetAudioResourcePath() const;
};

}  // namespace Ostra
}  // namespace Hollin
