#include "audio/WavWriter.h"

namespace Hollin {
namespace Ostra {
namespace {

const U32 kHeaderSize = 44;
const U32 kMaxDataBytes = 0xFFFFFFFFu - (kHeaderSize - 8);  // what the RIFF size can say

void Put16(unsigned char* at, U32 value) {
  at[0] = static_cast<unsigned char>(value);
  at[1] = static_cast<unsigned char>(value >> 8);
}

void Put32(unsigned char* at, U32 value) {
  Put16(at, value & 0xFFFF);
  Put16(at + 2, value >> 16);
}

void MakeHeader(unsigned char* header, U32 rate, U32 dataBytes) {
  const U32 channels = 2;
  const U32 bytesPerFrame = channels * 2;
  header[0] = 'R', header[1] = 'I', header[2] = 'F', header[3] = 'F';
  Put32(header + 4, kHeaderSize - 8 + dataBytes);
  header[8] = 'W', header[9] = 'A', header[10] = 'V', header[11] = 'E';
  header[12] = 'f', header[13] = 'm', header[14] = 't', header[15] = ' ';
  Put32(header + 16, 16);
  Put16(header + 20, 1);  // PCM
  Put16(header + 22, channels);
  Put32(header + 24, rate);
  Put32(header + 28, rate * bytesPerFrame);
  Put16(header + 32, bytesPerFrame);
  Put16(header + 34, 16);
  header[36] = 'd', header[37] = 'a', header[38] = 't', header[39] = 'a';
  Put32(header + 40, dataBytes);
}

}  // namespace

bool WavWriter::Open(const std::string& path, U32 rate) {
  Close();
  m_pFile = fopen(path.c_str(), "wb");
  if (!m_pFile) return false;
  unsigned char header[kHeaderSize];
  MakeHeader(header, rate, 0);
  if (fwrite(header, 1, kHeaderSize, m_pFile) != kHeaderSize) {
    fclose(m_pFile);
    m_pFile = nullptr;
    return false;
  }
  m_DataBytes = 0;
  m_Rate = rate;
  return true;
}

void WavWriter::Append(const S16* frames, U32 count) {
  if (!m_pFile) return;
  // Little-endian whatever the machine, in pieces so that nothing is allocated.
  unsigned char bytes[1024];
  U32 samples = count * 2;
  for (U32 done = 0; done < samples;) {
    U32 n = samples - done < sizeof bytes / 2 ? samples - done : sizeof bytes / 2;
    for (U32 i = 0; i < n; ++i) Put16(bytes + 2 * i, static_cast<U16>(frames[done + i]));
    fwrite(bytes, 1, n * 2, m_pFile);
    done += n;
  }
  m_DataBytes += static_cast<U64>(samples) * 2;
}

void WavWriter::Close() {
  if (!m_pFile) return;
  unsigned char header[kHeaderSize];
  MakeHeader(header, m_Rate, m_DataBytes > kMaxDataBytes ? kMaxDataBytes : static_cast<U32>(m_DataBytes));
  if (fseek(m_pFile, 0, SEEK_SET) == 0) fwrite(header, 1, kHeaderSize, m_pFile);
  fclose(m_pFile);
  m_pFile = nullptr;
}

}  // namespace Ostra
}  // namespace Hollin
