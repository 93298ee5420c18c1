// fontwriter against the engine's glyph table loader: what the tool writes, the engine
// reads back glyph for glyph, pixel for pixel; and the tool's one-line failures.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "FontWriter.h"
#include "core/Loader.h"
#include "graphics/GlyphTable.h"

namespace {

using fontwriter::BuiltFont;
using fontwriter::Glyph;

class TempDir {
 public:
  TempDir() {
    char pattern[] = "/tmp/fontwriter-XXXXXX";
    if (mkdtemp(pattern)) m_Path = pattern;
  }
  ~TempDir() {
    if (!m_Path.empty()) std::system(("rm -rf '" + m_Path + "'").c_str());
  }
  std::string operator/(const std::string& name) const { return m_Path + "/" + name; }

 private:
  std::string m_Path;
};

std::vector<unsigned char> ReadBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::vector<unsigned char>(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

struct RunResult {
  int exitCode;
  std::string stderrText;
};

RunResult RunWriter(const std::string& args, const TempDir& dir) {
  const std::string errPath = dir / "stderr.txt";
  const std::string command = std::string(FONTWRITER_EXE) + " " + args + " 2>'" + errPath + "'";
  const int status = std::system(command.c_str());
  const std::vector<unsigned char> err = ReadBytes(errPath);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, std::string(err.begin(), err.end())};
}

// Loads a written glyph table through the engine, as Font::Load does.
bool AdoptFile(nox::GlyphTable& table, const std::string& path) {
  unsigned long size = 0;
  unsigned char* block = nox::Loader::LoadFile(path, &size);
  return table.Adopt(block, size, nullptr);
}

long Pixel(nox::Real coordinate, unsigned side) {
  return (static_cast<long>(coordinate.Raw()) * static_cast<long>(side)) >> 16;
}

class AndikaTest : public ::testing::TestWithParam<unsigned> {};

TEST_P(AndikaTest, EveryGlyphComesBackFromTheEnginesLoaderWithItsMetricsAndPixels) {
  TempDir dir;
  fontwriter::Options options;
  options.fontPath = NOX_ANDIKA_TTF;
  options.pixelSize = GetParam();
  BuiltFont font;
  std::string error;
  ASSERT_TRUE(fontwriter::BuildFont(options, font, error)) << error;
  const std::string prefix = dir / ("HNCurry_" + std::to_string(GetParam()));
  ASSERT_TRUE(fontwriter::WriteFiles(font, prefix, "", error)) << error;

  nox::GlyphTable table;
  ASSERT_TRUE(AdoptFile(table, prefix + ".fdata"));
  const std::vector<unsigned char> ftex = ReadBytes(prefix + ".ftex");
  const unsigned w = table.GetTextureWidth();
  const unsigned h = table.GetTextureHeight();
  ASSERT_EQ(ftex.size(), static_cast<size_t>(w) * h);
  EXPECT_EQ(w & (w - 1), 0u);
  EXPECT_EQ(h & (h - 1), 0u);
  EXPECT_GE(table.GetLineHeight(), GetParam());
  EXPECT_LE(table.GetLineHeight(), 2 * GetParam());

  // The blank first, then every printable ASCII character: Andika has them all.
  ASSERT_EQ(table.GetCount(), 95);
  EXPECT_EQ(table.GetGlyphs()[0].code, ' ');
  ASSERT_NE(table.Find(' '), nullptr);
  EXPECT_GT(table.Find(' ')->advance, 0);
  const unsigned lineHeight = table.GetLineHeight();

  // Where cells lie, marked to find overlaps and stray pixels.
  std::vector<int> owner(ftex.size(), -1);
  for (int c = 33; c <= 126; ++c) {
    const nox::FontGlyph* g = table.Find(static_cast<unsigned char>(c));
    ASSERT_NE(g, nullptr) << c;
    EXPECT_GT(g->cellWidth, 0) << c;
    EXPECT_GT(g->advance, 0) << c;
    EXPECT_EQ(g->spacing, 0) << c;
    const long x0 = Pixel(g->left, w), x1 = Pixel(g->right, w);
    const long y0 = Pixel(g->top, h), y1 = Pixel(g->bottom, h);
    ASSERT_EQ(x1 - x0, g->cellWidth) << c;
    ASSERT_EQ(y1 - y0, static_cast<long>(lineHeight)) << c;
    ASSERT_LE(x1, static_cast<long>(w));
    ASSERT_LE(y1, static_cast<long>(h));

    const Glyph* source = nullptr;
    for (const Glyph& s : font.glyphs) {
      if (s.code == c) source = &s;
    }
    ASSERT_NE(source, nullptr);
    bool inked = false;
    for (long y = y0; y < y1; ++y) {
      for (long x = x0; x < x1; ++x) {
        const size_t at = static_cast<size_t>(y) * w + x;
        ASSERT_EQ(owner[at], -1) << "cells of " << owner[at] << " and " << c << " overlap";
        owner[at] = c;
        ASSERT_EQ(ftex[at], source->alpha[(y - y0) * g->cellWidth + (x - x0)]);
        inked |= ftex[at] != 0;
      }
    }
    EXPECT_TRUE(inked) << "glyph " << c << " has no pixels";
  }
  for (size_t i = 0; i < ftex.size(); ++i) {
    if (owner[i] == -1) {
      ASSERT_EQ(ftex[i], 0) << "pixel outside every cell at " << i;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(GameSizes, AndikaTest, ::testing::Values(10u, 12u));

TEST(FontWriterTest, AHandMadeTableIsWrittenByteForByteAsTheEngineReadsIt) {
  BuiltFont font;
  font.lineHeight = 3;
  font.textureWidth = 16;
  font.textureHeight = 4;
  Glyph blank;
  blank.code = ' ';
  blank.cellWidth = 2;
  blank.advance = 2;
  Glyph a;
  a.code = 'A';
  a.cellWidth = 2;
  a.advance = 3;
  a.spacing = 1;
  a.x = 4;
  a.y = 1;
  a.alpha = {1, 2, 3, 4, 5, 6};
  font.glyphs = {blank, a};
  fontwriter::Serialize(font);

  const std::vector<uint8_t> expected = {
      2,   0,    3, 0, 16, 0,    4, 0,                             // count, line height, texture size
      0,   0,    0, 0, 0,  0,    0, 0, 0, 0,    0, 0, 0, 0, 0, 0,  // blank: no texture space
      ' ', 0,    2, 0, 2,  0,    0, 0,                             //
      0,   0x40, 0, 0, 0,  0x60, 0, 0, 0, 0x40, 0, 0, 0, 0, 1, 0,  // 4/16, 6/16, 1/4, 4/4
      'A', 0,    2, 0, 3,  0,    1, 0};
  EXPECT_EQ(font.fdata, expected);
  ASSERT_EQ(font.ftex.size(), 64u);
  EXPECT_EQ(font.ftex[1 * 16 + 4], 1);
  EXPECT_EQ(font.ftex[1 * 16 + 5], 2);
  EXPECT_EQ(font.ftex[3 * 16 + 5], 6);
  EXPECT_EQ(font.ftex[0], 0);

  unsigned char* block = new unsigned char[font.fdata.size() + 1];
  std::copy(font.fdata.begin(), font.fdata.end(), block);
  nox::GlyphTable table;
  ASSERT_TRUE(table.Adopt(block, font.fdata.size(), nullptr));
  ASSERT_NE(table.Find('A'), nullptr);
  EXPECT_EQ(table.Find('A')->left.Raw(), 0x4000);
  EXPECT_EQ(table.Find('A')->spacing, 1);
  EXPECT_EQ(table.Find('B'), nullptr);
}

TEST(FontWriterTest, PackingStartsANewRowWhenACellWouldPassTheEdge) {
  std::vector<Glyph> glyphs(4);
  for (size_t i = 0; i < glyphs.size(); ++i) {
    glyphs[i].code = static_cast<uint16_t>('a' + i);
    glyphs[i].cellWidth = 7;
  }
  // Two cells of 7 and their free columns fill 16; the third starts the next row,
  // one free row below the first.
  EXPECT_EQ(fontwriter::PackCells(glyphs, 5, 16), 16);
  EXPECT_EQ(glyphs[1].x, 8);
  EXPECT_EQ(glyphs[2].x, 0);
  EXPECT_EQ(glyphs[2].y, 6);
  EXPECT_EQ(fontwriter::PackCells(glyphs, 5, 4), 0) << "a cell wider than the texture";
}

TEST(FontWriterTest, CharacterRangesParseOrAreRefused) {
  std::vector<std::pair<unsigned, unsigned>> ranges;
  ASSERT_TRUE(fontwriter::ParseRanges("32-126,160-255,65", ranges));
  ASSERT_EQ(ranges.size(), 3u);
  EXPECT_EQ(ranges[1], std::make_pair(160u, 255u));
  EXPECT_EQ(ranges[2], std::make_pair(65u, 65u));
  for (const char* bad : {"", "a-z", "126-32", "32-", "1,", "0-65536", "32-126x"})
    EXPECT_FALSE(fontwriter::ParseRanges(bad, ranges)) << bad;
}

TEST(FontWriterTest, TheCommandWritesBothFilesAndAPicture) {
  TempDir dir;
  const RunResult run = RunWriter(
      "--png '" + (dir / "look.png") + "' '" + NOX_ANDIKA_TTF + "' 10 '" + (dir / "HNCurry_10") + "'", dir);
  ASSERT_EQ(run.exitCode, 0) << run.stderrText;
  EXPECT_EQ(run.stderrText, "");
  nox::GlyphTable table;
  EXPECT_TRUE(AdoptFile(table, dir / "HNCurry_10.fdata"));
  EXPECT_EQ(ReadBytes(dir / "HNCurry_10.ftex").size(),
            static_cast<size_t>(table.GetTextureWidth()) * table.GetTextureHeight());
  const std::vector<unsigned char> png = ReadBytes(dir / "look.png");
  ASSERT_GT(png.size(), 8u);
  EXPECT_EQ(png[1], 'P');
}

TEST(FontWriterTest, EachFailureIsOneLineNamingTheFileAndTheExitIsNonZero) {
  TempDir dir;
  const std::string notFont = dir / "notes.ttf";
  FILE* f = fopen(notFont.c_str(), "w");
  ASSERT_NE(f, nullptr);
  fputs("not a font\n", f);
  fclose(f);
  const std::string ttf = std::string("'") + NOX_ANDIKA_TTF + "'";
  const struct {
    std::string args;
    std::string line;
  } cases[] = {
      {"'" + notFont + "' 10 '" + (dir / "x") + "'",
       "fontwriter: " + notFont + ": not a font FreeType can read\n"},
      {ttf + " 2 '" + (dir / "x") + "'",
       std::string("fontwriter: ") + NOX_ANDIKA_TTF + ": pixel size 2 outside 4 to 255\n"},
      {ttf + " ten '" + (dir / "x") + "'", "fontwriter: ten: size is not a number of pixels\n"},
      {ttf + " 10 '" + (dir / "no/such/dir/x") + "'",
       "fontwriter: " + (dir / "no/such/dir/x.fdata") + ": cannot be created\n"},
      {"--chars 9-1 " + ttf + " 10 x",
       "fontwriter: 9-1: not a list of character ranges such as 32-126,160-255\n"},
  };
  for (const auto& c : cases) {
    const RunResult run = RunWriter(c.args, dir);
    EXPECT_EQ(run.exitCode, 1) << c.args;
    EXPECT_EQ(run.stderrText, c.line) << c.args;
  }
  const RunResult usage = RunWriter(ttf + " 10", dir);
  EXPECT_EQ(usage.exitCode, 1);
  EXPECT_EQ(usage.stderrText.find("fontwriter: usage:"), 0u);
}

}  // namespace
