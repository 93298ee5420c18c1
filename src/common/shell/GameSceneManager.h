// The game's scene manager: the game's scene table with its three play modes, the
// music of each scene, the scenes it can build, and the story rules that overrule the
// table when a scene ends (GetNextScene). Every scene change is the game's
// checkpoint: the save game is written as the old scene leaves.
//
// Owns the running scene (through the base) and, for menus, the menu window shown by
// that scene (m_pMenu). Holds the reward pop-up, which stays open over every scene
// once the first scene of the run has been built. Created by the title after the
// sound manager and before the save game; the save game, settings, badges and logger
// are asked only when they exist.
//
// Owns the soft Home and Hint buttons too (none on a 320 by 240 screen): they are
// opened once, above the scenes, and each scene built chooses which of them show.
//
// Holds the exit pop-up too, which Home opens over the paused scene (ExitPrompt).
//
// Parts of the game that are not in this program yet (quests, the journal) are
// reached through the small hooks marked "Hook" below, which give the neutral answer.
#pragma once
#include <cstdint>
#include <map>
#include <memory>

#include "activity/shared/ActivityInvalidInputWindow.h"
#include "scenes/SceneManager.h"
#include "sequencer/Sequencer.h"
#include "shell/GameExitPopUp.h"
#include "shell/GameRewardPopUp.h"
#include "shell/GameSceneData.h"

namespace nox {
class Window;
}

namespace game {

class DappletSoftButtons;
class GameSaveGame;

class GameSceneManager : public noxfw::SceneManager {
 public:
  enum GameMode { Story = 0, Activity = 1, Micromods = 2 };
  typedef std::map<unsigned long, const SceneData*> MusicTable;

  // Frames this long or longer do not count as play time.
  static const unsigned long kLongFrameMs = 50;
  static const unsigned long kFirstLeavingSceneId = 45;

  // Installs a new GameSceneManager unless a scene manager exists.
  static void Create();
  static void Destroy();
  // The instance, if it is the game's.
  static GameSceneManager* Get();

  ~GameSceneManager() override;

  static bool IsActivity(unsigned long id) { return id >= 16 && id <= 19; }
  static bool IsActivityIntro(unsigned long id) { return id == 20 || id == 22 || id == 24 || id == 26; }
  static bool IsActivityOutro(unsigned long id) { return id == 21 || id == 23 || id == 25 || id == 27; }
  static bool IsPlayAgainMenu(unsigned long id) { return id >= 34 && id <= 37; }

  void Update(unsigned long ms) override;
  bool CreateScene(unsigned long id) override;
  void PauseScene() override;
  void ResumeScene() override;
  void DoneScene(eExitReason reason) override;
  void EnterScene() override;
  void PlayScene() override;
  void LeaveScene(eExitReason reason) override;
  void QueueFadeOutEffect(eExitReason reason) override;
  void DestroyScene() override;
  noxfw::SceneData GetNextScene(eExitReason reason) override;

  // The menu's pause state, else the scene's; true without either.
  bool IsScenePaused() const;
  void SetGameMode(GameMode mode);
  GameMode GetGameMode() const { return m_GameMode; }
  // The track for a scene: from the music table, by zone for the adventure, "NONE"
  // (with restart) for a scene without music.
  const char* GetSceneMusic(unsigned long id, bool& restart) const;

  // The adventure names the scene that Jump leads to.
  void SetJumpSceneId(unsigned long id) { m_JumpSceneId = id; }
  unsigned long GetLeavingSceneId() const { return m_LeavingSceneId; }
  uint32_t GetPlayTimeMs() const { return m_PlayTimeMs; }
  bool IsFirstVisit(unsigned long id) const;
  bool IsPlayAgain() const { return m_bPlayAgain; }
  bool IsGameLogOpen() const { return m_bGameLogOpen; }
  nox::Window* GetMenu() const { return m_pMenu; }
  GameRewardPopUp& GetRewardPopUp() { return m_RewardPopUp; }
  noxfw::Sequencer& GetGameSequencer() { return m_Sequencer2; }
  void AddActivityTime(uint32_t ms) { m_ActivityTimeMs += ms; }

  // What MainMenu is built with: new badges, new downloads, a new drawing.
  struct MainMenuNews {
    bool newBadge = false;
    bool newDownloads = false;
    bool newDrawing = false;
  };
  const MainMenuNews& GetMainMenuNews() const { return m_MainMenuNews; }

  // Badges through GameBadge, shown on the reward pop-up. True when anything changed.
  bool AwardBadge(int index);
  void AwardAchievement(uint32_t value);
  void ShowLevelUp() { m_RewardPopUp.ShowLevelUp(); }

  // Pauses the scene and asks whether to leave it for GetExitTarget(). False, and
  // nothing happens, while a scene change runs or the question is up already.
  bool ExitPrompt();
  // Where Yes leads: 1 (the title ends) in the main menu, the adventure from an
  // activity of the story, otherwise the scene's way back.
  unsigned long GetExitTarget();
  bool IsExitPopUpOpen() const { return m_ExitPopUp.GetWindowState() != nox::Window::kClosed; }
  GameExitPopUp& GetExitPopUp() { return m_ExitPopUp; }
  // The soft Home and Hint buttons; without them nothing is touched and nothing
  // happens. A touch is marked from the frame's input until its update.
  bool GetHomeButtonTouched() const;
  bool GetHintButtonTouched() const;
  void TriggerHomeButton();
  void TriggerHintButton();
  // Shows or hides both buttons; the next scene built chooses again.
  void SetSoftUIVisibility(bool visible);
  // Locked buttons take no touches.
  void LockSoftUI();
  void UnlockSoftUI();
  bool IsSoftUILocked() const { return m_bSoftUILocked; }
  void HighlightHintButton();
  void UnHighlightHintButton();
  DappletSoftButtons* GetSoftButtons() const { return m_pSoftButtons; }
  // The invalid-input reminder (GameSceneManagerReminder.cpp). Unless it is open
  // already: pauses the scene, opens the reminder above everything and tells it that
  // the d-pad was used where only touches count. Made at its first use.
  void PlayStylusInputReminderIfNecessary();
  // The same for touches where only the buttons count.
  void PlayDPadInputReminderIfNecessary();
  bool IsInputReminderOpen() const;
  // The reminder has closed: the scene it paused goes on, unless the exit pop-up
  // holds it.
  void InputReminderClosed();
  ActivityInvalidInputWindow* GetInputReminder() const { return m_pInputReminder.get(); }
  // Hooks: the quest system. Quest ids are (zone - 1) * 4 + quest.
  void PickQuest(unsigned long questId) {}
  void ClearQuestsInZone(int zone) {}
  void SetCorrinPositionByQuest(unsigned long questId) {}
  // Hook: the telemetry of zone visits after the story is done.
  void LogZoneAccessesAfterStoryComplete() {}
  // Hook: the journal's count of pin-the-tail pictures done in a zone.
  static bool GetPTTsCompletedInZone(int zone) { return false; }

 protected:
  GameSceneManager();

  // The selection of the running menu: 1 for its first button, 0 for none.
  virtual unsigned long GetMenuSelection() const;
  // Builds the scene or menu of that id (PlayAgain menus come as 32); false if the
  // game has no such scene.
  bool BuildScene(unsigned long id, bool first);
  // The soft buttons, opened above every scene; none on a 320 by 240 screen.
  void CreateSoftButtons();
  void DestroySoftButtons();
  // Which soft buttons the scene of that id shows.
  void SetupSoftButtons(unsigned long id);
  // The buttons back to rest and taking touches, as a scene starts or resumes.
  void ActivateSoftButtons();
  void PrepareMainMenuNews();
  void LogActivityEnter(unsigned long id);
  void LogActivityLeave(unsigned long id, eExitReason reason);
  // The steps of a change wait for the reward pop-up to go quiet.
  bool IsRewardPopUpQuiet() const { return !m_RewardPopUp.IsNotificationShowing(); }
  // Opens the reminder over the paused scene and starts the reminder of that kind.
  void OpenInputReminder(void (ActivityInvalidInputWindow::*remind)());

  // The story rules of GetNextScene, by the scene that ends.
  unsigned long NextFromMainMenu(unsigned long tableId);
  unsigned long NextFromActivityPicker(eExitReason reason, unsigned long tableId);
  unsigned long NextFromZonePicker(eExitReason reason, unsigned long tableId);
  unsigned long NextFromActivity(eExitReason reason, unsigned long tableId);
  unsigned long NextFromPlayAgainA1(eExitReason reason, unsigned long tableId);
  unsigned long NextFromAdventure(eExitReason reason);
  // A zone (0 to 4) made ready to be entered for the first time: its quests cleared,
  // its word set, its intro flag and its unlocked byte set; it becomes current.
  void OpenZone(GameSaveGame& save, int zone);
  // Handles a pending unlock of zone 3 or 4 (index); returns the next scene for it, or
  // 0 when none was pending.
  unsigned long TakePendingZone(GameSaveGame& save);

  MusicTable m_MusicTable;
  uint32_t m_PlayTimeMs = 0;  // ms; frames of kLongFrameMs and more do not count
  bool m_bStartOfRun = true;
  unsigned long m_JumpSceneId = 0;
  unsigned long m_LeavingSceneId = kFirstLeavingSceneId;
  nox::Window* m_pMenu = nullptr;  // owned; null for scenes that are no menu
  GameMode m_GameMode = Story;
  GameRewardPopUp m_RewardPopUp;
  GameExitPopUp m_ExitPopUp;
  DappletSoftButtons* m_pSoftButtons = nullptr;  // owned; null on a 320 by 240 screen
  noxfw::Sequencer m_Sequencer2;
  uint32_t m_BadgeCount = 0;
  bool m_bFirstVisit[kSceneIdCount];  // true until the id has been entered in this run
  uint32_t m_ActivityTimeMs = 0;      // ms in the running activity, for its telemetry
  bool m_bPlayAgain = true;
  bool m_bGameLogOpen = false;
  bool m_bSoftUILocked = false;
  unsigned long m_FailedSceneId = 0;  // the id whose build failed, logged once
  MainMenuNews m_MainMenuNews;
  std::unique_ptr<ActivityInvalidInputWindow> m_pInputReminder;  // made at first use
  bool m_bReminderPausedScene = false;  // the reminder paused the scene and resumes it
};

}  // namespace game
