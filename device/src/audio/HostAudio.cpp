// HostAudio: the host's calls, forwarded to the one AudioModule.
#include "ostra/HostAudio.h"

#include "audio/AudioModule.h"

namespace Hollin {
namespace Ostra {
namespace HostAudio {

bool Configure(const std::string& outputWavPath, bool mute, bool headless, std::string& error) {
  return AudioModule::Get().Configure(outputWavPath, mute, headless, error);
}

void Update() {
  AudioModule::Get().Update();
}

void MixMilliseconds(U32 ms) {
  AudioModule::Get().MixMilliseconds(ms);
}

bool IsDeviceOutput() {
  return AudioModule::Get().IsDeviceOutput();
}

void Shutdown() {
  AudioModule::Get().Shutdown();
}

}  // namespace HostAudio
}  // namespace Ostra
}  // namespace Hollin
