// The application seam: what the application manager calls on a loaded App.so,
// and the manager singleton that an application asks to be ended.
//
// App.so exports exactly one symbol, `CreateApp`, whose C++ signature is
//   boost::shared_ptr<CAppInterface> CreateApp(void* userData);
// The manager owns the returned object and calls Enter, then Update once per frame,
// Suspend/Resume around focus changes, and Exit after PopApp was asked for.
#pragma once
#include <boost/shared_ptr.hpp>
#include <glibmm/ustring.h>

class CAppInterface {
 public:
  virtual ~CAppInterface() {}
  virtual void Enter() = 0;
  virtual void Update() = 0;
  virtual void Exit() = 0;
  virtual void Suspend() {}
  virtual void Resume() {}

 protected:
  Glib::ustring m_AppName;  // owned by the base, as on the device
};

typedef boost::shared_ptr<CAppInterface> (*CreateAppFunc)(void* userData);

class CAppManager {
 public:
  static CAppManager* Instance();
  // Asks the manager to end the running application after the current frame.
  void PopApp();
  bool IsPopRequested() const;
  void ClearPopRequest();

 private:
  CAppManager() {}
  bool m_bPopRequested = false;
};

// Switches the manager's allocator bookkeeping on for the application's heap.
// Here it starts the host's per-frame allocation counting.
void AllocOverideEnable();
bool IsAllocOverideEnabled();
