// The registry of tunable values, in named groups that sort as strings ("1.Global"
// before "2.Debug"). Registered at start by the titles, edited only on the debug
// settings screen, never saved: every run starts from the defaults. Reads walk every
// group and compare names, so per-frame readers are few.
#pragma once
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "core/NoCopy.h"
#include "core/Setting.h"

namespace nox {

class Settings : public NoCopy {
 public:
  typedef std::vector<Setting*> Group;
  typedef std::map<std::string, Group*> GroupMap;

  static void Create();
  static void Destroy();
  static Settings* s_pSettings;

  void RegisterBool(const char* name, bool value, const char* group, SettingChangedNotifier* notifier);
  void RegisterChar(const char* name, char value, char min, char max, char step, const char* group,
                    SettingChangedNotifier* notifier);
  void RegisterS16(const char* name, int16_t value, int16_t min, int16_t max, int16_t step, const char* group,
                   SettingChangedNotifier* notifier);
  void RegisterU16(const char* name, uint16_t value, uint16_t min, uint16_t max, uint16_t step,
                   const char* group, SettingChangedNotifier* notifier);
  void RegisterS32(const char* name, int32_t value, int32_t min, int32_t max, int32_t step, const char* group,
                   SettingChangedNotifier* notifier);
  void RegisterU32(const char* name, uint32_t value, uint32_t min, uint32_t max, uint32_t step,
                   const char* group, SettingChangedNotifier* notifier);
  void RegisterReal(const char* name, Real value, Real min, Real max, Real step, const char* group,
                    SettingChangedNotifier* notifier);

  // The first setting of this name in group order, or null.
  Setting* Find(const char* name) const;

  bool GetBoolValue(const char* name) const;
  char GetCharValue(const char* name) const;
  int16_t GetS16Value(const char* name) const;
  uint16_t GetU16Value(const char* name) const;
  int32_t GetS32Value(const char* name) const;
  uint32_t GetU32Value(const char* name) const;
  Real GetRealValue(const char* name) const;

  // Stored without a range test; unknown names are ignored.
  void SetBoolValue(const char* name, bool value);
  void SetCharValue(const char* name, char value);
  void SetS16Value(const char* name, int16_t value);
  void SetU16Value(const char* name, uint16_t value);
  void SetS32Value(const char* name, int32_t value);
  void SetU32Value(const char* name, uint32_t value);
  void SetRealValue(const char* name, Real value);
  // Stores `value` and notifies as the setters do (used by the settings screen too).
  static void ChangeValue(Setting* setting, Real value);

  // By position, for the settings screen; throws std::out_of_range past the end.
  Setting* GetSetting(const std::string& group, size_t index) const;
  const GroupMap& GetGroups() const { return m_Groups; }

  ~Settings();

 private:
  Settings() {}
  void Add(const char* group, Setting* setting);
  void RegisterInteger(const char* name, Setting::Type type, int32_t value, int32_t min, int32_t max,
                       int32_t step, const char* group, SettingChangedNotifier* notifier);

  GroupMap m_Groups;  // owns the groups and their settings
};

}  // namespace nox
