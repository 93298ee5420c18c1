// Runs the chain of scenes. One scene exists at a time; a scene that is done names an
// exit reason (DoneScene), the running scene's row gives the next scene's id, and a
// queue of steps on the manager's own sequencer fades out, lets the scene leave,
// destroys it, creates the next one and fades in. While that queue is not empty a
// scene change is running.
//
// The manager owns the running scene and its row (a private copy of the table row,
// whose way-back column it fills in). Table rows are static data, borrowed. It also
// holds the background music stream that the sound manager plays. Singleton
// sm_pInstance; the game installs its own subclass, which adds the game's table and
// decides the scenes it can build (CreateScene).
#pragma once
#include <map>

#include "core/EventListener.h"
#include "core/NoCopy.h"
#include "scenes/ExitReason.h"
#include "scenes/SceneData.h"
#include "sequencer/Sequencer.h"
#include "sound/StreamingSound.h"

namespace nox {
class Scene;
}

namespace noxfw {

class SceneManager : public nox::EventListener<nox::Scene>, public nox::NoCopy {
 public:
  typedef ExitReason::eExitReason eExitReason;
  typedef std::map<unsigned long, const SceneData*> SceneTable;

  static void Create();
  static void Destroy();
  static SceneManager* sm_pInstance;

  static const unsigned short kFadeMs = 500;

  // Any event of the running scene ends it with Complete.
  void OnEventOccurred(nox::Scene* scene, const nox::EventData* data) override;
  virtual ~SceneManager();
  // The change steps, then the scene.
  virtual void Update(unsigned long ms);
  virtual nox::Scene* GetScene() const { return m_pScene; }
  virtual const SceneData& GetSceneData() const { return m_CurrentData; }
  virtual unsigned long GetSceneId() const { return m_CurrentData.id; }
  virtual void SetSceneData(const SceneData& data) { m_CurrentData = data; }
  // A copy of the row; an unknown id gives an empty row with that id (and one log
  // line), whose scene cannot be built.
  virtual SceneData GetSceneDataFromTable(unsigned long id);
  virtual bool CreateCurrScene();
  // Builds and enters the scene of that id; false for an id it does not know.
  virtual bool CreateScene(unsigned long id);
  virtual void PauseScene();
  virtual void ResumeScene();
  virtual void DoneScene(eExitReason reason);
  virtual void EnterScene();
  virtual void PlayScene();
  virtual void LeaveScene(eExitReason reason);
  virtual void QueueFadeOutEffect(eExitReason reason);
  virtual void QueueFadeInEffect();
  virtual void DestroyScene();
  virtual SceneData GetNextScene(eExitReason reason);

  bool IsChangingScene() const { return !m_Sequencer.IsEmpty(); }
  Sequencer& GetSequencer() { return m_Sequencer; }
  eExitReason GetExitReason() const { return m_ExitReason; }
  const SceneTable& GetSceneTable() const { return m_SceneTable; }

 protected:
  SceneManager();
  // Points each row's id at that row, replacing what the id pointed at before.
  void AddRows(const SceneData* rows, int count);
  // Takes ownership of a newly built scene and listens to it.
  void SetScene(nox::Scene* scene);
  // Closes the running scene's view and deletes the scene, if there is one.
  void DeleteScene();
  // The scene's Leave, as a step of the change.
  void LeaveCurrentScene();

  SceneData m_CurrentData;                      // the running scene's row, a private copy
  SceneData m_NextData;                         // the next row while a change runs
  nox::StreamingSound m_BackgroundMusic;        // looping, volume 100, pan 0
  Sequencer m_Sequencer;                        // the steps of a scene change
  nox::Scene* m_pScene = nullptr;               // owned
  SceneTable m_SceneTable;                      // id to row, rows borrowed
  eExitReason m_ExitReason = ExitReason::Back;  // the reason that led to scene 1
};

}  // namespace noxfw
