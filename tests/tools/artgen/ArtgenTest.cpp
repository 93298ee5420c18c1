// artgen: the title's own manifests drawn and read back through the engine's loaders;
// shapes and motions landing on the right pixels; mistakes reported as file:line with
// nothing made; and the cache making only what changed.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "ArtBuilder.h"
#include "FramePainter.h"
#include "ManifestReader.h"
#include "SpriteReader.h"
#include "core/PathRegistry.h"
#include "engine/files/TestFiles.h"
#include "graphics/TileAnimData.h"
#include "graphics/TileResourceFile.h"

namespace {

namespace fs = std::filesystem;
using soundgen::Diagnostics;

const char* const kFonts = "/usr/share/fonts/truetype/andika";

std::vector<std::string> TitleManifests() {
  std::vector<std::string> files;
  for (const auto& entry : fs::directory_iterator(std::string(NOX_CONTENT_DIR) + "/art")) {
    if (entry.path().extension() == ".json") files.push_back(entry.path().string());
  }
  std::sort(files.begin(), files.end());
  return files;
}

// A title directory that the engine's path registry searches.
class ArtTitle : public ::testing::Test {
 protected:
  ArtTitle() : m_Title(m_Dir / "title"), m_Log(m_Dir, Config()) { nox::PathRegistry::Create(); }
  ~ArtTitle() override { nox::PathRegistry::Destroy(); }

  Hollin::Ostra::Host::HostConfig Config() const {
    Hollin::Ostra::Host::HostConfig config;
    config.titlePath = m_Title;
    return config;
  }

  std::string Write(const std::string& name, const std::string& text) const {
    testfiles::WriteText(m_Dir / name, text);
    return m_Dir / name;
  }

  bool Read(const std::vector<std::string>& files, artgen::ArtSet& set, Diagnostics& diag) const {
    return artgen::ReadArtManifests(files, kFonts, set, diag);
  }

  testfiles::TempDir m_Dir;
  std::string m_Title;
  testfiles::AutomationLog m_Log;
};

TEST_F(ArtTitle, EveryPictureOfTheTitleIsDrawnAndLoadsThroughTheEnginesLoaders) {
  artgen::ArtSet set;
  Diagnostics diag;
  ASSERT_TRUE(Read(TitleManifests(), set, diag)) << diag.Joined();
  artgen::ArtOptions options;
  options.titleDir = m_Title;
  options.jobs = 2;
  options.quiet = true;
  artgen::ArtReport report;
  ASSERT_TRUE(artgen::BuildArt(set, options, report, diag)) << diag.Joined();
  EXPECT_EQ(report.made, static_cast<int>(set.sprites.size() + set.backgrounds.size()));

  std::vector<std::string> names;
  for (const artgen::SpriteRecipe& sprite : set.sprites) {
    names.push_back(sprite.name);
    nox::TileAnimData data(sprite.name.c_str(), false, true);
    ASSERT_TRUE(data.IsLoaded()) << sprite.name;
    ASSERT_EQ(data.GetNumSequences(), sprite.sequences.size()) << sprite.name;
    for (size_t s = 0; s < sprite.sequences.size(); ++s) {
      const artgen::SequenceRecipe& seq = sprite.sequences[s];
      const nox::NameHash hash = nox::HashString(seq.name.c_str());
      ASSERT_TRUE(data.HasSequence(hash)) << sprite.name << "/" << seq.name;
      const unsigned index = data.GetSequenceIndexByName(hash);
      EXPECT_EQ(data.GetSequenceFrameCount(index), seq.frames) << sprite.name << "/" << seq.name;
      for (const artgen::PointSeries& p : seq.points) {
        EXPECT_NE(data.GetPointSeries(index, nox::HashString(p.name.c_str())), nullptr) << p.name;
      }
      for (const artgen::RectSeries& r : seq.rects) {
        EXPECT_NE(data.GetRectSeries(index, nox::HashString(r.name.c_str())), nullptr) << r.name;
      }
    }
  }
  for (const artgen::BackgroundRecipe& background : set.backgrounds) {
    nox::TileResourceFile file;
    EXPECT_TRUE(file.Initialize(background.name)) << background.name;
  }
  EXPECT_EQ(m_Log.Count("malformed"), 0);

  // What the opening scenes and the main menu load is there, with the sequences they play.
  for (const char* nis : {"TessalyLogo", "MorvaneLogo", "QuennetLogo", "GameTitleCard"}) {
    ASSERT_NE(std::find(names.begin(), names.end(), nis), names.end()) << nis;
    assetlib::SpriteReader reader;
    std::string error;
    ASSERT_TRUE(reader.Open(m_Title + "/AnimData/" + nis, error)) << error;
    ASSERT_GE(reader.FindSequence(nox::HashString("Page1")), 0) << nis;
    const int black = reader.FindSequence(nox::HashString("Black"));
    ASSERT_GE(black, 0) << nis;
    assetlib::Image screen(480, 272);
    ASSERT_TRUE(reader.DrawFrame(static_cast<unsigned>(black), 0, screen, 0, 0, error)) << error;
    for (uint32_t y = 0; y < 272; y += 17) {
      for (uint32_t x = 0; x < 480; x += 23) {
        const uint8_t* p = screen.At(x, y);
        ASSERT_TRUE(p[0] == 0 && p[1] == 0 && p[2] == 0 && p[3] == 255) << nis << " at " << x << "," << y;
      }
    }
  }
  for (const char* button : {"M1_AdventureModeButton", "M1_ActivityButton", "M1_JournalButton",
                             "M1_BadgeButton", "M1_MicroModButton"}) {
    nox::TileAnimData data(button, false, true);
    ASSERT_TRUE(data.IsLoaded()) << button;
    for (const char* state : {"Active", "Inactive", "Prompt", "Select", "Trigger", "Activate"}) {
      ASSERT_TRUE(data.HasSequence(nox::HashString(state))) << button << "/" << state;
      const unsigned s = data.GetSequenceIndexByName(nox::HashString(state));
      EXPECT_NE(data.GetRectSeries(s, nox::HashString("Hotspot0")), nullptr) << button << "/" << state;
      EXPECT_NE(data.GetPointSeries(s, nox::HashString("Origin")), nullptr) << button << "/" << state;
    }
  }
  for (const char* name : {"M1_Background", "M1_Torches", "M1_Wisps", "M1_RuneStone"}) {
    EXPECT_NE(std::find(names.begin(), names.end(), name), names.end()) << name;
  }
}

const char* const kSquare = R"({
  "palettes": { "test": { "red": "#ff0000" } },
  "sprites": {
    "Square": {
      "size": [32, 16], "palette": "test",
      "sequences": {
        "Slide": { "frames": 3, "shapes": [
          { "rect": [2, 4, 8, 8], "fill": "red", "motion": { "move": [16, 0] } },
          { "circle": [28, 2, 2], "fill": "#0000ff", "frames": [1, 1] } ] }
      }
    }
  }
})";

TEST_F(ArtTitle, ShapesLandWherePlacedMoveOverTheFramesAndShowOnlyInTheirFrames) {
  artgen::ArtSet set;
  Diagnostics diag;
  ASSERT_TRUE(Read({Write("square.json", kSquare)}, set, diag)) << diag.Joined();
  const artgen::SpriteRecipe& sprite = set.sprites.at(0);
  const auto at = [](const assetlib::Image& image, uint32_t x, uint32_t y) {
    const uint8_t* p = image.At(x, y);
    return std::vector<int>{p[0], p[1], p[2], p[3]};
  };
  const std::vector<int> red{255, 0, 0, 255}, blue{0, 0, 255, 255}, clear{0, 0, 0, 0};
  const assetlib::Image first = artgen::RenderSpriteFrame(sprite, sprite.sequences[0], 0, 0);
  const assetlib::Image middle = artgen::RenderSpriteFrame(sprite, sprite.sequences[0], 1, 0);
  const assetlib::Image last = artgen::RenderSpriteFrame(sprite, sprite.sequences[0], 2, 0);
  EXPECT_EQ(at(first, 6, 8), red);
  EXPECT_EQ(at(first, 22, 8), clear);
  EXPECT_EQ(at(middle, 14, 8), red);
  EXPECT_EQ(at(last, 6, 8), clear);
  EXPECT_EQ(at(last, 22, 8), red);
  EXPECT_EQ(at(first, 28, 2), clear);
  EXPECT_EQ(at(middle, 28, 2), blue);
  EXPECT_EQ(at(last, 28, 2), clear);
}

TEST_F(ArtTitle, CurvesStartAndEndWhereTheirMotionsSay) {
  artgen::Motion m;
  const artgen::FrameTime start{0, 9, true}, end{8, 9, true}, middle{4, 9, true};
  for (artgen::Ease e :
       {artgen::Ease::kLinear, artgen::Ease::kOut, artgen::Ease::kBack, artgen::Ease::kBounce}) {
    m.ease = e;
    EXPECT_NEAR(artgen::MotionAmount(m, start), 0, 1e-9);
    EXPECT_NEAR(artgen::MotionAmount(m, end), 1, 1e-9);
  }
  // A pulse over a looping sequence comes back to where it began one frame after the last.
  m.ease = artgen::Ease::kPulse;
  EXPECT_NEAR(artgen::MotionAmount(m, start), 0, 1e-9);
  EXPECT_GT(artgen::MotionAmount(m, middle), 0.9);
  EXPECT_LT(artgen::MotionAmount(m, end), 0.15);
  m.ease = artgen::Ease::kStep;
  m.first = 3;
  m.last = 4;
  EXPECT_EQ(artgen::MotionAmount(m, artgen::FrameTime{2, 9, false}), 0);
  EXPECT_EQ(artgen::MotionAmount(m, artgen::FrameTime{4, 9, false}), 1);
  EXPECT_EQ(artgen::MotionAmount(m, artgen::FrameTime{5, 9, false}), 0);
}

struct Mistake {
  const char* json;
  int line;
  const char* says;
};

TEST_F(ArtTitle, EachMistakeIsReportedAtItsLineAndNothingIsRead) {
  const Mistake mistakes[] = {
      {"{\n \"sprites\": {\n  \"A\": { \"size\": [8, 8], \"colour\": 1,\n \"sequences\": {\"S\": "
       "{\"frames\": 1}}}}}",
       3, "sprite A: unknown field \"colour\""},
      {"{\"sprites\": {\"A\": {\"size\": [8, 8], \"sequences\": {\"S\": {\"frames\": 1, \"shapes\": [\n"
       "{\"circle\": [1, 1, 1], \"fill\": \"mauve\"}]}}}}}",
       2, "\"mauve\" is not a colour"},
      {"{\"sprites\": {\"A\": {\"size\": [8, 8], \"sequences\": {\"S\": {\"frames\": 1, \"shapes\": [\n"
       "\n{\"fill\": \"#fff\"}]}}}}}",
       3, "a shape needs its kind"},
      {"{\"sprites\": {\"A\": {\"size\": [8, 8], \"sequences\": {\"S\": {\"frames\": 1, \"shapes\": [\n"
       "{\"use\": \"castle\"}]}}}}}",
       2, "\"castle\", which is not a template"},
      {"{\"sprites\": {\"A\": {\"size\": [8, 8], \"sequences\": {\"S\": {\"frames\": 1, \"shapes\": [\n"
       "{\"painter\": \"corrin\",\n \"pose\": \"dance\"}]}}}}}",
       3, "is \"dance\", which is not one of: stand, wave"},
      {"{\"sprites\": {\"A\": {\"size\": [8, 8], \"sequences\": {\"S\": {\"frames\": 3,\n"
       "\"points\": {\"Hand\": [[1, 1], [2, 2]]}}}}}}",
       2, "one per frame (3)"},
      {"{\"sprites\": {\"A\": {\"size\": [8, 8],\n\"sequences\": {}}}}", 2, "one or more sequences"},
      {"{\"sprites\": {\"A\": {\"size\": [8, 8], \"sequences\": {\"S\": {\"frames\": 1, \"shapes\": [\n"
       "{\"rect\": [0, 0, 4, 4], \"motion\": {\"ease\": \"wobble\"}}]}}}}}",
       2, "\"wobble\", which is not one of"},
      {"{\"sprites\": {\n\"A\": {\"size\": [8, 8], \"sequences\": {\"S\": {\"frames\": 1}},}}}", 2,
       "syntax error"},
  };
  for (const Mistake& m : mistakes) {
    artgen::ArtSet set;
    Diagnostics diag;
    const std::string file = Write("bad.json", m.json);
    EXPECT_FALSE(Read({file}, set, diag)) << m.json;
    ASSERT_FALSE(diag.Empty()) << m.json;
    const std::string first = diag.Lines()[0];
    EXPECT_EQ(first.rfind(file + ":" + std::to_string(m.line) + ": ", 0), 0u) << first;
    EXPECT_NE(first.find(m.says), std::string::npos) << first;
  }

  // One name in two manifests: the second is refused, naming where the first is.
  artgen::ArtSet set;
  Diagnostics diag;
  const std::string one = Write("one.json", kSquare);
  const std::string two =
      Write("two.json", std::string(kSquare).replace(std::string(kSquare).find("\"test\""), 6, "\"t2\""));
  EXPECT_FALSE(Read({one, two}, set, diag));
  ASSERT_EQ(diag.Lines().size(), 1u) << diag.Joined();
  EXPECT_NE(diag.Lines()[0].find("\"Square\" is made already (" + one + ":4)"), std::string::npos)
      << diag.Joined();
}

TEST_F(ArtTitle, TheToolStopsOnAMistakeWithOneLinePerProblemAndMakesNothing) {
  const std::string good = Write("good.json", kSquare);
  const std::string bad =
      Write("bad.json", "{\"sprites\": {\"B\": {\"size\": [8, 8],\n\"sequences\": {\"S\": {}}}}}");
  const std::string err = m_Dir / "stderr.txt";
  const std::string command = std::string(ARTGEN_EXE) + " --quiet --title '" + m_Title + "' '" + good +
                              "' '" + bad + "' 2>'" + err + "' >/dev/null";
  const int status = std::system(command.c_str());
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 1);
  EXPECT_EQ(testfiles::ReadText(err), bad + ":2: sequence B/S needs the field \"frames\"\n");
  EXPECT_FALSE(testfiles::Exists(m_Title + "/AnimData/Square.anim"));
}

TEST_F(ArtTitle, OnePointOrRectangleStandsForEveryFrameAndACountOfNeitherIsRefused) {
  assetlib::AnimDesc desc;
  desc.tileSize = 8;
  desc.layers.push_back({"Main", 0});
  assetlib::AnimSequenceDesc wave;
  wave.name = "Wave";
  for (int f = 0; f < 3; ++f) wave.frames.push_back({{0u, "dot"}});
  wave.points.push_back({"Hand", {{false, 3, -20}}});
  wave.rects.push_back({"Hit", {{false, -8, -30, 8, 0}}});
  desc.sequences.push_back(wave);
  const assetlib::ImageSource dot = [](const std::string&, assetlib::Image& out, std::string&) {
    out = assetlib::Image(8, 8);
    out.At(2, 2)[3] = 255;
    return true;
  };
  assetlib::AnimOutput out;
  std::string error;
  ASSERT_TRUE(assetlib::BuildAnim(desc, dot, "Waver", out, error)) << error;
  testfiles::WriteBytes(m_Title + "/AnimData/Waver.anim", out.anim);
  testfiles::WriteBytes(m_Title + "/AnimData/Waver.tex", out.tex);
  nox::TileAnimData data("Waver", false, true);
  ASSERT_TRUE(data.IsLoaded());
  const nox::TADPointSeries* hand = data.GetPointSeries(0, nox::HashString("Hand"));
  const nox::TADRectSeries* hit = data.GetRectSeries(0, nox::HashString("Hit"));
  ASSERT_TRUE(hand && hit);
  for (int f = 0; f < 3; ++f) {
    EXPECT_EQ(hand->Entries()[f].x, 3) << f;
    EXPECT_EQ(hand->Entries()[f].y, -20) << f;
    EXPECT_EQ(hit->Entries()[f].left, -8) << f;
    EXPECT_EQ(hit->Entries()[f].bottom, 0) << f;
  }

  desc.sequences[0].points[0].second.push_back({false, 4, -21});
  EXPECT_FALSE(assetlib::BuildAnim(desc, dot, "Waver", out, error));
  EXPECT_EQ(error,
            "Waver: sequence \"Wave\": points \"Hand\": 2 entries for 3 frames; give one for all "
            "frames or one per frame");

  // A sequence made the same as a shorter one brings that one's points, one per frame of it.
  const std::string file = Write("same.json", R"({"sprites": {"A": {"size": [8, 8], "sequences": {
    "S": {"frames": 2, "points": {"Hand": [[1, 1], [2, 2]]}},
    "T": {"same": "S", "frames": 3}}}}})");
  artgen::ArtSet set;
  Diagnostics diag;
  ASSERT_TRUE(Read({file}, set, diag)) << diag.Joined();
  artgen::ArtOptions options;
  options.titleDir = m_Title;
  options.quiet = true;
  artgen::ArtReport report;
  EXPECT_FALSE(artgen::BuildArt(set, options, report, diag));
  EXPECT_EQ(diag.Joined(), file +
                               ":1: sprite A: sequence \"T\": points \"Hand\": 2 entries for 3 frames; "
                               "give one for all frames or one per frame\n");
}

TEST_F(ArtTitle, OnlyWhatChangedIsDrawnAgainAndWhatWasTakenOutLeavesTheTitle) {
  const std::string background = R"(,
  "backgrounds": { "Field": { "size": [64, 40], "shapes": [ { "rect": [0, 0, 64, 40], "fill": "#33aa55" } ] } }
})";
  std::string text = std::string(kSquare);
  text = text.substr(0, text.rfind('}')) + background;
  const std::string file = Write("art.json", text);
  artgen::ArtOptions options;
  options.titleDir = m_Title;
  options.cachePath = m_Dir / "art.cache";
  options.quiet = true;
  auto build = [&](const std::string& path) {
    artgen::ArtSet set;
    Diagnostics diag;
    artgen::ArtReport report;
    EXPECT_TRUE(Read({path}, set, diag)) << diag.Joined();
    EXPECT_TRUE(artgen::BuildArt(set, options, report, diag)) << diag.Joined();
    return report;
  };
  artgen::ArtReport report = build(file);
  EXPECT_EQ(report.made, 2);
  nox::TileResourceFile field;
  EXPECT_TRUE(field.Initialize("Field"));
  EXPECT_EQ(field.GetColumns(), 2);
  EXPECT_EQ(field.GetRows(), 2);

  report = build(file);
  EXPECT_EQ(report.made, 0);
  EXPECT_EQ(report.upToDate, 2);

  std::string changed = text;
  changed.replace(changed.find("#33aa55"), 7, "#3355aa");
  report = build(Write("art.json", changed));
  EXPECT_EQ(report.made, 1);
  EXPECT_EQ(report.upToDate, 1);

  report = build(Write("art.json", kSquare));
  EXPECT_EQ(report.made, 0);
  EXPECT_EQ(report.removed, 2);
  EXPECT_FALSE(testfiles::Exists(m_Title + "/Levels/Field.til"));
  EXPECT_FALSE(testfiles::Exists(m_Title + "/Levels/Field-tiled.tex"));
  EXPECT_TRUE(testfiles::Exists(m_Title + "/AnimData/Square.anim"));
}

}  // namespace
