// One open ".ogg" file decoded with vorbisfile into interleaved stereo frames: mono is
// doubled to both sides, channels past the second are dropped. A decoder belongs to one
// voice; the voice reads it on whatever thread mixes.
#pragma once
#include <vorbis/vorbisfile.h>

#include <string>

#include "ostra/PlatformTypes.h"

namespace Hollin {
namespace Ostra {

class OggDecoder {
 public:
  OggDecoder() = default;
  ~OggDecoder() { Close(); }
  OggDecoder(const OggDecoder&) = delete;
  OggDecoder& operator=(const OggDecoder&) = delete;

  // False when the file cannot be opened at all. A file that opens but is not a usable
  // Vorbis stream gives true with IsBroken set: it plays nothing and ends at once.
  bool Open(const std::string& path);
  void Close();

  bool IsBroken() const { return m_bBroken; }
  U32 GetRate() const { return m_Rate; }

  // Up to `maxFrames` stereo frames into `out`; 0 at the end of the stream or when the
  // data turns out to be corrupt (IsBroken tells which).
  U32 Read(S16* out, U32 maxFrames);
  // Back to the first sample; false (and broken) when the stream cannot seek.
  bool Rewind();

 private:
  OggVorbis_File m_File;
  bool m_bOpen = false;
  bool m_bBroken = false;
  U32 m_Rate = 0;      // Hz
  int m_Channels = 0;  // of the stream
};

}  // namespace Ostra
}  // namespace Hollin
