// soundgen as the build runs it: a bad manifest stops the build at its line, a second
// build remakes only what changed, an entry taken out leaves the title, and a voice line
// comes out as speech at 16 kHz mono.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "VoiceRenderer.h"

namespace soundgen {
namespace {

namespace fs = std::filesystem;

const char* const kVoices = R"({
  "speakers": {
    "narrator": { "voice": "en-gb+f2", "pitch": 48, "speed": 135 },
    "heroine": { "voice": "en-us+f4", "pitch": 78, "speed": 160 }
  },
  "tables": {
    "M1Dialogue": {
      "KDNA0001": "Hello there!"
    }
  }
}
)";

const char* const kEffects = R"({
  "effects": {
    "SFX_Ping": { "length": 0.2, "layers": [ { "wave": "sine", "note": "C6" } ] },
    "SFX_Pong": { "length": 0.3, "layers": [ { "wave": "triangle", "note": "C5" } ] }
  }
}
)";

const char* const kStock = R"({
  "stock": {
    "h_OSTM_DefaultClickSfx_6": { "length": 0.05, "layers": [ { "wave": "sine", "note": 1500 } ] }
  }
}
)";

const char* const kMusic = R"({
  "music": {
    "MUS_Menu": { "key": "C", "tempo": 96, "bars": 12, "chords": "I IV V I",
                  "melody": "1 - 3 - 5 - 3 - | 4 - 6 - 5 - - -" }
  }
}
)";

class SoundgenRun : public testing::Test {
 protected:
  void SetUp() override {
    m_Dir = std::string(testing::TempDir()) + "/soundgen_run_" + std::to_string(getpid()) + "_" +
            testing::UnitTest::GetInstance()->current_test_info()->name();
    fs::remove_all(m_Dir);
    fs::create_directories(m_Dir);
    Write("voices.json", kVoices);
    Write("effects.json", kEffects);
    Write("stock.json", kStock);
    Write("music.json", kMusic);
  }
  void TearDown() override { fs::remove_all(m_Dir); }

  void Write(const std::string& name, const std::string& text) { std::ofstream(m_Dir + "/" + name) << text; }

  // Runs soundgen on the manifests; returns its exit status, output in m_Output.
  int Run(bool withVoices = false) {
    const std::string command = std::string(SOUNDGEN_EXE) +
                                (withVoices ? " --voices " + m_Dir + "/voices.json" : "") + " --effects " +
                                m_Dir + "/effects.json --stock " + m_Dir + "/stock.json --music " + m_Dir +
                                "/music.json --title " + m_Dir + "/title --stock-dir " + m_Dir +
                                "/stock --cache " + m_Dir + "/cache --jobs 2 2>&1";
    FILE* p = popen(command.c_str(), "r");
    m_Output.clear();
    char buf[512];
    while (p && fgets(buf, sizeof buf, p)) m_Output += buf;
    const int status = p ? pclose(p) : -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  bool Exists(const std::string& rel) const { return fs::exists(m_Dir + "/" + rel); }
  fs::file_time_type Time(const std::string& rel) const { return fs::last_write_time(m_Dir + "/" + rel); }

  std::string m_Dir;
  std::string m_Output;
};

TEST_F(SoundgenRun, ABadManifestStopsTheBuildAtItsLineAndMakesNothing) {
  Write("effects.json", R"({
  "effects": {
    "SFX_Ping": { "length": 0.2, "layers": [ { "wave": "sine", "note": "C6" } ] },
    "SFX_Pong": { "length": 0.3, "layers": [ { "wave": "sinus", "note": "C5" } ] }
  }
}
)");
  EXPECT_EQ(Run(), 1);
  EXPECT_NE(m_Output.find(m_Dir + "/effects.json:4: effect SFX_Pong layer 1: \"wave\" is \"sinus\""),
            std::string::npos)
      << m_Output;
  EXPECT_FALSE(Exists("title/Audio/SFX/SFX_Ping.ogg"));
}

TEST_F(SoundgenRun, OnlyWhatChangedIsMadeAgainAndWhatWasTakenOutLeavesTheTitle) {
  ASSERT_EQ(Run(), 0) << m_Output;
  for (const char* f : {"title/Audio/SFX/SFX_Ping.ogg", "title/Audio/SFX/SFX_Ping.wav",
                        "title/Audio/SFX/SFX_Pong.ogg", "title/Audio/SFX/SFX_Pong.wav",
                        "title/Audio/Music/MUS_Menu.ogg", "stock/h_OSTM_DefaultClickSfx_6.ogg"}) {
    EXPECT_TRUE(Exists(f)) << f;
  }
  EXPECT_NE(m_Output.find("6 files made, 0 up to date"), std::string::npos) << m_Output;

  ASSERT_EQ(Run(), 0) << m_Output;
  EXPECT_NE(m_Output.find("0 files made, 6 up to date"), std::string::npos) << m_Output;

  // A changed recipe remakes its two files and nothing else; a description is no change.
  const auto pingTime = Time("title/Audio/SFX/SFX_Ping.ogg");
  Write("effects.json", R"({
  "effects": {
    "SFX_Ping": { "about": "a ping", "length": 0.2, "layers": [ { "wave": "sine", "note": "C6" } ] },
    "SFX_Pong": { "length": 0.3, "layers": [ { "wave": "triangle", "note": "D5" } ] }
  }
}
)");
  ASSERT_EQ(Run(), 0) << m_Output;
  EXPECT_NE(m_Output.find("2 files made, 4 up to date"), std::string::npos) << m_Output;
  EXPECT_NE(m_Output.find("Audio/SFX/SFX_Pong.wav"), std::string::npos) << m_Output;
  EXPECT_EQ(Time("title/Audio/SFX/SFX_Ping.ogg"), pingTime);

  // A file deleted by hand is made again.
  fs::remove(m_Dir + "/stock/h_OSTM_DefaultClickSfx_6.ogg");
  ASSERT_EQ(Run(), 0) << m_Output;
  EXPECT_NE(m_Output.find("1 files made, 5 up to date"), std::string::npos) << m_Output;

  Write(
      "effects.json",
      R"({ "effects": { "SFX_Ping": { "length": 0.2, "layers": [ { "wave": "sine", "note": "C6" } ] } } })");
  ASSERT_EQ(Run(), 0) << m_Output;
  EXPECT_NE(m_Output.find("2 removed"), std::string::npos) << m_Output;
  EXPECT_FALSE(Exists("title/Audio/SFX/SFX_Pong.ogg"));
  EXPECT_FALSE(Exists("title/Audio/SFX/SFX_Pong.wav"));
  EXPECT_TRUE(Exists("title/Audio/SFX/SFX_Ping.wav"));
}

TEST(VoiceRenderer, ALineIsSpokenAsAudible16kHzMonoInEachSpeakersOwnVoice) {
  if (!VoiceToolsAvailable()) GTEST_SKIP() << "espeak-ng or sox not installed";
  Speaker narrator{"narrator", "en-gb+f2", 48, 135, 1};
  Speaker heroine{"heroine", "en-us+f4", 78, 160, 0};
  std::vector<int16_t> a, b;
  std::string error;
  ASSERT_TRUE(RenderVoice("Do you want to stop playing?", narrator, a, error)) << error;
  ASSERT_TRUE(RenderVoice("Do you want to stop playing?", heroine, b, error)) << error;
  for (const std::vector<int16_t>* s : {&a, &b}) {
    // Words of this length take one to four seconds at 16000 samples a second.
    EXPECT_GT(s->size(), 16000u);
    EXPECT_LT(s->size(), 4u * 16000u);
    double energy = 0.0;
    int peak = 0;
    for (int16_t v : *s) {
      energy += double(v) * v;
      peak = std::max(peak, std::abs(int(v)));
    }
    EXPECT_GT(std::sqrt(energy / s->size()), 1000.0);
    EXPECT_GT(peak, 16000);  // normalised to -3 dBFS
  }
  // The heroine speaks faster than the narrator.
  EXPECT_LT(b.size(), a.size());
}

TEST_F(SoundgenRun, VoiceLinesGoToTheDialogueDirectory) {
  if (!VoiceToolsAvailable()) GTEST_SKIP() << "espeak-ng or sox not installed";
  ASSERT_EQ(Run(true), 0) << m_Output;
  struct stat st;
  ASSERT_EQ(stat((m_Dir + "/title/Audio/Dialogue/KDNA0001.ogg").c_str(), &st), 0) << m_Output;
  EXPECT_GT(st.st_size, 1000);
  // A narrator line is streamed only: no memory copy.
  EXPECT_FALSE(Exists("title/Audio/Dialogue/KDNA0001.wav"));
}

}  // namespace
}  // namespace soundgen
