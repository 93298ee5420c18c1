#include "graphics/TileFileFormat.h"

namespace nox {

int TADPixelFormat(uint8_t code) {
  switch (code) {
    case kTADByte5:
      return 5;
    case kTADByte7:
      return 7;
    case kTADByte8:
      return 8;
    case kTADByte6:
      return 6;
    case kTADPlain5551:
    case kTADZlib5551:
      return 2;
    case kTADPlain4444:
    case kTADZlib4444:
      return 1;
    case kTADPlainLA:
    case kTADZlibLA:
      return 4;
    default:
      return static_cast<int>(code) - 1;
  }
}

int TADTextureFormat(uint8_t code) {
  return code == kTADZlibLA ? 4 : 2;
}

bool TADIsPacked(uint8_t code) {
  return code == kTADZlib5551 || code == kTADZlib4444 || code == kTADZlibLA;
}

unsigned long TexBytesPerPixel(unsigned long pixelFormat) {
  if (pixelFormat == 0) return 4;
  if (pixelFormat <= 3) return 2;
  if (pixelFormat <= 8) return 1;
  return 0;
}

unsigned long UploadBytes(unsigned long width, unsigned long height, int textureFormat, int pixelFormat) {
  if (width == 0 || height == 0) return 0;
  unsigned long bytesPerPixel = 2;  // the packed 16-bit types hold a whole pixel
  if (pixelFormat >= 4 && pixelFormat <= 8) {
    switch (textureFormat) {
      case 0:  // alpha
      case 3:  // luminance
        bytesPerPixel = 1;
        break;
      case 1:  // RGB
        bytesPerPixel = 3;
        break;
      case 4:  // luminance-alpha
        bytesPerPixel = 2;
        break;
      default:  // RGBA
        bytesPerPixel = 4;
        break;
    }
  }
  const unsigned long row = width * bytesPerPixel;
  const unsigned long stride = (row + 3) & ~3ul;
  return stride * (height - 1) + row;
}

const char* CheckAnimControl(const uint8_t* data, unsigned long size) {
  if (!data || size < sizeof(TADHeader)) return "shorter than its header";
  const TADHeader* header = reinterpret_cast<const TADHeader*>(data);
  if (header->storage != kTADStorageFrames && header->storage != kTADStorageSheet)
    return "unknown storage kind";
  const int pixelFormat = TADPixelFormat(header->texFormat);
  if (pixelFormat < 0 || pixelFormat > 8) return "unknown texture format code";
  if (header->maxPackedFrame > kMaxFrameBytes || header->maxUnpackedFrame > kMaxFrameBytes)
    return "frame size over the limit";
  if (header->dataUnpackedSize > kMaxDataFileBytes) return "data size over the limit";
  if (header->sheetWidth > kMaxTextureSide || header->sheetHeight > kMaxTextureSide)
    return "sheet larger than a texture";

  uint64_t pos = sizeof(TADHeader) + 8ull * header->numLayers + 16ull * header->numSequences;
  if (pos > size) return "tables run past the end";
  const TADSequenceEntry* sequences =
      reinterpret_cast<const TADSequenceEntry*>(data + sizeof(TADHeader) + 8ul * header->numLayers);
  for (uint32_t s = 0; s < header->numSequences; ++s) {
    const TADSequenceEntry& seq = sequences[s];
    const uint64_t frames = seq.frameCount;
    if (frames == 0 || frames > 0xFFFF) return "sequence frame count outside 1 to 65535";
    pos += 12 * frames;
    pos += seq.numPointSeries * (4 + 4 * frames);
    pos += seq.numRectSeries * (4 + 8 * frames);
    pos += seq.numCallbackSeries * (4 + 4 * frames);
    if (pos > size) return "sequence data runs past the end";
  }
  return nullptr;
}

const char* CheckFrameLayers(const uint8_t* block, unsigned long size, unsigned numLayers,
                             unsigned long* layerBytes) {
  if (numLayers > 0 && (reinterpret_cast<uintptr_t>(block) & 3) != 0) return "frame block not aligned";
  uint64_t pos = 0;
  for (unsigned i = 0; i < numLayers; ++i) {
    if (pos + 8 > size) return "layer block runs past the frame";
    const TADLayerBlock* layer = reinterpret_cast<const TADLayerBlock*>(block + pos);
    pos += 8 + 12ull * layer->tileCount;
    if (pos > size) return "layer tiles run past the frame";
  }
  if (layerBytes) *layerBytes = static_cast<unsigned long>(pos);
  return nullptr;
}

const char* CheckTileIndex(const uint8_t* data, unsigned long size, unsigned long dataSize) {
  if (!data || size < sizeof(TileIndexHeader)) return "shorter than its header";
  const TileIndexHeader* header = reinterpret_cast<const TileIndexHeader*>(data);
  const uint64_t count = static_cast<uint64_t>(header->columns) * header->rows;
  if (sizeof(TileIndexHeader) + 8 * count > size) return "tile entries run past the end";
  const TileIndexEntry* entries = reinterpret_cast<const TileIndexEntry*>(data + sizeof(TileIndexHeader));
  for (uint64_t i = 0; i < count; ++i) {
    if (entries[i].packedSize > kTileMaxBytes) return "tile larger than 2048 bytes";
    if (entries[i].packedSize != 0 &&
        static_cast<uint64_t>(entries[i].offset) + entries[i].packedSize > dataSize)
      return "tile lies past the end of the data file";
  }
  return nullptr;
}

}  // namespace nox
