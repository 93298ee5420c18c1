// The audio module run on demand: what it mixes (levels, pan, resampling, loops, pauses),
// when and where done messages arrive, voices taken by priority, streamed Ogg files good
// and bad, and a mix that repeats to the byte.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <mutex>
#include <thread>
#include <vector>

#include "../TempDir.h"
#include "kernel/Clock.h"
#include "ostra/AudioMPI.h"
#include "ostra/HostAudio.h"
#include "ostra/HostConfig.h"
#include "ostra/KernelMPI.h"

namespace {

namespace Ostra = Hollin::Ostra;
namespace HostAudio = Hollin::Ostra::HostAudio;
using Ostra::CAudioMPI;
using Ostra::tAudioID;

const U32 kRate = HostAudio::kOutputRate;

struct Recorder : Ostra::IEventListener {
  struct Done {
    tAudioID id;
    U32 payload;
    U32 count;
    std::thread::id thread;
  };
  Ostra::tErrType Notify(const Ostra::IEventMessage& message) override {
    if (message.GetEventType() != Ostra::kAudioCompletedEvent) return Ostra::kNoErr;
    const auto& data = static_cast<const Ostra::CAudioEventMessage&>(message).audioMsgData.audioCompleted;
    std::lock_guard<std::mutex> lock(m_Lock);
    m_Done.push_back(Done{data.audioID, data.payload, data.count, std::this_thread::get_id()});
    return Ostra::kNoErr;
  }
  size_t Size() {
    std::lock_guard<std::mutex> lock(m_Lock);
    return m_Done.size();
  }
  std::vector<Done> Take() {
    std::lock_guard<std::mutex> lock(m_Lock);
    std::vector<Done> out;
    out.swap(m_Done);
    return out;
  }
  std::mutex m_Lock;
  std::vector<Done> m_Done;
};

// Interleaved samples of a WAV file written by the module (after its 44-byte header).
std::vector<S16> ReadMix(const std::string& path) {
  std::string bytes = devicetest::ReadText(path);
  std::vector<S16> samples;
  for (size_t i = 44; i + 1 < bytes.size(); i += 2) {
    samples.push_back(static_cast<S16>(static_cast<U16>(static_cast<unsigned char>(bytes[i]) |
                                                        static_cast<unsigned char>(bytes[i + 1]) << 8)));
  }
  return samples;
}

class AudioModuleTest : public ::testing::Test {
 protected:
  void SetUp() override {
    Ostra::Host::HostConfig config;
    config.clock = Ostra::Host::ClockMode::kVirtual;
    config.quiet = true;
    Ostra::Host::SetHostConfig(config);
    m_Audio.SetDefaultAudioEventListener(&m_Default);
    m_Audio.SetMasterVolume(100);
    m_Audio.SetAudioResourcePath("");
  }
  void TearDown() override {
    HostAudio::Shutdown();
    m_Audio.SetDefaultAudioEventListener(nullptr);
    m_Audio.ResumeAudioSystem();
  }

  // Mixes into a fresh WAV file in the temp directory.
  void Capture() {
    std::string error;
    ASSERT_TRUE(HostAudio::Configure(m_Dir / "mix.wav", false, true, error)) << error;
  }
  std::vector<S16> Finish() {
    HostAudio::Shutdown();
    return ReadMix(m_Dir / "mix.wav");
  }

  tAudioID StartBlock(const std::vector<S16>& block, U8 volume = 100, S8 pan = 0, U32 flags = 1,
                      U32 payload = 0, U8 priority = 100, U32 rate = 16000) {
    Ostra::tAudioHeader header;
    header.dataSampleRate = rate;
    header.dataSize = static_cast<U32>(block.size() * 2);
    return m_Audio.StartAudio(header, block.data(), nullptr, volume, priority, pan, nullptr, payload, flags);
  }

  // A sine clip made by sox; empty when sox is not installed.
  std::string MakeOgg(const std::string& name, const char* seconds, const char* channels = "1") {
    std::string path = m_Dir / name;
    std::string command = std::string("sox -n -r 16000 -c ") + channels + " " + path + " synth " + seconds +
                          " sine 440 vol 0.5 2>/dev/null";
    return system(command.c_str()) == 0 ? path : std::string();
  }

  devicetest::TempDir m_Dir;
  CAudioMPI m_Audio;
  Recorder m_Default;
};

TEST_F(AudioModuleTest, AMemoryBlockIsMixedAtItsLevelAndPanAndInterpolatedToTheOutputRate) {
  Capture();
  // A ramp at 16 kHz doubles to 32 kHz with exact midpoints between its samples.
  std::vector<S16> ramp(160);
  for (size_t i = 0; i < ramp.size(); ++i) ramp[i] = static_cast<S16>(i * 100);
  StartBlock(ramp, 100, 0);
  HostAudio::MixMilliseconds(20);
  std::vector<S16> mix = Finish();
  ASSERT_EQ(mix.size(), 20u * 32 * 2);
  for (size_t i = 0; i < 318; ++i) {
    ASSERT_EQ(mix[2 * i], static_cast<S16>(i * 50)) << i;
    ASSERT_EQ(mix[2 * i + 1], mix[2 * i]) << i;
  }
  // The last sample runs down to silence, then the voice has ended.
  EXPECT_EQ(mix[2 * 319], 15900 / 2);
  for (size_t i = 320; i < 640; ++i) ASSERT_EQ(mix[2 * i], 0) << i;

  // Volume, master volume and pan multiply; a hard pan leaves the other side silent.
  Capture();
  m_Audio.SetMasterVolume(50);
  std::vector<S16> level(1600, 10000);
  StartBlock(level, 60, -100);
  tAudioID right = StartBlock(level, 100, 100);
  m_Audio.SetAudioPan(right, 50);
  HostAudio::MixMilliseconds(10);
  mix = Finish();
  // 10000 x 0.6 x 0.5 on the left; the second voice adds 10000 x 0.5 x 0.5 there.
  EXPECT_NEAR(mix[2 * 100], 3000 + 2500, 1);
  EXPECT_NEAR(mix[2 * 100 + 1], 5000, 1);
}

TEST_F(AudioModuleTest, DoneMessagesArriveOnTheModulesThreadBeforeTheMixReturns) {
  Capture();
  std::vector<S16> block(1600, 1000);  // 100 ms
  tAudioID id = StartBlock(block, 100, 0, Ostra::kAudioOptionsDoneMsgAfterComplete, 77);
  ASSERT_NE(id, Ostra::kNoAudioID);
  ASSERT_NE(id, 0u);
  HostAudio::MixMilliseconds(90);
  EXPECT_TRUE(m_Audio.IsAudioPlaying(id));
  EXPECT_EQ(m_Audio.GetAudioTime(id), 90u);
  EXPECT_TRUE(m_Default.Take().empty());
  HostAudio::MixMilliseconds(20);
  std::vector<Recorder::Done> done = m_Default.Take();
  ASSERT_EQ(done.size(), 1u);
  EXPECT_EQ(done[0].id, id);
  EXPECT_EQ(done[0].payload, 77u);
  EXPECT_EQ(done[0].count, 1u);
  EXPECT_NE(done[0].thread, std::this_thread::get_id());
  EXPECT_FALSE(m_Audio.IsAudioPlaying(id));
  EXPECT_FALSE(m_Audio.IsAudioPlaying());

  // Without the flag, or stopped with noDoneMessage, a sound ends silently; a stop
  // without that sends its message with the next mix.
  tAudioID quiet = StartBlock(block, 100, 0, Ostra::kAudioOptionsNoDoneMsg);
  tAudioID muted = StartBlock(block, 100, 0);
  tAudioID stopped = StartBlock(block, 100, 0);
  EXPECT_LT(quiet, muted);
  EXPECT_EQ(m_Audio.StopAudio(muted, true), Ostra::kNoErr);
  EXPECT_EQ(m_Audio.StopAudio(stopped, false), Ostra::kNoErr);
  EXPECT_EQ(m_Audio.StopAudio(stopped, false), Ostra::kErr);
  HostAudio::MixMilliseconds(0);
  done = m_Default.Take();
  ASSERT_EQ(done.size(), 1u);
  EXPECT_EQ(done[0].id, stopped);
  EXPECT_EQ(done[0].count, 0u);
  HostAudio::MixMilliseconds(200);
  EXPECT_TRUE(m_Default.Take().empty());

  // A listener of its own takes the message instead of the default listener, and a
  // cleared default listener hears nothing more.
  Recorder own;
  Ostra::tAudioHeader header;
  header.dataSize = 20;
  tAudioID mine = m_Audio.StartAudio(header, block.data(), nullptr, 100, 1, 0, &own, 0, 1);
  StartBlock(block, 100, 0);
  m_Audio.SetDefaultAudioEventListener(nullptr);
  HostAudio::MixMilliseconds(200);
  ASSERT_EQ(own.Take().size(), 1u);
  EXPECT_TRUE(m_Default.Take().empty());
  (void)mine;
}

TEST_F(AudioModuleTest, UpdateMixesExactlyTheTimeTheVirtualClockMoved) {
  Capture();
  HostAudio::Update();
  U32 ms = 0;
  for (int frame = 0; frame < 30; ++frame) {
    ms += Ostra::Clock::AdvanceFrame();
    HostAudio::Update();
  }
  Ostra::CKernelMPI().TaskSleep(250);
  ms += 250;
  HostAudio::Update();
  EXPECT_EQ(Finish().size(), ms * (kRate / 1000) * 2);
}

TEST_F(AudioModuleTest, LoopsPlayThePayloadMoreTimesAndPausesHoldTheirPlace) {
  Capture();
  std::vector<S16> block(160, 4000);  // 10 ms
  tAudioID looped =
      StartBlock(block, 100, 0, Ostra::kAudioOptionsDoneMsgAfterComplete | Ostra::kAudioOptionsLooped, 2);
  HostAudio::MixMilliseconds(25);
  EXPECT_TRUE(m_Audio.IsAudioPlaying(looped));
  EXPECT_EQ(m_Audio.GetAudioTime(looped), 25u);
  m_Audio.PauseAudio(looped);
  HostAudio::MixMilliseconds(100);
  EXPECT_EQ(m_Audio.GetAudioTime(looped), 25u);
  m_Audio.PauseAudioSystem();
  m_Audio.ResumeAudio(looped);
  HostAudio::MixMilliseconds(100);
  EXPECT_EQ(m_Audio.GetAudioTime(looped), 25u);
  m_Audio.ResumeAudioSystem();
  HostAudio::MixMilliseconds(4);
  EXPECT_TRUE(m_Default.Take().empty());
  HostAudio::MixMilliseconds(10);
  std::vector<Recorder::Done> done = m_Default.Take();
  ASSERT_EQ(done.size(), 1u);
  EXPECT_EQ(done[0].count, 3u);
  std::vector<S16> mix = Finish();
  // Sound for 25 ms, 200 ms of silence while paused, then the last 5 ms.
  EXPECT_EQ(mix[2 * (20 * 32)], 4000);
  EXPECT_EQ(mix[2 * (100 * 32)], 0);
  EXPECT_EQ(mix[2 * (226 * 32)], 4000);

  // An empty block looped forever ends at once instead of spinning.
  Capture();
  tAudioID empty = StartBlock({}, 100, 0, 3, 0x40000000);
  ASSERT_NE(empty, Ostra::kNoAudioID);
  HostAudio::MixMilliseconds(1);
  EXPECT_FALSE(m_Audio.IsAudioPlaying(empty));
}

TEST_F(AudioModuleTest, AFullModuleGivesTheVoiceOfTheLowestPriorityOnlyToAHigherOne) {
  std::vector<S16> block(16000, 100);
  std::vector<tAudioID> ids;
  for (U32 i = 0; i < Ostra::kMaxAudioVoices; ++i)
    ids.push_back(StartBlock(block, 100, 0, 1, 0, i == 5 ? 10 : 50));
  EXPECT_EQ(StartBlock(block, 100, 0, 1, 0, 10), Ostra::kNoAudioID);
  tAudioID taker = StartBlock(block, 100, 0, 1, 0, 11);
  ASSERT_NE(taker, Ostra::kNoAudioID);
  EXPECT_FALSE(m_Audio.IsAudioPlaying(ids[5]));
  EXPECT_EQ(m_Audio.GetAudioPriority(taker), 11);
  // Among equals the oldest gives way.
  m_Audio.SetAudioPriority(taker, 90);
  tAudioID next = StartBlock(block, 100, 0, 1, 0, 60);
  ASSERT_NE(next, Ostra::kNoAudioID);
  EXPECT_FALSE(m_Audio.IsAudioPlaying(ids[0]));
  EXPECT_TRUE(m_Audio.IsAudioPlaying(ids[1]));
  HostAudio::MixMilliseconds(0);
  std::vector<Recorder::Done> done = m_Default.Take();
  ASSERT_EQ(done.size(), 2u);
  EXPECT_EQ(done[0].id, ids[5]);
  EXPECT_EQ(done[1].id, ids[0]);
  // Settings read back as set, clamped to their ranges; unknown ids read 0.
  m_Audio.SetAudioVolume(next, 250);
  m_Audio.SetAudioPan(next, -120);
  EXPECT_EQ(m_Audio.GetAudioVolume(next), 100);
  EXPECT_EQ(m_Audio.GetAudioPan(next), -100);
  EXPECT_EQ(m_Audio.GetAudioVolume(ids[0]), 0);
  EXPECT_EQ(m_Audio.StopAllAudio(), Ostra::kNoErr);
  EXPECT_FALSE(m_Audio.IsAudioPlaying());
}

TEST_F(AudioModuleTest, StreamedOggFilesPlayLoopAndEndAndBrokenOnesEndWithTheirMessage) {
  std::string mono = MakeOgg("tone.ogg", "0.25");
  std::string stereo = MakeOgg("stereo.ogg", "0.1", "2");
  if (mono.empty() || stereo.empty()) GTEST_SKIP() << "sox with Ogg Vorbis is not installed";
  Capture();
  // Relative names are looked up under the resource path.
  m_Audio.SetAudioResourcePath(m_Dir.Path() + "/");
  tAudioID tone = m_Audio.StartAudio("tone.ogg", 100, 1, 0, nullptr, 0, 1);
  tAudioID twice = m_Audio.StartAudio(stereo, 100, 1, 0, nullptr, 1, 3);
  ASSERT_NE(tone, Ostra::kNoAudioID);
  ASSERT_NE(twice, Ostra::kNoAudioID);
  EXPECT_EQ(m_Audio.StartAudio("missing.ogg", 100, 1, 0), Ostra::kNoAudioID);
  HostAudio::MixMilliseconds(150);
  EXPECT_TRUE(m_Audio.IsAudioPlaying(tone));
  EXPECT_EQ(m_Audio.GetAudioTime(tone), 150u);
  std::vector<Recorder::Done> done = m_Default.Take();
  EXPECT_TRUE(done.empty());
  HostAudio::MixMilliseconds(150);
  done = m_Default.Take();
  ASSERT_EQ(done.size(), 2u);
  EXPECT_EQ(done[0].id, twice);
  EXPECT_EQ(done[0].count, 2u);
  EXPECT_EQ(done[1].id, tone);
  std::vector<S16> mix = Finish();
  double energy = 0;
  for (size_t i = 0; i < 200 * 32 * 2; ++i) energy += static_cast<double>(mix[i]) * mix[i];
  EXPECT_GT(energy / (200 * 32 * 2), 1e6);  // a sine of half scale is there

  // A file that opens but is no Vorbis stream, or whose pages are damaged, starts and
  // ends with its done message.
  std::string bytes = devicetest::ReadText(mono);
  devicetest::WriteText(m_Dir / "garbage.ogg", "OggS this is not a stream");
  std::string damaged = bytes;
  for (size_t i = bytes.size() / 2; i < bytes.size(); i += 7)
    damaged[i] = static_cast<char>(damaged[i] ^ 0x5A);
  devicetest::WriteText(m_Dir / "damaged.ogg", damaged);
  devicetest::WriteText(m_Dir / "cut.ogg", bytes.substr(0, bytes.size() / 3));
  Capture();
  std::vector<tAudioID> ids;
  for (const char* name : {"garbage.ogg", "damaged.ogg", "cut.ogg"}) {
    ids.push_back(m_Audio.StartAudio(m_Dir / name, 100, 1, 0, nullptr, 0, 1));
    ASSERT_NE(ids.back(), Ostra::kNoAudioID) << name;
  }
  for (int i = 0; i < 20 && m_Audio.IsAudioPlaying(); ++i) HostAudio::MixMilliseconds(100);
  done = m_Default.Take();
  ASSERT_EQ(done.size(), 3u);
  EXPECT_FALSE(m_Audio.IsAudioPlaying());
}

TEST_F(AudioModuleTest, TheSameCallsWriteTheSameFileToTheByte) {
  std::string tone = MakeOgg("tone.ogg", "0.3");
  std::vector<S16> block(4000);
  for (size_t i = 0; i < block.size(); ++i) block[i] = static_cast<S16>((i * 7919) % 20000 - 10000);
  std::string first;
  for (int run = 0; run < 2; ++run) {
    Capture();
    tAudioID a = StartBlock(block, 70, -30);
    if (!tone.empty()) m_Audio.StartAudio(tone, 80, 1, 20, nullptr, 1, 3);
    for (int frame = 0; frame < 40; ++frame) {
      if (frame == 10) m_Audio.SetAudioVolume(a, 20);
      if (frame == 20) StartBlock(block, 100, 90, 1, 0, 100, 22050);
      HostAudio::MixMilliseconds(frame % 3 == 2 ? 16 : 17);
    }
    HostAudio::Shutdown();
    std::string bytes = devicetest::ReadText(m_Dir / "mix.wav");
    ASSERT_GT(bytes.size(), 44u);
    if (run == 0) first = bytes;
  }
  EXPECT_EQ(devicetest::ReadText(m_Dir / "mix.wav"), first);
  // The header is a valid 32 kHz stereo PCM header with its sizes filled in.
  EXPECT_EQ(first.substr(0, 4), "RIFF");
  EXPECT_EQ(first.substr(36, 4), "data");
  U32 dataSize = static_cast<unsigned char>(first[40]) | static_cast<unsigned char>(first[41]) << 8 |
                 static_cast<unsigned char>(first[42]) << 16 |
                 static_cast<U32>(static_cast<unsigned char>(first[43])) << 24;
  EXPECT_EQ(dataSize, first.size() - 44);
}

TEST_F(AudioModuleTest, TheSoundDevicePullsTheMixOnItsOwnThread) {
  // SDL's dummy driver runs the device thread at the pace of real time, with no sound.
  setenv("SDL_AUDIODRIVER", "dummy", 1);
  std::string error;
  if (!HostAudio::Configure(m_Dir / "device.wav", false, false, error)) GTEST_SKIP() << error;
  EXPECT_TRUE(HostAudio::IsDeviceOutput());
  std::vector<S16> block(800, 3000);  // 50 ms
  tAudioID id = StartBlock(block);
  HostAudio::Update();  // the device keeps its own time
  for (int i = 0; i < 200 && m_Audio.IsAudioPlaying(id); ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  EXPECT_FALSE(m_Audio.IsAudioPlaying(id));
  for (int i = 0; i < 200 && m_Default.Size() == 0; ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  std::vector<Recorder::Done> done = m_Default.Take();
  ASSERT_EQ(done.size(), 1u);
  EXPECT_EQ(done[0].id, id);
  HostAudio::Shutdown();
  EXPECT_FALSE(HostAudio::IsDeviceOutput());
  std::vector<S16> mix = ReadMix(m_Dir / "device.wav");
  size_t loud = 0;
  for (size_t i = 0; i < mix.size(); i += 2) loud += mix[i] == 3000;
  EXPECT_GE(loud, 50u * 32 - 2);
  unsetenv("SDL_AUDIODRIVER");
}

}  // namespace
