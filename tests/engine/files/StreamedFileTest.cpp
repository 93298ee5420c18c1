// Chunked reading: the whole-file path, the slot cache and its reuse, zlib chunks,
// and refusal of files that do not hold together.
#include <gtest/gtest.h>
#include <zlib.h>

#include <cstring>

#include "TestFiles.h"
#include "core/StreamedFile.h"

namespace {

using testfiles::Bytes;

void PutU32(Bytes& b, size_t at, uint32_t v) {
  for (int i = 0; i < 4; ++i) b[at + i] = static_cast<unsigned char>(v >> (8 * i));
}

Bytes ChunkContents(uint32_t id, size_t length) {
  Bytes bytes(length);
  for (size_t k = 0; k < length; ++k) bytes[k] = static_cast<unsigned char>(id * 37 + k * 3 + (k >> 8));
  return bytes;
}

// Header | chunk table | static data | chunks. The static part (offset 32 + size 28)
// covers the table, as a streamed file needs.
struct Layout {
  Bytes file;
  uint32_t tableOffset = 0;
  std::vector<uint32_t> chunkOffsets;
  std::vector<Bytes> chunks;
  Bytes staticData;
};

Layout Build(uint32_t count, bool compressed, size_t chunkLength = 300) {
  Layout out;
  out.staticData = Bytes{'S', 'T', 'A', 'T', 'I', 'C', 0, 1};
  std::vector<Bytes> stored;
  uint32_t slot = 0;
  for (uint32_t id = 0; id < count; ++id) {
    out.chunks.push_back(ChunkContents(id, chunkLength + id * 10));
    Bytes data = out.chunks.back();
    if (compressed) {
      uLongf length = compressBound(data.size());
      Bytes packed(length);
      compress(packed.data(), &length, data.data(), data.size());
      packed.resize(length);
      data = packed;
    }
    stored.push_back(data);
    slot = std::max<uint32_t>(slot, std::max(out.chunks.back().size(), data.size()));
  }
  out.tableOffset = 44;
  const uint32_t staticOffset = 44 + count * 12;
  size_t at = staticOffset + out.staticData.size();
  out.file.assign(at, 0);
  memcpy(out.file.data(), "OWNER-01", 8);
  PutU32(out.file, 8, compressed ? 1 : 0);
  PutU32(out.file, 12, count);
  PutU32(out.file, 16, out.tableOffset);
  PutU32(out.file, 20, slot);
  PutU32(out.file, 24, slot);
  PutU32(out.file, 28, static_cast<uint32_t>(out.staticData.size()));
  PutU32(out.file, 32, staticOffset);
  memcpy(&out.file[36], "TRAILER!", 8);
  memcpy(&out.file[staticOffset], out.staticData.data(), out.staticData.size());
  for (uint32_t id = 0; id < count; ++id) {
    const size_t row = out.tableOffset + id * 12;
    PutU32(out.file, row, static_cast<uint32_t>(out.chunks[id].size()));
    PutU32(out.file, row + 4, static_cast<uint32_t>(stored[id].size()));
    PutU32(out.file, row + 8, static_cast<uint32_t>(out.file.size()));
    out.chunkOffsets.push_back(static_cast<uint32_t>(out.file.size()));
    out.file.insert(out.file.end(), stored[id].begin(), stored[id].end());
  }
  return out;
}

Bytes At(const unsigned char* p, size_t n) {
  return p ? Bytes(p, p + n) : Bytes();
}

class StreamedFileTest : public ::testing::Test {
 protected:
  testfiles::TempDir m_Dir;
  testfiles::AutomationLog m_Log{m_Dir};
  std::string m_Path = m_Dir / "zone1.render";
};

TEST_F(StreamedFileTest, ReadsTheWholeFileWhenTheCacheCouldHoldEveryChunk) {
  Layout layout = Build(4, false);
  testfiles::WriteBytes(m_Path, layout.file);
  for (uint32_t maxChunks : {4u, 9u, 0u}) {
    nox::StreamedFile file;
    ASSERT_TRUE(file.Load(m_Path, maxChunks));
    EXPECT_FALSE(file.IsStreaming());
    EXPECT_EQ(file.GetNameHash(), nox::HashString(m_Path.c_str()));
    EXPECT_EQ(At(file.GetHeader(), 8), Bytes(layout.file.begin(), layout.file.begin() + 8));
    EXPECT_EQ(At(file.GetStaticData(), file.GetStaticSize()), layout.staticData);
    for (uint32_t id = 0; id < 4; ++id) {
      EXPECT_EQ(At(file.LoadChunk(id), layout.chunks[id].size()), layout.chunks[id]) << id;
      EXPECT_EQ(file.GetChunkSize(id), layout.chunks[id].size());
      EXPECT_TRUE(file.ReleaseChunk(id));
      EXPECT_TRUE(file.ReleaseChunk(id));
      EXPECT_NE(file.GetLoadedChunk(id), nullptr);
    }
    EXPECT_EQ(file.LoadChunk(4), nullptr);
  }
}

TEST_F(StreamedFileTest, StreamsStoredAndZlibChunksIntoSlots) {
  for (bool compressed : {false, true}) {
    Layout layout = Build(6, compressed);
    testfiles::WriteBytes(m_Path, layout.file);
    nox::StreamedFile file;
    ASSERT_TRUE(file.Load(m_Path, 3));
    EXPECT_TRUE(file.IsStreaming());
    EXPECT_EQ(file.IsCompressed(), compressed);
    EXPECT_EQ(At(file.GetStaticData(), file.GetStaticSize()), layout.staticData);
    for (uint32_t id : {5u, 2u, 0u, 4u}) {
      unsigned char* chunk = file.LoadChunk(id);
      ASSERT_NE(chunk, nullptr) << id;
      EXPECT_EQ(At(chunk, layout.chunks[id].size()), layout.chunks[id]) << id;
      EXPECT_EQ(file.GetChunkSize(id), layout.chunks[id].size());
      EXPECT_EQ(file.GetLoadedChunk(id), chunk);
      EXPECT_FALSE(file.ReleaseChunk(id));
      EXPECT_EQ(file.GetLoadedChunk(id), nullptr);
    }
  }
}

TEST_F(StreamedFileTest, AReleasedChunkComesBackWithoutAReadUntilItsSlotIsReused) {
  // Chunks larger than the C library's read buffer, so a real read goes to the disk.
  Layout layout = Build(5, false, 9000);
  testfiles::WriteBytes(m_Path, layout.file);
  nox::StreamedFile file;
  ASSERT_TRUE(file.Load(m_Path, 3));
  unsigned char* first = file.LoadChunk(1);
  ASSERT_NE(first, nullptr);
  EXPECT_FALSE(file.ReleaseChunk(1));

  // Change chunk 1 on disk: an answer without a read still shows the old bytes.
  Bytes changed = layout.file;
  changed[layout.chunkOffsets[1]] ^= 0xFF;
  testfiles::WriteBytes(m_Path, changed);
  EXPECT_EQ(file.LoadChunk(1), first);
  EXPECT_EQ(first[0], layout.chunks[1][0]);
  EXPECT_FALSE(file.ReleaseChunk(1));

  // Two other chunks take both usable slots; chunk 1 must then be read again.
  ASSERT_NE(file.LoadChunk(3), nullptr);
  ASSERT_NE(file.LoadChunk(4), nullptr);
  file.ReleaseChunk(3);
  file.ReleaseChunk(4);
  unsigned char* again = file.LoadChunk(1);
  ASSERT_NE(again, nullptr);
  EXPECT_EQ(again[0], static_cast<unsigned char>(layout.chunks[1][0] ^ 0xFF));
}

TEST_F(StreamedFileTest, HoldsOneChunkFewerThanItHasSlotsAndCountsReferences) {
  Layout layout = Build(5, true);
  testfiles::WriteBytes(m_Path, layout.file);
  nox::StreamedFile file;
  ASSERT_TRUE(file.Load(m_Path, 3));
  ASSERT_NE(file.LoadChunk(0), nullptr);
  ASSERT_NE(file.LoadChunk(1), nullptr);
  EXPECT_EQ(file.LoadChunk(2), nullptr);  // the first slot is never handed out

  EXPECT_NE(file.LoadChunk(1), nullptr);  // second reference, no slot needed
  EXPECT_TRUE(file.ReleaseChunk(1));
  EXPECT_FALSE(file.ReleaseChunk(1));
  EXPECT_FALSE(file.ReleaseChunk(1));      // already at 0
  EXPECT_FALSE(file.ReleaseChunk(3));      // never loaded
  unsigned char* two = file.LoadChunk(2);  // takes chunk 1's slot
  ASSERT_NE(two, nullptr);
  EXPECT_EQ(At(two, layout.chunks[2].size()), layout.chunks[2]);
  EXPECT_EQ(file.GetLoadedChunk(1), nullptr);

  file.Unload();
  EXPECT_FALSE(file.IsLoaded());
  EXPECT_EQ(file.LoadChunk(0), nullptr);
}

TEST_F(StreamedFileTest, AMissingFileLoadsNothingAndSaysNothing) {
  nox::StreamedFile file;
  EXPECT_FALSE(file.Load(m_Dir / "absent.render", 2));
  EXPECT_FALSE(file.IsLoaded());
  EXPECT_EQ(file.LoadChunk(0), nullptr);
  EXPECT_TRUE(m_Log.Lines().empty());
}

struct Damage {
  const char* what;
  uint32_t maxChunks;
  void (*apply)(Layout&);
};

TEST_F(StreamedFileTest, RefusesAFileThatDoesNotHoldTogetherWithOneLineNamingIt) {
  const Damage damages[] = {
      {"cut inside the header", 2, [](Layout& l) { l.file.resize(43); }},
      {"cut inside the last chunk", 2, [](Layout& l) { l.file.pop_back(); }},
      {"cut inside the last chunk, whole", 0, [](Layout& l) { l.file.pop_back(); }},
      {"table past the end", 2, [](Layout& l) { PutU32(l.file, 16, 0xFFFFFFF0u); }},
      {"table outside the static part", 2,
       [](Layout& l) {
         PutU32(l.file, 28, 0);
         PutU32(l.file, 32, 44);
       }},
      {"count past the table", 2, [](Layout& l) { PutU32(l.file, 12, 0x20000000u); }},
      {"count without a table", 0, [](Layout& l) { PutU32(l.file, 16, 0); }},
      {"row offset past the end", 0, [](Layout& l) { PutU32(l.file, l.tableOffset + 8, 0xFFFFFFFFu); }},
      {"row size wraps the offset", 2, [](Layout& l) { PutU32(l.file, l.tableOffset + 4, 0xFFFFFFFFu); }},
      {"chunk larger than a slot", 2, [](Layout& l) { PutU32(l.file, 24, 16); }},
      {"slot too large", 2, [](Layout& l) { PutU32(l.file, 24, 0x40000000u); }},
      {"static part past the end", 2, [](Layout& l) { PutU32(l.file, 28, 0x7FFFFFFFu); }},
      {"static data past the end, whole", 0, [](Layout& l) { PutU32(l.file, 32, 0xFFFFFF00u); }},
  };
  int expectedLines = 0;
  for (const Damage& damage : damages) {
    Layout layout = Build(4, true);
    damage.apply(layout);
    testfiles::WriteBytes(m_Path, layout.file);
    nox::StreamedFile file;
    EXPECT_FALSE(file.Load(m_Path, damage.maxChunks)) << damage.what;
    EXPECT_FALSE(file.IsLoaded()) << damage.what;
    EXPECT_EQ(file.LoadChunk(0), nullptr) << damage.what;
    EXPECT_EQ(m_Log.Count(m_Path), ++expectedLines) << damage.what;
  }
  EXPECT_EQ(static_cast<int>(m_Log.Lines().size()), expectedLines);
}

TEST_F(StreamedFileTest, AChunkThatDoesNotInflateIsNotHandedOut) {
  Layout layout = Build(4, true);
  layout.file[layout.chunkOffsets[2] + 1] ^= 0x5A;  // break the zlib header
  testfiles::WriteBytes(m_Path, layout.file);
  nox::StreamedFile file;
  ASSERT_TRUE(file.Load(m_Path, 2));
  EXPECT_EQ(file.LoadChunk(2), nullptr);
  EXPECT_EQ(m_Log.Count(m_Path), 1);
  EXPECT_NE(file.LoadChunk(3), nullptr);  // the slot is still usable
}

}  // namespace
