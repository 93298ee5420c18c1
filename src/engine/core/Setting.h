// One named, typed and ranged tunable value. Every type keeps its value as a Real:
// integers and characters shifted left 16 (so integers from 32768 up wrap), booleans
// as 0 or 1. The name is not copied and must be a literal.
#pragma once
#include <cstddef>

#include "core/Real.h"

namespace nox {

// Calls its receiver with the setting's name when a value changes; the guard stops a
// receiver that sets the same setting again from being called a second time.
struct SettingChangedNotifier {
  typedef void (*Callback)(void* receiver, const char* name);
  void* m_pReceiver = nullptr;
  Callback m_pCallback = nullptr;
  bool m_bGuard = false;
};

class Setting {
 public:
  enum Type { kBool = 0, kReal = 1, kU32 = 2, kS16 = 3, kU16 = 4, kS32 = 5, kChar = 6 };

  Setting(const char* name, Type type, Real value, Real min, Real max, Real step,
          SettingChangedNotifier* notifier);
  virtual ~Setting() {}

  // "TRUE"/"FALSE", "%f", "%d" of the integer part, or "%c".
  void PrintValue(char* buffer, size_t size) const;
  bool IsInteger() const { return m_Type >= kU32 && m_Type <= kS32; }

  const char* m_pName;  // not owned
  Type m_Type;
  Real m_Value;
  Real m_Min;
  Real m_Max;
  Real m_Step;                          // one step on the settings screen
  SettingChangedNotifier* m_pNotifier;  // not owned; may be null
};

}  // namespace nox
