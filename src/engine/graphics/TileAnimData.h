// The shared data of one sprite: its ".anim" control file, used in place, and its
// ".tex" data file, either loaded (storage kind 2, or streamed from memory) or kept
// open so that frame holders can fetch one frame at a time (storage kind 0). See
// TileFileFormat.h for the layouts.
//
// A TileAnimData lives in a scene's AnimDataMap; the TileAnimation objects made by
// CreateCellAnimation borrow it and must die first. It owns the loaded files, the
// table of four pointers per sequence, the sheet texture and, for deferred video
// memory, the frame holder that its sprites share.
//
// Both files are checked before use. A missing or malformed file leaves the object
// unloaded (IsLoaded false, no sequences, CreateCellAnimation null) with, for a
// malformed one, one automation line naming the file; nothing read from it is used.
#pragma once
#include <cstdint>
#include <cstdio>
#include <string>

#include "core/HashString.h"
#include "core/NoCopy.h"
#include "core/Real.h"
#include "graphics/GLTexture.h"
#include "graphics/TileFileFormat.h"

namespace nox {

class TileAnimation;
class TileAnimFrame;

// Where a sequence's four blocks start in the control file.
struct TADSequenceData {
  const TADFrameEntry* frames;
  const uint8_t* points;     // numPointSeries point series
  const uint8_t* rects;      // numRectSeries rectangle series
  const uint8_t* callbacks;  // numCallbackSeries callback series
};

class TileAnimData : public NoCopy {
 public:
  // Loads name + ".anim" and name + ".tex" from the animation directories; unless
  // `deferredVRAM`, also uploads the sheet.
  TileAnimData(const char* name, bool streamedFromMemory, bool deferredVRAM);
  virtual ~TileAnimData();
  // A new sprite on this data, owned by the caller; null when the data is not loaded.
  virtual TileAnimation* CreateCellAnimation();

  bool IsLoaded() const { return m_pAnim != nullptr; }
  const std::string& GetName() const { return m_Name; }
  const TADHeader* GetHeader() const { return reinterpret_cast<const TADHeader*>(m_pAnim); }

  // Reading. Indexes out of range give null, 0 or false.
  uint32_t GetNumSequences() const { return m_pAnim ? GetHeader()->numSequences : 0; }
  uint16_t GetNumLayers() const { return m_pAnim ? GetHeader()->numLayers : 0; }
  const TADLayerEntry* GetLayerEntry(unsigned short index) const;
  const TADLayerEntry* GetLayerEntry(NameHash nameHash) const;  // first hit, null when absent
  const TADSequenceEntry* GetSequenceEntry(unsigned index) const;
  bool HasSequence(NameHash nameHash) const;
  // The first sequence of that name; 0 with an automation line when there is none.
  unsigned short GetSequenceIndexByName(NameHash nameHash) const;
  const TADSequenceData* GetSequenceData(unsigned index) const;
  const TADFrameEntry* GetFrameEntry(unsigned sequence, unsigned frame) const;
  // The frame's block in the loaded data file; null when the data is not in memory.
  const uint8_t* GetFrameLayer(unsigned sequence, unsigned frame) const;
  unsigned short GetSequenceFrameCount(unsigned sequence) const;
  const TADPointSeries* GetPointSeries(unsigned sequence, NameHash nameHash) const;
  const TADRectSeries* GetRectSeries(unsigned sequence, NameHash nameHash) const;
  const TADCallbackSeries* GetCallbackSeries(unsigned sequence, unsigned index) const;
  NameHash GetCallbackName(unsigned sequence, unsigned index) const;
  uint32_t GetCallbackValue(unsigned sequence, unsigned index, unsigned frame) const;
  // The most callback series of any sequence: the size of a sprite's event buffers.
  uint16_t GetMaxCallbackCount() const { return m_MaxCallbacks; }

  // Video memory of the sheet (storage kind 2 only).
  void AllocVRAM();
  void LoadVRAM();
  void FreeVRAM();
  bool IsVRAMReady() const { return true; }
  bool IsReady() const { return m_bReady; }

  // A frame holder fit for the storage kind; null for an unloaded data. The shared
  // holder of deferred video memory stays the data's.
  TileAnimFrame* GetNewFrameHolder();
  TileAnimFrame* GetSharedFrameHolder() const { return m_pSharedFrame; }

  bool LoadAnimFile();
  bool LoadTexFile();
  // Texture bytes of `pixels` pixels for a format code: 2 a pixel for 20, 21, 40, 41;
  // 1 for 42; 0 for every other code.
  static unsigned long PixelsToTexSize(unsigned long pixels, uint8_t code);

  // For the frame holders.
  FILE* GetDataFile() const { return m_pDataFile; }
  const uint8_t* GetLoadedData() const { return m_pData; }
  unsigned long GetLoadedDataSize() const { return m_DataSize; }
  const uint8_t* GetSheet() const { return m_pSheet; }
  GLTexture& GetTexture() { return m_Texture; }
  Real GetUOffset() const { return m_UOffset; }
  Real GetVOffset() const { return m_VOffset; }
  bool IsStreamedFromMemory() const { return m_bStreamedFromMemory; }
  bool IsDeferredVRAM() const { return m_bDeferredVRAM; }

 private:
  void Unload();
  // Checks every frame entry against the data file of `dataSize` bytes (and, when the
  // data is in memory, the frames' layer blocks). Null when all is well.
  const char* CheckFrames(unsigned long dataSize) const;
  bool HasSheet() const;

  std::string m_Name;
  bool m_bDeferredVRAM;
  bool m_bStreamedFromMemory;
  bool m_bReady = false;
  TileAnimFrame* m_pSharedFrame = nullptr;         // owned; only with deferred video memory
  FILE* m_pDataFile = nullptr;                     // owned; open while frames are fetched from it
  uint8_t* m_pAnim = nullptr;                      // owned, the control file
  const TADLayerEntry* m_pLayers = nullptr;        // in m_pAnim
  const TADSequenceEntry* m_pSequences = nullptr;  // in m_pAnim
  TADSequenceData* m_pSequenceData = nullptr;      // owned, new[], one per sequence
  uint8_t* m_pData = nullptr;                      // owned, the data file in memory
  const uint8_t* m_pSheet = nullptr;               // in m_pData
  GLTexture m_Texture;
  Real m_UOffset;  // quarter texel of the sheet, 0 without one
  Real m_VOffset;
  uint16_t m_MaxCallbacks = 0;

  unsigned long m_AnimSize = 0;  // bytes of m_pAnim
  unsigned long m_DataSize = 0;  // bytes of m_pData, or of the open data file
};

}  // namespace nox
