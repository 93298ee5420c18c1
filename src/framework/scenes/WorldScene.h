// A scene whose world comes from a level file: arenas of agents, static walls, shared
// paths and a string table, and two scrolling backgrounds behind the sprites.
//
// A world scene is an ActivityScene: it runs in the same frame, with the same engines,
// camera and input, and adds the level. (A world needs every engine an activity has;
// building it on the activity scene keeps one frame order for both.)
//
// The level. LoadLevel reads the file once: RegisterFactories first (a game scene
// registers the agent types its levels use), then every element through
// FunFileLoaderCallback, which builds "Wall" elements into the scene's Geometry in
// the "Wall" pool and hands the other kinds ("Arena", "Global", "Path",
// "StringTable") to the scene's Level. The global arena lives for the whole level.
// InitCurrentArenas then brings in the current arena and the one after it and sets
// the scene's bounds (and the camera's) from them.
//
// Arenas change between frames: GotoNextArena only asks, and the change is made after
// the frame's physics (TransitionArenas, from UpdateViewLogic), so that an agent may
// ask from its own Update. The arena left behind is unloaded, the next one after the
// new current arena loaded, and ArenaTransitionOccurred tells the subclass. Listeners
// of the WorldScene event hear of it too (type kEventArenaChanged, the index in
// m_Param).
//
// The game lock is one word naming its holder, 0 when free: scripts and the scene
// take it so that only the holder's part of the game runs. The level's watch counts
// only while holder kLockWatch may update.
//
// Teardown: UnloadLevel runs in the destructor, arenas first (out of the agent
// engine, then deleted with their agents), then walls and tables, all while the
// activity scene's engines still exist.
#pragma once
#include <string>

#include "agents/AgentFactoryManager.h"
#include "core/EventSource.h"
#include "graphics/Rectangle.h"
#include "graphics/ScrollableQuad.h"
#include "level/Geometry.h"
#include "level/Level.h"
#include "physics/Particle.h"
#include "physics/RectangleHull.h"
#include "scenes/ActivityScene.h"
#include "scenes/WorldSceneView.h"

namespace nox {
class Character;
class LevelLoader;
}  // namespace nox

namespace noxfw {

class Arena;

class WorldScene : public ActivityScene, public nox::EventSource<WorldScene> {
  NOX_RTTI_DECLARE

 public:
  typedef unsigned long LockHolder;
  static const LockHolder kLockFree = 0;
  static const LockHolder kLockWatch = 2;  // the level's watch
  static const uint32_t kEventArenaChanged = 1;
  static const unsigned short kBackgroundTileSize = 32;  // world units of a background tile
  static const int kBarrierCount = 3;

  explicit WorldScene(bool physicsOn = true);
  ~WorldScene() override;

  // The frame of the activity scene, then the level's watch and UpdateViewLogic.
  void Update(unsigned long dt) override;
  // Calls Unload, while the level is still there.
  void Leave() override;

  using ActivityScene::Draw;
  using ActivityScene::HandleInput;
  // Backgrounds, then the activity scene's layers.
  virtual void Draw(WorldSceneView& view);
  // Called once the level and the first arenas are in, for the subclass.
  virtual void FinishLoad() {}
  // Called by Leave, as the scene is about to go, with the level still loaded; for
  // the subclass.
  virtual void Unload() {}
  // Called by LoadLevel once the file is read, for sprites and sounds to load early.
  virtual void PreLoadAssets() {}
  virtual void SetSceneLockDown(bool locked) { m_bSceneLockedDown = locked; }
  virtual bool IsSceneLockedDown() const { return m_bSceneLockedDown; }
  // Text of the level's string table; an empty string for an unknown id.
  virtual const std::string& GetStringById(unsigned long id) const;
  // Reads the level `fileName` (".fun" is added when missing), found in the level
  // directories. Once only: a second call does nothing. A level that cannot be read
  // leaves the scene without arenas; the loader names the file in one line.
  virtual void LoadLevel(const std::string& fileName);
  // Takes the arenas out of the agent engine and deletes them with their agents,
  // then the walls and the tables. The level may be loaded again afterwards.
  virtual void UnloadLevel();
  // Nothing while the scene is locked down; otherwise the activity scene's input.
  virtual bool HandleInput(WorldSceneView& view);
  // Asks for the arena after the current one; false when there is none. The change
  // happens after this frame's physics.
  virtual bool GotoNextArena();
  // Moves the backgrounds with the camera: the front one with it, the back one at
  // half its speed, and streams their tiles.
  virtual void UpdateBackgrounds(WorldSceneView& view);
  // Takes the lock for `holder` if it is free; true when `holder` holds it after.
  virtual bool AcquireGameLock(LockHolder holder);
  // Frees the lock if `holder` holds it.
  virtual void ReleaseGameLock(LockHolder holder);
  // True when the lock is free or `holder` holds it.
  virtual bool HasPermissionToUpdate(LockHolder holder) const;
  // One element of the level file; false for a kind nothing here knows.
  virtual bool FunFileLoaderCallback(nox::LevelLoader* loader, unsigned long id, std::istringstream& stream);
  // The barriers at the arenas' edges, for game scenes; nothing here.
  virtual void SetupArenaBarrier() {}
  virtual void RemoveArenaBarrier() {}
  virtual void MoveArenaBarrier() {}
  // After each frame: a requested arena change, then the backgrounds.
  virtual void UpdateViewLogic(unsigned long dt);
  // Registers the factories of the agent types the scene's levels use; none here.
  virtual void RegisterFactories() {}
  // Opens the back and front pictures (".til" in the level directories); an empty
  // name leaves that layer out.
  virtual void LoadBackgrounds(const std::string& back, const std::string& front);
  // Brings in the current arena and the one after it, and sets the scene's bounds:
  // left (not below 0), top and bottom from the current arena, right from the next
  // one if there is one, else from the current one.
  virtual void InitCurrentArenas();
  // Makes a change asked for by GotoNextArena.
  virtual void TransitionArenas(WorldSceneView& view);
  // Told after each arena change; nothing here.
  virtual void ArenaTransitionOccurred() {}
  virtual void DrawBackgrounds(WorldSceneView& view);

  // The index of `arena` in the level, or -1.
  long FindArenaIndex(const Arena* arena) const;
  // Has `camera` follow the character's position.
  void TrackCharacter(nox::Camera* camera, nox::Character* character);

  bool IsLevelLoaded() const { return m_bLevelLoaded; }
  const Level& GetLevel() const { return m_Level; }
  Arena* GetCurrentArena() const { return m_pCurrentArena; }
  Arena* GetNextArena() const { return m_pNextArena; }
  Arena* GetGlobalArena() const { return m_Level.GetGlobalArena(); }
  long GetCurrentArenaIndex() const { return m_CurrentArenaIndex; }
  // Sets the arena InitCurrentArenas starts from.
  void SetCurrentArenaIndex(long index) { m_CurrentArenaIndex = index; }
  const nox::Rectangle& GetSceneBounds() const { return m_SceneBounds; }
  LockHolder GetGameLockHolder() const { return m_GameLock; }
  nox::AgentFactoryManager& GetFactoryManager() { return m_Factories; }
  const Geometry& GetGeometry() const { return m_Geometry; }
  WorldSceneView& GetWorldSceneView() { return m_View; }

  // The level's watch: frames and ms counted while it runs; on the host's clock it
  // counts the host's frame times instead of the frames' dt.
  void StartLevelWatch(bool hostClock = false);
  void StopLevelWatch() { m_bWatchOn = false; }
  void PauseLevelWatch(bool paused) { m_bWatchPaused = paused; }
  uint32_t GetWatchFrames() const { return m_WatchFrames; }
  uint32_t GetWatchMs() const { return m_WatchMs; }

 protected:
  // The arenas' physics hooks: global, current and next arena.
  void PrePhysics() override;
  void PostPhysics() override;

 private:
  // The scene's Level, whose elements go through the scene's callback first.
  class SceneLevel : public Level {
   public:
    SceneLevel(WorldScene& scene);
    bool LoadElement(nox::LevelLoader* loader, unsigned long id, std::istringstream& stream) override;
    bool LoadBaseElement(nox::LevelLoader* loader, unsigned long id, std::istringstream& stream) {
      return Level::LoadElement(loader, id, stream);
    }

   private:
    WorldScene& m_Scene;
  };

  struct Barrier {
    nox::Particle m_Body;
    nox::RectangleHull m_Hull;
  };

  void BringIn(Arena* arena);
  void SendOut(Arena* arena);

  Barrier m_Barriers[kBarrierCount];
  nox::ScrollableQuad m_Back;
  nox::ScrollableQuad m_Front;
  bool m_bBackLoaded = false;
  bool m_bFrontLoaded = false;
  nox::AgentFactoryManager m_Factories;
  SceneLevel m_Level;  // arenas, paths, strings; after the factories it uses
  Geometry m_Geometry;
  long m_CurrentArenaIndex = 0;
  Arena* m_pCurrentArena = nullptr;   // owned by the level
  Arena* m_pNextArena = nullptr;      // owned by the level
  Arena* m_pPreviousArena = nullptr;  // the current arena of the last InitCurrentArenas
  nox::Rectangle m_SceneBounds;       // world units
  bool m_bTransitionPending = false;
  bool m_bLevelLoaded = false;
  bool m_bSceneLockedDown = false;
  LockHolder m_GameLock = kLockFree;
  bool m_bWatchOn = false;
  bool m_bWatchPaused = false;
  bool m_bWatchOnHostClock = false;
  uint32_t m_WatchFrames = 0;
  uint32_t m_WatchMs = 0;
  WorldSceneView m_View;
};

}  // namespace noxfw
