#include "scenes/CommandManager.h"

namespace noxfw {

CommandManager* CommandManager::sm_pInstance = nullptr;

void CommandManager::Create() {
  Install(new CommandManager());
}

void CommandManager::Install(CommandManager* manager) {
  if (sm_pInstance != manager) delete sm_pInstance;
  sm_pInstance = manager;
}

void CommandManager::Destroy() {
  delete sm_pInstance;
  sm_pInstance = nullptr;
}

void CommandManager::Update(unsigned long dt) {
  if (m_Commands.empty()) return;
  // Taken off before it runs, so that a handler may queue further commands.
  const unsigned long command = m_Commands.front();
  m_Commands.pop_front();
  HandleCommand(command);
}

}  // namespace noxfw
