// The two file kinds the game plays, from 16 kHz mono 16-bit samples:
//
// - ".ogg": Ogg Vorbis through libvorbisenc, for streamed sounds (music, voices, most
//   effects). The stream's serial number comes from the file's name, so a file is the
//   same from build to build.
// - ".wav": RIFF WAVE, format tag 17 (IMA ADPCM), 256-byte blocks, for memory sounds.
//   The game's decoder does not output the predictor of a block header, so each header
//   carries the last sample of the block before (0 for the first) and all 504 samples
//   of a block come from its nibbles; the sound is exact in the game, and a standard
//   decoder hears one repeated sample per block. The last block is padded with silence,
//   as the game ignores a partial block.
//
// Both write to a temporary beside the target and rename it into place, so an
// interrupted build never leaves a truncated sound behind.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace soundgen {

const int kImaBlockAlign = 256;
const int kImaSamplesPerBlock = (kImaBlockAlign - 4) * 2;  // as the game decodes: 504

bool WriteOgg(const std::string& path, const std::vector<int16_t>& samples, std::string& error);
bool WriteImaWav(const std::string& path, const std::vector<int16_t>& samples, std::string& error);

// The data chunk of an IMA ADPCM ".wav" as described above; exposed for tests.
std::vector<uint8_t> EncodeImaAdpcm(const std::vector<int16_t>& samples);

}  // namespace soundgen
