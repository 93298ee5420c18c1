// The game's sound manager: its categories and slot limits, who gives way in a full
// category, the four rules (ducking under the narrator included), category control,
// background music, resident groups, and the framework rules the game leaves unused.
#include <gtest/gtest.h>

#include <memory>

#include "SoundTestWorld.h"
#include "sound/FrameworkSoundType.h"
#include "sound/SoundGroup.h"

namespace {

using game::GameSoundManager;
using nox::MemorySound;
using nox::Sound;
using nox::SoundManager;

class GameSoundManagerTest : public ::testing::Test {
 protected:
  GameSoundManagerTest() : m_World(m_Dir) {}
  void SetUp() override {
    m_World.WriteTone("beep", 100);
    m_World.WriteTone("long", 2000);
    m_World.Start();
  }

  static SoundManager* Manager() { return SoundManager::sm_pInstance; }
  static uint32_t Count(uint32_t category) { return Manager()->GetCategory(category)->CountActive(); }
  static std::vector<Sound*> Active(uint32_t category) {
    std::vector<Sound*> out;
    for (nox::SoundData& entry : Manager()->GetCategory(category)->GetActive()) out.push_back(entry.m_pSound);
    return out;
  }
  static uint32_t PlayerVolume(const Sound* sound) {
    return nox::SoundPlayer::m_pSoundPlayer->Volume(sound->GetId());
  }

  // A loaded sound the test keeps (played with copy false).
  MemorySound* Make(const char* file, uint32_t volume = 100, uint32_t priority = 100, uint32_t type = 0) {
    m_Sounds.emplace_back(new MemorySound());
    MemorySound* sound = m_Sounds.back().get();
    EXPECT_TRUE(sound->Load(file));
    sound->SetVolume(volume);
    sound->SetPriority(priority);
    sound->SetType(type);
    return sound;
  }

  soundtest::TempDir m_Dir;
  soundtest::SoundWorld m_World;
  std::vector<std::unique_ptr<MemorySound>> m_Sounds;  // destroyed before the world stops

  void TearDown() override {
    m_Sounds.clear();
    m_World.Stop();
  }
};

TEST_F(GameSoundManagerTest, TheGameHasThirteenCategoriesWithTheirSlotsAndRules) {
  ASSERT_NE(GameSoundManager::Get(), nullptr);
  const uint32_t slots[10] = {1, 1, 2, 0, 2, 1, 1, 4, 1, 1};
  for (uint32_t id = 0; id < 13; ++id) {
    ASSERT_NE(Manager()->GetCategory(id), nullptr) << id;
    EXPECT_EQ(Manager()->GetCategory(id)->GetSlots(), id < 10 ? slots[id] : GameSoundManager::kUnlimited)
        << id;
    const size_t rules = id == 1 || id == 4 ? 2 : 0;
    EXPECT_EQ(Manager()->GetCategory(id)->GetRules().size(), rules) << id;
  }
  EXPECT_EQ(Manager()->GetCategory(13), nullptr);
  // Create again does nothing.
  SoundManager* before = Manager();
  GameSoundManager::Create();
  SoundManager::Create(0, nullptr, nullptr);
  EXPECT_EQ(Manager(), before);
  EXPECT_EQ(nox::SoundGroup::GetGroup(0), &GameSoundManager::Get()->GetResidentSFX());
}

TEST_F(GameSoundManagerTest, SilentSoundsCategoryThreeAndUnknownCategoriesAreRefusedWithoutEffect) {
  MemorySound* music = Make("long");
  ASSERT_TRUE(Manager()->Play(music, 0, false));
  MemorySound* silent = Make("beep", 0);
  EXPECT_FALSE(Manager()->Play(silent, 0, false));
  EXPECT_TRUE(music->IsPlaying());
  EXPECT_FALSE(silent->IsPlaying());
  EXPECT_FALSE(Manager()->Play(Make("beep"), 3, false));
  EXPECT_FALSE(Manager()->Play(Make("beep"), 13, true));
  EXPECT_EQ(Count(3), 0u);
  EXPECT_EQ(Active(0), std::vector<Sound*>{music});
  // Unknown ids do nothing.
  Manager()->Stop(40);
  Manager()->Pause(40);
  Manager()->Resume(40);
  EXPECT_FALSE(Manager()->IsPlaying(40));
  EXPECT_EQ(Manager()->GetSound(40), nullptr);
}

TEST_F(GameSoundManagerTest, AFullCategoryGivesUpItsNewestSoundOfNoHigherPriority) {
  std::vector<MemorySound*> buttons;
  for (int i = 0; i < 4; ++i) {
    buttons.push_back(Make("long"));
    ASSERT_TRUE(Manager()->Play(buttons.back(), 7, false));
  }
  MemorySound* fifth = Make("long");
  EXPECT_TRUE(Manager()->Play(fifth, 7, false));
  EXPECT_FALSE(buttons[3]->IsPlaying());
  EXPECT_EQ(Active(7), (std::vector<Sound*>{buttons[0], buttons[1], buttons[2], fifth}));
  // A sound of priority 99 finds no candidate among sounds of 100, and category 7 has no
  // rule to fall back on.
  EXPECT_FALSE(Manager()->Play(Make("long", 100, 99), 7, false));
  EXPECT_EQ(Count(7), 4u);
  // The lowest priority number among those not above the new sound gives way.
  buttons[1]->SetPriority(50);
  EXPECT_TRUE(Manager()->Play(Make("long", 100, 60), 7, false));
  EXPECT_FALSE(buttons[1]->IsPlaying());
}

TEST_F(GameSoundManagerTest, WorldSoundsGiveWayToTheQuietest) {
  MemorySound* loud = Make("long", 80);
  MemorySound* quiet = Make("long", 50);
  Manager()->Play(loud, 4, false);
  Manager()->Play(quiet, 4, false);
  // Priority 99 finds no candidate among sounds of 100. Quieter than everything there:
  // refused; louder than one of them: the rule stops the quieter of the two.
  EXPECT_FALSE(Manager()->Play(Make("long", 30, 99), 4, false));
  EXPECT_EQ(Active(4), (std::vector<Sound*>{loud, quiet}));
  MemorySound* middle = Make("long", 70, 99);
  EXPECT_TRUE(Manager()->Play(middle, 4, false));
  EXPECT_FALSE(quiet->IsPlaying());
  EXPECT_EQ(Active(4), (std::vector<Sound*>{loud, middle}));

  // Copies of the same Action effect: the quietest copy gives way before the slots are
  // counted, and a copy of another name or type does not count.
  Manager()->Stop(4);
  MemorySound* first = Make("beep", 40, 100, noxfw::FrameworkSoundType::Action);
  MemorySound* second = Make("beep", 60, 100, noxfw::FrameworkSoundType::Action);
  Manager()->Play(first, 4, false);
  Manager()->Play(second, 4, false);
  MemorySound* third = Make("beep", 50, 100, noxfw::FrameworkSoundType::Action);
  EXPECT_TRUE(Manager()->Play(third, 4, false));
  EXPECT_EQ(Active(4), (std::vector<Sound*>{second, third}));
  MemorySound* other = Make("long", 10, 100, noxfw::FrameworkSoundType::Action);
  EXPECT_TRUE(Manager()->Play(other, 4, false));  // replaces the newest by priority
  EXPECT_EQ(Active(4), (std::vector<Sound*>{second, other}));
}

TEST_F(GameSoundManagerTest, TheNarratorDucksTheSoundtrackBeforeSpeakingAndRestoresItAfter) {
  MemorySound* soundtrack = Make("long", 60);
  soundtrack->SetLoop(true);
  Manager()->Play(soundtrack, 0, false);

  // Already ducked when the narrator's start event comes.
  struct DuckedAtStart : nox::EventListener<Sound> {
    void OnEventOccurred(Sound*, const nox::EventData* data) override {
      if (data->m_Type == Sound::kStarted) seen.push_back(watched->GetIsDucked());
    }
    Sound* watched = nullptr;
    std::vector<bool> seen;
  } check;
  check.watched = soundtrack;
  MemorySound* line = Make("beep");
  line->AddEventListener(&check);
  Manager()->Play(line, 1, false);
  EXPECT_EQ(check.seen, std::vector<bool>{true});
  std::vector<uint32_t> levels;
  for (int i = 0; i < 5; ++i) {
    m_World.Frame();
    levels.push_back(PlayerVolume(soundtrack));
  }
  EXPECT_EQ(levels, (std::vector<uint32_t>{52, 44, 36, 28, 20}));
  // The 100 ms line ends with the sixth frame (at 100 ms); from then on the soundtrack
  // rises back to the music level.
  levels.clear();
  for (int i = 0; i < 7; ++i) {
    m_World.Frame();
    levels.push_back(PlayerVolume(soundtrack));
  }
  EXPECT_FALSE(soundtrack->GetIsDucked());
  EXPECT_EQ(levels, (std::vector<uint32_t>{28, 36, 44, 52, 60, 60, 60}));
  line->RemoveEventListener(&check);

  // A line replaced by another: restore for the old one, duck for the new; it stays set.
  MemorySound* a = Make("long");
  MemorySound* b = Make("long");
  Manager()->Play(a, 1, false);
  EXPECT_TRUE(soundtrack->GetIsDucked());
  Manager()->Play(b, 1, false);
  EXPECT_FALSE(a->IsPlaying());
  EXPECT_TRUE(soundtrack->GetIsDucked());
  // Stopped, or failed to start, restores just as finishing does.
  Manager()->Stop(1);
  EXPECT_FALSE(soundtrack->GetIsDucked());
  nox::StreamingSound missing;
  missing.Load("nothere");
  Manager()->Play(&missing, 1, false);
  EXPECT_FALSE(soundtrack->GetIsDucked());
  EXPECT_EQ(Count(1), 0u);
}

TEST_F(GameSoundManagerTest, CategoriesPauseResumeAndStopAsAWhole) {
  MemorySound* a = Make("long");
  MemorySound* b = Make("long");
  Manager()->Play(a, 10, false);
  Manager()->Play(b, 10, false);
  EXPECT_EQ(Manager()->GetSound(10), a);
  EXPECT_TRUE(Manager()->IsPlaying(10));
  // Pausing twice needs two resumes.
  Manager()->Pause(10);
  Manager()->Pause(10);
  Manager()->Resume(10);
  EXPECT_TRUE(a->IsPaused());
  Manager()->Resume(10);
  EXPECT_FALSE(a->IsPaused());
  EXPECT_FALSE(b->IsPaused());
  Manager()->StopAll();
  EXPECT_FALSE(a->IsPlaying());
  EXPECT_EQ(Count(10), 0u);
  EXPECT_FALSE(Manager()->IsPlaying(10));
  EXPECT_EQ(Manager()->GetSound(10), nullptr);

  // Owned copies live until their end event; the caller's object outlives its own.
  MemorySound* mine = Make("beep");
  Manager()->Play(mine, 11, true);
  Manager()->Play(mine, 11, false);
  EXPECT_EQ(Count(11), 2u);
  EXPECT_NE(Active(11)[0], mine);
  for (int i = 0; i < 10; ++i) m_World.Frame();
  EXPECT_EQ(Count(11), 0u);
  EXPECT_FALSE(mine->IsPlaying());
  EXPECT_TRUE(mine->empty());  // the category no longer listens
}

TEST_F(GameSoundManagerTest, ResidentEffectsAreFoundByNameAndPlayedAsCopies) {
  nox::SoundGroup& resident = GameSoundManager::Get()->GetResidentSFX();
  EXPECT_EQ(resident.GetResourcePath(), "Audio/SFX/");
  EXPECT_FALSE(Manager()->PlayFromGroup("beep", 10, 80));
  ASSERT_NE(resident.Load("beep"), nullptr);
  EXPECT_EQ(resident.Load("nothere"), nullptr);
  EXPECT_FALSE(resident.Contains("nothere"));
  {
    // A later group with the same name does not answer: groups are asked in id order.
    nox::SoundGroup later(5);
    later.Load("beep");
    EXPECT_EQ(nox::SoundGroup::FindSound("beep"), resident.GetSound("beep"));
    EXPECT_EQ(nox::SoundGroup::GetGroup(5), &later);
  }
  EXPECT_EQ(nox::SoundGroup::GetGroup(5), nullptr);

  Sound* own = resident.GetSound("beep");
  EXPECT_TRUE(Manager()->PlayFromGroup("beep", 10, 80));
  Sound* copy = Manager()->GetSound(10);
  ASSERT_NE(copy, nullptr);
  EXPECT_NE(copy, own);
  EXPECT_EQ(copy->GetVolume(), 80u);
  EXPECT_FALSE(own->IsPlaying());

  // A memory sound loading a resident name shares its buffer.
  MemorySound shared;
  shared.Load("beep");
  EXPECT_EQ(shared.GetBuffer(), static_cast<MemorySound*>(own)->GetBuffer());
  GameSoundManager::Get()->UnloadResidentSFX();
  EXPECT_FALSE(resident.Contains("beep"));
  EXPECT_NE(shared.GetBuffer()->GetData(), nullptr);
  EXPECT_TRUE(shared.Play());
}

TEST_F(GameSoundManagerTest, BackgroundMusicKeepsPlayingOnItsOwnNameAndEmptyMeansSilence) {
  nox::StreamingSound music;
  music.SetLoop(true);
  Manager()->PlayBackgroundMusic("tune", false);  // no music object yet: nothing
  if (!m_World.WriteOgg("tune", "1") || !m_World.WriteOgg("other", "1")) GTEST_SKIP() << "sox is missing";
  Manager()->SetBackgroundMusic(&music);
  Manager()->PlayBackgroundMusic("tune", false);
  ASSERT_TRUE(music.IsPlaying());
  EXPECT_EQ(music.GetVolume(), 60u);
  const uint32_t id = music.GetId();
  music.SetVolume(30);
  music.SetIsDucked(true);
  Manager()->PlayBackgroundMusic("tune", false);
  EXPECT_EQ(music.GetId(), id);
  EXPECT_EQ(music.GetVolume(), 60u);
  EXPECT_FALSE(music.GetIsDucked());
  Manager()->PlayBackgroundMusic("tune", true);
  EXPECT_NE(music.GetId(), id);
  Manager()->PlayBackgroundMusic("other", false);
  EXPECT_EQ(music.GetName(), "other");
  EXPECT_TRUE(music.IsPlaying());
  // A stopped track of the same name starts again.
  Manager()->StopBackgroundMusic();
  Manager()->PlayBackgroundMusic("other", false);
  EXPECT_TRUE(music.IsPlaying());
  // StopAll leaves the music alone; an empty name silences it.
  Manager()->StopAll();
  EXPECT_TRUE(music.IsPlaying());
  Manager()->PlayBackgroundMusic("", false);
  EXPECT_FALSE(music.IsPlaying());
  EXPECT_EQ(music.GetName(), "");
  Manager()->SetBackgroundMusic(nullptr);
}

// The framework's rules that the game does not add, on a manager of their own.
TEST(FrameworkSoundRules, EnemySoundsAreNotDoubledAndDeathSilencesSpeech) {
  soundtest::TempDir dir;
  soundtest::SoundWorld world(dir);
  world.WriteTone("growl", 500);
  world.Start();
  SoundManager::Destroy();
  const unsigned long ids[3] = {1, 2, 4};
  const unsigned long slots[3] = {1, 1, 3};
  SoundManager::Create(3, ids, slots);
  SoundManager* manager = SoundManager::sm_pInstance;
  manager->AddRule(new noxfw::VaryEnemySoundsSoundRule());
  manager->AddRule(new noxfw::PlayerDeathSoundRule());

  MemorySound growl;
  growl.Load("growl");
  growl.SetType(noxfw::FrameworkSoundType::Action);
  EXPECT_TRUE(manager->Play(&growl, 4, true));
  EXPECT_FALSE(manager->Play(&growl, 4, true));  // vetoed while a copy runs
  growl.SetType(noxfw::FrameworkSoundType::Default);
  EXPECT_TRUE(manager->Play(&growl, 4, true));  // the filter is on the type

  MemorySound speech;
  speech.Load("growl");
  manager->Play(&speech, 1, false);
  MemorySound death;
  death.Load("growl");
  death.SetType(noxfw::FrameworkSoundType::Death);
  EXPECT_TRUE(manager->Play(&death, 2, false));
  EXPECT_FALSE(speech.IsPlaying());

  // A rule for every category is listed in each and taken out of each; rules still
  // listed at the end belong to the manager (the two above).
  struct Everywhere : noxfw::DuckMusicForNarratorSoundRule {
    Everywhere() { m_HomeCategory = nox::kSoundRuleAll; }
  } all;
  manager->AddRule(&all);
  EXPECT_EQ(manager->GetCategory(2)->GetRules().size(), 2u);
  EXPECT_EQ(manager->GetCategory(4)->GetRules().size(), 2u);
  manager->RemoveRule(&all);
  EXPECT_EQ(manager->GetCategory(4)->GetRules().size(), 1u);
  world.Stop();
}

}  // namespace
