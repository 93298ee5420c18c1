// CAudioMPI: every object forwards to the one AudioModule.
#include "ostra/AudioMPI.h"

#include "audio/AudioModule.h"

namespace Hollin {
namespace Ostra {
namespace {

AudioModule& Module() {
  return AudioModule::Get();
}

Voice::Settings MakeSettings(tAudioVolume volume, tAudioPriority priority, tAudioPan pan,
                             IEventListener* listener, tAudioPayload payload, tAudioOptionsFlags flags) {
  Voice::Settings settings;
  settings.volume = volume > 100 ? 100 : volume;
  settings.priority = priority;
  settings.pan = pan < -100 ? -100 : (pan > 100 ? 100 : pan);
  settings.listener = listener;
  settings.payload = payload;
  settings.flags = flags;
  return settings;
}

}  // namespace

tAudioID CAudioMPI::StartAudio(const std::string& path, tAudioVolume volume, tAudioPriority priority,
                               tAudioPan pan, IEventListener* listener, tAudioPayload payload,
                               tAudioOptionsFlags flags) {
  return Module().StartStream(path, MakeSettings(volume, priority, pan, listener, payload, flags));
}

tAudioID CAudioMPI::StartAudio(const tAudioHeader& header, const void* samples, tGetStereoAudioStreamFcn,
                               tAudioVolume volume, tAudioPriority priority, tAudioPan pan,
                               IEventListener* listener, tAudioPayload payload, tAudioOptionsFlags flags) {
  return Module().StartMemory(header, samples, MakeSettings(volume, priority, pan, listener, payload, flags));
}

tErrType CAudioMPI::StopAudio(tAudioID id, bool noDoneMessage) {
  return Module().Stop(id, noDoneMessage);
}

tErrType CAudioMPI::StopAllAudio() {
  return Module().StopAll();
}

tErrType CAudioMPI::PauseAudio(tAudioID id) {
  return Module().SetPaused(id, true);
}

tErrType CAudioMPI::ResumeAudio(tAudioID id) {
  return Module().SetPaused(id, false);
}

tErrType CAudioMPI::PauseAudioSystem() {
  Module().SetSystemPaused(true);
  return kNoErr;
}

tErrType CAudioMPI::ResumeAudioSystem() {
  Module().SetSystemPaused(false);
  return kNoErr;
}

bool CAudioMPI::IsAudioPlaying(tAudioID id) const {
  return Module().IsPlaying(id);
}

bool CAudioMPI::IsAudioPlaying() const {
  return Module().IsAnyPlaying();
}

tAudioVolume CAudioMPI::GetAudioVolume(tAudioID id) const {
  Voice::Settings settings;
  return Module().GetSettings(id, settings) ? settings.volume : 0;
}

void CAudioMPI::SetAudioVolume(tAudioID id, tAudioVolume volume) {
  Module().SetVolume(id, volume);
}

tAudioPriority CAudioMPI::GetAudioPriority(tAudioID id) const {
  Voice::Settings settings;
  return Module().GetSettings(id, settings) ? settings.priority : 0;
}

void CAudioMPI::SetAudioPriority(tAudioID id, tAudioPriority priority) {
  Module().SetPriority(id, priority);
}

tAudioPan CAudioMPI::GetAudioPan(tAudioID id) const {
  Voice::Settings settings;
  return Module().GetSettings(id, settings) ? settings.pan : 0;
}

void CAudioMPI::SetAudioPan(tAudioID id, tAudioPan pan) {
  Module().SetPan(id, pan);
}

U8 CAudioMPI::GetMasterVolume() const {
  return Module().GetMasterVolume();
}

void CAudioMPI::SetMasterVolume(U8 volume) {
  Module().SetMasterVolume(volume);
}

U32 CAudioMPI::GetAudioTime(tAudioID id) const {
  return Module().GetTime(id);
}

tErrType CAudioMPI::SetDefaultAudioEventListener(IEventListener* listener) {
  Module().SetDefaultListener(listener);
  return kNoErr;
}

IEventListener* CAudioMPI::GetDefaultAudioEventListener() const {
  return Module().GetDefaultListener();
}

tErrType CAudioMPI::SetAudioResourcePath(const std::string& path) {
  Module().SetResourcePath(path);
  return kNoErr;
}

std::string CAudioMPI::GetAudioResourcePath() const {
  return Module().GetResourcePath();
}

}  // namespace Ostra
}  // namespace Hollin
