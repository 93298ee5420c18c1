#include "shell/GameRewardPopUp.h"

#include "core/HashString.h"
#include "graphics/TileAnimData.h"
#include "graphics/TileAnimation.h"
#include "sequencer/AnimSeqItems.h"
#include "sequencer/SoundSeqItems.h"

namespace game {

NOX_RTTI_DEFINE(GameRewardPopUp, nox::Window);

namespace {

const nox::NameHash kBadgeSequence = nox::HashString("Badge");
const nox::NameHash kAchievedSequence = nox::HashString("Achieved");
const nox::NameHash kTextPoint = nox::HashString("BadgeText");
const unsigned long kEffectCategory = 10;

}  // namespace

nox::TileAnimation* GameRewardPopUp::MakeSprite(nox::TileAnimData*& data, const char* name) {
  data = new nox::TileAnimData(name, false, false);
  nox::TileAnimation* sprite = data->CreateCellAnimation();
  if (sprite) sprite->SetVisible(false);
  return sprite;
}

GameRewardPopUp::GameRewardPopUp() {
  m_pBanner = MakeSprite(m_pBannerData, "RewardPopUp");
  m_pBadgeText = MakeSprite(m_pBadgeTextData, "RewardPopUpText");
  m_pLevelText = MakeSprite(m_pLevelTextData, "LevelUpText");
  for (nox::TileAnimation* sprite : {m_pBanner, m_pBadgeText, m_pLevelText}) {
    if (sprite) m_Engine.AddAnimation(sprite);
  }
}

GameRewardPopUp::~GameRewardPopUp() {
  // Steps borrow the sprites: they go first, then the sprites, then their data.
  m_Sequencer.Empty();
  for (nox::TileAnimation* sprite : {m_pBanner, m_pBadgeText, m_pLevelText}) {
    if (sprite) m_Engine.RemoveAnimation(sprite);
    delete sprite;
  }
  delete m_pBannerData;
  delete m_pBadgeTextData;
  delete m_pLevelTextData;
}

void GameRewardPopUp::ShowBadge(int index) {
  Queue(m_pBadgeText, "h_OSTM_BadgeSfx_6", index, index == kFinalBadge);
}

void GameRewardPopUp::ShowLevelUp() {
  Queue(m_pLevelText, "h_OSTM_Level_Up_6", 0, false);
}

void GameRewardPopUp::Queue(nox::TileAnimation* text, const char* fanfare, int frame, bool speech) {
  m_bShowing = true;
  m_Sequencer.AppendItem(new noxfw::SetTileAnimVisibleSeqItem(m_pBanner, true));
  m_Sequencer.AppendItem(new noxfw::SetTileAnimVisibleSeqItem(text, true));
  // A copy, so the fanfare plays on while the banner moves.
  m_Sequencer.AppendItem(new noxfw::PlayStreamingSoundSeqItem(fanfare, kEffectCategory, 0, true, 50));
  m_Sequencer.AppendItem(new noxfw::HoldAnimSequenceSeqItem(m_pBanner, kAchievedSequence, frame));
  m_Sequencer.AppendItem(new noxfw::PlayAnimSequenceSeqItem(m_pBanner, kBadgeSequence));
  if (speech) {
    m_Sequencer.AppendItem(new noxfw::PlayStreamingSoundSeqItem("KDNA0106", kEffectCategory, 0, true, 0));
  }
  m_Sequencer.AppendItem(new noxfw::SetTileAnimVisibleSeqItem(text, false));
  m_Sequencer.AppendItem(new noxfw::SetTileAnimVisibleSeqItem(m_pBanner, false));
}

void GameRewardPopUp::PlaceText() {
  if (!m_pBanner || !m_pBanner->HasPoint(kTextPoint)) return;
  nox::Vector3 at = m_pBanner->GetPoint(kTextPoint);
  // The banner's own depth: among equal depths the engine draws in the order of adding,
  // and the texts were added after the banner. A smaller depth than the banner's could
  // fall in front of the near plane and not be drawn at all.
  at.z = m_pBanner->GetDepth();
  for (nox::TileAnimation* text : {m_pBadgeText, m_pLevelText}) {
    if (text) text->SetPosition(at);
  }
}

void GameRewardPopUp::Update(unsigned long ms) {
  m_Sequencer.Update(ms);
  m_Engine.Update(ms);
  PlaceText();
  m_bShowing = !m_Sequencer.IsEmpty();
}

void GameRewardPopUp::Draw() {
  m_Engine.Draw();
}

}  // namespace game
