// The machine's sound device through SDL2. The device asks for samples on SDL's audio
// thread; the callback given to Open fills them (interleaved stereo, signed 16-bit, at the
// rate asked for: SDL converts to whatever the device really runs at).
#pragma once
#include <string>

#include "ostra/PlatformTypes.h"

namespace Hollin {
namespace Ostra {

class SdlOutput {
 public:
  typedef void (*FillFunction)(void* user, S16* frames, U32 count);

  SdlOutput() = default;
  ~SdlOutput() { Close(); }
  SdlOutput(const SdlOutput&) = delete;
  SdlOutput& operator=(const SdlOutput&) = delete;

  // Starts the device at once; false with a one-line reason.
  bool Open(U32 rate, FillFunction fill, void* user, std::string& error);
  // Returns after the last callback has finished.
  void Close();
  bool IsOpen() const { return m_Device != 0; }

 private:
  static void Callback(void* self, unsigned char* stream, int bytes);

  U32 m_Device = 0;  // SDL_AudioDeviceID; 0: closed
  FillFunction m_Fill = nullptr;
  void* m_pUser = nullptr;
};

}  // namespace Ostra
}  // namespace Hollin
