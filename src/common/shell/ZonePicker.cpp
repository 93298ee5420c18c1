#include "shell/ZonePicker.h"

#include <cstdio>

#include "core/HashString.h"
#include "core/Settings.h"
#include "graphics/TileAnimData.h"
#include "graphics/TileAnimation.h"
#include "input/Input.h"
#include "menu/Button.h"
#include "save/GameSaveGame.h"
#include "scenes/ExitReason.h"
#include "sequencer/SeqBuild.h"
#include "shell/DoneSceneSeqItem.h"
#include "sound/PlayCopy.h"

namespace game {

NOX_RTTI_DEFINE(ZonePicker, GameMenu);

namespace {

const char* const kZoneSprites[ZonePicker::kZoneCount] = {"M6_Zone1", "M6_Zone2", "M6_Zone3", "M6_Zone4",
                                                          "M6_Zone5"};
// Each card's own name as a sequence: what it shows once chosen.
const char* const kZoneNames[ZonePicker::kZoneCount] = {"Zone1", "Zone2", "Zone3", "Zone4", "Zone5"};
const nox::NameHash kRunesPoint = nox::HashString("Runes");
const nox::NameHash kStarPoint = nox::HashString("Star");
const nox::NameHash kStar = nox::HashString("Star");
// The story's last quest record; its complete byte ends the story.
const int kLastQuest = 4 * (kZoneCount - 1) + 3;

const uint32_t kHomeBit = 0x100;
// Glyphs of the five counts with room to spare ("4294967295/20" is 13).
const unsigned long kTextCapacity = 80;

bool Setting(const char* name) {
  const nox::Settings* settings = nox::Settings::s_pSettings;
  return settings && settings->GetBoolValue(name);
}

}  // namespace

ZonePicker::ZonePicker(const char* introVoice, const char* repeatVoice)
    : GameMenu("M6_Background", "HNCurry", introVoice, repeatVoice) {
  for (int i = 0; i < kZoneCount; ++i) m_pButtons[i] = CreateButton(kZoneSprites[i]);
  noxfw::Button* const* z = m_pButtons;
  // The cards zigzag along the map's path: 1, 3 and 5 low, 2 and 4 high.
  //        button up     down   left   right  previous next
  AddButton(z[0], z[1], nullptr, nullptr, z[1], z[4], z[1]);
  AddButton(z[1], nullptr, z[0], z[0], z[2], z[0], z[2]);
  AddButton(z[2], z[1], nullptr, z[1], z[3], z[1], z[3]);
  AddButton(z[3], nullptr, z[2], z[2], z[4], z[2], z[4]);
  AddButton(z[4], z[3], nullptr, z[3], nullptr, z[3], z[0]);
  for (int zone = 0; zone < kZoneCount; ++zone) {
    if (!IsZoneUnlocked(zone)) Disable(m_pButtons[zone]);
  }
  nox::TileAnimData* star = GetAnimData("M6_Star");
  m_pHighlight = star ? star->CreateCellAnimation() : nullptr;
  if (m_pHighlight) {
    m_pHighlight->SetLoop(true);
    m_pHighlight->Play(kStar, 0);
    m_pHighlight->SetVisible(false);
    m_Overlay.AddAnimation(m_pHighlight);
  }
  m_RuneText.Initialise(nox::Real(480), nox::Real(272), kTextCapacity);
  m_Overlay.AddAnimation(&m_RuneText);
  DrawRuneCount();
}

ZonePicker::~ZonePicker() {
  m_Sequencer.Empty();
  m_Overlay.RemoveAnimation(&m_RuneText);
  if (m_pHighlight) m_Overlay.RemoveAnimation(m_pHighlight);
  delete m_pHighlight;
}

int ZonePicker::CountRunes(int zone) {
  const GameSaveGame* save = GameSaveGame::s_pSaveGame;
  if (!save || zone < 0 || zone >= kZoneCount) return 0;
  // Every set bit counts, even past the twentieth: a word the game never writes
  // shows as it is.
  return __builtin_popcount(save->GetBlock().runeBits[zone]);
}

bool ZonePicker::IsZoneUnlocked(int zone) {
  if (zone < 0 || zone >= kZoneCount) return false;
  if (Setting("Unlock All Adventure Zones")) return true;
  const GameSaveGame* save = GameSaveGame::s_pSaveGame;
  return save && save->GetBlock().zoneUnlocked[zone];
}

bool ZonePicker::IsStoryComplete() {
  const GameSaveGame* save = GameSaveGame::s_pSaveGame;
  return save && save->GetBlock().questData[kLastQuest].complete;
}

void ZonePicker::DrawRuneCount() {
  m_RuneText.Clear();
  nox::TextProperties props;
  props.horizontalAlignment = nox::TextProperties::kCentre;
  props.verticalAlignment = nox::TextProperties::kMiddle;
  props.shadow = true;
  for (int zone = 0; zone < kZoneCount; ++zone) {
    snprintf(m_RuneCounts[zone], sizeof(m_RuneCounts[zone]), "%d/%d", CountRunes(zone), kRunesPerZone);
    const nox::TileAnimation* card = m_pButtons[zone]->GetAnimation();
    if (!card || !card->HasPoint(kRunesPoint)) continue;
    const nox::Vector3 at = card->GetPoint(kRunesPoint);
    m_RuneText.DrawText(m_RuneCounts[zone], GetFont(), at.x, at.y, props);
  }
}

const char* ZonePicker::GetRuneText(int zone) const {
  return zone >= 0 && zone < kZoneCount ? m_RuneCounts[zone] : "";
}

noxfw::Button* ZonePicker::GetZoneButton(int index) const {
  return index >= 1 && index <= kZoneCount ? m_pButtons[index - 1] : nullptr;
}

const char* ZonePicker::GetOpeningVoice() const {
  if (!IsStoryComplete() || Setting("Award All Badges")) return m_IntroVoice.c_str();
  const GameSaveGame* save = GameSaveGame::s_pSaveGame;
  int earned = 0;
  for (int badge = 0; badge < kSaveBadges; ++badge) {
    if (save->GetBlock().framework.badge[badge]) ++earned;
  }
  return earned == kSaveBadges ? M6Dialogue::kStoryDoneAllBadges : M6Dialogue::kStoryDoneBadgesLeft;
}

void ZonePicker::MoveHighlight(int index) {
  m_HighlightIndex = 0;
  if (!m_pHighlight) return;
  const noxfw::Button* button = GetZoneButton(index);
  const nox::TileAnimation* card = button ? button->GetAnimation() : nullptr;
  if (!card || !card->HasPoint(kStarPoint)) {
    m_pHighlight->SetVisible(false);
    return;
  }
  const nox::Vector3 at = card->GetPoint(kStarPoint);
  m_pHighlight->SetPosition(nox::Vector3(at.x, at.y, nox::Real()));
  m_pHighlight->SetVisible(true);
  m_HighlightIndex = index;
}

void ZonePicker::ShowZoneName(int index) {
  noxfw::Button* button = GetZoneButton(index);
  if (button) button->SetState(kZoneNames[index - 1]);
  MoveHighlight(index);
}

bool ZonePicker::IsChoiceShown() {
  const noxfw::Button* button = GetZoneButton(m_ChosenIndex);
  const nox::TileAnimation* card = button ? button->GetAnimation() : nullptr;
  return !card || button->GetState() != noxfw::Button::kActivate || card->IsAnimEnded();
}

void ZonePicker::Open() {
  OpenWithPrompt();
  const GameSaveGame* save = GameSaveGame::s_pSaveGame;
  const int current = save ? save->GetCurrentZone() : 0;
  noxfw::Button* button = m_pButtons[current];
  if (button->IsEnabled()) {
    button->SetState(noxfw::Button::kHighlight);
    MoveHighlight(current + 1);
  }
  QueueVoice(GetOpeningVoice());
}

void ZonePicker::Update(unsigned long ms) {
  GameMenu::Update(ms);
  if (!IsPaused()) m_Overlay.Update(ms);
}

void ZonePicker::Draw() {
  noxfw::Menu::Draw();
  m_Overlay.Draw();
}

bool ZonePicker::HandleInput() {
  const bool used = noxfw::Menu::HandleInput();
  if (used) m_Prompt.Reset();
  return used;
}

void ZonePicker::Prompt(noxfw::Button* button) {
  noxfw::Menu::Prompt(button);
  if (!button || button->IsEnabled()) return;
  m_Sequencer.Empty();
  m_Sequencer.AppendItem(new noxfw::PlayStreamingSoundSeqItem("h_OSTM_DeadClickSfx_6", kMenuCategory));
}

void ZonePicker::Activate() {
  noxfw::Menu::Activate();
  const int index = GetSelectedId();
  if (index < 1 || index > kZoneCount) return;
  LockInput();
  m_Sequencer.Empty();
  m_ChosenIndex = index;
  m_Sequencer.AppendItem(new noxfw::PlayStreamingSoundSeqItem("h_OSTM_MenuSelectSfx_6", kMenuCategory));
  // The card's "Activate" plays out, then it shows its name with the star on it.
  noxfw::SeqClassCheckBool<ZonePicker, &ZonePicker::IsChoiceShown>(m_Sequencer, this, true);
  noxfw::SeqClassFuncWithParam<ZonePicker, int, &ZonePicker::ShowZoneName>(m_Sequencer, this, index);
  QueueVoice(M6Dialogue::kZoneVoices[index]);
  m_Sequencer.AppendItem(new DoneSceneSeqItem(noxfw::ExitReason::Complete));
}

void ZonePicker::Back() {
  noxfw::Menu::Back();
  if (IsInputLocked()) return;
  LockInput();
  m_Sequencer.Empty();
  const nox::Input* input = nox::Input::s_pInput;
  const bool home = input && input->GetController(0)->GetTriggeredButtons(kHomeBit);
  m_Sequencer.AppendItem(
      new noxfw::PlayStreamingSoundSeqItem(home ? "h_OSTM_HomeSfx_6" : "h_OSTM_BackSfx_6", kMenuCategory));
  m_Sequencer.AppendItem(new DoneSceneSeqItem(noxfw::ExitReason::Back));
}

}  // namespace game
