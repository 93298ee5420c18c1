// A small queue of numbered commands, worked off one per frame: code that must not act
// in the middle of something (a callback, a script step) queues a command with Run and
// the owner of the frame acts on it in its next Update. The meaning of the numbers
// belongs to the subclass's HandleCommand; the base does nothing with them.
//
// A singleton: Create makes the base class; a game that wants its own commands
// installs a subclass with Install.
#pragma once
#include <list>

#include "core/NoCopy.h"

namespace noxfw {

class CommandManager : public nox::NoCopy {
 public:
  static CommandManager* sm_pInstance;
  // Deletes an existing instance and makes a new base one.
  static void Create();
  // Deletes an existing instance and takes `manager` (owned from here on).
  static void Install(CommandManager* manager);
  static void Destroy();

  CommandManager() = default;
  virtual ~CommandManager() = default;

  // Appends a command; it runs in a later Update, after those queued before it.
  void Run(unsigned long command) { m_Commands.push_back(command); }
  // Takes the first waiting command, if any, and hands it to HandleCommand.
  void Update(unsigned long dt);
  virtual void HandleCommand(unsigned long command) {}

  bool IsEmpty() const { return m_Commands.empty(); }
  unsigned long GetCount() const { return static_cast<unsigned long>(m_Commands.size()); }

 private:
  std::list<unsigned long> m_Commands;
};

}  // namespace noxfw
