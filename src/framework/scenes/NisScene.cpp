#include "scenes/NisScene.h"

#include "core/EventData.h"
#include "graphics/Screen.h"
#include "graphics/ScreenManager.h"
#include "graphics/TileAnimation.h"
#include "input/Controller.h"
#include "input/Input.h"
#include "sequencer/AnimSeqItems.h"
#include "sequencer/ClassFuncSeqItem.h"
#include "sequencer/WaitSeqItem.h"

namespace noxfw {

NOX_RTTI_DEFINE(NisScene, nox::Scene);

namespace {

const nox::NameHash kBlack = nox::HashString("Black");
const nox::NameHash kPage1 = nox::HashString("Page1");

}  // namespace

NisScene::NisScene(nox::TileAnimation* animation, bool skippable) : m_bSkippable(skippable), m_View(*this) {
  SetAnimation(animation);
}

NisScene::~NisScene() {
  ReleaseAnimation();
}

void NisScene::ReleaseAnimation() {
  // Steps borrow the animation; they go first.
  m_Sequencer.Empty();
  if (m_pAnimation && m_Engine.HasAnimation(m_pAnimation)) m_Engine.RemoveAnimation(m_pAnimation);
  m_pAnimation = nullptr;
}

void NisScene::SetAnimation(nox::TileAnimation* animation) {
  m_pAnimation = animation;
  if (m_pAnimation && m_pAnimation->HasSequence(kBlack)) m_pAnimation->Hold(kBlack);
}

nox::Window* NisScene::GetView(unsigned long index) const {
  return index == 0 ? const_cast<NisView*>(&m_View) : nullptr;
}

void NisScene::Enter() {
  if (m_pAnimation && !m_Engine.HasAnimation(m_pAnimation)) m_Engine.AddAnimation(m_pAnimation);
}

void NisScene::Leave() {}

void NisScene::Play() {
  if (!m_Sequencer.IsEmpty()) m_Sequencer.Empty();
  SeqAnim(m_pAnimation, kPage1, 0);
  SeqWait(kPageMs);
  SeqComplete();
}

void NisScene::Update(unsigned long ms) {
  // A paused cut-scene holds still: under the exit question it must not end itself.
  if (IsPaused()) return;
  m_Sequencer.Update(ms);
  m_Engine.Update(ms);
}

void NisScene::Draw(NisView& view) {
  m_Engine.Draw();
}

bool NisScene::HandleInput(NisView& view) {
  if (!m_bSkippable || IsPaused() || IsInputLocked()) return false;
  bool skip = false;
  nox::Input* input = nox::Input::s_pInput;
  if (input && input->GetControllerCount() > 0) {
    skip = input->GetController(0)->GetTriggeredButtons(kSkipMask) != 0;
  }
  nox::Screen* screen = nox::ScreenManager::Get();
  if (!skip && screen && screen->GetTouchStateCount() > 0) skip = screen->GetTouchState(0).triggered;
  if (skip) Skip();
  return skip;
}

void NisScene::SeqAnim(nox::TileAnimation* animation, nox::NameHash sequence, long frame) {
  if (!animation) return;
  m_Sequencer.AppendItem(new PlayAnimSequenceSeqItem(animation, sequence, frame, false));
}

void NisScene::SeqWait(unsigned long ms) {
  m_Sequencer.AppendItem(new WaitSeqItem(ms));
}

void NisScene::SeqComplete() {
  m_Sequencer.AppendItem(new ClassFuncSeqItem(&ClassFunc<NisScene, &NisScene::Complete>, this));
}

void NisScene::Cancel() {
  // Called from input, never from a step of this sequencer.
  m_Sequencer.Empty();
  Complete();
}

void NisScene::Complete() {
  if (m_bComplete) return;
  m_bComplete = true;
  nox::EventData data;
  FireEvent(this, &data);
}

}  // namespace noxfw
