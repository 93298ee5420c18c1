// A scrolling background: a ".til" index of columns by rows tiles and, beside it, a
// "-tiled.tex" holding one zlib stream per distinct tile picture. The index stays in
// memory; the data file stays open and each tile is read and unpacked on demand into
// the caller's buffer (one seek, one read of at most 2048 bytes, one inflate through
// the Inflater, so that streaming tiles while scrolling allocates nothing).
//
// Two tiles with one picture carry one offset, and that offset is the tile's key, so a
// texture cache can hold one copy of it. The index is checked when it is loaded: a
// file whose entries run past its end, or past the end of the data file, is treated
// like a missing one, with one automation line naming it. The object owns the index
// and the open data file.
#pragma once
#include <cstdint>
#include <cstdio>
#include <string>

#include "core/NoCopy.h"
#include "graphics/TileFileFormat.h"

namespace nox {

class TileResourceFile : public NoCopy {
 public:
  TileResourceFile() = default;
  virtual ~TileResourceFile();

  // Finds name + ".til" and name + "-tiled.tex" in the level directories, loads the
  // index and opens the data. False when either is missing or malformed; the object
  // then has no tiles.
  bool Initialize(const std::string& name);
  // Loads an index from `path`, checked against a data file of `dataSize` bytes.
  bool LoadTileIndexData(const std::string& path, unsigned long dataSize);
  void Release();

  // The entry of tile (x, y), or null outside the picture or without an index.
  const TileIndexEntry* FindTileIndexData(unsigned x, unsigned y) const;
  // The tile's offset, which is its key; kNoTileKey outside the picture.
  uint32_t GetTileKey(unsigned x, unsigned y) const;
  // Unpacks tile (x, y) into `out`, at most min(size, 2048) bytes. A tile with packed
  // size 0 fills `size` bytes with zero and reads nothing. An unpacking error leaves
  // the buffer as it is.
  void LoadTile(unsigned x, unsigned y, unsigned char* out, unsigned long size);

  bool IsInitialized() const { return m_bInitialized; }
  uint16_t GetColumns() const { return m_Header.columns; }
  uint16_t GetRows() const { return m_Header.rows; }
  uint16_t GetPixelFormat() const { return m_Header.pixelFormat; }

  static constexpr uint32_t kNoTileKey = 0xFFFFFFFFu;

 private:
  bool m_bInitialized = false;
  FILE* m_pDataFile = nullptr;                 // owned, open "rb"
  const TileIndexEntry* m_pEntries = nullptr;  // in m_pIndex
  TileIndexHeader m_Header = {};               // copy of the first 12 bytes
  uint8_t* m_pIndex = nullptr;                 // owned, from Loader::LoadFile
};

}  // namespace nox
