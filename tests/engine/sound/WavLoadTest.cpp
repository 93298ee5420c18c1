// Loading ".wav" files into sound buffers: IMA ADPCM checked against sox's own decoder,
// PCM as stored, and files that do not hold together giving an empty buffer.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "SoundTestFiles.h"
#include "sound/ImaAdpcm.h"
#include "sound/SoundBuffer.h"

namespace {

using nox::SoundBuffer;
using soundtest::Bytes;
using soundtest::WavBuilder;

struct Loaded {
  bool ok = false;
  uint32_t size = 0;
  uint32_t rate = 0;
  uint8_t format = 0xFF;
  std::vector<int16_t> samples;
  bool nullData = true;
};

Loaded Load(const std::string& path) {
  Loaded out;
  uint8_t* data = reinterpret_cast<uint8_t*>(1);
  out.ok = SoundBuffer::LoadWavBuffer(path, &data, &out.size, &out.rate, &out.format);
  out.nullData = data == nullptr;
  if (data) {
    out.samples.resize(out.size / 2);
    memcpy(out.samples.data(), data, out.samples.size() * 2);
  }
  SoundBuffer::ReleaseWavBuffer(data);
  return out;
}

// The published IMA ADPCM encoder, for the block aligns that sox does not write.
class ImaEncoder {
 public:
  uint8_t Encode(int32_t sample) {
    static const int16_t kSteps[89] = {
        7,    8,     9,     10,    11,    12,    13,    14,    16,    17,    19,    21,    23,    25,   28,
        31,   34,    37,    41,    45,    50,    55,    60,    66,    73,    80,    88,    97,    107,  118,
        130,  143,   157,   173,   190,   209,   230,   253,   279,   307,   337,   371,   408,   449,  494,
        544,  598,   658,   724,   796,   876,   963,   1060,  1166,  1282,  1411,  1552,  1707,  1878, 2066,
        2272, 2499,  2749,  3024,  3327,  3660,  4026,  4428,  4871,  5358,  5894,  6484,  7132,  7845, 8630,
        9493, 10442, 11487, 12635, 13899, 15289, 16818, 18500, 20350, 22385, 24623, 27086, 29794, 32767};
    static const int kIndex[8] = {-1, -1, -1, -1, 2, 4, 6, 8};
    int32_t step = kSteps[index];
    int32_t diff = sample - predictor;
    uint8_t code = 0;
    if (diff < 0) {
      code = 8;
      diff = -diff;
    }
    if (diff >= step) code |= 4, diff -= step;
    if (diff >= step / 2) code |= 2, diff -= step / 2;
    if (diff >= step / 4) code |= 1;
    int32_t delta = step >> 3;
    if (code & 4) delta += step;
    if (code & 2) delta += step >> 1;
    if (code & 1) delta += step >> 2;
    predictor += (code & 8) ? -delta : delta;
    predictor = std::max(-32768, std::min(32767, predictor));
    index = std::max(0, std::min(88, index + kIndex[code & 7]));
    return code;
  }
  int32_t predictor = 0;
  int32_t index = 0;
};

// `frames` interleaved frames into IMA ADPCM blocks of `blockAlign`; the first sample of
// each block goes into its header, as in every encoder.
Bytes EncodeIma(const std::vector<int16_t>& pcm, int channels, uint32_t blockAlign, uint32_t* framesOut) {
  const uint32_t perBlock = (blockAlign - 4 * channels) * 2 / channels + 1;
  const size_t frames = pcm.size() / channels;
  const size_t blocks = (frames + perBlock - 1) / perBlock;
  ImaEncoder enc[2];
  Bytes out;
  auto at = [&](size_t frame, int c) -> int16_t { return frame < frames ? pcm[frame * channels + c] : 0; };
  for (size_t b = 0; b < blocks; ++b) {
    const size_t first = b * perBlock;
    for (int c = 0; c < channels; ++c) {
      enc[c].predictor = at(first, c);
      soundtest::Put16(out, static_cast<uint16_t>(at(first, c)));
      out.push_back(static_cast<uint8_t>(enc[c].index));
      out.push_back(0);
    }
    if (channels == 1) {
      for (uint32_t i = 1; i < perBlock; i += 2) {
        uint8_t lo = enc[0].Encode(at(first + i, 0));
        uint8_t hi = enc[0].Encode(at(first + i + 1, 0));
        out.push_back(static_cast<uint8_t>(lo | hi << 4));
      }
    } else {
      for (uint32_t g = 1; g < perBlock; g += 8) {
        for (int c = 0; c < 2; ++c) {
          for (int k = 0; k < 8; k += 2) {
            uint8_t lo = enc[c].Encode(at(first + g + k, c));
            uint8_t hi = enc[c].Encode(at(first + g + k + 1, c));
            out.push_back(static_cast<uint8_t>(lo | hi << 4));
          }
        }
      }
    }
  }
  *framesOut = static_cast<uint32_t>(frames);
  return out;
}

class WavLoadTest : public ::testing::Test {
 protected:
  // Compares our decoding of `adpcm` with sox's: ours leaves out the header sample that
  // begins each of sox's blocks, and sox stops at the length the "fact" chunk gives.
  void ExpectMatchesSox(const std::string& adpcm, int channels, uint32_t blockAlign) {
    Loaded ours = Load(adpcm);
    ASSERT_TRUE(ours.ok);
    EXPECT_EQ(ours.format, channels == 2 ? SoundBuffer::kStereo16 : SoundBuffer::kMono16);
    EXPECT_EQ(ours.rate, 16000u);
    const uint32_t chunk = static_cast<uint32_t>(DataSize(adpcm));
    const uint32_t blocks = chunk / blockAlign;
    ASSERT_GT(blocks, 2u);
    EXPECT_EQ(ours.size, (blockAlign - 4u * channels) * 4 * blocks);

    const std::string decoded = m_Dir / "decoded.wav";
    ASSERT_TRUE(soundtest::Sox(adpcm + " -e signed-integer -b 16 " + decoded));
    std::vector<int16_t> sox = soundtest::ReadPcm16(decoded);
    const uint32_t ourFrames = (blockAlign - 4 * channels) * 2 / channels;  // per block
    size_t compared = 0;
    for (uint32_t b = 0; b < blocks; ++b) {
      for (uint32_t f = 0; f < ourFrames; ++f) {
        const size_t soxFrame = static_cast<size_t>(b) * (ourFrames + 1) + 1 + f;
        if ((soxFrame + 1) * channels > sox.size()) break;
        for (int c = 0; c < channels; ++c) {
          const int ourSample = ours.samples[(static_cast<size_t>(b) * ourFrames + f) * channels + c];
          const int soxSample = sox[soxFrame * channels + c];
          ASSERT_LE(std::abs(ourSample - soxSample), 1)
              << "block " << b << " frame " << f << " channel " << c;
          ++compared;
        }
      }
    }
    EXPECT_GT(compared, ours.samples.size() * 3 / 4);
  }

  static size_t DataSize(const std::string& path) {
    Bytes file = soundtest::ReadBytes(path);
    for (size_t i = 12; i + 8 <= file.size();) {
      uint32_t size =
          file[i + 4] | file[i + 5] << 8 | file[i + 6] << 16 | static_cast<uint32_t>(file[i + 7]) << 24;
      if (memcmp(&file[i], "data", 4) == 0) return size;
      i += 8 + size;
    }
    return 0;
  }

  // A sweep (and on the right a different tone) made by sox.
  std::string Source(int channels) {
    const std::string path = m_Dir / ("source" + std::to_string(channels) + ".wav");
    const std::string synth =
        channels == 1 ? "synth 0.3 sine 200-5000 vol 0.9" : "synth 0.3 sine 200-5000 sine 3000-100 vol 0.8";
    EXPECT_TRUE(
        soundtest::Sox("-n -r 16000 -b 16 -c " + std::to_string(channels) + " " + path + " " + synth));
    return path;
  }

  void SetUp() override {
    if (!soundtest::HaveSox()) GTEST_SKIP() << "sox is not installed";
  }

  soundtest::TempDir m_Dir;
};

TEST_F(WavLoadTest, ImaAdpcmWrittenBySoxDecodesToTheFormulaSizeAndToSoxsOwnSamples) {
  // sox writes block aligns of 256 per channel: 256 mono, 512 stereo.
  for (int channels : {1, 2}) {
    const std::string adpcm = m_Dir / ("sox" + std::to_string(channels) + ".wav");
    ASSERT_TRUE(soundtest::Sox(Source(channels) + " -e ima-adpcm " + adpcm));
    SCOPED_TRACE(channels);
    ExpectMatchesSox(adpcm, channels, 256 * channels);
  }
}

TEST_F(WavLoadTest, ImaAdpcmOfTheOtherBlockAlignsDecodesLikeSoxDecodesIt) {
  // Mono 512 and stereo 256, encoded here, with sox as the reference decoder.
  for (int channels : {1, 2}) {
    const uint32_t blockAlign = channels == 1 ? 512 : 256;
    std::vector<int16_t> pcm = soundtest::ReadPcm16(Source(channels));
    uint32_t frames = 0;
    Bytes data = EncodeIma(pcm, channels, blockAlign, &frames);
    // Trailing bytes past the last whole block are ignored.
    data.insert(data.end(), {1, 2, 3});
    WavBuilder wav;
    Bytes extra;
    soundtest::Put16(extra, 2);
    soundtest::Put16(extra, (blockAlign - 4 * channels) * 2 / channels + 1);
    wav.Format(17, static_cast<uint16_t>(channels), 16000, static_cast<uint16_t>(blockAlign), 4, extra);
    Bytes fact;
    soundtest::Put32(fact, frames);
    wav.Chunk("fact", fact);
    wav.Chunk("data", data);
    const std::string path = m_Dir / ("ours" + std::to_string(channels) + ".wav");
    soundtest::WriteBytes(path, wav.File());
    SCOPED_TRACE(channels);
    ExpectMatchesSox(path, channels, blockAlign);
  }
}

TEST(WavLoad, PcmLoadsAsStoredWithItsFormatAndRateAndOtherChunksSkipped) {
  soundtest::TempDir dir;
  WavBuilder wav;
  wav.Chunk("LIST", Bytes{'i', 'n', 'f', 'o', 0, 0});
  wav.Format(1, 1, 22050, 2, 16, Bytes{9, 9});  // a longer "fmt " chunk
  wav.Chunk("data", soundtest::Samples16({1, -2, 32767, -32768}));
  soundtest::WriteBytes(dir / "mono16.wav", wav.File());
  Loaded mono = Load(dir / "mono16.wav");
  ASSERT_TRUE(mono.ok);
  EXPECT_EQ(mono.format, SoundBuffer::kMono16);
  EXPECT_EQ(mono.rate, 22050u);
  EXPECT_EQ(mono.samples, (std::vector<int16_t>{1, -2, 32767, -32768}));

  WavBuilder stereo8;
  stereo8.Format(1, 2, 8000, 2, 8);
  stereo8.Chunk("data", Bytes{0x80, 0x7F, 0x00});
  soundtest::WriteBytes(dir / "stereo8.wav", stereo8.File());
  Loaded bytes = Load(dir / "stereo8.wav");
  ASSERT_TRUE(bytes.ok);
  EXPECT_EQ(bytes.format, SoundBuffer::kStereo8);
  EXPECT_EQ(bytes.size, 3u);

  // A buffer made from a file holds one reference; the last release empties it.
  SoundBuffer buffer(dir / "mono16.wav");
  EXPECT_EQ(buffer.GetSize(), 8u);
  EXPECT_EQ(buffer.GetRefCount(), 1u);
  buffer.AddRef();
  EXPECT_EQ(buffer.Release(), 1u);
  EXPECT_NE(buffer.GetData(), nullptr);
  EXPECT_EQ(buffer.Release(), 0u);
  EXPECT_EQ(buffer.GetData(), nullptr);
  EXPECT_EQ(buffer.GetSize(), 0u);
}

TEST(WavLoad, FilesThatDoNotHoldTogetherGiveAnEmptyBuffer) {
  soundtest::TempDir dir;
  std::vector<std::pair<std::string, Bytes>> cases;
  auto pcm = [](WavBuilder& w) { w.Format(1, 1, 16000, 2, 16); };
  {
    WavBuilder w;
    pcm(w);
    w.Chunk("data", soundtest::Samples16({1, 2}));
    Bytes file = w.File();
    Bytes riff = file;
    riff[0] = 'X';
    cases.push_back({"not RIFF", riff});
    Bytes wave = file;
    wave[8] = 'X';
    cases.push_back({"not WAVE", wave});
    cases.push_back({"header cut short", Bytes(file.begin(), file.begin() + 10)});
    cases.push_back({"no chunks", Bytes(file.begin(), file.begin() + 12)});
    cases.push_back({"data cut short", Bytes(file.begin(), file.end() - 1)});
    cases.push_back({"RIFF size ends before data", w.File(10)});
  }
  {
    WavBuilder w;
    w.Chunk("data", soundtest::Samples16({1, 2}));
    pcm(w);
    cases.push_back({"data before fmt", w.File()});
  }
  {
    WavBuilder w;
    pcm(w);
    w.Chunk("data", soundtest::Samples16({1, 2}), 0x7FFFFFF0);
    cases.push_back({"data size past the end", w.File()});
  }
  {
    WavBuilder w;
    w.Chunk("LIST", Bytes{1, 2}, 0xFFFFFFF0);
    pcm(w);
    cases.push_back({"other chunk past the end", w.File()});
  }
  {
    WavBuilder w;
    w.Format(17, 1, 16000, 0, 4);
    w.Chunk("data", Bytes(512, 0x11));
    cases.push_back({"zero block align", w.File()});
  }
  {
    WavBuilder w;
    w.Format(3, 1, 16000, 4, 32);
    w.Chunk("data", Bytes(8, 0));
    cases.push_back({"float samples", w.File()});
  }
  {
    WavBuilder w;
    w.Format(1, 6, 16000, 12, 16);
    w.Chunk("data", Bytes(24, 0));
    cases.push_back({"six channels", w.File()});
  }
  {
    WavBuilder w;
    w.Chunk("fmt ", Bytes{1, 0, 1, 0, 0x80, 0x3E});
    w.Chunk("data", Bytes(8, 0));
    cases.push_back({"short fmt", w.File()});
  }
  cases.push_back({"empty", Bytes()});
  for (size_t i = 0; i < cases.size(); ++i) {
    const std::string path = dir / ("case" + std::to_string(i) + ".wav");
    soundtest::WriteBytes(path, cases[i].second);
    Loaded loaded = Load(path);
    EXPECT_FALSE(loaded.ok) << cases[i].first;
    EXPECT_TRUE(loaded.nullData) << cases[i].first;
    EXPECT_EQ(loaded.size, 0u) << cases[i].first;
  }
  EXPECT_FALSE(Load(dir / "missing.wav").ok);

  // An ADPCM chunk shorter than one block, or a block align too small for its headers,
  // decodes to nothing.
  EXPECT_EQ(nox::ImaAdpcmDecodedSize(200, 1, 256), 0u);
  EXPECT_EQ(nox::ImaAdpcmDecodedSize(512, 2, 8), 0u);
  EXPECT_EQ(nox::ImaAdpcmDecodedSize(515, 2, 256), (256u - 8) * 4 * 2);
}

}  // namespace
