#include "learning/Logger.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "core/Debug.h"
#include "ostra/LogRecords.h"

namespace noxfw {

using namespace LogData::Foxglove;

Logger* Logger::sm_pInstance = nullptr;

void Logger::Create() {
  if (!sm_pInstance) sm_pInstance = new Logger();
}

void Logger::Destroy() {
  delete sm_pInstance;
  sm_pInstance = nullptr;
}

std::string Logger::LevelText(int level, int sublevel) {
  char text[32];
  if (sublevel != 0) {
    snprintf(text, sizeof text, "%d.%d", level, sublevel);
  } else {
    snprintf(text, sizeof text, "%d", level);
  }
  return text;
}

uint8_t Logger::TitleExitReason(uint32_t reason) {
  if (reason == 0) return 1;
  if (reason == 4) return 2;
  return 3;
}

uint8_t Logger::ActivityExitReason(uint32_t reason) {
  switch (reason) {
    case 2:
      return 1;
    case 3:
      return 2;
    case 4:
      return 4;
    case 1:
      return 5;
    default:
      return 3;
  }
}

void Logger::LogEnter(const char* kind, const LogEventData& data) {
  if (!sm_pInstance) return;
  sm_pInstance->m_OpenKinds.push_back(kind);
  if (strcmp(kind, "Title") == 0) {
    Append(CTitleStart(data.id, data.name, data.version, data.number));
  } else if (strcmp(kind, "Activity") == 0) {
    char id[16];
    snprintf(id, sizeof id, "%u", data.id);
    Append(CActivityStart(id, data.name, data.info));
  }
}

void Logger::LogLeave(const char* kind, const LogEventData& data) {
  if (!sm_pInstance) return;
  std::vector<std::string>& open = sm_pInstance->m_OpenKinds;
  auto it = std::find(open.rbegin(), open.rend(), kind);
  if (it != open.rend()) open.erase(std::next(it).base());
  if (strcmp(kind, "Title") == 0) {
    Append(CTitleExit(TitleExitReason(data.reason)));
  } else if (strcmp(kind, "Activity") == 0) {
    Append(CActivityExit(data.id, ActivityExitReason(data.reason)));
  }
}

void Logger::LogAnswer(uint32_t id, const std::string& question, const std::string& answer, bool correct) {
  if (!sm_pInstance) return;
  if (correct) {
    Append(CCorrectAnswer(id, question, answer));
  } else {
    Append(CWrongAnswer(id, question, answer));
  }
}

void Logger::LogHint(uint32_t id, const std::string& text) {
  if (sm_pInstance) Append(CHintRequest(id, text));
}

void Logger::LogLevelUp(int level, int sublevel) {
  if (sm_pInstance) Append(CLevelUp(LevelText(level, sublevel)));
}

void Logger::LogLevelDown(int level, int sublevel) {
  if (sm_pInstance) Append(CLevelDown(LevelText(level, sublevel)));
}

void Logger::LogTutorialStart(const std::string& text) {
  if (sm_pInstance) Append(CTutorialStart(text));
}

void Logger::LogBadge(uint16_t id) {
  if (sm_pInstance) Append(CAchievementEarned(id));
}

void Logger::LogError(const std::string& errorData) {
  if (sm_pInstance) nox::AutomationPrintf("Logger error: %s", errorData.c_str());
}

}  // namespace noxfw
