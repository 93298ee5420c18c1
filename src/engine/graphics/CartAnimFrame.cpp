#include "graphics/CartAnimFrame.h"

#include "core/FileSystem.h"
#include "core/Inflater.h"
#include "graphics/TileAnimData.h"

namespace nox {

CartAnimFrame::CartAnimFrame(TileAnimData* data) : TileAnimFrame(data), m_pTexture(&m_OwnTexture) {
  const TADHeader* header = data->GetHeader();
  const unsigned long packed = header ? (header->maxPackedFrame + 3ul) & ~3ul : 0;
  const unsigned long unpacked = header ? header->maxUnpackedFrame : 0;
  m_pPackedBuffer = new uint8_t[packed ? packed : 4];
  m_pRawPixelBuffer = new uint8_t[unpacked + 16];
  m_pPixelBuffer = AlignedBuffer();
  if (data->IsDeferredVRAM()) {
    m_pTexture = &data->GetTexture();
    m_bSharedTexture = true;
  } else {
    m_OwnTexture.Initialize(
        static_cast<TextureFormat::eTextureFormat>(TADTextureFormat(header ? header->texFormat : 0)));
    m_OwnTexture.Allocate();
  }
}

CartAnimFrame::~CartAnimFrame() {
  delete[] m_pRawPixelBuffer;
  delete[] m_pPackedBuffer;
}

uint8_t* CartAnimFrame::AlignedBuffer() const {
  return reinterpret_cast<uint8_t*>(AlignUp16(reinterpret_cast<uintptr_t>(m_pRawPixelBuffer)));
}

bool CartAnimFrame::LoadToBuffer(unsigned sequence, unsigned frame) {
  const TADHeader* header = m_pData->GetHeader();
  const TADFrameEntry* entry = m_pData->GetFrameEntry(sequence, frame);
  FILE* file = m_pData->GetDataFile();
  if (!entry || !file || entry->size > header->maxPackedFrame) return false;
  if (FileSystem::FileSeek(file, static_cast<long>(entry->offset), SEEK_SET) != 0) return false;
  if (TADIsPacked(header->texFormat)) {
    if (FileSystem::FileRead(m_pPackedBuffer, 1, entry->size, file) != entry->size) return false;
    unsigned long got = header->maxUnpackedFrame;
    if (!Inflater::Inflate(m_pPixelBuffer, got, m_pPackedBuffer, entry->size)) return false;
    m_DataSize = got;
    return true;
  }
  // Checked at load: a plain block is never larger than the largest unpacked frame.
  if (FileSystem::FileRead(m_pPixelBuffer, 1, entry->size, file) != entry->size) return false;
  m_DataSize = entry->size;
  return true;
}

bool StreamedMemoryAnimFrame::LoadToBuffer(unsigned sequence, unsigned frame) {
  const TADHeader* header = m_pData->GetHeader();
  const TADFrameEntry* entry = m_pData->GetFrameEntry(sequence, frame);
  const uint8_t* data = m_pData->GetLoadedData();
  if (!entry || !data || entry->size > header->maxPackedFrame) return false;
  if (TADIsPacked(header->texFormat)) {
    m_pPixelBuffer = AlignedBuffer();
    unsigned long got = header->maxUnpackedFrame;
    if (!Inflater::Inflate(m_pPixelBuffer, got, data + entry->offset, entry->size)) return false;
    m_DataSize = got;
    return true;
  }
  // Used where it lies; the data file was checked whole when it was loaded.
  m_pPixelBuffer = const_cast<uint8_t*>(data + entry->offset);
  m_DataSize = entry->size;
  return true;
}

bool CartAnimFrame::LoadFrame(unsigned sequence, unsigned frame) {
  const TADFrameEntry* entry = m_pData->GetFrameEntry(sequence, frame);
  const TADSequenceEntry* seq = m_pData->GetSequenceEntry(sequence);
  if (!entry || !seq) return false;
  if (entry != m_pFrameEntry || seq != m_pSequenceEntry) {
    // Equal offsets mean the buffer already holds this frame's data.
    if (!m_pFrameEntry || m_pFrameEntry->offset != entry->offset) {
      m_pFrameEntry = nullptr;
      if (!LoadToBuffer(sequence, frame)) return false;
    }
    // The block is checked against what was read before anything in it is used.
    unsigned long layerBytes = 0;
    if (CheckFrameLayers(m_pPixelBuffer, m_DataSize, seq->numLayers, &layerBytes)) {
      m_pFrameEntry = nullptr;
      return false;
    }
    unsigned long tiles = 0;
    const TADLayerBlock* layer = reinterpret_cast<const TADLayerBlock*>(m_pPixelBuffer);
    for (unsigned i = 0; i < seq->numLayers; ++i, layer = layer->Next()) tiles += layer->tileCount;
    const uintptr_t start = reinterpret_cast<uintptr_t>(m_pPixelBuffer);
    const uintptr_t pixels = AlignUp16(start + layerBytes);
    const TADHeader* header = m_pData->GetHeader();
    if (tiles > 0) {
      const unsigned long need = UploadBytes(entry->width, entry->height, TADTextureFormat(header->texFormat),
                                             TADPixelFormat(header->texFormat));
      if (entry->width == 0 || entry->height == 0 || pixels - start + need > m_DataSize) {
        m_pFrameEntry = nullptr;
        return false;
      }
    }
    m_pFrameEntry = entry;
    m_pLayerBlocks = m_pPixelBuffer;
    m_pFramePixels = reinterpret_cast<const uint8_t*>(pixels);
    m_TileUSize = Real();
    m_TileVSize = Real();
    if (tiles > 0) {
      UploadTextures();
      const Real quarter = Real::FromRaw(Real::kOneRaw / 4);
      m_TileUSize = (Real(header->TileWidth()) - quarter) / Real(entry->width);
      m_TileVSize = (Real(header->TileHeight()) - quarter) / Real(entry->height);
    }
  }
  SetCursor(seq);
  return true;
}

void CartAnimFrame::UploadTextures() {
  if (!m_pFrameEntry || m_pFrameEntry->width == 0 || m_pFrameEntry->height == 0) return;
  const uint32_t format = static_cast<uint32_t>(TADPixelFormat(m_pData->GetHeader()->texFormat));
  const uint16_t w = m_pFrameEntry->width, h = m_pFrameEntry->height;
  if (m_pTexture->GetTextureId() != 0 && m_pTexture->GetWidth() == w && m_pTexture->GetHeight() == h) {
    m_pTexture->UpdateSubRegion(0, 0, w, h, format, m_pFramePixels);
  } else {
    m_pTexture->Update(w, h, format, m_pFramePixels);
  }
}

void CartAnimFrame::UnloadOffscreenResources() {
  m_pFrameEntry = nullptr;
  m_OwnTexture.Free();
}

}  // namespace nox
