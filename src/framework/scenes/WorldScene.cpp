#include "scenes/WorldScene.h"

#include "agents/Character.h"
#include "agents/LevelLoader.h"
#include "core/EventData.h"
#include "core/GameHost.h"
#include "core/PathRegistry.h"
#include "level/Arena.h"
#include "level/LevelElements.h"
#include "physics/CollisionPool.h"
#include "volumes/WallAgent.h"

namespace noxfw {

NOX_RTTI_DEFINE(WorldScene, ActivityScene);

namespace {

const nox::Real kBarrierExtent = nox::Real(256);
const nox::NameHash kWallPool = nox::HashString("Wall");
const uint32_t kWallColour = 0x808080FF;
// Walls of a level, the collision geometry and its spare, as the adventure's levels need.
const unsigned long kWallReserve = 100;

}  // namespace

WorldScene::SceneLevel::SceneLevel(WorldScene& scene)
    : Level(*scene.GetContextPool(), scene.m_Factories, &scene), m_Scene(scene) {}

bool WorldScene::SceneLevel::LoadElement(nox::LevelLoader* loader, unsigned long id,
                                         std::istringstream& stream) {
  return m_Scene.FunFileLoaderCallback(loader, id, stream);
}

WorldScene::WorldScene(bool physicsOn)
    : ActivityScene(physicsOn),
      m_Back(kBackgroundTileSize, 0),
      m_Front(kBackgroundTileSize, 0),
      m_Level(*this),
      m_Geometry(kWallReserve, kWallReserve),
      m_View(*this) {
  SetView(&m_View);
  GetCollisionPoolMap().AddDefinition("Wall", kWallColour, false);
  // The barriers stand ready, out of every pool, for game scenes that fence an arena.
  for (Barrier& barrier : m_Barriers) {
    barrier.m_Body.m_bFixed = true;
    barrier.m_Hull.Initialize(&barrier.m_Body, kBarrierExtent, kBarrierExtent, nox::Real(), nox::Real(1),
                              nullptr, &WallAgent::s_wallInstance, kBarrierExtent);
  }
}

WorldScene::~WorldScene() {
  UnloadLevel();
  SetView(nullptr);
}

void WorldScene::Update(unsigned long dt) {
  ActivityScene::Update(dt);
  if (HasPermissionToUpdate(kLockWatch) && m_bWatchOn && !m_bWatchPaused) {
    ++m_WatchFrames;
    const nox::GameHost* host = nox::GameHost::s_pGameHost;
    m_WatchMs += m_bWatchOnHostClock && host ? host->GetFrameMS() - host->GetPrevFrameMS() : dt;
  }
  UpdateViewLogic(dt);
}

void WorldScene::StartLevelWatch(bool hostClock) {
  m_bWatchOn = true;
  m_bWatchPaused = false;
  m_bWatchOnHostClock = hostClock;
  m_WatchFrames = 0;
  m_WatchMs = 0;
}

void WorldScene::Draw(WorldSceneView& view) {
  DrawBackgrounds(view);
  ActivityScene::Draw(view);
}

const std::string& WorldScene::GetStringById(unsigned long id) const {
  return m_Level.GetStringTable().GetString(id);
}

void WorldScene::LoadLevel(const std::string& fileName) {
  if (m_bLevelLoaded) return;
  // Set first: a level that does not read is not tried again each frame.
  m_bLevelLoaded = true;
  RegisterFactories();
  std::string name = fileName;
  if (name.size() < 4 || name.compare(name.size() - 4, 4, ".fun") != 0) name += ".fun";
  std::string path;
  const nox::PathRegistry* paths = nox::PathRegistry::sm_pInstance;
  if (!paths || !paths->FindFile(paths->m_LevelPaths, name, path)) path = name;
  if (!m_Level.Load(path.c_str())) m_Level.Clear();
  if (Arena* global = m_Level.GetGlobalArena()) {
    global->Load();
    GetAgentEngine().AddAgent(global);
  }
  GetAgentEngine().Update(0);
  PreLoadAssets();
}

void WorldScene::Leave() {
  ActivityScene::Leave();
  Unload();
}

void WorldScene::UnloadLevel() {
  nox::AgentEngine& engine = GetAgentEngine();
  if (Arena* global = m_Level.GetGlobalArena()) engine.RemoveAgent(global);
  for (long i = 0; i < static_cast<long>(m_Level.GetArenaCount()); ++i) {
    if (Arena* arena = m_Level.GetArena(i)) engine.RemoveAgent(arena);
  }
  engine.ProcessQueues();
  m_pCurrentArena = m_pNextArena = m_pPreviousArena = nullptr;
  m_bTransitionPending = false;
  m_Level.Clear();
  m_Geometry.Unload();
  m_bLevelLoaded = false;
}

bool WorldScene::FunFileLoaderCallback(nox::LevelLoader* loader, unsigned long id,
                                       std::istringstream& stream) {
  if (id == kLevelElementWall) {
    m_Geometry.Init(GetPhysicsEngine(), GetCollisionPoolMap().GetPool(kWallPool), stream,
                    &WallAgent::s_wallInstance);
    return true;
  }
  return m_Level.LoadBaseElement(loader, id, stream);
}

bool WorldScene::HandleInput(WorldSceneView& view) {
  if (m_bSceneLockedDown) return false;
  return ActivityScene::HandleInput(view);
}

void WorldScene::BringIn(Arena* arena) {
  if (!arena) return;
  arena->Load();
  GetAgentEngine().AddAgent(arena);
}

void WorldScene::SendOut(Arena* arena) {
  if (!arena) return;
  GetAgentEngine().RemoveAgent(arena);
  arena->Unload();
}

void WorldScene::InitCurrentArenas() {
  const long count = static_cast<long>(m_Level.GetArenaCount());
  if (m_CurrentArenaIndex >= count || m_CurrentArenaIndex < 0) m_CurrentArenaIndex = 0;
  m_pCurrentArena = m_Level.GetArena(m_CurrentArenaIndex);
  m_pNextArena = m_CurrentArenaIndex + 1 < count ? m_Level.GetArena(m_CurrentArenaIndex + 1) : nullptr;
  if (!m_pCurrentArena) return;
  BringIn(m_pCurrentArena);
  const int32_t* current = m_pCurrentArena->GetBounds();
  const int32_t* right = m_pNextArena ? m_pNextArena->GetBounds() : current;
  m_SceneBounds = nox::Rectangle(nox::Real(current[0] < 0 ? 0 : current[0]), nox::Real(current[1]),
                                 nox::Real(right[2]), nox::Real(current[3]));
  GetCamera().SetBounds(m_SceneBounds.left, m_SceneBounds.top, m_SceneBounds.right, m_SceneBounds.bottom);
  BringIn(m_pNextArena);
  m_pPreviousArena = m_pCurrentArena;
}

bool WorldScene::GotoNextArena() {
  if (!m_pNextArena) return false;
  m_bTransitionPending = true;
  return true;
}

void WorldScene::TransitionArenas(WorldSceneView& view) {
  if (!m_bTransitionPending) return;
  m_bTransitionPending = false;
  if (!m_pNextArena) return;
  Arena* left = m_pCurrentArena;
  ++m_CurrentArenaIndex;
  InitCurrentArenas();
  // The arena left behind goes; the new current one was loaded as the next one.
  if (left && left != m_pCurrentArena && left != m_pNextArena) SendOut(left);
  ArenaTransitionOccurred();
  nox::EventData data;
  data.m_Type = kEventArenaChanged;
  data.m_Param = static_cast<uint32_t>(m_CurrentArenaIndex);
  nox::EventSource<WorldScene>::FireEvent(this, &data);
}

void WorldScene::UpdateViewLogic(unsigned long dt) {
  TransitionArenas(m_View);
  UpdateBackgrounds(m_View);
}

void WorldScene::LoadBackgrounds(const std::string& back, const std::string& front) {
  if (m_bBackLoaded) m_Back.DestroyBuffers();
  if (m_bFrontLoaded) m_Front.DestroyBuffers();
  m_bBackLoaded = !back.empty();
  m_bFrontLoaded = !front.empty();
  if (m_bBackLoaded) m_Back.Initialize(back);
  if (m_bFrontLoaded) m_Front.Initialize(front);
}

void WorldScene::UpdateBackgrounds(WorldSceneView& view) {
  if (!m_bBackLoaded && !m_bFrontLoaded) return;
  const nox::Rectangle shown = GetCamera().GetScreenBoundaries();
  const nox::Vector2 corner(shown.left, shown.top);
  if (m_bFrontLoaded) {
    m_Front.SetPosition(corner);
    m_Front.Update();
  }
  if (m_bBackLoaded) {
    // Half the camera's motion: the far layer lags behind, which reads as depth.
    m_Back.SetPosition(corner * nox::Real::FromRaw(0x8000));
    m_Back.Update();
  }
}

void WorldScene::DrawBackgrounds(WorldSceneView& view) {
  if (m_bBackLoaded) m_Back.Draw();
  if (m_bFrontLoaded) m_Front.Draw();
}

bool WorldScene::AcquireGameLock(LockHolder holder) {
  if (m_GameLock == kLockFree) m_GameLock = holder;
  return holder != kLockFree && m_GameLock == holder;
}

void WorldScene::ReleaseGameLock(LockHolder holder) {
  if (m_GameLock == holder) m_GameLock = kLockFree;
}

bool WorldScene::HasPermissionToUpdate(LockHolder holder) const {
  return m_GameLock == kLockFree || m_GameLock == holder;
}

void WorldScene::PrePhysics() {
  if (Arena* global = m_Level.GetGlobalArena()) global->PrePhysics();
  if (m_pCurrentArena) m_pCurrentArena->PrePhysics();
  if (m_pNextArena) m_pNextArena->PrePhysics();
}

void WorldScene::PostPhysics() {
  if (Arena* global = m_Level.GetGlobalArena()) global->PostPhysics();
  if (m_pCurrentArena) m_pCurrentArena->PostPhysics();
  if (m_pNextArena) m_pNextArena->PostPhysics();
}

long WorldScene::FindArenaIndex(const Arena* arena) const {
  for (long i = 0; i < static_cast<long>(m_Level.GetArenaCount()); ++i) {
    if (arena && m_Level.GetArena(i) == arena) return i;
  }
  return -1;
}

void WorldScene::TrackCharacter(nox::Camera* camera, nox::Character* character) {
  if (!camera) return;
  camera->TrackToPosition(character ? &character->GetPositionReference() : nullptr);
}

}  // namespace noxfw
