#include "platform/SoundPlayer_pf.h"

namespace nox {
namespace {

namespace Ostra = Hollin::Ostra;

const Ostra::tAudioPayload kLoopForever = 0x40000000u;  // a loop count that is never reached

Ostra::tAudioPayload Payload(bool loop) {
  return loop ? kLoopForever : 0;
}

Ostra::tAudioOptionsFlags Flags(bool loop) {
  return loop ? Ostra::kAudioOptionsDoneMsgAfterComplete | Ostra::kAudioOptionsLooped
              : Ostra::kAudioOptionsDoneMsgAfterComplete;
}

uint32_t FromModule(Ostra::tAudioID id) {
  return id == Ostra::kNoAudioID ? 0 : id;
}

}  // namespace

SoundPlayer_pf::SoundPlayer_pf() : Ostra::IEventListener(kSoundTypes) {
  m_Kernel.InitMutex(m_Mutex);
  // Room for the ends of a busy frame, so that the audio thread seldom allocates.
  m_Pending.reserve(64);
}

SoundPlayer_pf::~SoundPlayer_pf() {
  DetachFromModule();
  m_Kernel.DeInitMutex(m_Mutex);
}

void SoundPlayer_pf::AttachToModule(const std::string& resourcePath) {
  m_Audio.SetDefaultAudioEventListener(this);
  m_Audio.SetAudioResourcePath(resourcePath);
}

void SoundPlayer_pf::DetachFromModule() {
  // Once this returns the module's thread is done with us.
  if (m_Audio.GetDefaultAudioEventListener() == this) m_Audio.SetDefaultAudioEventListener(nullptr);
}

Ostra::tErrType SoundPlayer_pf::Notify(const Ostra::IEventMessage& message) {
  if (message.GetEventType() != Ostra::kAudioCompletedEvent) return Ostra::kNoErr;
  const Ostra::CAudioEventMessage& done = static_cast<const Ostra::CAudioEventMessage&>(message);
  m_Kernel.LockMutex(m_Mutex);
  m_Pending.push_back(done.audioMsgData.audioCompleted.audioID);
  m_Kernel.UnlockMutex(m_Mutex);
  return Ostra::kNoErr;
}

uint32_t SoundPlayer_pf::StartStream(const std::string& path, uint32_t volume, uint32_t priority, int32_t pan,
                                     bool loop) {
  return FromModule(m_Audio.StartAudio(
      path, static_cast<Ostra::tAudioVolume>(volume), static_cast<Ostra::tAudioPriority>(priority),
      static_cast<Ostra::tAudioPan>(pan), nullptr, Payload(loop), Flags(loop)));
}

uint32_t SoundPlayer_pf::StartMemory(const void* data, uint32_t size, uint32_t volume, uint32_t priority,
                                     int32_t pan, bool loop) {
  Ostra::tAudioHeader header;
  header.offsetToData = 0;
  header.type = 0;
  // Every memory sound plays at 16 kHz, whatever its file said.
  header.dataSampleRate = 16000;
  header.dataSize = size;
  return FromModule(m_Audio.StartAudio(header, data, nullptr, static_cast<Ostra::tAudioVolume>(volume),
                                       static_cast<Ostra::tAudioPriority>(priority),
                                       static_cast<Ostra::tAudioPan>(pan), nullptr, Payload(loop),
                                       Flags(loop)));
}

}  // namespace nox
