// Writes the module's output as a 16-bit stereo PCM WAV file. The sizes in the header are
// filled in by Close; a file of a run that never closed it has them at 0.
#pragma once
#include <cstdio>
#include <string>

#include "ostra/PlatformTypes.h"

namespace Hollin {
namespace Ostra {

class WavWriter {
 public:
  WavWriter() = default;
  ~WavWriter() { Close(); }
  WavWriter(const WavWriter&) = delete;
  WavWriter& operator=(const WavWriter&) = delete;

  bool Open(const std::string& path, U32 rate);
  bool IsOpen() const { return m_pFile != nullptr; }
  // Interleaved left, right.
  void Append(const S16* frames, U32 count);
  void Close();

 private:
  FILE* m_pFile = nullptr;  // owned
  U64 m_DataBytes = 0;
  U32 m_Rate = 0;  // Hz
};

}  // namespace Ostra
}  // namespace Hollin
