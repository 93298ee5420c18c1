// Telemetry for the parents' reports: turns game events (title and activity start and
// end, answers, hints, level changes, badges) into the platform's log records. A thin
// singleton; "Game" and "Area" events are accepted and recorded nowhere.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "platform/Logger_pf.h"

namespace noxfw {

// What an enter or leave event carries. Titles fill id (product), name (part number),
// version (package version) and number (version number); activities fill id, name and
// info (level text); leaving fills reason.
struct LogEventData {
  uint32_t id = 0;
  std::string name;
  std::string version;
  uint8_t number = 0;
  std::string info;
  uint32_t reason = 0;
};

class Logger : public Logger_pf {
 public:
  static void Create();
  static void Destroy();
  static Logger* sm_pInstance;

  static void LogEnter(const char* kind, const LogEventData& data);
  static void LogLeave(const char* kind, const LogEventData& data);
  static void LogAnswer(uint32_t id, const std::string& question, const std::string& answer, bool correct);
  static void LogHint(uint32_t id, const std::string& text);
  static void LogLevelUp(int level, int sublevel);
  static void LogLevelDown(int level, int sublevel);
  static void LogTutorialStart(const std::string& text);
  static void LogBadge(uint16_t id);
  static void LogError(const std::string& errorData);
  static void LogPause() {}
  static void LogResume() {}
  static void LogPowerStatus(const std::string&) {}
  static void LogDebug(const std::string&) {}

  // "3.2" for level 3 sublevel 2, "3" when the sublevel is 0.
  static std::string LevelText(int level, int sublevel);
  // The platform's exit codes: title 0 -> 1, 4 -> 2, others 3; activity 2 -> 1,
  // 3 -> 2, 4 -> 4, 1 -> 5, others 3.
  static uint8_t TitleExitReason(uint32_t reason);
  static uint8_t ActivityExitReason(uint32_t reason);

  const std::vector<std::string>& GetOpenKinds() const { return m_OpenKinds; }

 private:
  Logger() {}
  std::vector<std::string> m_OpenKinds;  // kinds entered and not yet left
};

}  // namespace noxfw
