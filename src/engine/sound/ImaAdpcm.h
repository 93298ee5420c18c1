// IMA ADPCM as it is stored in ".wav" files (format tag 17): blocks of `blockAlign`
// bytes, each starting with a header per channel (predictor, signed 16 bits; step index,
// one byte; one reserved byte), then 4-bit codes, low nibble first. Stereo alternates
// 4 bytes (8 codes) of left with 4 bytes of right. The header's predictor only seeds the
// decoder; it is not itself output.
//
// Decoding runs in place: the caller allocates 4 x chunkSize bytes and puts the chunk's
// bytes in the last quarter; the output (native 16-bit samples, left and right
// interleaved) grows from the front and never overtakes the input still to be read.
#pragma once
#include <cstdint>

namespace nox {

// Output bytes for `blocks` whole blocks: (blockAlign - 4) x 4 per block for mono,
// (blockAlign - 8) x 4 for stereo. 0 for a block align too small to hold its headers or
// for other than 1 or 2 channels.
uint32_t ImaAdpcmDecodedSize(uint32_t chunkSize, uint32_t channels, uint32_t blockAlign);

// Decodes every whole block of the chunk (trailing bytes past the last whole block are
// ignored) and returns the output size in bytes, ImaAdpcmDecodedSize. In stereo, bytes
// of a block past its last whole group of 8 decode to silence. `blockAlign` must not be
// 0 and `buffer` must hold 4 x chunkSize bytes.
uint32_t DecodeImaAdpcmInPlace(uint8_t* buffer, uint32_t chunkSize, uint32_t channels, uint32_t blockAlign);

}  // namespace nox
