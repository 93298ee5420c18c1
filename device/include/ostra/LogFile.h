// The telemetry log: records appended as JSON lines to "telemetry.jsonl" in the
// player's directory, for the parents' progress reports.
#pragma once
#include <string>
#include "ostra/PlatformTypes.h"

class CLogData {
 public:
  virtual ~CLogData() {}
  // The record's type name, e.g. "TitleStart".
  virtual const char* GetTypeName() const = 0;
  // Appends the record's fields as JSON members ("\"key\":value,...") to `out`.
  virtual void WriteFields(std::string& out) const = 0;
};

// Appends `text` to `out` as a JSON string literal, quotes included, escaping as needed.
void AppendJsonString(std::string& out, const char* text);

class CLogFile {
 public:
  static CLogFile* Instance();
  // Writes {"time":<kernel ms>,"type":"<type name>",<fields>} and a newline in one write.
  bool Append(const CLogData& record);
  std::string GetPath() const;
};
