#include "graphics/TileAnimData.h"

#include <zlib.h>

#include "core/Debug.h"
#include "core/FileSystem.h"
#include "core/Loader.h"
#include "core/PathRegistry.h"
#include "graphics/CartAnimFrame.h"
#include "graphics/TileAnimation.h"

namespace nox {

namespace {

TextureFormat::eTextureFormat TextureFormatOf(uint8_t code) {
  return static_cast<TextureFormat::eTextureFormat>(TADTextureFormat(code));
}

}  // namespace

TileAnimData::TileAnimData(const char* name, bool streamedFromMemory, bool deferredVRAM)
    : m_Name(name ? name : ""),
      m_bDeferredVRAM(deferredVRAM),
      m_bStreamedFromMemory(streamedFromMemory),
      m_Texture(TextureFormat::kRGBA) {
  if (!LoadAnimFile()) return;
  if (!LoadTexFile()) {
    Unload();
    return;
  }
  if (!m_bDeferredVRAM) {
    AllocVRAM();
    LoadVRAM();
  }
  for (uint32_t s = 0; s < GetNumSequences(); ++s) {
    if (m_pSequences[s].numCallbackSeries > m_MaxCallbacks)
      m_MaxCallbacks = m_pSequences[s].numCallbackSeries;
  }
}

TileAnimData::~TileAnimData() {
  Unload();
}

void TileAnimData::Unload() {
  delete m_pSharedFrame;
  m_pSharedFrame = nullptr;
  FreeVRAM();
  if (m_pDataFile) FileSystem::FileClose(m_pDataFile);
  m_pDataFile = nullptr;
  Loader::UnloadFile(m_pAnim);
  m_pAnim = nullptr;
  m_AnimSize = 0;
  m_pLayers = nullptr;
  m_pSequences = nullptr;
  delete[] m_pSequenceData;
  m_pSequenceData = nullptr;
  delete[] m_pData;
  m_pData = nullptr;
  m_DataSize = 0;
  m_pSheet = nullptr;
  m_UOffset = Real();
  m_VOffset = Real();
  m_MaxCallbacks = 0;
  m_bReady = false;
}

TileAnimation* TileAnimData::CreateCellAnimation() {
  return IsLoaded() ? new TileAnimation(this) : nullptr;
}

bool TileAnimData::LoadAnimFile() {
  AutomationPrintf("Load animation: %s\n", m_Name.c_str());
  std::string path;
  if (!PathRegistry::sm_pInstance || !PathRegistry::sm_pInstance->FindFile(
                                         PathRegistry::sm_pInstance->m_AnimDataPaths, m_Name + ".anim", path))
    return false;
  unsigned long size = 0;
  uint8_t* anim = Loader::LoadFile(path, &size);
  if (!anim) return false;
  if (const char* problem = CheckAnimControl(anim, size)) {
    AutomationPrintf("Malformed file: %s: %s", path.c_str(), problem);
    Loader::UnloadFile(anim);
    return false;
  }
  m_pAnim = anim;
  m_AnimSize = size;
  const TADHeader* header = GetHeader();
  m_pLayers = reinterpret_cast<const TADLayerEntry*>(anim + sizeof(TADHeader));
  m_pSequences = reinterpret_cast<const TADSequenceEntry*>(m_pLayers + header->numLayers);

  // The positions of every block, worked out once; CheckAnimControl proved they
  // fit.
  m_pSequenceData = new TADSequenceData[header->numSequences];
  const uint8_t* cursor = reinterpret_cast<const uint8_t*>(m_pSequences + header->numSequences);
  for (uint32_t s = 0; s < header->numSequences; ++s) {
    const TADSequenceEntry& seq = m_pSequences[s];
    const unsigned long frames = seq.frameCount;
    TADSequenceData& data = m_pSequenceData[s];
    data.frames = reinterpret_cast<const TADFrameEntry*>(cursor);
    cursor += 12 * frames;
    data.points = cursor;
    cursor += seq.numPointSeries * (4 + 4 * frames);
    data.rects = cursor;
    cursor += seq.numRectSeries * (4 + 8 * frames);
    data.callbacks = cursor;
    cursor += seq.numCallbackSeries * (4 + 4 * frames);
  }

  m_Texture.Initialize(TextureFormatOf(header->texFormat));
  m_UOffset = Real();
  m_VOffset = Real();
  if (header->sheetWidth != 0) m_UOffset = Real::FromRaw(Real::kOneRaw / 4) / Real(header->sheetWidth);
  if (header->sheetHeight != 0) m_VOffset = Real::FromRaw(Real::kOneRaw / 4) / Real(header->sheetHeight);
  return true;
}

bool TileAnimData::HasSheet() const {
  const TADHeader* header = GetHeader();
  return header->storage == kTADStorageSheet && header->sheetWidth != 0 && header->sheetHeight != 0;
}

const char* TileAnimData::CheckFrames(unsigned long dataSize) const {
  const TADHeader* header = GetHeader();
  const bool inMemory = m_pData != nullptr;
  const bool packedFrames = TADIsPacked(header->texFormat) && header->storage == kTADStorageFrames;
  for (uint32_t s = 0; s < header->numSequences; ++s) {
    const TADSequenceEntry& seq = m_pSequences[s];
    for (uint32_t f = 0; f < seq.frameCount; ++f) {
      const TADFrameEntry& entry = m_pSequenceData[s].frames[f];
      if (static_cast<uint64_t>(entry.offset) + entry.size > dataSize) return "frame lies past the end";
      if (header->storage == kTADStorageFrames) {
        if (entry.size > header->maxPackedFrame) return "frame larger than the largest packed frame";
        if (!packedFrames && entry.size > header->maxUnpackedFrame)
          return "frame larger than the largest unpacked frame";
        if (entry.width > kMaxTextureSide || entry.height > kMaxTextureSide)
          return "frame larger than a texture";
      }
      // Packed frames, and frames still on disk, are checked when they are
      // fetched.
      if (!inMemory || packedFrames) continue;
      const uint8_t* block = m_pData + entry.offset;
      unsigned long layerBytes = 0;
      if (const char* problem = CheckFrameLayers(block, entry.size, seq.numLayers, &layerBytes))
        return problem;
      if (header->storage == kTADStorageFrames && entry.width != 0 && entry.height != 0) {
        const uintptr_t start = reinterpret_cast<uintptr_t>(block);
        const uintptr_t pixels = AlignUp16(start + layerBytes);
        const unsigned long need = UploadBytes(entry.width, entry.height, TADTextureFormat(header->texFormat),
                                               TADPixelFormat(header->texFormat));
        if (pixels - start + need > entry.size) return "frame pixels run past the frame";
      }
    }
  }
  if (HasSheet()) {
    if (!inMemory) return "sheet without data";
    const unsigned long need =
        UploadBytes(header->sheetWidth, header->sheetHeight, TADTextureFormat(header->texFormat),
                    TADPixelFormat(header->texFormat));
    if (static_cast<uint64_t>(header->sheetOffset) + need > dataSize) return "sheet runs past the end";
  }
  return nullptr;
}

bool TileAnimData::LoadTexFile() {
  AutomationPrintf("Load texture: %s\n", m_Name.c_str());
  if (!IsLoaded()) return false;
  std::string path;
  if (!PathRegistry::sm_pInstance || !PathRegistry::sm_pInstance->FindFile(
                                         PathRegistry::sm_pInstance->m_AnimDataPaths, m_Name + ".tex", path))
    return false;
  SCOPEDNOXFILE file(FileSystem::FileOpen(path.c_str(), "rb"));
  if (!file) return false;
  const TADHeader* header = GetHeader();
  const char* problem = nullptr;

  if (header->storage == kTADStorageSheet || m_bStreamedFromMemory) {
    unsigned long size = 0;
    if (Loader::GetFileSize(path.c_str()) > kMaxDataFileBytes) {
      problem = "data file over the limit";
    } else if (uint8_t* raw = Loader::LoadFile(path, &size)) {
      // A sheet sprite with a packed code is one zlib stream; frames streamed
      // from memory stay packed one by one.
      if (TADIsPacked(header->texFormat) && header->storage == kTADStorageSheet) {
        uLongf got = header->dataUnpackedSize;
        m_pData = new uint8_t[header->dataUnpackedSize + 1];
        if (uncompress(m_pData, &got, raw, size) != Z_OK || got != header->dataUnpackedSize)
          problem = "data does not unpack to its recorded size";
        m_DataSize = header->dataUnpackedSize;
        Loader::UnloadFile(raw);
      } else {
        m_pData = raw;
        m_DataSize = size;
      }
    } else {
      return false;
    }
    if (!problem) problem = CheckFrames(m_DataSize);
    if (!problem) m_pSheet = m_pData + header->sheetOffset;
  } else {
    m_DataSize = Loader::GetFileSize(path.c_str());
    problem = CheckFrames(m_DataSize);
    if (!problem) m_pDataFile = file.Release();
  }
  if (problem) {
    AutomationPrintf("Malformed file: %s: %s", path.c_str(), problem);
    delete[] m_pData;
    m_pData = nullptr;
    m_DataSize = 0;
    return false;
  }
  return true;
}

void TileAnimData::AllocVRAM() {
  if (IsLoaded() && HasSheet()) m_Texture.Allocate();
}

void TileAnimData::LoadVRAM() {
  if (IsLoaded() && HasSheet()) {
    const TADHeader* header = GetHeader();
    m_Texture.Update(header->sheetWidth, header->sheetHeight,
                     static_cast<uint32_t>(TADPixelFormat(header->texFormat)), m_pSheet);
  }
  if (m_bDeferredVRAM) m_bReady = true;
}

void TileAnimData::FreeVRAM() {
  m_Texture.Free();
}

TileAnimFrame* TileAnimData::GetNewFrameHolder() {
  if (!IsLoaded()) return nullptr;
  switch (GetHeader()->storage) {
    case kTADStorageSheet:
      return new VRAMAnimFrame(this);
    case kTADStorageFrames:
      if (m_bStreamedFromMemory) return new StreamedMemoryAnimFrame(this);
      if (m_bDeferredVRAM) {
        if (!m_pSharedFrame) m_pSharedFrame = new CartAnimFrame(this);
        return m_pSharedFrame;
      }
      return new CartAnimFrame(this);
    default:
      return nullptr;
  }
}

unsigned long TileAnimData::PixelsToTexSize(unsigned long pixels, uint8_t code) {
  switch (code) {
    case kTADPlain5551:
    case kTADPlain4444:
    case kTADZlib5551:
    case kTADZlib4444:
      return pixels * 2;
    case kTADZlibLA:
      return pixels;
    default:
      return 0;
  }
}

// Look-ups: linear, in table order, first hit.

const TADLayerEntry* TileAnimData::GetLayerEntry(unsigned short index) const {
  return index < GetNumLayers() ? &m_pLayers[index] : nullptr;
}

const TADLayerEntry* TileAnimData::GetLayerEntry(NameHash nameHash) const {
  for (uint16_t i = 0; i < GetNumLayers(); ++i) {
    if (m_pLayers[i].name == nameHash) return &m_pLayers[i];
  }
  return nullptr;
}

const TADSequenceEntry* TileAnimData::GetSequenceEntry(unsigned index) const {
  return index < GetNumSequences() ? &m_pSequences[index] : nullptr;
}

bool TileAnimData::HasSequence(NameHash nameHash) const {
  for (uint32_t i = 0; i < GetNumSequences(); ++i) {
    if (m_pSequences[i].name == nameHash) return true;
  }
  return false;
}

unsigned short TileAnimData::GetSequenceIndexByName(NameHash nameHash) const {
  for (uint32_t i = 0; i < GetNumSequences(); ++i) {
    if (m_pSequences[i].name == nameHash) return static_cast<unsigned short>(i);
  }
  AutomationPrintf("Couldn't find sequence index by name: %u", nameHash);
  return 0;
}

const TADSequenceData* TileAnimData::GetSequenceData(unsigned index) const {
  return index < GetNumSequences() ? &m_pSequenceData[index] : nullptr;
}

const TADFrameEntry* TileAnimData::GetFrameEntry(unsigned sequence, unsigned frame) const {
  if (sequence >= GetNumSequences() || frame >= m_pSequences[sequence].frameCount) return nullptr;
  return &m_pSequenceData[sequence].frames[frame];
}

const uint8_t* TileAnimData::GetFrameLayer(unsigned sequence, unsigned frame) const {
  const TADFrameEntry* entry = GetFrameEntry(sequence, frame);
  return entry && m_pData ? m_pData + entry->offset : nullptr;
}

unsigned short TileAnimData::GetSequenceFrameCount(unsigned sequence) const {
  return sequence < GetNumSequences()
             ? static_cast<unsigned short>(m_pSequences[sequence].frameCount & 0xFFFF)
             : 0;
}

const TADPointSeries* TileAnimData::GetPointSeries(unsigned sequence, NameHash nameHash) const {
  if (sequence >= GetNumSequences()) return nullptr;
  const TADSequenceEntry& seq = m_pSequences[sequence];
  const uint8_t* p = m_pSequenceData[sequence].points;
  for (unsigned i = 0; i < seq.numPointSeries; ++i, p += 4 + 4ul * seq.frameCount) {
    const TADPointSeries* series = reinterpret_cast<const TADPointSeries*>(p);
    if (series->name == nameHash) return series;
  }
  return nullptr;
}

const TADRectSeries* TileAnimData::GetRectSeries(unsigned sequence, NameHash nameHash) const {
  if (sequence >= GetNumSequences()) return nullptr;
  const TADSequenceEntry& seq = m_pSequences[sequence];
  const uint8_t* p = m_pSequenceData[sequence].rects;
  for (unsigned i = 0; i < seq.numRectSeries; ++i, p += 4 + 8ul * seq.frameCount) {
    const TADRectSeries* series = reinterpret_cast<const TADRectSeries*>(p);
    if (series->name == nameHash) return series;
  }
  return nullptr;
}

const TADCallbackSeries* TileAnimData::GetCallbackSeries(unsigned sequence, unsigned index) const {
  if (sequence >= GetNumSequences() || index >= m_pSequences[sequence].numCallbackSeries) return nullptr;
  const uint8_t* p =
      m_pSequenceData[sequence].callbacks + index * (4 + 4ul * m_pSequences[sequence].frameCount);
  return reinterpret_cast<const TADCallbackSeries*>(p);
}

NameHash TileAnimData::GetCallbackName(unsigned sequence, unsigned index) const {
  const TADCallbackSeries* series = GetCallbackSeries(sequence, index);
  return series ? series->name : 0;
}

uint32_t TileAnimData::GetCallbackValue(unsigned sequence, unsigned index, unsigned frame) const {
  const TADCallbackSeries* series = GetCallbackSeries(sequence, index);
  if (!series || frame >= m_pSequences[sequence].frameCount) return 0;
  return series->Values()[frame];
}

}  // namespace nox
