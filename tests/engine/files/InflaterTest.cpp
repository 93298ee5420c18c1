// The engine's reusable inflate stream: whole blocks unpack exactly, and a block that
// fails (too little room, spoiled, cut short) leaves the stream fit for the next one.
#include <gtest/gtest.h>
#include <zlib.h>

#include <cstdint>
#include <vector>

#include "core/Inflater.h"

namespace {

std::vector<uint8_t> Pattern(size_t size, uint8_t seed) {
  std::vector<uint8_t> bytes(size);
  for (size_t i = 0; i < size; ++i) bytes[i] = static_cast<uint8_t>((i * 7 + seed) ^ (i >> 5));
  return bytes;
}

std::vector<uint8_t> Pack(const std::vector<uint8_t>& plain) {
  uLongf size = compressBound(plain.size());
  std::vector<uint8_t> packed(size);
  EXPECT_EQ(compress2(packed.data(), &size, plain.data(), plain.size(), 9), Z_OK);
  packed.resize(size);
  return packed;
}

// Unpacks into a buffer of `room` bytes; the bytes written, or -1 on failure.
long Unpack(const std::vector<uint8_t>& packed, size_t room, std::vector<uint8_t>& out) {
  out.assign(room, 0);
  unsigned long size = room;
  if (!nox::Inflater::Inflate(out.data(), size, packed.data(), packed.size())) return -1;
  out.resize(size);
  return static_cast<long>(size);
}

TEST(InflaterTest, BlocksUnpackExactlyAndAFailedBlockLeavesTheStreamFitForTheNext) {
  const std::vector<uint8_t> tile = Pattern(2048, 1);
  const std::vector<uint8_t> frame = Pattern(5000, 2);
  const std::vector<uint8_t> packedTile = Pack(tile);
  const std::vector<uint8_t> packedFrame = Pack(frame);
  std::vector<uint8_t> out;

  ASSERT_EQ(Unpack(packedTile, 2048, out), 2048);
  EXPECT_EQ(out, tile);
  // More room than needed: only the block's bytes are written and counted.
  ASSERT_EQ(Unpack(packedFrame, 8192, out), 5000);
  EXPECT_EQ(out, frame);

  std::vector<uint8_t> spoiled = packedFrame;
  spoiled[spoiled.size() / 2] ^= 0xFF;
  spoiled[2] ^= 0x55;
  const std::vector<uint8_t> cut(packedFrame.begin(), packedFrame.begin() + packedFrame.size() / 2);
  const std::vector<uint8_t> noise = Pattern(300, 9);
  struct Bad {
    const char* what;
    const std::vector<uint8_t>& packed;
    size_t room;
  };
  const Bad bads[] = {{"too little room", packedFrame, 4999},
                      {"spoiled", spoiled, 8192},
                      {"cut short", cut, 8192},
                      {"not a stream", noise, 8192},
                      {"nothing", std::vector<uint8_t>(), 8192}};
  for (const Bad& bad : bads) {
    EXPECT_EQ(Unpack(bad.packed, bad.room, out), -1) << bad.what;
    ASSERT_EQ(Unpack(packedTile, 2048, out), 2048) << "after " << bad.what;
    EXPECT_EQ(out, tile) << "after " << bad.what;
  }
}

}  // namespace
