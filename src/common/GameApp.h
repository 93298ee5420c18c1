// The application object that the device's manager drives: Enter once, Update once
// per frame, Suspend/Resume around focus changes, Exit at the end. It holds the
// game's title by value and does no work of its own beyond forwarding.
#pragma once
#include <glibmm/ustring.h>

#include "ostra/AppInterface.h"
#include "shell/GameTitle.h"

namespace game {

class GameApp : public CAppInterface {
 public:
  explicit GameApp(void* userData);
  ~GameApp() override;
  void Enter() override;
  void Update() override;
  void Exit() override;
  void Suspend() override;
  void Resume() override;

  GameTitle& GetTitle() { return m_Title; }

 private:
  GameTitle m_Title;
  Glib::ustring m_Reserved1;  // kept empty
  Glib::ustring m_Reserved2;  // kept empty
};

}  // namespace game
