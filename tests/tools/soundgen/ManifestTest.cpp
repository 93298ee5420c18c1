// Reading the sound manifests: what a mistake in one looks like, and that the title's own
// manifests are free of them.
#include <gtest/gtest.h>

#include <string>

#include "JsonDoc.h"
#include "ManifestReader.h"

namespace soundgen {
namespace {

const char* const kVoicesHead = R"({
  "speakers": {
    "narrator": { "voice": "en-gb+f2", "pitch": 48, "speed": 135 },
    "heroine": { "voice": "en-us+f4", "pitch": 78 }
  },
  "tables": {
)";

const char* const kGoodEffect = R"({ "length": 0.2, "layers": [ { "wave": "sine", "note": "C5" } ] })";

const char* const kGoodTrack = R"({ "key": "C", "tempo": 96, "bars": 12, "chords": "I IV V I",
        "melody": "1 - 3 - 5 - 3 - | 4 - 6 - 5 - - -" })";

struct Reader {
  Diagnostics diag;
  ManifestReader reader{diag};

  // Reads `text` as the manifest `file`; returns the diagnostics, one per line.
  std::string Read(const std::string& file, const std::string& text) {
    JsonDoc doc;
    if (doc.Parse(file, text, diag)) {
      if (file == "voices.json") reader.ReadVoices(doc);
      if (file == "effects.json") reader.ReadEffects(doc);
      if (file == "stock.json") reader.ReadStock(doc);
      if (file == "music.json") reader.ReadMusic(doc);
    }
    return diag.Joined();
  }
};

std::string Voices(const std::string& tables) {
  return std::string(kVoicesHead) + tables + "\n  }\n}\n";
}

TEST(SoundManifest, MistakesAreReportedAtTheirFileAndLine) {
  struct Case {
    const char* file;
    std::string text;
    const char* expected;  // one line of the diagnostics, in full up to its end or a prefix of it
  } cases[] = {
      {"voices.json", Voices(R"(    "M1": {
      "KDNA0001": "Hello!",
      "KDNA0001": "Hello again!"
    })"),
       "voices.json:9: \"KDNA0001\" appears twice here (the first is on line 8)"},
      {"voices.json", Voices(R"(    "M1": { "KDNA0001": "Hello!" },
    "Exit": {
      "KDNA0001": "Bye!"
    })"),
       "voices.json:9: \"KDNA0001\" is already in voice table M1 (voices.json:7)"},
      {"voices.json", Voices(R"(    "M1": {
      "KDNA12": "Hello!"
    })"),
       "voices.json:8: \"KDNA12\" is not a voice id"},
      {"voices.json", Voices(R"(    "M1": {
      "KDME0001b": "A letter only narrator ids may carry."
    })"),
       "voices.json:8: \"KDME0001b\" is not a voice id"},
      {"voices.json", Voices(R"(    "M1": {
      "KDNA0001": { "say": "Hi", "sapeaker": "narrator" }
    })"),
       "voices.json:8: voice KDNA0001: unknown field \"sapeaker\""},
      {"voices.json", Voices(R"(    "M1": {
      "KDME0001": { "say": "I'm Corrin!", "speaker": "narrator" }
    })"),
       "voices.json:8: voice KDME0001: \"speaker\" is \"narrator\", but KDME0001 is a heroine id"},
      {"voices.json", Voices(R"(    "M1": {
      "KDNA0001": { "say": "Hi", "speaker": "witch" }
    })"),
       "voices.json:8: voice KDNA0001: no speaker \"witch\""},
      {"voices.json", Voices(R"(    "M1": {
      "KDNA0001": "-v en"
    })"),
       "voices.json:8: voice KDNA0001: the words must be"},
      {"voices.json", Voices(R"(    "M1": {
      "KDNA0001": "Hi",
    })"),
       "voices.json:9: syntax error"},
      {"effects.json",
       std::string("{\n  \"effects\": {\n    \"SFX_Ping\": ") + kGoodEffect +
           ",\n    \"SFX_Pong\": { \"lenght\": 0.2, \"length\": 0.2, \"layers\": [] }\n  }\n}",
       "effects.json:4: effect SFX_Pong: unknown field \"lenght\""},
      {"effects.json", "{\n  \"effects\": {\n    \"Ping\": {}\n  }\n}",
       "effects.json:3: \"Ping\" is not an effect name"},
      {"effects.json",
       "{\n  \"effects\": {\n    \"SFX_Ping\": { \"length\": 0.2, \"layers\": [\n      { \"wave\": \"sine\" "
       "},\n"
       "      { \"wave\": \"sine\", \"note\": \"H5\" },\n      { \"wave\": \"noise\", \"index\": 2 },\n"
       "      { \"wave\": \"sine\", \"notes\": [\"C5\", \"E5\"], \"step\": 0.2 }\n    ] }\n  }\n}",
       "effects.json:4: effect SFX_Ping layer 1 needs \"note\" or \"notes\"\n"
       "effects.json:5: effect SFX_Ping layer 2: \"note\" must be a note name"},
      {"effects.json",
       "{\n  \"effects\": {\n    \"SFX_Ping\": { \"length\": 0.2, \"layers\": [\n"
       "      { \"wave\": \"noise\", \"index\": 2 },\n"
       "      { \"wave\": \"sine\", \"notes\": [\"C5\", \"E5\"], \"step\": 0.2 }\n    ] }\n  }\n}",
       "effects.json:4: effect SFX_Ping layer 1: \"index\" belongs to the \"fm\" wave only\n"
       "effects.json:5: effect SFX_Ping layer 2 starts its last note at 0.2 s, after the end of the effect"},
      {"stock.json", std::string("{\n  \"stock\": {\n    \"h_OSTM_Click\": ") + kGoodEffect + "\n  }\n}",
       "stock.json:3: \"h_OSTM_Click\" is not a stock sound name"},
      {"music.json",
       std::string("{\n  \"music\": {\n    \"MUS_Long\": ") +
           R"({ "key": "C", "tempo": 60, "bars": 12, "chords": "I",
        "melody": "1 - - - - - - -" })" +
           "\n  }\n}",
       "music.json:3: music MUS_Long lasts 48 s; a track loops after 20 to 40 s"},
      {"music.json",
       std::string("{\n  \"music\": {\n    \"MUS_Bars\": ") +
           R"({ "key": "C", "tempo": 96, "bars": 12, "chords": "I",
        "melody": "1 - 3 | 5 - - - - - - -" })" +
           "\n  }\n}",
       "music.json:4: music MUS_Bars: \"melody\" is wrong: bar 1 has 3 steps, not 8"},
      {"music.json",
       std::string("{\n  \"music\": {\n    \"MUS_A\": ") + kGoodTrack + ",\n    \"MUS_B\": " + kGoodTrack +
           "\n  }\n}",
       "music.json:6: music MUS_B: the same melody as MUS_A"},
      {"music.json", "{\n  \"music\": {},\n  \"tracks\": {}\n}", "music.json:3: unknown section \"tracks\""},
  };
  for (const Case& c : cases) {
    Reader r;
    const std::string got = r.Read(c.file, c.text);
    EXPECT_NE(got.find(c.expected), std::string::npos) << "expected: " << c.expected << "\ngot: " << got;
  }
}

TEST(SoundManifest, VoicesTakeTheirSpeakerAndFormatsFromTheirId) {
  Reader r;
  r.Read("voices.json", Voices(R"(    "T": {
      "KDNA0108b": "Zone two!",
      "KDMEVS0099": "Whee!",
      "CANA0062": { "say": "Tap the screen.", "formats": ["wav"], "about": "a platform line" }
    })"));
  ASSERT_TRUE(r.diag.Empty()) << r.diag.Joined();
  const SoundSet& set = r.reader.Set();
  ASSERT_EQ(set.voices.size(), 3u);
  EXPECT_EQ(set.speakers[set.voices[0].speaker].name, "narrator");
  EXPECT_EQ(set.voices[0].out.formats, std::vector<Format>{Format::kOgg});
  // The heroine's lines are played from memory too while her lips move.
  EXPECT_EQ(set.speakers[set.voices[1].speaker].name, "heroine");
  EXPECT_EQ(set.voices[1].out.formats, (std::vector<Format>{Format::kOgg, Format::kWav}));
  EXPECT_EQ(set.voices[2].out.formats, std::vector<Format>{Format::kWav});
  EXPECT_EQ(set.voices[1].out.line, 9);
}

TEST(SoundManifest, ADescriptionDoesNotChangeTheFingerprintButTheWordsDo) {
  auto fingerprint = [](const std::string& entry) {
    Reader r;
    r.Read("voices.json", Voices("    \"T\": { \"KDNA0001\": " + entry + " }"));
    EXPECT_TRUE(r.diag.Empty()) << r.diag.Joined();
    return r.reader.Set().voices.at(0).out.fingerprint;
  };
  EXPECT_EQ(fingerprint(R"({ "say": "Hi", "about": "one" })"),
            fingerprint(R"({ "say": "Hi", "about": "two" })"));
  EXPECT_NE(fingerprint(R"({ "say": "Hi" })"), fingerprint(R"({ "say": "Hi!" })"));
}

TEST(SoundManifest, MelodiesReadDegreesOctavesAccidentalsHoldsAndRests) {
  std::vector<MelodyNote> notes;
  int steps = 0;
  std::string error;
  ASSERT_TRUE(ParseMelody("1 - #4 | 5' . 7, b3 -", 3, notes, steps, error)) << error;
  ASSERT_EQ(notes.size(), 6u);
  EXPECT_EQ(steps, 8);
  EXPECT_EQ(notes[0].degree, 0);
  EXPECT_EQ(notes[0].steps, 2);
  EXPECT_EQ(notes[1].shift, 1);
  EXPECT_EQ(notes[2].degree, 11);
  EXPECT_TRUE(notes[3].rest);
  EXPECT_EQ(notes[4].degree, -1);
  EXPECT_EQ(notes[4].steps, 1);
  EXPECT_EQ(notes[5].shift, -1);
  EXPECT_EQ(notes[5].steps, 2);
  EXPECT_FALSE(ParseMelody("- 1", 8, notes, steps, error));
  EXPECT_FALSE(ParseMelody("1 8", 8, notes, steps, error));
  EXPECT_FALSE(ParseMelody("", 8, notes, steps, error));
}

TEST(SoundManifest, TheTitlesManifestsAreComplete) {
  const std::string dir = NOX_CONTENT_DIR "/sounds/";
  ManifestFiles files{dir + "voices.json", dir + "effects.json", dir + "stock.json", dir + "music.json"};
  SoundSet set;
  Diagnostics diag;
  ASSERT_TRUE(ReadManifests(files, set, diag)) << diag.Joined();
  // Every track the game plays, every stock sound the platform serves.
  for (const char* track :
       {"MUS_Menu", "MUS_NIS", "MUS_Kelder_Reel01", "MUS_Castle_Zone1", "MUS_Forest_Zone2",
        "MUS_Forest_Zone3", "MUS_Ruins_Zone4", "MUS_Castle_Zone5", "MUS_MiniGame_Riding",
        "MUS_MiniGame_Archery", "MUS_MiniGame_Triplets", "MUS_MiniGame_PinTheTail"}) {
    bool found = false;
    for (const MusicRecipe& m : set.music) found = found || m.name == track;
    EXPECT_TRUE(found) << track;
  }
  EXPECT_EQ(set.music.size(), 12u);
  for (const char* stock :
       {"h_OSTM_BackSfx_6", "h_OSTM_BadgeSfx_6", "h_OSTM_DeadClickSfx_6", "h_OSTM_DefaultClickSfx_6",
        "h_OSTM_HintButtonSfx_6", "h_OSTM_HomeSfx_6", "h_OSTM_Level_Up_6", "h_OSTM_MenuSelectSfx_6",
        "h_OSTM_PromptSfx_6", "L_OSTM_AlertSfx_6"}) {
    bool found = false;
    for (const EffectRecipe& e : set.stock) found = found || e.name == stock;
    EXPECT_TRUE(found) << stock;
  }
}

}  // namespace
}  // namespace soundgen
