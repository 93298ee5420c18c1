#include "core/Settings.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace nox {

Settings* Settings::s_pSettings = nullptr;

namespace {

Real AbsoluteDifference(Real a, Real b) {
  return a > b ? a - b : b - a;
}

Real Absolute(Real a) {
  return a < Real(0) ? -a : a;
}

}  // namespace

Setting::Setting(const char* name, Type type, Real value, Real min, Real max, Real step,
                 SettingChangedNotifier* notifier)
    : m_pName(name),
      m_Type(type),
      m_Value(value),
      m_Min(min),
      m_Max(max),
      m_Step(step),
      m_pNotifier(notifier) {}

void Setting::PrintValue(char* buffer, size_t size) const {
  switch (m_Type) {
    case kBool:
      snprintf(buffer, size, "%s", m_Value > Real(0) ? "TRUE" : "FALSE");
      break;
    case kReal:
      snprintf(buffer, size, "%f", static_cast<double>(m_Value.ToFloat()));
      break;
    case kChar:
      snprintf(buffer, size, "%c", static_cast<char>(m_Value.ToInt() & 0xFF));
      break;
    default:
      snprintf(buffer, size, "%d", m_Value.ToInt());
      break;
  }
}

void Settings::Create() {
  if (!s_pSettings) s_pSettings = new Settings();
}

void Settings::Destroy() {
  delete s_pSettings;
  s_pSettings = nullptr;
}

Settings::~Settings() {
  for (auto& entry : m_Groups) {
    for (Setting* setting : *entry.second) delete setting;
    delete entry.second;
  }
}

void Settings::Add(const char* group, Setting* setting) {
  Group*& list = m_Groups[group];
  if (!list) list = new Group();
  list->push_back(setting);
}

void Settings::RegisterBool(const char* name, bool value, const char* group,
                            SettingChangedNotifier* notifier) {
  Add(group, new Setting(name, Setting::kBool, Real(value ? 1 : 0), Real(0), Real(1), Real(1), notifier));
}

void Settings::RegisterChar(const char* name, char value, char min, char max, char, const char* group,
                            SettingChangedNotifier* notifier) {
  Real lo(static_cast<int>(min)), hi(static_cast<int>(max));
  if (hi < lo) std::swap(lo, hi);
  Add(group, new Setting(name, Setting::kChar, Real(static_cast<int>(value)), lo, hi, Real(1), notifier));
}

void Settings::RegisterInteger(const char* name, Setting::Type type, int32_t value, int32_t min, int32_t max,
                               int32_t step, const char* group, SettingChangedNotifier* notifier) {
  Real lo(min), hi(max);
  if (hi < lo) std::swap(lo, hi);
  Real stepValue = step == 0 ? AbsoluteDifference(hi, lo) / Real(10) : Absolute(Real(step));
  if (stepValue < Real(1)) stepValue = Real(1);
  Add(group, new Setting(name, type, Real(value), lo, hi, stepValue, notifier));
}

void Settings::RegisterS16(const char* name, int16_t value, int16_t min, int16_t max, int16_t step,
                           const char* group, SettingChangedNotifier* notifier) {
  RegisterInteger(name, Setting::kS16, value, min, max, step, group, notifier);
}

void Settings::RegisterU16(const char* name, uint16_t value, uint16_t min, uint16_t max, uint16_t step,
                           const char* group, SettingChangedNotifier* notifier) {
  RegisterInteger(name, Setting::kU16, value, min, max, step, group, notifier);
}

void Settings::RegisterS32(const char* name, int32_t value, int32_t min, int32_t max, int32_t step,
                           const char* group, SettingChangedNotifier* notifier) {
  RegisterInteger(name, Setting::kS32, value, min, max, step, group, notifier);
}

void Settings::RegisterU32(const char* name, uint32_t value, uint32_t min, uint32_t max, uint32_t step,
                           const char* group, SettingChangedNotifier* notifier) {
  RegisterInteger(name, Setting::kU32, static_cast<int32_t>(value), static_cast<int32_t>(min),
                  static_cast<int32_t>(max), static_cast<int32_t>(step), group, notifier);
}

void Settings::RegisterReal(const char* name, Real value, Real min, Real max, Real step, const char* group,
                            SettingChangedNotifier* notifier) {
  if (max < min) std::swap(min, max);
  if (step == Real(0)) step = AbsoluteDifference(max, min) / Real(10);
  Add(group, new Setting(name, Setting::kReal, value, min, max, step, notifier));
}

Setting* Settings::Find(const char* name) const {
  for (const auto& entry : m_Groups) {
    for (Setting* setting : *entry.second) {
      if (strncmp(setting->m_pName, name, 256) == 0) return setting;
    }
  }
  return nullptr;
}

bool Settings::GetBoolValue(const char* name) const {
  Setting* s = Find(name);
  return s && s->m_Value != Real(0);
}

char Settings::GetCharValue(const char* name) const {
  Setting* s = Find(name);
  return s ? static_cast<char>(s->m_Value.ToInt() & 0xFF) : 0;
}

int16_t Settings::GetS16Value(const char* name) const {
  Setting* s = Find(name);
  return s ? static_cast<int16_t>(s->m_Value.ToInt()) : 0;
}

uint16_t Settings::GetU16Value(const char* name) const {
  Setting* s = Find(name);
  return s ? static_cast<uint16_t>(s->m_Value.ToInt()) : 0;
}

int32_t Settings::GetS32Value(const char* name) const {
  Setting* s = Find(name);
  return s ? s->m_Value.ToInt() : 0;
}

uint32_t Settings::GetU32Value(const char* name) const {
  Setting* s = Find(name);
  return s ? static_cast<uint32_t>(s->m_Value.ToInt()) : 0;
}

Real Settings::GetRealValue(const char* name) const {
  Setting* s = Find(name);
  return s ? s->m_Value : Real(0);
}

void Settings::ChangeValue(Setting* setting, Real value) {
  if (setting->m_Value == value) return;
  setting->m_Value = value;
  SettingChangedNotifier* n = setting->m_pNotifier;
  if (n && n->m_pReceiver && n->m_pCallback && !n->m_bGuard) {
    n->m_bGuard = true;
    n->m_pCallback(n->m_pReceiver, setting->m_pName);
    n->m_bGuard = false;
  }
}

void Settings::SetBoolValue(const char* name, bool value) {
  if (Setting* s = Find(name)) ChangeValue(s, Real(value ? 1 : 0));
}

void Settings::SetCharValue(const char* name, char value) {
  if (Setting* s = Find(name)) ChangeValue(s, Real(static_cast<int>(value)));
}

void Settings::SetS16Value(const char* name, int16_t value) {
  if (Setting* s = Find(name)) ChangeValue(s, Real(static_cast<int>(value)));
}

void Settings::SetU16Value(const char* name, uint16_t value) {
  if (Setting* s = Find(name)) ChangeValue(s, Real(static_cast<int>(value)));
}

void Settings::SetS32Value(const char* name, int32_t value) {
  if (Setting* s = Find(name)) ChangeValue(s, Real(value));
}

void Settings::SetU32Value(const char* name, uint32_t value) {
  if (Setting* s = Find(name)) ChangeValue(s, Real(value));
}

void Settings::SetRealValue(const char* name, Real value) {
  if (Setting* s = Find(name)) ChangeValue(s, value);
}

Setting* Settings::GetSetting(const std::string& group, size_t index) const {
  auto it = m_Groups.find(group);
  if (it == m_Groups.end()) throw std::out_of_range("no such settings group");
  return it->second->at(index);
}

}  // namespace nox
