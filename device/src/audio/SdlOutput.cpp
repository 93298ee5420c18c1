#include "audio/SdlOutput.h"

#include <SDL.h>

namespace Hollin {
namespace Ostra {

bool SdlOutput::Open(U32 rate, FillFunction fill, void* user, std::string& error) {
  Close();
  if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) {
    error = std::string("no sound device: ") + SDL_GetError();
    return false;
  }
  m_Fill = fill;
  m_pUser = user;
  SDL_AudioSpec want;
  SDL_zero(want);
  want.freq = static_cast<int>(rate);
  want.format = AUDIO_S16SYS;
  want.channels = 2;
  want.samples = 512;  // 16 ms at 32 kHz
  want.callback = &SdlOutput::Callback;
  want.userdata = this;
  SDL_AudioSpec have;
  m_Device = SDL_OpenAudioDevice(nullptr, 0, &want, &have, 0);
  if (m_Device == 0) {
    error = std::string("cannot open the sound device: ") + SDL_GetError();
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
    return false;
  }
  SDL_PauseAudioDevice(m_Device, 0);
  return true;
}

void SdlOutput::Close() {
  if (m_Device == 0) return;
  SDL_CloseAudioDevice(m_Device);
  m_Device = 0;
  SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

void SdlOutput::Callback(void* self, unsigned char* stream, int bytes) {
  SdlOutput* output = static_cast<SdlOutput*>(self);
  output->m_Fill(output->m_pUser, reinterpret_cast<S16*>(stream), static_cast<U32>(bytes) / 4);
}

}  // namespace Ostra
}  // namespace Hollin
