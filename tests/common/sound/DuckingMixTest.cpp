// The whole chain heard at the output: background music and a narrator line played by
// the game's sound manager, mixed headless by the virtual clock into a WAV file. The
// music is measurably quieter while the narrator speaks, comes back afterwards, and the
// file is the same to the byte on a second run.
#include <gtest/gtest.h>

#include <cmath>

#include "SoundTestWorld.h"

namespace {

using soundtest::SoundWorld;

const int kVoiceStartFrame = 60;  // 1 s
const int kFrames = 240;          // 4 s

// Plays the scene and returns the samples of the mix.
std::vector<int16_t> PlayScene(const soundtest::TempDir& dir, const std::string& wav) {
  SoundWorld world(dir);
  world.Start(wav);
  nox::StreamingSound music;
  music.SetLoop(true);
  nox::SoundManager* manager = nox::SoundManager::sm_pInstance;
  manager->SetBackgroundMusic(&music);
  manager->PlayBackgroundMusic("theme", false);
  EXPECT_TRUE(music.IsPlaying());
  nox::MemorySound line;
  EXPECT_TRUE(line.Load("line"));
  line.SetPan(-100);  // the narrator on the left only: the right side is the music alone
  for (int frame = 0; frame < kFrames; ++frame) {
    if (frame == kVoiceStartFrame) {
      EXPECT_TRUE(manager->Play(&line, game::GameSoundManager::kSpeech, true));
    }
    world.Frame();
  }
  manager->SetBackgroundMusic(nullptr);
  world.Stop();
  return soundtest::ReadPcm16(wav);
}

// RMS of the right channel between two times.
double RightRms(const std::vector<int16_t>& mix, double from, double to) {
  const size_t first = static_cast<size_t>(from * 32000), last = static_cast<size_t>(to * 32000);
  double sum = 0;
  for (size_t frame = first; frame < last && 2 * frame + 1 < mix.size(); ++frame) {
    sum += static_cast<double>(mix[2 * frame + 1]) * mix[2 * frame + 1];
  }
  return std::sqrt(sum / static_cast<double>(last - first));
}

TEST(DuckingMix, MusicSinksUnderTheNarratorAndTheMixRepeatsToTheByte) {
  soundtest::TempDir dir;
  {
    SoundWorld files(dir);
    files.WriteTone("line", 1500);
    if (!files.WriteOgg("theme", "0.7")) GTEST_SKIP() << "sox with Ogg Vorbis is not installed";
  }
  const std::string first = dir / "first.wav";
  const std::string second = dir / "second.wav";
  std::vector<int16_t> mix = PlayScene(dir, first);
  ASSERT_EQ(mix.size(), 4u * 32000 * 2);  // 240 frames of the virtual clock are 4 s

  const double before = RightRms(mix, 0.2, 0.95);
  const double during = RightRms(mix, 1.3, 2.4);  // the ramp is down after 5 frames
  const double after = RightRms(mix, 3.0, 3.9);   // the line ends at 2.5 s, back up by 2.6 s
  // Music at 60 before and after, at 20 under the narrator: a third of the level.
  EXPECT_GT(before, 1000.0);
  EXPECT_NEAR(during / before, 1.0 / 3.0, 0.05);
  EXPECT_NEAR(after / before, 1.0, 0.05);
  // The narrator is heard on the left.
  double left = 0;
  for (size_t frame = 48000; frame < 64000; ++frame) left += std::abs(mix[2 * frame] - mix[2 * frame + 1]);
  EXPECT_GT(left / 16000, 1000.0);

  PlayScene(dir, second);
  EXPECT_TRUE(soundtest::ReadBytes(first) == soundtest::ReadBytes(second));
}

}  // namespace
