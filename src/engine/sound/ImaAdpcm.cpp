#include "sound/ImaAdpcm.h"

#include <cstring>

namespace nox {
namespace {

const int16_t kStepTable[89] = {
    7,    8,     9,     10,    11,    12,    13,    14,    16,    17,    19,    21,    23,    25,   28,
    31,   34,    37,    41,    45,    50,    55,    60,    66,    73,    80,    88,    97,    107,  118,
    130,  143,   157,   173,   190,   209,   230,   253,   279,   307,   337,   371,   408,   449,  494,
    544,  598,   658,   724,   796,   876,   963,   1060,  1166,  1282,  1411,  1552,  1707,  1878, 2066,
    2272, 2499,  2749,  3024,  3327,  3660,  4026,  4428,  4871,  5358,  5894,  6484,  7132,  7845, 8630,
    9493, 10442, 11487, 12635, 13899, 15289, 16818, 18500, 20350, 22385, 24623, 27086, 29794, 32767};

const int8_t kIndexTable[16] = {-1, -1, -1, -1, 2, 4, 6, 8, -1, -1, -1, -1, 2, 4, 6, 8};

struct Channel {
  int32_t predictor;
  int32_t index;
};

// One 4-bit code: the published algorithm.
inline int16_t Expand(Channel& c, uint32_t code) {
  const int32_t step = kStepTable[c.index];
  int32_t diff = step >> 3;
  if (code & 4) diff += step;
  if (code & 2) diff += step >> 1;
  if (code & 1) diff += step >> 2;
  c.predictor += (code & 8) ? -diff : diff;
  if (c.predictor > 32767) c.predictor = 32767;
  if (c.predictor < -32768) c.predictor = -32768;
  c.index += kIndexTable[code & 15];
  if (c.index < 0) c.index = 0;
  if (c.index > 88) c.index = 88;
  return static_cast<int16_t>(c.predictor);
}

inline void Put(uint8_t* out, uint32_t sampleIndex, int16_t value) {
  memcpy(out + 2 * static_cast<size_t>(sampleIndex), &value, 2);
}

Channel ReadHeader(const uint8_t* at) {
  Channel c;
  c.predictor = static_cast<int16_t>(static_cast<uint16_t>(at[0] | at[1] << 8));
  c.index = at[2] > 88 ? 88 : at[2];
  return c;
}

}  // namespace

uint32_t ImaAdpcmDecodedSize(uint32_t chunkSize, uint32_t channels, uint32_t blockAlign) {
  const uint32_t header = 4 * channels;
  if ((channels != 1 && channels != 2) || blockAlign <= header) return 0;
  return (blockAlign - header) * 4 * (chunkSize / blockAlign);
}

uint32_t DecodeImaAdpcmInPlace(uint8_t* buffer, uint32_t chunkSize, uint32_t channels, uint32_t blockAlign) {
  const uint32_t size = ImaAdpcmDecodedSize(chunkSize, channels, blockAlign);
  if (size == 0) return 0;
  const uint32_t blocks = chunkSize / blockAlign;
  const uint8_t* in = buffer + 3 * static_cast<size_t>(chunkSize);
  uint32_t sample = 0;  // output samples written, both channels counted
  for (uint32_t b = 0; b < blocks; ++b, in += blockAlign) {
    if (channels == 1) {
      Channel c = ReadHeader(in);
      for (uint32_t i = 4; i < blockAlign; ++i) {
        // Read the byte before its two samples land: they may overwrite it.
        const uint8_t byte = in[i];
        const int16_t first = Expand(c, byte & 15);
        const int16_t second = Expand(c, byte >> 4);
        Put(buffer, sample++, first);
        Put(buffer, sample++, second);
      }
      continue;
    }
    Channel side[2] = {ReadHeader(in), ReadHeader(in + 4)};
    const uint32_t groups = (blockAlign - 8) / 8;
    for (uint32_t g = 0; g < groups; ++g) {
      uint8_t group[8];
      memcpy(group, in + 8 + 8 * g, 8);
      int16_t decoded[2][8];
      for (int s = 0; s < 2; ++s) {
        for (int k = 0; k < 4; ++k) {
          decoded[s][2 * k] = Expand(side[s], group[4 * s + k] & 15);
          decoded[s][2 * k + 1] = Expand(side[s], group[4 * s + k] >> 4);
        }
      }
      for (int k = 0; k < 8; ++k) {
        Put(buffer, sample++, decoded[0][k]);
        Put(buffer, sample++, decoded[1][k]);
      }
    }
    // A block align that is no multiple of 8 past its headers: its last bytes cannot
    // be split between the sides, so they count as silence.
    const uint32_t rest = ((blockAlign - 8) % 8) * 4 / 2;
    for (uint32_t i = 0; i < rest; ++i) Put(buffer, sample++, 0);
  }
  return size;
}

}  // namespace nox
