// The whole sound stack of the game on the headless audio module, for the manager and
// mixing tests: a title directory with effects, the settings at the game's values, the
// player, and the game's sound manager.
#pragma once
#include <gtest/gtest.h>

#include "../../engine/sound/SoundTestFiles.h"
#include "core/PathRegistry.h"
#include "core/Settings.h"
#include "ostra/HostAudio.h"
#include "ostra/KernelMPI.h"
#include "sound/GameSoundManager.h"
#include "sound/MemorySound.h"
#include "sound/SoundPlayer.h"
#include "sound/StreamingSound.h"

namespace soundtest {

class SoundWorld {
 public:
  explicit SoundWorld(const TempDir& dir) : m_Dir(dir), m_Platform(dir) {}
  ~SoundWorld() { Stop(); }

  // `wavPath` empty: mixed on demand into nothing.
  void Start(const std::string& wavPath = std::string()) {
    nox::PathRegistry::Create();
    nox::Settings::Create();
    nox::Settings* s = nox::Settings::s_pSettings;
    s->RegisterU32("Sound Duck Amount", 40, 0, 100, 5, "1.Global", nullptr);
    s->RegisterU32("Sound Duck Step", 8, 1, 10, 1, "1.Global", nullptr);
    s->RegisterU32("Background Music Level", 60, 0, 100, 5, "1.Global", nullptr);
    std::string error;
    EXPECT_TRUE(Hollin::Ostra::HostAudio::Configure(wavPath, false, true, error)) << error;
    nox::SoundPlayer::Create(16, false);
    nox::SoundPlayer::m_pSoundPlayer->Initialize("Audio/");
    nox::SoundPlayer::m_pSoundPlayer->SetMasterVolume(100);
    game::GameSoundManager::Create();
    m_bStarted = true;
  }

  void Stop() {
    if (!m_bStarted) return;
    m_bStarted = false;
    nox::SoundManager::Destroy();
    nox::SoundPlayer::m_pSoundPlayer->Shutdown();
    nox::SoundPlayer::Destroy();
    Hollin::Ostra::HostAudio::Shutdown();
    nox::Settings::Destroy();
    nox::PathRegistry::Destroy();
  }

  // One frame as the title runs it: the virtual clock moves on (17, 17, 16 ms), the
  // module mixes that time, then the player and the manager update.
  void Frame() {
    static const uint32_t kPattern[3] = {17, 17, 16};
    const uint32_t dt = kPattern[m_Frame++ % 3];
    Hollin::Ostra::CKernelMPI().TaskSleep(dt);
    Hollin::Ostra::HostAudio::Update();
    nox::SoundPlayer::m_pSoundPlayer->Update(dt);
    nox::SoundManager::sm_pInstance->Update(dt);
  }

  std::string Title(const std::string& name) const { return m_Dir / ("title/" + name); }

  // A 16 kHz mono PCM file of `ms` ms of a square wave of the given amplitude.
  void WriteTone(const std::string& name, uint32_t ms, int16_t amplitude = 12000) {
    std::vector<int16_t> samples(16 * ms);
    for (size_t i = 0; i < samples.size(); ++i) samples[i] = (i / 20) % 2 ? amplitude : -amplitude;
    WavBuilder wav;
    wav.Format(1, 1, 16000, 2, 16);
    wav.Chunk("data", Samples16(samples));
    WriteBytes(Title("Audio/SFX/" + name + ".wav"), wav.File());
  }

  // A sine made by sox as "Audio/Music/<name>.ogg"; false without sox.
  bool WriteOgg(const std::string& name, const char* seconds) {
    BaseUtils::MakeDirectories(Title("Audio/Music"));
    return Sox("-n -r 16000 -c 1 " + Title("Audio/Music/" + name + ".ogg") + " synth " + seconds +
               " sine 440 vol 0.5");
  }

  const Platform& GetPlatform() const { return m_Platform; }

 private:
  const TempDir& m_Dir;
  Platform m_Platform;
  bool m_bStarted = false;
  uint32_t m_Frame = 0;
};

}  // namespace soundtest
