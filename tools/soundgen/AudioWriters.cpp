#include "AudioWriters.h"

#include <vorbis/vorbisenc.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "Oscillators.h"
#include "Recipe.h"

namespace soundgen {

namespace {

const float kVorbisQuality = 0.4f;  // about 40 kbit/s at 16 kHz mono

const int kImaIndexTable[16] = {-1, -1, -1, -1, 2, 4, 6, 8, -1, -1, -1, -1, 2, 4, 6, 8};
const int kImaStepTable[89] = {
    7,    8,     9,     10,    11,    12,    13,    14,    16,    17,    19,    21,    23,    25,   28,
    31,   34,    37,    41,    45,    50,    55,    60,    66,    73,    80,    88,    97,    107,  118,
    130,  143,   157,   173,   190,   209,   230,   253,   279,   307,   337,   371,   408,   449,  494,
    544,  598,   658,   724,   796,   876,   963,   1060,  1166,  1282,  1411,  1552,  1707,  1878, 2066,
    2272, 2499,  2749,  3024,  3327,  3660,  4026,  4428,  4871,  5358,  5894,  6484,  7132,  7845, 8630,
    9493, 10442, 11487, 12635, 13899, 15289, 16818, 18500, 20350, 22385, 24623, 27086, 29794, 32767};

// Writes `bytes` to a temporary beside `path` and renames it over `path`.
bool WriteFileAtomically(const std::string& path, const std::vector<uint8_t>& bytes, std::string& error) {
  const std::string temp = path + ".part";
  FILE* f = fopen(temp.c_str(), "wb");
  if (!f) {
    error = "cannot write " + temp + ": " + strerror(errno);
    return false;
  }
  const bool written = fwrite(bytes.data(), 1, bytes.size(), f) == bytes.size();
  if (fclose(f) != 0 || !written) {
    remove(temp.c_str());
    error = "cannot write " + temp;
    return false;
  }
  if (rename(temp.c_str(), path.c_str()) != 0) {
    remove(temp.c_str());
    error = "cannot rename " + temp + " to " + path + ": " + strerror(errno);
    return false;
  }
  return true;
}

void Put16(std::vector<uint8_t>& out, uint32_t v) {
  out.push_back(static_cast<uint8_t>(v));
  out.push_back(static_cast<uint8_t>(v >> 8));
}
void Put32(std::vector<uint8_t>& out, uint32_t v) {
  Put16(out, v & 0xFFFF);
  Put16(out, v >> 16);
}
void PutTag(std::vector<uint8_t>& out, const char* tag) {
  out.insert(out.end(), tag, tag + 4);
}

std::string BaseName(const std::string& path) {
  const size_t slash = path.rfind('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

}  // namespace

std::vector<uint8_t> EncodeImaAdpcm(const std::vector<int16_t>& samples) {
  const size_t blocks = (samples.size() + kImaSamplesPerBlock - 1) / kImaSamplesPerBlock;
  std::vector<uint8_t> out;
  out.reserve(blocks * kImaBlockAlign);
  int predictor = 0, index = 0;
  size_t pos = 0;
  for (size_t b = 0; b < blocks; ++b) {
    Put16(out, static_cast<uint16_t>(static_cast<int16_t>(predictor)));
    out.push_back(static_cast<uint8_t>(index));
    out.push_back(0);
    uint8_t pending = 0;
    for (int i = 0; i < kImaSamplesPerBlock; ++i, ++pos) {
      const int sample = pos < samples.size() ? samples[pos] : 0;
      int step = kImaStepTable[index];
      int diff = sample - predictor;
      int nibble = 0;
      if (diff < 0) {
        nibble = 8;
        diff = -diff;
      }
      int delta = step >> 3;
      if (diff >= step) {
        nibble |= 4;
        diff -= step;
        delta += step;
      }
      step >>= 1;
      if (diff >= step) {
        nibble |= 2;
        diff -= step;
        delta += step;
      }
      step >>= 1;
      if (diff >= step) {
        nibble |= 1;
        delta += step;
      }
      predictor = std::clamp(nibble & 8 ? predictor - delta : predictor + delta, -32768, 32767);
      index = std::clamp(index + kImaIndexTable[nibble], 0, 88);
      // Low nibble first.
      if (i % 2 == 0) {
        pending = static_cast<uint8_t>(nibble);
      } else {
        out.push_back(static_cast<uint8_t>(pending | nibble << 4));
      }
    }
  }
  return out;
}

bool WriteImaWav(const std::string& path, const std::vector<int16_t>& samples, std::string& error) {
  const std::vector<uint8_t> data = EncodeImaAdpcm(samples);
  const uint32_t blocks = static_cast<uint32_t>(data.size() / kImaBlockAlign);
  // For other players the header sample counts too: 505 samples a block.
  const uint32_t standardPerBlock = kImaSamplesPerBlock + 1;
  std::vector<uint8_t> file;
  PutTag(file, "RIFF");
  Put32(file, static_cast<uint32_t>(4 + 8 + 20 + 8 + 4 + 8 + data.size()));
  PutTag(file, "WAVE");
  PutTag(file, "fmt ");
  Put32(file, 20);
  Put16(file, 17);  // IMA ADPCM
  Put16(file, 1);   // mono
  Put32(file, kSampleRate);
  Put32(file, kSampleRate * kImaBlockAlign / standardPerBlock);
  Put16(file, kImaBlockAlign);
  Put16(file, 4);  // bits per sample
  Put16(file, 2);  // extra bytes
  Put16(file, standardPerBlock);
  PutTag(file, "fact");
  Put32(file, 4);
  Put32(file, blocks * standardPerBlock);
  PutTag(file, "data");
  Put32(file, static_cast<uint32_t>(data.size()));
  file.insert(file.end(), data.begin(), data.end());
  return WriteFileAtomically(path, file, error);
}

bool WriteOgg(const std::string& path, const std::vector<int16_t>& samples, std::string& error) {
  vorbis_info vi;
  vorbis_info_init(&vi);
  if (vorbis_encode_init_vbr(&vi, 1, kSampleRate, kVorbisQuality) != 0) {
    vorbis_info_clear(&vi);
    error = "libvorbisenc refuses 16 kHz mono";
    return false;
  }
  vorbis_comment vc;
  vorbis_comment_init(&vc);
  vorbis_dsp_state vd;
  vorbis_block vb;
  vorbis_analysis_init(&vd, &vi);
  vorbis_block_init(&vd, &vb);
  ogg_stream_state os;
  ogg_stream_init(&os, static_cast<int>(NameSeed(BaseName(path).c_str()) & 0x7FFFFFFF));

  std::vector<uint8_t> bytes;
  auto append = [&bytes](const ogg_page& page) {
    bytes.insert(bytes.end(), page.header, page.header + page.header_len);
    bytes.insert(bytes.end(), page.body, page.body + page.body_len);
  };
  ogg_packet header, comments, codebooks;
  vorbis_analysis_headerout(&vd, &vc, &header, &comments, &codebooks);
  ogg_stream_packetin(&os, &header);
  ogg_stream_packetin(&os, &comments);
  ogg_stream_packetin(&os, &codebooks);
  ogg_page page;
  // The headers end on a page of their own, as decoders expect.
  while (ogg_stream_flush(&os, &page) != 0) append(page);

  const size_t chunk = 1024;
  size_t pos = 0;
  bool end = false;
  while (!end) {
    const size_t n = std::min(chunk, samples.size() - pos);
    if (n == 0) {
      vorbis_analysis_wrote(&vd, 0);
    } else {
      float** buffer = vorbis_analysis_buffer(&vd, static_cast<int>(n));
      for (size_t i = 0; i < n; ++i) buffer[0][i] = samples[pos + i] / 32768.0f;
      vorbis_analysis_wrote(&vd, static_cast<int>(n));
      pos += n;
    }
    while (vorbis_analysis_blockout(&vd, &vb) == 1) {
      vorbis_analysis(&vb, nullptr);
      vorbis_bitrate_addblock(&vb);
      ogg_packet packet;
      while (vorbis_bitrate_flushpacket(&vd, &packet)) {
        ogg_stream_packetin(&os, &packet);
        while (!end && ogg_stream_pageout(&os, &page) != 0) {
          append(page);
          end = ogg_page_eos(&page) != 0;
        }
      }
    }
    if (n == 0 && !end) {
      // Everything was handed over; whatever is left goes out now.
      while (ogg_stream_flush(&os, &page) != 0) append(page);
      end = true;
    }
  }
  ogg_stream_clear(&os);
  vorbis_block_clear(&vb);
  vorbis_dsp_clear(&vd);
  vorbis_comment_clear(&vc);
  vorbis_info_clear(&vi);
  return WriteFileAtomically(path, bytes, error);
}

}  // namespace soundgen
