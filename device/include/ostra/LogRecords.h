// The telemetry records of the game's parent reports (namespace LogData::Foxglove). Each
// is built on the stack, passed to CLogFile::Instance()->Append and dropped; it writes its
// fields as JSON members, e.g. CLevelUp("3.2") gives {"time":..,"type":"LevelUp","level":"3.2"}.
#pragma once
#include <string>

#include "ostra/LogFile.h"

namespace LogData {
namespace Foxglove {

// Shared plumbing: a type name and the JSON members, fixed at construction.
class CRecord : public CLogData {
 public:
  const char* GetTypeName() const override { return m_pType; }
  void WriteFields(std::string& out) const override { out += m_Fields; }

 protected:
  explicit CRecord(const char* type) : m_pType(type) {}
  void Add(const char* key, const std::string& text);
  void Add(const char* key, U32 number);

 private:
  const char* m_pType;  // a literal
  std::string m_Fields;
};

// The title began: its product id, part number, package version and version number.
class CTitleStart : public CRecord {
 public:
  CTitleStart(U32 id, const std::string& name, const std::string& version, U8 number);
};

// The title ended, with the reason code the game chose.
class CTitleExit : public CRecord {
 public:
  explicit CTitleExit(U8 reason);
};

class CActivityStart : public CRecord {
 public:
  CActivityStart(const std::string& id, const std::string& name, const std::string& info);
};

class CActivityExit : public CRecord {
 public:
  CActivityExit(U32 id, U8 reason);
};

class CCorrectAnswer : public CRecord {
 public:
  CCorrectAnswer(U32 questionId, const std::string& question, const std::string& answer);
};

class CWrongAnswer : public CRecord {
 public:
  CWrongAnswer(U32 questionId, const std::string& question, const std::string& answer);
};

class CHintRequest : public CRecord {
 public:
  CHintRequest(U32 questionId, const std::string& question);
};

// Level texts are "3" or "3.2" (level and sublevel).
class CLevelUp : public CRecord {
 public:
  explicit CLevelUp(const std::string& level);
};

class CLevelDown : public CRecord {
 public:
  explicit CLevelDown(const std::string& level);
};

class CTutorialStart : public CRecord {
 public:
  explicit CTutorialStart(const std::string& name);
};

class CAchievementEarned : public CRecord {
 public:
  explicit CAchievementEarned(U16 id);
};

}  // namespace Foxglove
}  // namespace LogData
