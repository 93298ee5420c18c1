// Byte layouts of the tile resource files, shared by the engine's loaders and the
// asset tools that write them. Every number is little-endian and every table is read
// in place, through pointers into the loaded block, so these records mirror the
// files field for field and must never be reordered or widened.
//
// Sprite control file (".anim"):
//   TADHeader (36 bytes), then numLayers TADLayerEntry, then numSequences
//   TADSequenceEntry, then for each sequence in table order, without gaps:
//     frameCount TADFrameEntry,
//     numPointSeries point series    (NameHash + frameCount TADPoint),
//     numRectSeries rectangle series (NameHash + frameCount TADRect),
//     numCallbackSeries callback series (NameHash + frameCount uint32).
// Sprite data file (".tex" beside an ".anim"): frame blocks at the offsets of the
//   frame table; for storage kind 2 also the sheet's pixels at the header's sheet
//   offset. An unpacked frame block is one TADLayerBlock per layer of its sequence
//   (8 + 12 * tiles bytes each), then, for storage kind 0, the frame's own pixels at
//   the next 16-byte boundary of the buffer's address.
// Plain texture (".tex"): TextureFileHeader then the pixels, zlib when packed.
// Background index (".til"): TileIndexHeader then columns * rows TileIndexEntry; its
//   "-tiled.tex" holds one zlib stream per distinct tile.
//
// The validators here look only at bytes: they check counts, offsets and sizes
// against the length of the block, so that no reader built on them ever leaves it.
#pragma once
#include <cstddef>
#include <cstdint>

#include "core/HashString.h"
#include "core/Real.h"

namespace nox {

// Texture format codes of a sprite (header byte 34). 20, 21, 40 and 41 are the codes
// whose stored pixels match what the upload reads; the others are kept for old data.
enum TADTexFormat : uint8_t {
  kTADByte5 = 1,       // plain, pixel format 5
  kTADByte7 = 3,       // plain, pixel format 7
  kTADByte8 = 4,       // plain, pixel format 8
  kTADByte6 = 5,       // plain, pixel format 6
  kTADPlain5551 = 20,  // plain, pixel format 2
  kTADPlain4444 = 21,  // plain, pixel format 1
  kTADPlainLA = 22,    // plain, pixel format 4, uploaded as RGBA
  kTADZlib5551 = 40,   // zlib, pixel format 2
  kTADZlib4444 = 41,   // zlib, pixel format 1
  kTADZlibLA = 42,     // zlib, pixel format 4, uploaded as luminance-alpha
};

// Storage kinds (header byte 35).
enum TADStorage : uint8_t {
  kTADStorageFrames = 0,  // frames are fetched one by one, each with its own texture
  kTADStorageSheet = 2,   // all frames share one resident sheet
};

// The rectangle series that stands for the whole sprite in visibility and overlap tests.
constexpr NameHash kCellBoxHash = 0x8150602Fu;
// Passed as a sequence name, means the sequence now playing; never stored in a file.
constexpr NameHash kCurrentSequenceHash = 0xB88B88E1u;
static_assert(HashString("CurrentSequence") == kCurrentSequenceHash, "hash of \"CurrentSequence\"");

constexpr int16_t kNilCoordinate = static_cast<int16_t>(-32768);  // 0x8000

#pragma pack(push, 1)
struct TADHeader {
  uint32_t unused0;           // the tools' mark; not read
  uint32_t dataUnpackedSize;  // bytes of the data file when it is one zlib stream
  uint32_t maxPackedFrame;    // bytes
  uint32_t maxUnpackedFrame;  // bytes
  uint32_t numSequences;
  uint32_t sheetOffset;  // in the unpacked data file
  uint16_t numLayers;
  uint16_t sheetWidth;   // pixels, 0 without a sheet
  uint16_t sheetHeight;  // pixels, 0 without a sheet
  uint16_t tileWidth;    // pixels, low byte only
  uint16_t tileHeight;   // pixels, low byte only
  uint8_t texFormat;     // TADTexFormat
  uint8_t storage;       // TADStorage

  uint8_t TileWidth() const { return static_cast<uint8_t>(tileWidth & 0xFF); }
  uint8_t TileHeight() const { return static_cast<uint8_t>(tileHeight & 0xFF); }
};

struct TADLayerEntry {
  NameHash name;
  Real depth;  // default depth of the layer
};

struct TADSequenceEntry {
  NameHash name;
  uint32_t unused4;  // not read
  uint32_t frameCount;
  uint8_t numLayers;  // layers present in this sequence's frames
  uint8_t numPointSeries;
  uint8_t numRectSeries;
  uint8_t numCallbackSeries;
};

struct TADFrameEntry {
  uint32_t offset;  // of the frame's block in the data file; equal offsets share data
  uint32_t size;    // stored bytes of the block
  uint16_t width;   // pixels of the frame's own texture (storage kind 0)
  uint16_t height;
};

struct TADPoint {
  int16_t x;  // animation pixels from the frame's origin; both kNilCoordinate: no point
  int16_t y;

  bool IsNil() const { return x == kNilCoordinate && y == kNilCoordinate; }
};

struct TADRect {
  int16_t left;  // animation pixels; all four kNilCoordinate: no rectangle
  int16_t top;
  int16_t right;
  int16_t bottom;

  bool IsNil() const {
    return left == kNilCoordinate && top == kNilCoordinate && right == kNilCoordinate &&
           bottom == kNilCoordinate;
  }
};

// A series is its name followed by one entry per frame of the sequence.
struct TADPointSeries {
  NameHash name;
  const TADPoint* Entries() const { return reinterpret_cast<const TADPoint*>(this + 1); }
};
struct TADRectSeries {
  NameHash name;
  const TADRect* Entries() const { return reinterpret_cast<const TADRect*>(this + 1); }
};
struct TADCallbackSeries {
  NameHash name;
  const uint32_t* Values() const { return reinterpret_cast<const uint32_t*>(this + 1); }
};

struct TADLayerBlock {
  NameHash name;
  uint32_t tileCount;
  // tileCount positions (x, y as int16, animation pixels) follow, then tileCount
  // texture coordinates (u, v as Real, the tile's top left in its texture).
  const int16_t* Positions() const { return reinterpret_cast<const int16_t*>(this + 1); }
  const Real* TexCoords() const { return reinterpret_cast<const Real*>(Positions() + 2 * tileCount); }
  const TADLayerBlock* Next() const {
    return reinterpret_cast<const TADLayerBlock*>(reinterpret_cast<const uint8_t*>(this) + 8 +
                                                  12 * static_cast<size_t>(tileCount));
  }
};

struct TextureFileHeader {
  uint32_t pixelFormat;  // PixelFormat::ePixelFormat
  uint32_t width;
  uint32_t height;
  uint32_t packedSize;  // 0: the pixels are stored plain
};

struct TileIndexHeader {
  uint16_t columns;
  uint16_t rows;
  uint32_t unused4;  // the tools' record of the tile size; not read
  uint16_t pixelFormat;
  uint16_t unused10;
};

struct TileIndexEntry {
  uint32_t offset;      // in the data file, and the tile's key
  uint32_t packedSize;  // 0: a tile of zero bytes with no data
};
#pragma pack(pop)

static_assert(sizeof(TADHeader) == 36, "sprite header");
static_assert(sizeof(TADLayerEntry) == 8, "layer entry");
static_assert(sizeof(TADSequenceEntry) == 16, "sequence entry");
static_assert(sizeof(TADFrameEntry) == 12, "frame entry");
static_assert(sizeof(TADPoint) == 4 && sizeof(TADRect) == 8, "series entries");
static_assert(sizeof(TADLayerBlock) == 8, "layer block head");
static_assert(sizeof(TextureFileHeader) == 16, "texture header");
static_assert(sizeof(TileIndexHeader) == 12 && sizeof(TileIndexEntry) == 8, "tile index");

constexpr unsigned long kTileMaxBytes = 2048;  // packed or unpacked: 32 by 32 at 2 bytes
constexpr unsigned kTileSide = 32;             // pixels of a background tile
constexpr unsigned kMaxTextureSide = 2048;     // the largest texture the GL takes
// Limits on what a header may ask the engine to allocate.
constexpr unsigned long kMaxFrameBytes = 8ul << 20;
constexpr unsigned long kMaxDataFileBytes = 64ul << 20;

// The texture format code table.
int TADPixelFormat(uint8_t code);    // PixelFormat value the frames upload with
int TADTextureFormat(uint8_t code);  // TextureFormat value: 4 for code 42, else 2
bool TADIsPacked(uint8_t code);      // 40, 41, 42

// Bytes per pixel as a ".tex" file stores them: 4 for format 0, 2 for 1 to 3, 1 for 4
// to 8, 0 for anything else.
unsigned long TexBytesPerPixel(unsigned long pixelFormat);
// Bytes that the GL reads from the pixel pointer to upload w by h pixels of this
// pixel format into a texture of this texture format (rows padded to 4 bytes, as the
// default unpack alignment does).
unsigned long UploadBytes(unsigned long width, unsigned long height, int textureFormat, int pixelFormat);

// Rounded up to the next multiple of 16.
inline uintptr_t AlignUp16(uintptr_t v) {
  return (v + 15) & ~static_cast<uintptr_t>(15);
}

// Null when the control file is sound: every table and series lies inside `size`
// bytes, every sequence has 1 to 65535 frames, the header's sizes are within the
// engine's limits. Otherwise a short text of what is wrong.
const char* CheckAnimControl(const uint8_t* data, unsigned long size);

// Walks `numLayers` layer blocks of a frame block of `size` bytes. Null when they all
// fit; `*layerBytes` then holds the bytes they take.
const char* CheckFrameLayers(const uint8_t* block, unsigned long size, unsigned numLayers,
                             unsigned long* layerBytes);

// Null when the tile index is sound: the entries fit and no packed size exceeds
// kTileMaxBytes. `dataSize` is the length of the data file; every entry must lie in it.
const char* CheckTileIndex(const uint8_t* data, unsigned long size, unsigned long dataSize);

}  // namespace nox
