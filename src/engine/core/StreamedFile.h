// A large file read by chunks into a fixed cache, for world render data. The file
// starts with a 44-byte little-endian header:
//   0  8  owner's data          24 4  slot size (cache slot and read buffer)
//   8  4  1 = chunks zlib'ed     28 4  size of the static part
//   12 4  chunk count            32 4  offset of the static data (0: none)
//   16 4  chunk table offset     36 8  owner's data
//   20 4  largest chunk size
// A chunk table row is 12 bytes: uncompressed size, stored size, file offset.
//
// Streaming (maxChunks below the chunk count): the first static offset + static size
// bytes stay in memory (they must hold the table), the file stays open, and chunks
// are read on demand into maxChunks slots allocated once, with one read buffer shared
// by all. A slot whose chunk count drops to 0 keeps its chunk until it is reused.
// The first slot is never chosen for reuse, so at most maxChunks - 1 chunks are held
// at once. Whole (maxChunks at or above the count, or 0): the file is read once and
// LoadChunk is a table look-up giving the chunk's bytes as stored in the file.
//
// Load checks the header, the table and every row against the file's size first;
// a file that does not hold together is refused like a missing one, with one
// automation line naming it. The object owns all of its memory and its file.
#pragma once
#include <cstdint>
#include <cstdio>
#include <string>
#include "core/HashString.h"
#include "core/NoCopy.h"

namespace nox {

class StreamedFile : public NoCopy {
 public:
  static const uint32_t kHeaderSize = 44;
  static const uint32_t kRowSize = 12;
  static const uint32_t kMaxSlotSize = 16u << 20;   // bytes; larger slots are refused
  static const uint32_t kMaxCacheSize = 64u << 20;  // bytes of all slots together

  StreamedFile() = default;
  virtual ~StreamedFile() { Unload(); }

  // False when the file is missing or malformed; nothing is held then.
  bool Load(const std::string& path, uint32_t maxChunks);
  void Unload();

  void AddRef() { ++m_RefCount; }
  // True while references remain; the owner deletes the object on false.
  bool Release() { return --m_RefCount > 0; }

  // The chunk's memory with a reference taken, or null: unknown id, no file, or
  // every slot held.
  unsigned char* LoadChunk(uint32_t id);
  // Drops a reference; true while the chunk is still held. Always true when whole.
  bool ReleaseChunk(uint32_t id);
  // The chunk's memory if it is held (always, when whole), else null.
  unsigned char* GetLoadedChunk(uint32_t id) const;
  // Bytes at GetLoadedChunk(id): the uncompressed size when streamed, the stored size
  // when whole; 0 if not held.
  uint32_t GetChunkSize(uint32_t id) const;

  bool IsLoaded() const { return m_pStatic != nullptr; }
  bool IsStreaming() const { return m_MaxChunks != 0; }
  const std::string& GetPath() const { return m_Path; }
  NameHash GetNameHash() const { return m_NameHash; }
  const unsigned char* GetHeader() const { return m_Header; }
  uint32_t GetChunkCount() const { return m_ChunkCount; }
  bool IsCompressed() const { return m_bCompressed; }
  // The static data (null if the file has none) and its size.
  const unsigned char* GetStaticData() const { return m_pStaticData; }
  uint32_t GetStaticSize() const { return m_pStaticData ? m_StaticSize : 0; }

 private:
  struct Row {
    uint32_t m_Size;        // uncompressed
    uint32_t m_StoredSize;  // in the file
    uint32_t m_Offset;      // from the start of the file
  };
  struct CacheEntry {
    int32_t m_Id;            // -1 when free
    uint32_t m_Size;         // bytes in the slot
    unsigned char* m_pSlot;  // into m_pChunkMemory
    int32_t m_RefCount;
  };

  Row GetRow(uint32_t id) const;
  bool Validate(uint64_t fileSize, const char*& reason) const;
  bool FindChunk(uint32_t id, CacheEntry*& entry) const;
  bool ReadChunk(const Row& row, unsigned char* slot, uint32_t& size);
  void Refuse(const char* reason);

  std::string m_Path;
  NameHash m_NameHash = 0;
  uint32_t m_MaxChunks = 0;  // 0 when read whole
  int32_t m_RefCount = 0;
  FILE* m_pFile = nullptr;  // open while streaming

  unsigned char m_Header[kHeaderSize] = {};
  bool m_bCompressed = false;
  uint32_t m_ChunkCount = 0;
  uint32_t m_SlotSize = 0;
  uint32_t m_StaticSize = 0;

  unsigned char* m_pStatic = nullptr;            // owned: whole file, or its static part
  const unsigned char* m_pStaticData = nullptr;  // into m_pStatic, or null
  const unsigned char* m_pTable = nullptr;       // into m_pStatic, or null
  unsigned char* m_pChunkMemory = nullptr;       // owned: m_MaxChunks slots
  CacheEntry* m_pEntries = nullptr;              // owned: m_MaxChunks entries
  unsigned char* m_pReadBuffer = nullptr;        // owned: one slot, for compressed reads
};

}  // namespace nox
