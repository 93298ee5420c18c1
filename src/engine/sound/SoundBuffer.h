// A reference-counted block of decoded samples, shared by a MemorySound and all of its
// copies. Made from a ".wav" file (PCM, or IMA ADPCM decoded here, in place); a file that
// cannot be read or does not hold together leaves size 0 and no samples, and the sound
// still starts, playing nothing.
//
// The last Release frees the samples (if owned) and sets size and pointer to 0, but does
// not delete the object: the MemorySound that released it deletes it on a count of 0.
#pragma once
#include <cstdint>
#include <string>

namespace nox {

class SoundBuffer {
 public:
  enum Format : uint8_t { kMono8 = 0, kStereo8 = 1, kMono16 = 2, kStereo16 = 3 };

  // Loads the file and takes the first reference.
  explicit SoundBuffer(const std::string& path);
  SoundBuffer(const SoundBuffer&) = delete;
  SoundBuffer& operator=(const SoundBuffer&) = delete;
  virtual ~SoundBuffer();

  void AddRef() { ++m_RefCount; }
  // The count left.
  uint32_t Release();
  uint32_t GetRefCount() const { return m_RefCount; }

  uint8_t GetFormat() const { return m_Format; }
  uint32_t GetSize() const { return m_Size; }
  uint32_t GetRate() const { return m_Rate; }
  const uint8_t* GetData() const { return m_pData; }

  // Reads a RIFF WAVE file of PCM (format tag 1) or IMA ADPCM (tag 17) samples. On
  // success `data` is a new array for ReleaseWavBuffer; on failure it is null, `size` 0,
  // and the function returns false. Every size in the file is checked against the file
  // before it is used.
  static bool LoadWavBuffer(const std::string& path, uint8_t** data, uint32_t* size, uint32_t* rate,
                            uint8_t* format);
  static void ReleaseWavBuffer(uint8_t* data) { delete[] data; }

 private:
  uint8_t m_Format = kMono16;
  bool m_bOwned = false;
  uint32_t m_RefCount = 0;
  uint32_t m_Size = 0;         // bytes
  uint32_t m_Rate = 16000;     // Hz as the file said; playback ignores it
  uint8_t* m_pData = nullptr;  // owned when m_bOwned
};

}  // namespace nox
