#include "ostra/LogRecords.h"

namespace LogData {
namespace Foxglove {

void CRecord::Add(const char* key, const std::string& text) {
  if (!m_Fields.empty()) m_Fields += ',';
  AppendJsonString(m_Fields, key);
  m_Fields += ':';
  AppendJsonString(m_Fields, text.c_str());
}

void CRecord::Add(const char* key, U32 number) {
  if (!m_Fields.empty()) m_Fields += ',';
  AppendJsonString(m_Fields, key);
  m_Fields += ':';
  m_Fields += std::to_string(number);
}

CTitleStart::CTitleStart(U32 id, const std::string& name, const std::string& version, U8 number)
    : CRecord("TitleStart") {
  Add("id", id);
  Add("name", name);
  Add("version", version);
  Add("number", number);
}

CTitleExit::CTitleExit(U8 reason) : CRecord("TitleExit") {
  Add("reason", reason);
}

CActivityStart::CActivityStart(const std::string& id, const std::string& name, const std::string& info)
    : CRecord("ActivityStart") {
  Add("id", id);
  Add("name", name);
  Add("info", info);
}

CActivityExit::CActivityExit(U32 id, U8 reason) : CRecord("ActivityExit") {
  Add("id", id);
  Add("reason", reason);
}

CCorrectAnswer::CCorrectAnswer(U32 questionId, const std::string& question, const std::string& answer)
    : CRecord("CorrectAnswer") {
  Add("questionId", questionId);
  Add("question", question);
  Add("answer", answer);
}

CWrongAnswer::CWrongAnswer(U32 questionId, const std::string& question, const std::string& answer)
    : CRecord("WrongAnswer") {
  Add("questionId", questionId);
  Add("question", question);
  Add("answer", answer);
}

CHintRequest::CHintRequest(U32 questionId, const std::string& question) : CRecord("HintRequest") {
  Add("questionId", questionId);
  Add("question", question);
}

CLevelUp::CLevelUp(const std::string& level) : CRecord("LevelUp") {
  Add("level", level);
}

CLevelDown::CLevelDown(const std::string& level) : CRecord("LevelDown") {
  Add("level", level);
}

CTutorialStart::CTutorialStart(const std::string& name) : CRecord("TutorialStart") {
  Add("name", name);
}

CAchievementEarned::CAchievementEarned(U16 id) : CRecord("AchievementEarned") {
  Add("id", id);
}

}  // namespace Foxglove
}  // namespace LogData
