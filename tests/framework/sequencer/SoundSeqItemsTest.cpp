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

// A mono 16 kHz 16-bit PCM WAV of `ms` milliseconds.
void WriteWav(const std::string& path, int ms) {
  const uint32_t bytes = 32u * static_cast<uint32_t>(ms);
  const uint32_t header[] = {0x46464952, 36 + bytes, 0x45564157, 0x20746d66, 16,   0x00010001,
                             16000,      32000,      0x00100002, 0x61746164, bytes};
  std::vector<uint8_t> data(bytes, 0x40);
  BaseUtils::MakeDirectories(path.substr(0, path.rfind('/')));
  std::ofstream out(path, std::ios::binary);
  out.write(reinterpret_cast<const char*>(header), sizeof(header));
  out.write(reinterpret_cast<const char*>(data.data()), bytes);
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

TEST_F(SoundSeqItemsTest, WaitingStepRunsUntilItsSoundEndsAndAFailedOneEndsAtOnce) {
  Sequencer sequencer;
  sequencer.AppendItem(new noxfw::PlayMemorySoundSeqItem("beep", kEffects, 0, false, 40));
  sequencer.AppendItem(new noxfw::PlayMemorySoundSeqItem("missing", kEffects));
  sequencer.AppendItem(new noxfw::PlayStreamingSoundSeqItem("KDNA9999", kSpeech));
  Frame(sequencer);
  EXPECT_EQ(nox::SoundManager::sm_pInstance->GetSound(kEffects)->GetPriority(), 40u);
  int frames = 1;
  for (; sequencer.HasSeqID(0) == 3 && frames < 50; ++frames) Frame(sequencer);
  // Not before the 100 ms of the beep were mixed, and soon after.
  EXPECT_GE(frames * 17, 100);
  EXPECT_LE(frames * 17, 100 + 2 * 17);
  Frame(sequencer);
  Frame(sequencer);
  EXPECT_TRUE(sequencer.IsEmpty());
  EXPECT_FALSE(Playing(kEffects) || Playing(kSpeech));
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
