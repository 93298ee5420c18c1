// The tile resource files: what texwriter, tilwriter and animwriter write, the
// engine's loaders read back pixel for pixel; and files that are short, point past
// their ends or do not unpack are treated as missing, with one automation line.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstring>

#include "Bytes.h"
#include "TexWriter.h"
#include "TilWriter.h"
#include "TileTestSupport.h"
#include "graphics/AnimDataMap.h"
#include "graphics/TextureFile.h"
#include "graphics/TileAnimData.h"
#include "graphics/TileResourceFile.h"

namespace {

using assetlib::Bytes;
using assetlib::Image;
using assetlib::Put16;
using assetlib::Put32;
using assetlib::Put8;
using nox::HashString;
using tiletest::Box;
using tiletest::Noise;

class TileFilesTest : public tiletest::TitleFixture {};

std::vector<uint16_t> Pixels16(const Image& image, assetlib::PixelFormat16 format) {
  std::vector<uint16_t> out;
  for (uint32_t y = 0; y < image.height; ++y) {
    for (uint32_t x = 0; x < image.width; ++x) out.push_back(assetlib::ToPixel16(image.At(x, y), format));
  }
  return out;
}

// A control file by hand: header, layers, sequences, then the sequence data given.
Bytes AnimHeader(uint32_t sequences, uint16_t layers, uint16_t sheetW, uint16_t sheetH, uint8_t code,
                 uint8_t storage, uint32_t maxFrame = 64) {
  Bytes b;
  Put32(b, 0);
  Put32(b, 0);
  Put32(b, maxFrame);
  Put32(b, maxFrame);
  Put32(b, sequences);
  Put32(b, 0);
  Put16(b, layers);
  Put16(b, sheetW);
  Put16(b, sheetH);
  Put16(b, 8);
  Put16(b, 8);
  Put8(b, code);
  Put8(b, storage);
  return b;
}

void SequenceEntry(Bytes& b, const char* name, uint32_t frames, uint8_t layers, uint8_t points, uint8_t rects,
                   uint8_t callbacks) {
  Put32(b, HashString(name));
  Put32(b, 0);
  Put32(b, frames);
  Put8(b, layers);
  Put8(b, points);
  Put8(b, rects);
  Put8(b, callbacks);
}

void FrameEntry(Bytes& b, uint32_t offset, uint32_t size, uint16_t w = 0, uint16_t h = 0) {
  Put32(b, offset);
  Put32(b, size);
  Put16(b, w);
  Put16(b, h);
}

TEST_F(TileFilesTest, APictureRoundTripsThroughTexwriterPackedAndPlain) {
  const Image source = Noise(16, 8, 3);
  for (bool packed : {true, false}) {
    for (auto format : {assetlib::kFormat4444, assetlib::kFormat5551}) {
      assetlib::TexOptions options;
      options.packed = packed;
      options.format = format;
      Bytes tex;
      std::string error;
      ASSERT_TRUE(assetlib::BuildTex(source, options, "noise.png", tex, error)) << error;
      nox::TextureFile file;
      ASSERT_EQ(file.Parse(tex.data(), tex.size()), nullptr);
      EXPECT_EQ(file.GetWidth(), 16u);
      EXPECT_EQ(file.GetHeight(), 8u);
      EXPECT_EQ(file.GetPixelFormat(), static_cast<uint32_t>(format));
      ASSERT_EQ(file.GetPixelBytes(), 16u * 8u * 2u);
      std::vector<uint16_t> got(16 * 8);
      memcpy(got.data(), file.GetPixels(), file.GetPixelBytes());
      EXPECT_EQ(got, Pixels16(source, format));
    }
  }
}

TEST_F(TileFilesTest, TexwriterRefusesOddSizesUnlessToldToPad) {
  Bytes tex;
  std::string error;
  assetlib::TexOptions options;
  EXPECT_FALSE(assetlib::BuildTex(Noise(24, 8, 1), options, "odd.png", tex, error));
  EXPECT_EQ(error, "odd.png: 24 by 8 is not a power-of-two size (use --pad)");
  options.pad = true;
  ASSERT_TRUE(assetlib::BuildTex(Noise(24, 8, 1), options, "odd.png", tex, error));
  nox::TextureFile file;
  ASSERT_EQ(file.Parse(tex.data(), tex.size()), nullptr);
  EXPECT_EQ(file.GetWidth(), 32u);
  EXPECT_EQ(reinterpret_cast<const uint16_t*>(file.GetPixels())[31], 0);  // padding is clear
}

TEST_F(TileFilesTest, AMalformedPictureLoadsAsNothingWithOneLineNamingIt) {
  Bytes good;
  std::string error;
  assetlib::TexOptions options;
  ASSERT_TRUE(assetlib::BuildTex(Noise(8, 8, 2), options, "n.png", good, error));

  Bytes cut(good.begin(), good.end() - 5);  // packed stream cut short
  Bytes garbage = good;
  garbage[20] ^= 0xFF;  // a damaged stream
  Bytes plainShort;
  options.packed = false;
  ASSERT_TRUE(assetlib::BuildTex(Noise(8, 8, 2), options, "n.png", plainShort, error));
  plainShort.pop_back();  // one byte of pixels missing
  Bytes huge = good;
  huge[5] = 0x40;  // 16392 pixels wide
  int n = 0;
  for (const Bytes& bad : {cut, garbage, plainShort, huge, Bytes(good.begin(), good.begin() + 10)}) {
    const std::string path = m_Dir / ("bad" + std::to_string(n++) + ".tex");
    testfiles::WriteBytes(path, bad);
    nox::TextureFile file;
    EXPECT_FALSE(file.Load(path));
    EXPECT_EQ(file.GetPixels(), nullptr);
    EXPECT_EQ(file.GetWidth(), 0u);
    EXPECT_EQ(LogCount("Malformed file: " + path), 1) << path;
  }
  nox::TextureFile missing;
  EXPECT_FALSE(missing.Load(m_Dir / "none.tex"));
  EXPECT_EQ(LogCount("none.tex"), 0);
}

TEST_F(TileFilesTest, APictureOfAnUnknownFormatHoldsNoPixels) {
  Bytes b;
  Put32(b, 9);
  Put32(b, 4);
  Put32(b, 4);
  Put32(b, 0);
  nox::TextureFile file;
  EXPECT_EQ(file.Parse(b.data(), b.size()), nullptr);
  EXPECT_EQ(file.GetPixels(), nullptr);
  EXPECT_EQ(file.GetPixelBytes(), 0u);
  EXPECT_EQ(file.GetWidth(), 4u);
}

TEST_F(TileFilesTest, ABackgroundRoundTripsWithEqualTilesSharingOneKeyAndBlankTilesStoringNothing) {
  // Three columns: noise, the same noise again, nothing; the second row is cut short.
  Image picture(96, 40);
  const Image noise = tiletest::Bands(32, 32, 7);
  for (uint32_t y = 0; y < 32; ++y) {
    memcpy(picture.At(0, y), noise.At(0, y), 32 * 4);
    memcpy(picture.At(32, y), noise.At(0, y), 32 * 4);
  }
  for (uint32_t x = 0; x < 96; ++x) picture.At(x, 35)[3] = picture.At(x, 35)[0] = 255;  // a red line
  assetlib::TilOutput tiles;
  std::string error;
  ASSERT_TRUE(assetlib::BuildTil(picture, assetlib::TilOptions(), "bg.png", tiles, error)) << error;
  EXPECT_EQ(tiles.columns, 3u);
  EXPECT_EQ(tiles.rows, 2u);
  EXPECT_EQ(tiles.storedTiles, 2u);  // the noise once, the line once (three times used)
  testfiles::WriteBytes(LevelPath("Forest.til"), tiles.index);
  testfiles::WriteBytes(LevelPath("Forest-tiled.tex"), tiles.data);

  nox::TileResourceFile file;
  ASSERT_TRUE(file.Initialize("Forest"));
  EXPECT_EQ(file.GetColumns(), 3);
  EXPECT_EQ(file.GetRows(), 2);
  EXPECT_EQ(file.GetPixelFormat(), assetlib::kFormat5551);
  EXPECT_EQ(file.GetTileKey(0, 0), file.GetTileKey(1, 0));
  EXPECT_EQ(file.GetTileKey(0, 1), file.GetTileKey(2, 1));
  EXPECT_NE(file.GetTileKey(0, 0), file.GetTileKey(0, 1));
  EXPECT_EQ(file.FindTileIndexData(2, 0)->packedSize, 0u);
  EXPECT_EQ(file.GetTileKey(3, 0), nox::TileResourceFile::kNoTileKey);

  std::vector<uint16_t> tile(32 * 32);
  file.LoadTile(1, 0, reinterpret_cast<unsigned char*>(tile.data()), 2048);
  EXPECT_EQ(tile, Pixels16(noise, assetlib::kFormat5551));
  file.LoadTile(2, 1, reinterpret_cast<unsigned char*>(tile.data()), 2048);
  for (int x = 0; x < 32; ++x) EXPECT_EQ(tile[3 * 32 + x], 0xF801) << x;  // row 35 is row 3 of the tile

  // A blank tile reads no file: with the data file emptied it still comes out zero,
  // while a stored tile leaves the buffer as it was.
  nox::TileResourceFile fresh;
  ASSERT_TRUE(fresh.Initialize("Forest"));
  ASSERT_EQ(truncate(LevelPath("Forest-tiled.tex").c_str(), 0), 0);
  std::vector<uint8_t> buffer(2048, 0xAA);
  fresh.LoadTile(2, 0, buffer.data(), buffer.size());
  EXPECT_EQ(buffer, std::vector<uint8_t>(2048, 0));
  buffer.assign(2048, 0xAA);
  fresh.LoadTile(0, 0, buffer.data(), buffer.size());
  EXPECT_EQ(buffer, std::vector<uint8_t>(2048, 0xAA));
}

TEST_F(TileFilesTest, TilwriterRefusesATileThatCannotPackInto2048Bytes) {
  assetlib::TilOutput tiles;
  std::string error;
  EXPECT_FALSE(assetlib::BuildTil(Noise(64, 32, 9), assetlib::TilOptions(), "noise.png", tiles, error));
  EXPECT_EQ(error, "noise.png: the tile at column 0, row 0 does not pack into 2048 bytes");
}

TEST_F(TileFilesTest, ABackgroundIndexThatPointsPastItsDataIsRefused) {
  assetlib::TilOutput tiles;
  std::string error;
  ASSERT_TRUE(assetlib::BuildTil(tiletest::Bands(64, 32, 1), assetlib::TilOptions(), "bg.png", tiles, error));
  testfiles::WriteBytes(LevelPath("Cut.til"), tiles.index);
  testfiles::WriteBytes(LevelPath("Cut-tiled.tex"), Bytes(tiles.data.begin(), tiles.data.end() - 1));
  Bytes big = tiles.index;
  big[16] = 0x01;  // packed size of the first tile 2049 and up
  big[17] = 0x08;
  testfiles::WriteBytes(LevelPath("Big.til"), big);
  testfiles::WriteBytes(LevelPath("Big-tiled.tex"), tiles.data);
  Bytes rows = tiles.index;
  rows[2] = 3;  // three rows listed, one present
  testfiles::WriteBytes(LevelPath("Rows.til"), rows);
  testfiles::WriteBytes(LevelPath("Rows-tiled.tex"), tiles.data);

  for (const char* name : {"Cut", "Big", "Rows"}) {
    nox::TileResourceFile file;
    EXPECT_FALSE(file.Initialize(name));
    EXPECT_EQ(file.GetColumns(), 0);
    EXPECT_EQ(file.GetTileKey(0, 0), nox::TileResourceFile::kNoTileKey);
    EXPECT_EQ(LogCount(std::string("Malformed file: ") + LevelPath(name) + ".til"), 1) << name;
  }
  nox::TileResourceFile missing;
  EXPECT_FALSE(missing.Initialize("Nowhere"));
}

// A sprite with a repeated frame, an empty frame and a second sequence.
class SpriteFilesTest : public tiletest::TitleFixture {
 protected:
  assetlib::AnimDesc HeroDesc(assetlib::AnimStorage storage, bool packed) {
    assetlib::AnimDesc desc = tiletest::Description(8, storage, packed);
    desc.sequences.push_back(tiletest::Sequence("Walk", {"a", "b", "a", "empty"}, 4, 20));
    auto& walk = desc.sequences.back();
    walk.points.push_back({"Hand", {{false, 1, -2}, {true, 0, 0}, {false, 3, 4}, {false, 0, 0}}});
    walk.callbacks.push_back({"Footstep", {0, 7, 0, 9}});
    desc.sequences.push_back(tiletest::Sequence("Idle", {"b"}, 4, 20));
    return desc;
  }
  std::vector<std::pair<std::string, Image>> HeroPictures() {
    return {{"a", Noise(20, 24, 1)},
            {"b", Box(20, 24, 2, 3, 12, 21, {0, 255, 0, 255})},
            {"empty", Image(20, 24)}};
  }
};

// The picture of a frame put together from the engine's view of a sheet sprite:
// the layer blocks of the loaded data and the pixels of the resident sheet.
std::vector<uint16_t> SheetFrame(const nox::TileAnimData& data, unsigned seq, unsigned frame, int originX,
                                 int originY, uint32_t width, uint32_t height) {
  std::vector<uint16_t> out(width * height, 0);
  const nox::TADHeader* h = data.GetHeader();
  const uint16_t* sheet = reinterpret_cast<const uint16_t*>(data.GetSheet());
  const nox::TADLayerBlock* layer =
      reinterpret_cast<const nox::TADLayerBlock*>(data.GetFrameLayer(seq, frame));
  for (unsigned l = 0; l < data.GetSequenceEntry(seq)->numLayers; ++l, layer = layer->Next()) {
    for (uint32_t t = 0; t < layer->tileCount; ++t) {
      const int x = layer->Positions()[2 * t] + originX, y = layer->Positions()[2 * t + 1] + originY;
      const uint32_t u = static_cast<uint32_t>(
          (static_cast<int64_t>(layer->TexCoords()[2 * t].Raw()) * h->sheetWidth) >> 16);
      const uint32_t v = static_cast<uint32_t>(
          (static_cast<int64_t>(layer->TexCoords()[2 * t + 1].Raw()) * h->sheetHeight) >> 16);
      for (int dy = 0; dy < h->TileHeight(); ++dy) {
        for (int dx = 0; dx < h->TileWidth(); ++dx) {
          const uint16_t p = sheet[(v + dy) * h->sheetWidth + u + dx];
          if (x + dx >= 0 && y + dy >= 0 && x + dx < static_cast<int>(width) &&
              y + dy < static_cast<int>(height))
            out[(y + dy) * width + x + dx] = p;
          else
            EXPECT_EQ(p, 0) << "a visible pixel outside the picture";
        }
      }
    }
  }
  return out;
}

TEST_F(SpriteFilesTest, ASheetSpriteRoundTripsPixelForPixelWithRepeatedFramesSharingOneBlock) {
  for (bool packed : {true, false}) {
    const auto output = WriteSprite("Hero", HeroDesc(assetlib::AnimStorage::kSheet, packed), HeroPictures());
    ASSERT_TRUE(output.sheet);
    nox::TileAnimData data("Hero", false, true);
    ASSERT_TRUE(data.IsLoaded());
    EXPECT_EQ(data.GetHeader()->texFormat, packed ? nox::kTADZlib4444 : nox::kTADPlain4444);
    ASSERT_EQ(data.GetNumSequences(), 2u);
    EXPECT_EQ(data.GetSequenceFrameCount(0), 4);
    EXPECT_EQ(data.GetFrameEntry(0, 0)->offset, data.GetFrameEntry(0, 2)->offset);
    EXPECT_NE(data.GetFrameEntry(0, 0)->offset, data.GetFrameEntry(0, 1)->offset);
    EXPECT_EQ(data.GetFrameEntry(0, 1)->offset, data.GetFrameEntry(1, 0)->offset);  // across sequences too

    const auto pictures = HeroPictures();
    const char* names[] = {"a", "b", "a", "empty"};
    for (unsigned f = 0; f < 4; ++f) {
      const Image* source = nullptr;
      for (const auto& p : pictures) source = p.first == names[f] ? &p.second : source;
      EXPECT_EQ(SheetFrame(data, 0, f, 4, 20, 20, 24), Pixels16(*source, assetlib::kFormat4444)) << f;
    }
    // The sheet's quarter-texel shifts.
    EXPECT_EQ(data.GetUOffset(), nox::Real::FromRaw(0x4000) / nox::Real(static_cast<int>(output.sheetWidth)));
  }
  EXPECT_EQ(LogCount("Load animation: Hero"), 2);
  EXPECT_EQ(LogCount("Load texture: Hero"), 2);
}

TEST_F(SpriteFilesTest, EverySequenceCarriesTheCellBoxAndAnEqualCollisionBox) {
  WriteSprite("Hero", HeroDesc(assetlib::AnimStorage::kSheet, true), HeroPictures());
  nox::TileAnimData data("Hero", false, true);
  ASSERT_TRUE(data.IsLoaded());
  for (unsigned s = 0; s < 2; ++s) {
    const nox::TADRectSeries* cell = data.GetRectSeries(s, nox::kCellBoxHash);
    const nox::TADRectSeries* collision = data.GetRectSeries(s, HashString("Collision"));
    ASSERT_TRUE(cell && collision);
    EXPECT_EQ(memcmp(cell->Entries(), collision->Entries(), 8 * data.GetSequenceFrameCount(s)), 0);
  }
  // Frame 1 is the green box (2, 3)-(12, 21) less the origin (4, 20); frame 3 shows nothing.
  const nox::TADRect& box = data.GetRectSeries(0, nox::kCellBoxHash)->Entries()[1];
  EXPECT_EQ(box.left, -2);
  EXPECT_EQ(box.top, -17);
  EXPECT_EQ(box.right, 8);
  EXPECT_EQ(box.bottom, 1);
  EXPECT_TRUE(data.GetRectSeries(0, nox::kCellBoxHash)->Entries()[3].IsNil());

  const nox::TADPointSeries* hand = data.GetPointSeries(0, HashString("Hand"));
  ASSERT_NE(hand, nullptr);
  EXPECT_EQ(hand->Entries()[0].x, 1);
  EXPECT_EQ(hand->Entries()[0].y, -2);
  EXPECT_TRUE(hand->Entries()[1].IsNil());
  EXPECT_EQ(data.GetPointSeries(1, HashString("Hand")), nullptr);
  EXPECT_EQ(data.GetCallbackName(0, 0), HashString("Footstep"));
  EXPECT_EQ(data.GetCallbackValue(0, 0, 3), 9u);
  EXPECT_EQ(data.GetCallbackValue(0, 0, 4), 0u);  // past the end
  EXPECT_EQ(data.GetMaxCallbackCount(), 1);
}

TEST_F(SpriteFilesTest, SequenceLookUpMissesNameTheHashAndFallBackToTheFirstSequence) {
  WriteSprite("Hero", HeroDesc(assetlib::AnimStorage::kSheet, true), HeroPictures());
  nox::TileAnimData data("Hero", false, true);
  EXPECT_EQ(data.GetSequenceIndexByName(HashString("Idle")), 1);
  EXPECT_TRUE(data.HasSequence(HashString("Walk")));
  EXPECT_FALSE(data.HasSequence(HashString("Run")));
  EXPECT_EQ(data.GetSequenceIndexByName(HashString("Run")), 0);
  EXPECT_EQ(LogCount("Couldn't find sequence index by name: " + std::to_string(HashString("Run"))), 1);
  EXPECT_EQ(data.GetLayerEntry(HashString("Main")), data.GetLayerEntry(static_cast<unsigned short>(0)));
  EXPECT_EQ(data.GetLayerEntry(HashString("Shadow")), nullptr);
}

TEST_F(SpriteFilesTest, AControlFileWithoutSequencesLoadsAndAnswersSequenceZeroWithTheMessage) {
  testfiles::WriteBytes(AnimPath("Empty.anim"), AnimHeader(0, 0, 0, 0, nox::kTADZlib4444, 2));
  testfiles::WriteBytes(AnimPath("Empty.tex"), assetlib::Pack(Bytes()));
  nox::TileAnimData data("Empty", false, true);
  ASSERT_TRUE(data.IsLoaded());
  EXPECT_EQ(data.GetSequenceIndexByName(42), 0);
  EXPECT_EQ(LogCount("Couldn't find sequence index by name: 42"), 1);
  EXPECT_EQ(data.GetUOffset(), nox::Real());  // no sheet, no shift
  EXPECT_EQ(data.GetVOffset(), nox::Real());
}

TEST_F(SpriteFilesTest, ASequenceWithoutLayersOrSeriesStillStandsInTheChain) {
  Bytes b = AnimHeader(2, 0, 0, 0, nox::kTADPlain4444, 2);
  SequenceEntry(b, "Still", 2, 0, 0, 0, 0);
  SequenceEntry(b, "Point", 1, 0, 1, 0, 0);
  FrameEntry(b, 0, 0);
  FrameEntry(b, 0, 0);
  FrameEntry(b, 0, 0);
  Put32(b, HashString("Tip"));
  Put16(b, 5);
  Put16(b, 0xFFFA);
  testfiles::WriteBytes(AnimPath("Chain.anim"), b);
  testfiles::WriteBytes(AnimPath("Chain.tex"), Bytes(16, 0));
  nox::TileAnimData data("Chain", false, true);
  ASSERT_TRUE(data.IsLoaded());
  const nox::TADPointSeries* tip = data.GetPointSeries(1, HashString("Tip"));
  ASSERT_NE(tip, nullptr);
  EXPECT_EQ(tip->Entries()[0].x, 5);
  EXPECT_EQ(tip->Entries()[0].y, -6);
}

TEST_F(SpriteFilesTest, TheFormatCodeChoosesTheTextureFormatAndTheTextureSize) {
  for (uint8_t code : {nox::kTADZlibLA, nox::kTADPlainLA}) {
    const std::string name = "Code" + std::to_string(code);
    Bytes b = AnimHeader(1, 0, 0, 0, code, 0);
    SequenceEntry(b, "S", 1, 0, 0, 0, 0);
    FrameEntry(b, 0, 0);
    testfiles::WriteBytes(AnimPath(name + ".anim"), b);
    testfiles::WriteBytes(AnimPath(name + ".tex"), Bytes(16, 0));
    nox::TileAnimData data(name.c_str(), false, true);
    ASSERT_TRUE(data.IsLoaded());
    EXPECT_EQ(data.GetTexture().GetGLFormat(),
              nox::TextureFormat::GetGLFormat(code == nox::kTADZlibLA ? nox::TextureFormat::kLuminanceAlpha
                                                                      : nox::TextureFormat::kRGBA));
  }
  EXPECT_EQ(nox::TileAnimData::PixelsToTexSize(100, 20), 200u);
  EXPECT_EQ(nox::TileAnimData::PixelsToTexSize(100, 41), 200u);
  EXPECT_EQ(nox::TileAnimData::PixelsToTexSize(100, 42), 100u);
  EXPECT_EQ(nox::TileAnimData::PixelsToTexSize(100, 22), 0u);
  EXPECT_EQ(nox::TileAnimData::PixelsToTexSize(100, 1), 0u);
}

TEST_F(SpriteFilesTest, MalformedSpriteFilesLoadAsMissingWithOneLineAndNeverAsData) {
  const auto good = WriteSprite("Hero", HeroDesc(assetlib::AnimStorage::kFrames, true), HeroPictures());
  // Every cut of the control file short of whole is refused.
  for (size_t cut = 0; cut < good.anim.size(); cut += 7) {
    testfiles::WriteBytes(AnimPath("Cut.anim"), Bytes(good.anim.begin(), good.anim.begin() + cut));
    testfiles::WriteBytes(AnimPath("Cut.tex"), good.tex);
    nox::TileAnimData data("Cut", false, true);
    EXPECT_FALSE(data.IsLoaded()) << cut;
    EXPECT_EQ(data.GetNumSequences(), 0u);
    EXPECT_EQ(data.CreateCellAnimation(), nullptr);
  }
  // A data file shorter than a frame's end; a sequence of no frames.
  testfiles::WriteBytes(AnimPath("Short.anim"), good.anim);
  testfiles::WriteBytes(AnimPath("Short.tex"), Bytes(good.tex.begin(), good.tex.end() - 1));
  Bytes noFrames = good.anim;
  memset(&noFrames[36 + 8 + 8], 0, 4);  // the first sequence's frame count
  testfiles::WriteBytes(AnimPath("NoFrames.anim"), noFrames);
  testfiles::WriteBytes(AnimPath("NoFrames.tex"), good.tex);
  {
    nox::TileAnimData data("Short", false, true);
    EXPECT_FALSE(data.IsLoaded());
    EXPECT_EQ(LogCount("Malformed file: " + AnimPath("Short.tex")), 1);
  }
  {
    nox::TileAnimData data("NoFrames", false, true);
    EXPECT_FALSE(data.IsLoaded());
    EXPECT_EQ(LogCount("Malformed file: " + AnimPath("NoFrames.anim")), 1);
  }
  nox::TileAnimData missing("Nobody", false, true);
  EXPECT_FALSE(missing.IsLoaded());
  EXPECT_EQ(LogCount("Malformed file: " + AnimPath("Nobody")), 0);
}

TEST_F(SpriteFilesTest, TheMapLoadsASpriteOnceAndKeepsNoMissingOne) {
  WriteSprite("Hero", HeroDesc(assetlib::AnimStorage::kSheet, true), HeroPictures());
  nox::AnimDataMap map;
  nox::TileAnimData* first = map.GetAnimData("Hero");
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(map.GetAnimData("Hero"), first);
  EXPECT_EQ(LogCount("Load animation: Hero"), 1);
  EXPECT_EQ(map.GetAnimData("Ghost"), nullptr);
  EXPECT_EQ(map.GetCount(), 1u);
  nox::TileAnimData* other = new nox::TileAnimData("Ghost", false, true);
  EXPECT_FALSE(map.SetAnimData("Hero", other));
  delete other;
}

TEST_F(SpriteFilesTest, AnimwriterFailsWithOneLineNamingTheFileAndTheFault) {
  assetlib::AnimDesc desc;
  std::string error;
  EXPECT_FALSE(
      assetlib::ParseAnimDescription("{\"sequences\": [{\"name\": \"A\", \"frames\": [\"x.png\"], "
                                     "\"points\": {\"P\": [[1, 2], [3]]}}]}",
                                     "hero.json", desc, error));
  EXPECT_EQ(error, "hero.json: sequences[0].points.P: needs one entry per frame or one [x, y]");
  EXPECT_FALSE(
      assetlib::ParseAnimDescription("{\"tileSize\": 300, \"sequences\": []}", "hero.json", desc, error));
  EXPECT_EQ(error, "hero.json: tileSize: outside 8 to 128");
  EXPECT_FALSE(
      assetlib::ParseAnimDescription("{\"sequences\": [{\"name\": \"A\", \"frames\": [{\"Hat\": "
                                     "\"h.png\"}]}]}",
                                     "hero.json", desc, error));
  EXPECT_EQ(error, "hero.json: sequences[0].frames[0]: no layer named \"Hat\"");

  assetlib::AnimDesc big = tiletest::Description(8, assetlib::AnimStorage::kSheet, true);
  big.maxSheet = 16;
  big.sequences.push_back(tiletest::Sequence("N", {"n"}));
  assetlib::AnimOutput out;
  EXPECT_FALSE(assetlib::BuildAnim(
      big,
      [](const std::string&, Image& image, std::string&) {
        image = Noise(64, 64, 5);
        return true;
      },
      "big.json", out, error));
  EXPECT_EQ(error, "big.json: 64 distinct tiles do not fit a sheet of 16 pixels");
  EXPECT_EQ(error.find('\n'), std::string::npos);
}

TEST_F(SpriteFilesTest, TheDescriptionIsReadWithItsDefaultsSeriesAndCallbacks) {
  assetlib::AnimDesc desc;
  std::string error;
  ASSERT_TRUE(assetlib::ParseAnimDescription(
      R"({"origin": [4, 8], "layers": [{"name": "Body"}, {"name": "Shadow", "depth": 0.5}],
          "sequences": [{"name": "Walk", "frames": ["w0.png", {"Body": "w1.png", "Shadow": "s1.png"}],
                         "points": {"Origin": [0, 0], "Hand": [null, [2, 3]]},
                         "rects": {"Hit": [-1, -2, 3, 4]},
                         "callbacks": {"Step": {"1": 5}}}]})",
      "walk.json", desc, error))
      << error;
  EXPECT_EQ(desc.tileSize, 16u);
  EXPECT_TRUE(desc.packed);
  ASSERT_EQ(desc.layers.size(), 2u);
  EXPECT_EQ(desc.layers[1].depthRaw, 0x8000);
  const auto& walk = desc.sequences[0];
  EXPECT_EQ(walk.originX, 4);
  EXPECT_EQ(walk.frames[1].size(), 2u);
  EXPECT_EQ(walk.frames[1][1].first, 1u);
  // Series come in the order of their names.
  ASSERT_EQ(walk.points[0].first, "Hand");
  EXPECT_TRUE(walk.points[0].second[0].nil);
  EXPECT_EQ(walk.points[0].second[1].y, 3);
  EXPECT_FALSE(walk.points[1].second[1].nil);
  EXPECT_EQ(walk.rects[0].second[1].bottom, 4);
  EXPECT_EQ(walk.callbacks[0].second, (std::vector<uint32_t>{0, 5}));
}

}  // namespace
