#include "sound/SoundBuffer.h"

#include <cstring>
#include <new>

#include "core/FileSystem.h"
#include "sound/ImaAdpcm.h"

namespace nox {
namespace {

const uint16_t kTagPcm = 1;
const uint16_t kTagImaAdpcm = 17;

uint16_t Read16(const uint8_t* at) {
  return static_cast<uint16_t>(at[0] | at[1] << 8);
}

uint32_t Read32(const uint8_t* at) {
  return static_cast<uint32_t>(at[0]) | static_cast<uint32_t>(at[1]) << 8 |
         static_cast<uint32_t>(at[2]) << 16 | static_cast<uint32_t>(at[3]) << 24;
}

bool ReadExactly(FILE* file, void* out, size_t bytes) {
  return FileSystem::FileRead(out, 1, bytes, file) == bytes;
}

struct WavFormat {
  uint16_t tag = 0;
  uint16_t channels = 0;
  uint32_t rate = 0;
  uint16_t blockAlign = 0;
  uint16_t bitsPerSample = 0;  // 0 until a "fmt " chunk was read
};

// The "data" chunk of `bytes` bytes at the file's position.
uint8_t* ReadData(FILE* file, const WavFormat& format, uint32_t bytes, uint32_t* size) {
  if (format.tag == kTagPcm) {
    uint8_t* data = new uint8_t[bytes];
    if (!ReadExactly(file, data, bytes)) {
      delete[] data;
      return nullptr;
    }
    *size = bytes;
    return data;
  }
  // The output is four times the chunk; a chunk so large that this cannot be counted in
  // 32 bits is not a sound this game could hold anyway.
  if (format.blockAlign == 0 || bytes > 0x3FFFFFFFu) return nullptr;
  uint8_t* data = new uint8_t[4 * static_cast<size_t>(bytes)];
  if (!ReadExactly(file, data + 3 * static_cast<size_t>(bytes), bytes)) {
    delete[] data;
    return nullptr;
  }
  *size = DecodeImaAdpcmInPlace(data, bytes, format.channels, format.blockAlign);
  return data;
}

}  // namespace

SoundBuffer::SoundBuffer(const std::string& path) {
  LoadWavBuffer(path, &m_pData, &m_Size, &m_Rate, &m_Format);
  m_bOwned = true;
  AddRef();
}

SoundBuffer::~SoundBuffer() {
  if (m_bOwned) ReleaseWavBuffer(m_pData);
}

uint32_t SoundBuffer::Release() {
  if (m_RefCount > 0 && --m_RefCount == 0) {
    if (m_bOwned) ReleaseWavBuffer(m_pData);
    m_pData = nullptr;
    m_Size = 0;
  }
  return m_RefCount;
}

bool SoundBuffer::LoadWavBuffer(const std::string& path, uint8_t** data, uint32_t* size, uint32_t* rate,
                                uint8_t* format) {
  *data = nullptr;
  *size = 0;
  SCOPEDNOXFILE file(FileSystem::FileOpen(path.c_str(), "rb"));
  if (!file.Get()) return false;
  if (FileSystem::FileSeek(file, 0, SEEK_END) != 0) return false;
  const long fileSize = FileSystem::FileTell(file);
  if (fileSize < 12 || FileSystem::FileSeek(file, 0, SEEK_SET) != 0) return false;

  uint8_t riff[12];
  if (!ReadExactly(file, riff, 12) || memcmp(riff, "RIFF", 4) != 0 || memcmp(riff + 8, "WAVE", 4) != 0) {
    return false;
  }
  int64_t remaining = Read32(riff + 4);
  WavFormat wav;
  while (remaining > 0) {
    uint8_t header[8];
    if (!ReadExactly(file, header, 8)) return false;
    const uint32_t chunkSize = Read32(header + 4);
    const long position = FileSystem::FileTell(file);
    // A chunk that claims more than the file holds is not read at all.
    if (position < 0 || chunkSize > static_cast<uint64_t>(fileSize - position)) return false;
    if (memcmp(header, "fmt ", 4) == 0) {
      uint8_t fmt[16];
      if (chunkSize < 16 || !ReadExactly(file, fmt, 16)) return false;
      wav.tag = Read16(fmt);
      wav.channels = Read16(fmt + 2);
      wav.rate = Read32(fmt + 4);
      wav.blockAlign = Read16(fmt + 12);
      wav.bitsPerSample = Read16(fmt + 14);
      if (wav.tag != kTagPcm && wav.tag != kTagImaAdpcm) return false;
      if (wav.channels != 1 && wav.channels != 2) return false;
      *rate = wav.rate;
      const bool sixteen = wav.bitsPerSample == 16 || wav.tag == kTagImaAdpcm;
      *format = static_cast<uint8_t>((sixteen ? kMono16 : kMono8) + (wav.channels == 2 ? 1 : 0));
      if (FileSystem::FileSeek(file, static_cast<long>(chunkSize - 16), SEEK_CUR) != 0) return false;
    } else if (memcmp(header, "data", 4) == 0) {
      if (wav.bitsPerSample == 0) return false;  // samples before their format
      *data = ReadData(file, wav, chunkSize, size);
      if (!*data) *size = 0;
      return *data != nullptr;
    } else if (FileSystem::FileSeek(file, static_cast<long>(chunkSize), SEEK_CUR) != 0) {
      return false;
    }
    remaining -= chunkSize;
  }
  return false;
}

}  // namespace nox
