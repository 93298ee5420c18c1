// The files the game plays: an IMA ADPCM ".wav" read the way the game's loader reads it,
// and an Ogg Vorbis file read back through libvorbisfile as the platform does.
#include <gtest/gtest.h>
#include <unistd.h>
#include <vorbis/vorbisfile.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>

#include "AudioWriters.h"
#include "Recipe.h"
#include "sound/SoundBuffer.h"

namespace soundgen {
namespace {

std::string TempPath(const char* name) {
  return std::string(testing::TempDir()) + "/soundgen_" + std::to_string(getpid()) + "_" + name;
}

std::vector<uint8_t> ReadAll(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::vector<uint8_t>(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

uint32_t Le(const std::vector<uint8_t>& b, size_t at, int bytes) {
  uint32_t v = 0;
  for (int i = bytes - 1; i >= 0; --i) v = v << 8 | b.at(at + i);
  return v;
}

// 1 s of a 440 Hz tone at half scale, then a loud 200 Hz square and a little silence:
// smooth, sharp and quiet material for the coders.
std::vector<int16_t> TestSignal() {
  std::vector<int16_t> s;
  for (int i = 0; i < kSampleRate; ++i)
    s.push_back(static_cast<int16_t>(16000 * std::sin(6.2831853 * 440 * i / kSampleRate)));
  for (int i = 0; i < kSampleRate / 4; ++i) s.push_back((i / 40) % 2 ? 28000 : -28000);
  s.insert(s.end(), 1000, 0);
  return s;
}

double SnrDb(const std::vector<int16_t>& ref, const std::vector<int16_t>& got, size_t from, size_t to) {
  double signal = 0.0, noise = 0.0;
  for (size_t i = from; i < to; ++i) {
    signal += double(ref[i]) * ref[i];
    noise += double(ref[i] - got[i]) * (ref[i] - got[i]);
  }
  return 10.0 * std::log10(signal / std::max(noise, 1.0));
}

// IMA ADPCM as the game decodes it: per block a predictor and a step index that are not
// themselves output, then (block align - 4) * 2 samples, low nibble first.
std::vector<int16_t> GameDecode(const std::vector<uint8_t>& data, int blockAlign) {
  static const int kIndex[16] = {-1, -1, -1, -1, 2, 4, 6, 8, -1, -1, -1, -1, 2, 4, 6, 8};
  static const int kStep[89] = {
      7,    8,     9,     10,    11,    12,    13,    14,    16,    17,    19,    21,    23,    25,   28,
      31,   34,    37,    41,    45,    50,    55,    60,    66,    73,    80,    88,    97,    107,  118,
      130,  143,   157,   173,   190,   209,   230,   253,   279,   307,   337,   371,   408,   449,  494,
      544,  598,   658,   724,   796,   876,   963,   1060,  1166,  1282,  1411,  1552,  1707,  1878, 2066,
      2272, 2499,  2749,  3024,  3327,  3660,  4026,  4428,  4871,  5358,  5894,  6484,  7132,  7845, 8630,
      9493, 10442, 11487, 12635, 13899, 15289, 16818, 18500, 20350, 22385, 24623, 27086, 29794, 32767};
  std::vector<int16_t> out;
  for (size_t block = 0; block + blockAlign <= data.size(); block += blockAlign) {
    int predictor = static_cast<int16_t>(Le(data, block, 2));
    int index = std::min<int>(data[block + 2], 88);
    for (int i = 4; i < blockAlign; ++i) {
      for (int nibble : {data[block + i] & 15, data[block + i] >> 4}) {
        const int step = kStep[index];
        int diff = step >> 3;
        if (nibble & 4) diff += step;
        if (nibble & 2) diff += step >> 1;
        if (nibble & 1) diff += step >> 2;
        predictor = std::clamp(nibble & 8 ? predictor - diff : predictor + diff, -32768, 32767);
        index = std::clamp(index + kIndex[nibble], 0, 88);
        out.push_back(static_cast<int16_t>(predictor));
      }
    }
  }
  return out;
}

TEST(ImaWav, TheGameDecodesEverySampleInOrderFromWholeBlocks) {
  const std::vector<int16_t> in = TestSignal();
  const std::vector<uint8_t> data = EncodeImaAdpcm(in);
  ASSERT_EQ(data.size() % kImaBlockAlign, 0u);
  const std::vector<int16_t> out = GameDecode(data, kImaBlockAlign);
  ASSERT_EQ(out.size(), (in.size() + kImaSamplesPerBlock - 1) / kImaSamplesPerBlock * kImaSamplesPerBlock);
  EXPECT_GT(SnrDb(in, out, 0, kSampleRate), 25.0);
  // ADPCM needs a few samples to follow a full-scale jump, but it must then hold the level.
  for (int i = 20; i < kSampleRate / 4; i += 40) {
    EXPECT_NEAR(out[kSampleRate + i], in[kSampleRate + i], 2000) << i;
  }
  // The silence at the end and the padding of the last block stay silent.
  for (size_t i = in.size() - 200; i < out.size(); ++i) EXPECT_LT(std::abs(out[i]), 64) << i;
}

TEST(ImaWav, TheHeaderIsOneTheGameAndOtherPlayersAccept) {
  const std::string path = TempPath("t.wav");
  const std::vector<int16_t> in = TestSignal();
  std::string error;
  ASSERT_TRUE(WriteImaWav(path, in, error)) << error;
  const std::vector<uint8_t> f = ReadAll(path);
  std::remove(path.c_str());
  ASSERT_GE(f.size(), 60u);
  EXPECT_EQ(std::string(f.begin(), f.begin() + 4), "RIFF");
  EXPECT_EQ(Le(f, 4, 4), f.size() - 8);
  EXPECT_EQ(std::string(f.begin() + 8, f.begin() + 12), "WAVE");
  // The game walks the chunks: "fmt " first, its first 16 bytes, then on to "data".
  size_t at = 12;
  bool sawData = false;
  while (at + 8 <= f.size()) {
    const std::string tag(f.begin() + at, f.begin() + at + 4);
    const uint32_t size = Le(f, at + 4, 4);
    if (tag == "fmt ") {
      EXPECT_EQ(Le(f, at + 8, 2), 17u);  // IMA ADPCM
      EXPECT_EQ(Le(f, at + 10, 2), 1u);  // mono
      EXPECT_EQ(Le(f, at + 12, 4), uint32_t(kSampleRate));
      EXPECT_EQ(Le(f, at + 20, 2), uint32_t(kImaBlockAlign));
      EXPECT_EQ(Le(f, at + 22, 2), 4u);
    }
    if (tag == "data") {
      sawData = true;
      EXPECT_EQ(size, EncodeImaAdpcm(in).size());
      EXPECT_EQ(at + 8 + size, f.size());
    }
    at += 8 + size;
  }
  EXPECT_TRUE(sawData);
}

TEST(ImaWav, TheEnginesLoaderReadsExactlyTheSamplesTheCoderMeant) {
  const std::string path = TempPath("engine.wav");
  const std::vector<int16_t> in = TestSignal();
  std::string error;
  ASSERT_TRUE(WriteImaWav(path, in, error)) << error;
  uint8_t* data = nullptr;
  uint32_t size = 0, rate = 0;
  uint8_t format = 0;
  ASSERT_TRUE(nox::SoundBuffer::LoadWavBuffer(path, &data, &size, &rate, &format));
  std::remove(path.c_str());
  EXPECT_EQ(rate, uint32_t(kSampleRate));
  EXPECT_EQ(format, nox::SoundBuffer::kMono16);
  const std::vector<int16_t> expected = GameDecode(EncodeImaAdpcm(in), kImaBlockAlign);
  ASSERT_EQ(size, expected.size() * 2);
  std::vector<int16_t> got(expected.size());
  std::memcpy(got.data(), data, size);
  nox::SoundBuffer::ReleaseWavBuffer(data);
  EXPECT_EQ(got, expected);
}

TEST(OggFile, DecodesTo16kHzMonoOfTheSameLengthAndIsTheSameOnEveryBuild) {
  const std::string path = TempPath("t.ogg");
  const std::vector<int16_t> in = TestSignal();
  std::string error;
  ASSERT_TRUE(WriteOgg(path, in, error)) << error;
  const std::vector<uint8_t> first = ReadAll(path);

  OggVorbis_File vf;
  ASSERT_EQ(ov_fopen(path.c_str(), &vf), 0);
  const vorbis_info* info = ov_info(&vf, -1);
  EXPECT_EQ(info->channels, 1);
  EXPECT_EQ(info->rate, kSampleRate);
  std::vector<int16_t> out;
  char buffer[4096];
  int section = 0;
  for (;;) {
    const long got = ov_read(&vf, buffer, sizeof buffer, 0, 2, 1, &section);
    if (got <= 0) break;
    const int16_t* s = reinterpret_cast<const int16_t*>(buffer);
    out.insert(out.end(), s, s + got / 2);
  }
  ov_clear(&vf);
  // Exactly as long, so a looped file repeats at the true loop point.
  ASSERT_EQ(out.size(), in.size());
  EXPECT_GT(SnrDb(in, out, 0, kSampleRate), 15.0);

  ASSERT_TRUE(WriteOgg(path, in, error)) << error;
  EXPECT_EQ(ReadAll(path), first);
  std::remove(path.c_str());
}

TEST(OggFile, AFileThatCannotBeWrittenIsAnErrorAndLeavesNothing) {
  std::string error;
  EXPECT_FALSE(WriteOgg("/nonexistent-dir/x.ogg", TestSignal(), error));
  EXPECT_NE(error.find("/nonexistent-dir/x.ogg"), std::string::npos) << error;
  EXPECT_FALSE(WriteImaWav("/nonexistent-dir/x.wav", TestSignal(), error));
}

}  // namespace
}  // namespace soundgen
