// Playing one sound through the player and the headless audio module: the events a sound
// raises and when, nested pauses, the ducking ramp, finding files and stock sounds, the
// automation lines, shared buffers, and end messages of stopped sounds being dropped.
#include <gtest/gtest.h>

#include <memory>

#include "SoundTestFiles.h"
#include "core/PathRegistry.h"
#include "core/Settings.h"
#include "ostra/HostAudio.h"
#include "sound/MemorySound.h"
#include "sound/SoundPlayer.h"
#include "sound/StreamingSound.h"

namespace {

namespace HostAudio = Hollin::Ostra::HostAudio;
using nox::MemorySound;
using nox::Sound;
using nox::SoundPlayer;
using nox::StreamingSound;

struct EventLog : nox::EventListener<Sound> {
  void OnEventOccurred(Sound*, const nox::EventData* data) override { types.push_back(data->m_Type); }
  std::vector<uint32_t> types;
};

class SoundPlaybackTest : public ::testing::Test {
 protected:
  SoundPlaybackTest() : m_Platform(m_Dir) {}

  void SetUp() override {
    nox::PathRegistry::Create();
    nox::Settings::Create();
    nox::Settings* s = nox::Settings::s_pSettings;
    s->RegisterU32("Sound Duck Amount", 40, 0, 100, 5, "1.Global", nullptr);
    s->RegisterU32("Sound Duck Step", 8, 1, 10, 1, "1.Global", nullptr);
    s->RegisterU32("Background Music Level", 60, 0, 100, 5, "1.Global", nullptr);
    std::string error;
    ASSERT_TRUE(HostAudio::Configure("", false, true, error));
    SoundPlayer::Create(16, false);
    Player()->Initialize("Audio/");
    Player()->SetMasterVolume(100);
    // 100 ms of a tone at 16 kHz.
    std::vector<int16_t> tone(1600);
    for (size_t i = 0; i < tone.size(); ++i) tone[i] = static_cast<int16_t>((i % 32) * 1000 - 16000);
    soundtest::WavBuilder wav;
    wav.Format(1, 1, 16000, 2, 16);
    wav.Chunk("data", soundtest::Samples16(tone));
    soundtest::WriteBytes(Title("Audio/SFX/beep.wav"), wav.File());
  }

  void TearDown() override {
    if (Player()) Player()->Shutdown();
    SoundPlayer::Destroy();
    HostAudio::Shutdown();
    nox::Settings::Destroy();
    nox::PathRegistry::Destroy();
  }

  static SoundPlayer* Player() { return SoundPlayer::m_pSoundPlayer; }
  std::string Title(const std::string& name) const { return m_Dir / ("title/" + name); }

  // One frame: the audio module mixes its share, then the player takes the ends.
  void Frame(uint32_t ms = 17) {
    HostAudio::MixMilliseconds(ms);
    Player()->Update(ms);
  }

  // A half-second tone made by sox at `path`; false when sox is missing.
  bool MakeOgg(const std::string& path) {
    BaseUtils::MakeDirectories(path.substr(0, path.rfind('/')));
    return soundtest::Sox("-n -r 16000 -c 1 " + path + " synth 0.5 sine 440 vol 0.5");
  }

  soundtest::TempDir m_Dir;
  soundtest::Platform m_Platform;
};

TEST_F(SoundPlaybackTest, AMemorySoundStartsFinishesAndRestartsWithItsEvents) {
  MemorySound beep;
  EventLog log;
  beep.AddEventListener(&log);
  ASSERT_TRUE(beep.Load("beep"));
  ASSERT_NE(beep.GetBuffer(), nullptr);
  EXPECT_EQ(beep.GetBuffer()->GetSize(), 3200u);
  EXPECT_TRUE(beep.Play());
  const uint32_t first = beep.GetId();
  EXPECT_NE(first, 0u);
  EXPECT_TRUE(beep.IsPlaying());
  // Play on a playing sound stops it first: stopped, then started again, new id.
  EXPECT_TRUE(beep.Play());
  EXPECT_NE(beep.GetId(), first);
  EXPECT_EQ(log.types, (std::vector<uint32_t>{Sound::kStarted, Sound::kStopped, Sound::kStarted}));
  for (int i = 0; i < 5; ++i) Frame();
  EXPECT_TRUE(beep.IsPlaying());
  EXPECT_EQ(beep.GetElapsedTime(), 85u);
  for (int i = 0; i < 2; ++i) Frame();
  EXPECT_FALSE(beep.IsPlaying());
  EXPECT_EQ(beep.GetId(), 0u);
  EXPECT_EQ(log.types.back(), Sound::kFinished);
  EXPECT_EQ(log.types.size(), 4u);
  beep.RemoveEventListener(&log);
}

TEST_F(SoundPlaybackTest, AStoppedSoundHearsNoEndNotEvenOneAlreadyOnItsWay) {
  MemorySound beep;
  EventLog log;
  beep.AddEventListener(&log);
  ASSERT_TRUE(beep.Load("beep.wav"));
  beep.Play();
  beep.Stop();
  EXPECT_EQ(log.types, (std::vector<uint32_t>{Sound::kStarted, Sound::kStopped}));
  for (int i = 0; i < 10; ++i) Frame();
  EXPECT_EQ(log.types.size(), 2u);

  // The module's done message is already queued when the sound is stopped in the same
  // frame: the player drops it.
  beep.Play();
  HostAudio::MixMilliseconds(200);
  EXPECT_TRUE(beep.IsPlaying());
  beep.Stop();
  Player()->Update(17);
  EXPECT_EQ(log.types,
            (std::vector<uint32_t>{Sound::kStarted, Sound::kStopped, Sound::kStarted, Sound::kStopped}));
  beep.Stop();  // idle: nothing more
  EXPECT_EQ(log.types.size(), 4u);
  beep.RemoveEventListener(&log);
}

TEST_F(SoundPlaybackTest, PausesNestAndHoldThePlaceOfTheAudio) {
  MemorySound beep;
  ASSERT_TRUE(beep.Load("beep"));
  beep.Pause();  // idle: not counted
  EXPECT_EQ(beep.GetPauseCount(), 0u);
  beep.Play();
  Frame(20);
  beep.Pause();
  beep.Pause();
  EXPECT_TRUE(beep.IsPaused());
  EXPECT_FALSE(beep.Resume());
  EXPECT_TRUE(beep.IsPaused());
  for (int i = 0; i < 10; ++i) Frame();
  EXPECT_EQ(beep.GetElapsedTime(), 20u);
  EXPECT_TRUE(beep.IsPlaying());
  EXPECT_TRUE(beep.Resume());
  EXPECT_FALSE(beep.IsPaused());
  EXPECT_FALSE(beep.Resume());
  Frame(20);
  EXPECT_EQ(beep.GetElapsedTime(), 40u);
  // Stop forgets the count.
  beep.Pause();
  beep.Stop();
  EXPECT_EQ(beep.GetPauseCount(), 0u);
  EXPECT_FALSE(beep.IsPaused());
}

TEST_F(SoundPlaybackTest, ADuckedSoundSinksAndRisesInStepsCappedByTheMusicLevel) {
  MemorySound beep;
  ASSERT_TRUE(beep.Load("beep"));
  beep.SetLoop(true);
  beep.SetVolume(60);
  beep.Play();
  const uint32_t id = beep.GetId();
  std::vector<uint32_t> levels;
  beep.SetIsDucked(true);
  for (int i = 0; i < 7; ++i) {
    beep.Update(17);
    levels.push_back(Player()->Volume(id));
  }
  // A 40, S 8, v 60: down to 20, where 20 + 40 is no longer above 60.
  EXPECT_EQ(levels, (std::vector<uint32_t>{52, 44, 36, 28, 20, 20, 20}));
  levels.clear();
  beep.SetIsDucked(false);
  for (int i = 0; i < 7; ++i) {
    beep.Update(17);
    levels.push_back(Player()->Volume(id));
  }
  EXPECT_EQ(levels, (std::vector<uint32_t>{28, 36, 44, 52, 60, 60, 60}));
  EXPECT_EQ(beep.GetVolume(), 60u);

  // The rise stops at the music level even below the sound's own volume, and the ramp
  // keeps setting that level.
  nox::Settings::s_pSettings->SetU32Value("Background Music Level", 45);
  beep.SetVolume(60);
  beep.SetIsDucked(true);
  for (int i = 0; i < 6; ++i) beep.Update(17);
  beep.SetIsDucked(false);
  for (int i = 0; i < 6; ++i) beep.Update(17);
  EXPECT_EQ(Player()->Volume(id), 45u);
  beep.Stop();
  beep.Update(17);  // idle: nothing to ramp
}

TEST_F(SoundPlaybackTest, StreamedSoundsAreFoundInTheTitleOrTheStockAndSaySo) {
  EXPECT_EQ(SoundPlayer::StreamingFileName("tune"), "tune.ogg");
  EXPECT_EQ(SoundPlayer::StreamingFileName("tune.ogg"), "tune.ogg");
  EXPECT_EQ(SoundPlayer::StreamingFileName("a.ogg.tmp"), "a.ogg.tmp");
  if (!MakeOgg(Title("Audio/Music/tune.ogg")) || !MakeOgg(m_Dir / "stock/h_OSTM_DefaultClickSfx_6.ogg")) {
    GTEST_SKIP() << "sox with Ogg Vorbis is not installed";
  }
  StreamingSound music;
  EventLog log;
  music.AddEventListener(&log);
  EXPECT_TRUE(music.Load("tune"));
  EXPECT_TRUE(music.Play());
  EXPECT_EQ(m_Platform.Count("Playing audio file: tune"), 1);
  for (int i = 0; i < 31 && music.IsPlaying(); ++i) Frame();
  EXPECT_FALSE(music.IsPlaying());
  EXPECT_EQ(log.types, (std::vector<uint32_t>{Sound::kStarted, Sound::kFinished}));

  // Not in the title: said at Load, but the stock sounds still answer at Play.
  StreamingSound click;
  EXPECT_FALSE(click.Load("h_OSTM_DefaultClickSfx_6"));
  EXPECT_EQ(m_Platform.Count("Failed to find audio: h_OSTM_DefaultClickSfx_6"), 1);
  EXPECT_TRUE(click.Play());

  // Found nowhere: failed to start, no playing line.
  log.types.clear();
  music.Load("nothere");
  EXPECT_FALSE(music.Play());
  EXPECT_EQ(log.types, (std::vector<uint32_t>{Sound::kFailedToStart}));
  EXPECT_FALSE(music.IsPlaying());
  EXPECT_EQ(m_Platform.Count("Failed to find audio: nothere"), 1);
  EXPECT_EQ(m_Platform.Count("Playing audio file: nothere"), 0);
  music.RemoveEventListener(&log);
}

TEST_F(SoundPlaybackTest, MissingAndBrokenWavFilesAndSharedBuffers) {
  // No file: no buffer, Play refuses without an event.
  MemorySound none;
  EventLog log;
  none.AddEventListener(&log);
  EXPECT_FALSE(none.Load("nothere"));
  EXPECT_FALSE(none.Play());
  EXPECT_TRUE(log.types.empty());
  none.RemoveEventListener(&log);

  // A broken file gives an empty buffer: the sound starts, plays nothing and ends.
  soundtest::WriteBytes(Title("Audio/SFX/broken.wav"), soundtest::Bytes{'R', 'I', 'F', 'F', 1});
  MemorySound broken;
  broken.AddEventListener(&log);
  ASSERT_TRUE(broken.Load("broken"));
  EXPECT_EQ(broken.GetBuffer()->GetSize(), 0u);
  EXPECT_TRUE(broken.Play());
  Frame();
  EXPECT_EQ(log.types, (std::vector<uint32_t>{Sound::kStarted, Sound::kFinished}));
  broken.RemoveEventListener(&log);

  // Copies share one buffer and keep it when the original goes; the copy takes the
  // settings but neither the listeners nor the running audio.
  std::unique_ptr<MemorySound> original(new MemorySound());
  original->Load("beep");
  original->SetVolume(300);  // only the low 8 bits are kept
  original->SetPan(-50);
  original->SetType(4);
  original->SetLoop(true);
  original->AddEventListener(&log);
  original->Play();
  std::unique_ptr<Sound> copy(original->Copy());
  EXPECT_EQ(static_cast<MemorySound*>(copy.get())->GetBuffer(), original->GetBuffer());
  EXPECT_EQ(original->GetBuffer()->GetRefCount(), 2u);
  EXPECT_EQ(copy->GetVolume(), 300u & 255);
  EXPECT_EQ(copy->GetPan(), -50);
  EXPECT_EQ(copy->GetType(), 4u);
  EXPECT_TRUE(copy->GetLoop());
  EXPECT_EQ(copy->GetName(), "beep");
  EXPECT_FALSE(copy->IsPlaying());
  EXPECT_TRUE(copy->empty());
  original->RemoveEventListener(&log);
  original.reset();  // bound: its audio stops with it
  EXPECT_FALSE(Player()->IsPlaying());
  EXPECT_TRUE(copy->Play());
  Frame();
  EXPECT_TRUE(copy->IsPlaying());
}

TEST_F(SoundPlaybackTest, FireAndForgetHearsNoEndAndListenersMayPlayFromTheirCallback) {
  MemorySound loose;
  loose.Load("beep");
  loose.SetBind(false);
  loose.Play();
  for (int i = 0; i < 10; ++i) Frame();
  EXPECT_FALSE(Player()->IsPlaying(loose.GetId()));
  EXPECT_TRUE(loose.IsPlaying());  // until stopped
  loose.Stop();

  // The end of one sound starts the next from inside the player's Update.
  struct Chain : nox::EventListener<Sound> {
    void OnEventOccurred(Sound*, const nox::EventData* data) override {
      if (data->m_Type == Sound::kFinished) next->Play();
    }
    MemorySound* next = nullptr;
  } chain;
  MemorySound first;
  MemorySound second;
  first.Load("beep");
  second.Load("beep");
  chain.next = &second;
  first.AddEventListener(&chain);
  first.Play();
  for (int i = 0; i < 7; ++i) Frame();
  EXPECT_FALSE(first.IsPlaying());
  EXPECT_TRUE(second.IsPlaying());
  first.RemoveEventListener(&chain);
}

}  // namespace
