#include "audio/OggDecoder.h"

#include <cstdio>

namespace Hollin {
namespace Ostra {
namespace {

const U32 kMinRate = 1000;    // Hz; a header outside these limits is taken as corrupt
const U32 kMaxRate = 192000;  // Hz
const int kMaxHolesInARow = 64;

}  // namespace

bool OggDecoder::Open(const std::string& path) {
  Close();
  FILE* file = fopen(path.c_str(), "rb");
  if (!file) return false;
  // From here on vorbisfile owns the FILE, even when it refuses the stream.
  if (ov_open_callbacks(file, &m_File, nullptr, 0, OV_CALLBACKS_DEFAULT) != 0) {
    fclose(file);
    m_bBroken = true;
    return true;
  }
  m_bOpen = true;
  vorbis_info* info = ov_info(&m_File, -1);
  if (!info || info->channels < 1 || info->rate < static_cast<long>(kMinRate) ||
      info->rate > static_cast<long>(kMaxRate)) {
    m_bBroken = true;
    return true;
  }
  m_Rate = static_cast<U32>(info->rate);
  m_Channels = info->channels;
  return true;
}

void OggDecoder::Close() {
  if (m_bOpen) ov_clear(&m_File);
  m_bOpen = false;
  m_bBroken = false;
  m_Rate = 0;
  m_Channels = 0;
}

U32 OggDecoder::Read(S16* out, U32 maxFrames) {
  if (!m_bOpen || m_bBroken) return 0;
  // Raw little-endian 16-bit samples of all channels; up to 8 channels of 256 frames.
  char raw[4096];
  int holes = 0;
  for (;;) {
    int channels = m_Channels;
    long want = static_cast<long>(maxFrames) * channels * 2;
    if (want > static_cast<long>(sizeof raw))
      want = static_cast<long>(sizeof raw) / (channels * 2) * channels * 2;
    if (want <= 0) {
      // A stream of more channels than one frame of `raw` can hold.
      m_bBroken = true;
      return 0;
    }
    int section = 0;
    long got = ov_read(&m_File, raw, static_cast<int>(want), 0, 2, 1, &section);
    if (got == 0) return 0;
    if (got == OV_HOLE && ++holes < kMaxHolesInARow) continue;
    if (got < 0) {
      m_bBroken = true;
      return 0;
    }
    // A chained stream may change its channel count from one link to the next; the
    // bytes just read are laid out by the link they came from.
    vorbis_info* info = ov_info(&m_File, section);
    if (info && info->channels >= 1) m_Channels = info->channels;
    channels = m_Channels;
    const unsigned char* bytes = reinterpret_cast<const unsigned char*>(raw);
    U32 frames = static_cast<U32>(got / (channels * 2));
    for (U32 i = 0; i < frames; ++i) {
      const unsigned char* frame = bytes + static_cast<size_t>(i) * channels * 2;
      S16 left = static_cast<S16>(static_cast<U16>(frame[0] | frame[1] << 8));
      S16 right = channels > 1 ? static_cast<S16>(static_cast<U16>(frame[2] | frame[3] << 8)) : left;
      out[2 * i] = left;
      out[2 * i + 1] = right;
    }
    if (frames > 0) return frames;
  }
}

bool OggDecoder::Rewind() {
  if (!m_bOpen || m_bBroken) return false;
  if (ov_pcm_seek(&m_File, 0) != 0) {
    m_bBroken = true;
    return false;
  }
  return true;
}

}  // namespace Ostra
}  // namespace Hollin
