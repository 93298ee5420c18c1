// Sound steps on the headless audio module: waiting for the end, cancelling (which
// stops a waited sound and leaves a don't-wait one playing), a sound that can't
// start, and the caller's own sounds.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "core/PathRegistry.h"
#include "core/Settings.h"
#include "ostra/BaseUtils.h"
#include "ostra/HostAudio.h"
#include "ostra/HostConfig.h"
#include "sequencer/SeqBuild.h"
#include "sound/SoundManager.h"
#include "sound/SoundPlayer.h"

namespace {

namespace HostAudio = Hollin::Ostra::HostAudio;
using noxfw::Sequencer;

const uint32_t kSpeech = 1;
const uint32_t kEffects = 10;

// A mono 16 kHz PCM WAV of `ms` milliseconds.
void WriteWav(const std::string& path, int ms) {
  const uint32_t samples = 16u * static_cast<uint32_t>(ms);
  std::vector<uint8_t> b;
  auto text = [&b](const char* s) { b.insert(b.end(), s, s + 4); };
  auto u32 = [&b](uint32_t v) {
    for (int i = 0; i < 4; ++i) b.push_back(static_cast<uint8_t>(v >> (8 * i)));
  };
  auto u16 = [&b](uint32_t v) {
    b.push_back(static_cast<uint8_t>(v));
    b.push_back(static_cast<uint8_t>(v >> 8));
  };
  text("RIFF");
  u32(36 + samples * 2);
  text("WAVE");
  text("fmt ");
  u32(16);
  u16(1);
  u16(1);
  u32(16000);
  u32(32000);
  u16(2);
  u16(16);
  text("data");
  u32(samples * 2);
  for (uint32_t i = 0; i < samples; ++i) u16((i % 32) * 1000);
  BaseUtils::MakeDirectories(path.substr(0, path.rfind('/')));
  std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(b.data()), b.size());
}

class SoundSeqItemsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    char pattern[] = "/tmp/noxseqsound-XXXXXX";
    ASSERT_NE(mkdtemp(pattern), nullptr);
    m_Dir = pattern;
    Hollin::Ostra::Host::HostConfig config;
    config.titlePath = m_Dir + "/title";
    config.saveRoot = m_Dir + "/players";
    config.stockAudioPath = m_Dir + "/stock";
    config.clock = Hollin::Ostra::Host::ClockMode::kVirtual;
    config.logFile = m_Dir + "/automation.log";
    config.quiet = true;
    BaseUtils::MakeDirectories(config.titlePath);
    Hollin::Ostra::Host::SetHostConfig(config);
    nox::PathRegistry::Create();
    nox::Settings::Create();
    nox::Settings* s = nox::Settings::s_pSettings;
    s->RegisterU32("Sound Duck Amount", 40, 0, 100, 5, "1.Global", nullptr);
    s->RegisterU32("Sound Duck Step", 8, 1, 10, 1, "1.Global", nullptr);
    s->RegisterU32("Background Music Level", 60, 0, 100, 5, "1.Global", nullptr);
    std::string error;
    ASSERT_TRUE(HostAudio::Configure("", false, true, error)) << error;
    nox::SoundPlayer::Create(16, false);
    nox::SoundPlayer::m_pSoundPlayer->Initialize("Audio/");
    nox::SoundPlayer::m_pSoundPlayer->SetMasterVolume(100);
    const unsigned long ids[] = {kSpeech, kEffects};
    const unsigned long slots[] = {1, 4};
    nox::SoundManager::Create(2, ids, slots);
    WriteWav(m_Dir + "/title/Audio/SFX/beep.wav", 100);
  }

  void TearDown() override {
    nox::SoundManager::Destroy();
    if (nox::SoundPlayer::m_pSoundPlayer) nox::SoundPlayer::m_pSoundPlayer->Shutdown();
    nox::SoundPlayer::Destroy();
    HostAudio::Shutdown();
    nox::Settings::Destroy();
    nox::PathRegistry::Destroy();
    Hollin::Ostra::Host::SetHostConfig(Hollin::Ostra::Host::HostConfig{});
    std::system(("rm -rf " + m_Dir).c_str());
  }

  // One frame as the title runs it: audio mixed, the player's ends delivered, then
  // the script.
  void Frame(Sequencer& sequencer, uint32_t ms = 17) {
    HostAudio::MixMilliseconds(ms);
    nox::SoundPlayer::m_pSoundPlayer->Update(ms);
    sequencer.Update(ms);
  }

  static bool Playing(uint32_t category) { return nox::SoundManager::sm_pInstance->IsPlaying(category); }

  std::string m_Dir;
};

TEST_F(SoundSeqItemsTest, WaitingStepRunsUntilItsSoundEnds) {
  Sequencer sequencer;
  sequencer.AppendItem(new noxfw::PlayMemorySoundSeqItem("beep", kEffects, 0, false, 40));
  Frame(sequencer);
  EXPECT_TRUE(Playing(kEffects));
  EXPECT_EQ(nox::SoundManager::sm_pInstance->GetSound(kEffects)->GetPriority(), 40u);
  int frames = 1;
  while (!sequencer.IsEmpty() && frames < 50) {
    Frame(sequencer);
    ++frames;
  }
  EXPECT_GE(frames * 17, 100);  // not before the 100 ms of sound were mixed
  EXPECT_LE(frames * 17, 100 + 2 * 17);
  EXPECT_FALSE(Playing(kEffects));
}

TEST_F(SoundSeqItemsTest, CancellingStopsAWaitedSoundButNotADontWaitOne) {
  Sequencer sequencer;
  sequencer.AppendItem(new noxfw::PlayMemorySoundSeqItem("beep", kEffects, 3));
  Frame(sequencer);
  ASSERT_TRUE(Playing(kEffects));
  EXPECT_TRUE(sequencer.TerminateItemID(3, false));
  EXPECT_FALSE(Playing(kEffects));

  // A don't-wait step ends on its first frame; the manager's copy plays on after
  // the step is gone.
  noxfw::SeqMemorySound(sequencer, "beep", kEffects, true, 3);
  noxfw::SeqMemorySound(sequencer, "beep", kEffects, true, 3);
  Frame(sequencer);
  EXPECT_EQ(sequencer.HasSeqID(3), 1);
  EXPECT_TRUE(sequencer.TerminateItemID(3, true));  // the second, unstarted
  EXPECT_TRUE(sequencer.IsEmpty());
  Frame(sequencer);
  EXPECT_TRUE(Playing(kEffects));
}

TEST_F(SoundSeqItemsTest, SoundThatCannotStartEndsItsStepAtOnce) {
  Sequencer sequencer;
  sequencer.AppendItem(new noxfw::PlayMemorySoundSeqItem("missing", kEffects));
  sequencer.AppendItem(new noxfw::PlayStreamingSoundSeqItem("KDNA9999", kSpeech));
  Frame(sequencer);
  EXPECT_EQ(sequencer.HasSeqID(0), 1);
  Frame(sequencer);
  EXPECT_TRUE(sequencer.IsEmpty());
  EXPECT_FALSE(Playing(kEffects));
  EXPECT_FALSE(Playing(kSpeech));
}

TEST_F(SoundSeqItemsTest, CallersMemorySoundIsPlayedInPlaceAndStoppedOnCancel) {
  nox::MemorySound beep;
  ASSERT_TRUE(beep.Load("beep"));
  Sequencer sequencer;
  sequencer.AppendItem(new noxfw::PlayMyMemorySoundSeqItem(&beep, kEffects, false, 4));
  Frame(sequencer);
  EXPECT_TRUE(beep.IsPlaying());
  EXPECT_EQ(nox::SoundManager::sm_pInstance->GetSound(kEffects), &beep);
  sequencer.TerminateItemID(4, false);
  EXPECT_FALSE(beep.IsPlaying());

  // Don't-wait: the step ends, the caller's sound plays on.
  sequencer.AppendItem(new noxfw::PlayMyMemorySoundSeqItem(&beep, kEffects, true));
  Frame(sequencer);
  EXPECT_TRUE(sequencer.IsEmpty());
  EXPECT_TRUE(beep.IsPlaying());
  beep.Stop();
}

// Records what the step asks of the caller's streaming sound.
class ScriptedStream : public nox::StreamingSound {
 public:
  bool Load(const std::string& name) override {
    m_Loaded.push_back(name);
    m_Name = name;
    return true;
  }
  bool Play() override { return Started(++m_NextId); }
  std::vector<std::string> m_Loaded;
  uint32_t m_NextId = 0;
};

TEST_F(SoundSeqItemsTest, CallersStreamingSoundLoadsEachLineWhenItsStepStarts) {
  ScriptedStream voice;
  Sequencer sequencer;
  noxfw::SeqStreamingSound(sequencer, voice, "KDNA0001", kSpeech);
  noxfw::SeqStreamingSound(sequencer, voice, "KDNA0002", kSpeech);
  EXPECT_TRUE(voice.m_Loaded.empty());  // nothing touched while queued
  Frame(sequencer);
  EXPECT_EQ(voice.m_Loaded, (std::vector<std::string>{"KDNA0001"}));
  Frame(sequencer);
  EXPECT_EQ(voice.m_Loaded.size(), 1u);  // the first line still plays
  voice.Stop();                          // it ends
  Frame(sequencer);
  Frame(sequencer);
  EXPECT_EQ(voice.m_Loaded, (std::vector<std::string>{"KDNA0001", "KDNA0002"}));
  sequencer.Empty();  // cancelling the waiting step stops the line
  EXPECT_FALSE(voice.IsPlaying());
}

}  // namespace
