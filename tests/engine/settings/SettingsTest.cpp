#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "core/Settings.h"

using nox::Real;
using nox::Setting;
using nox::Settings;

namespace {

class SettingsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    Settings::Create();
    s = Settings::s_pSettings;
  }
  void TearDown() override { Settings::Destroy(); }
  Settings* s = nullptr;
};

struct CountingReceiver {
  int calls = 0;
  Settings* settings = nullptr;
  static void OnChange(void* receiver, const char* name) {
    auto* self = static_cast<CountingReceiver*>(receiver);
    ++self->calls;
    // Setting the same value again from inside the notification must not recurse.
    self->settings->SetU32Value(name, 99);
  }
};

}  // namespace

TEST_F(SettingsTest, IntegerLimitsAreSwappedAndAZeroStepBecomesATenthOfTheRangeButAtLeastOne) {
  s->RegisterU32("Small", 5, 10, 0, 0, "1.Global", nullptr);
  Setting* small = s->Find("Small");
  ASSERT_NE(small, nullptr);
  EXPECT_EQ(small->m_Min, Real(0));
  EXPECT_EQ(small->m_Max, Real(10));
  EXPECT_EQ(small->m_Step, Real(1));

  s->RegisterU32("Wide", 0, 0, 1000, 0, "1.Global", nullptr);
  EXPECT_EQ(s->Find("Wide")->m_Step, Real(100));

  // A given step is taken as its absolute value.
  s->RegisterS32("Negative step", 0, -50, 50, -5, "1.Global", nullptr);
  EXPECT_EQ(s->Find("Negative step")->m_Step, Real(5));

  // A Real with a zero step gets a tenth of its range, however small.
  s->RegisterReal("Fine", Real(0), Real(0), Real::FromRaw(0x8000), Real(0), "1.Global", nullptr);
  EXPECT_EQ(s->Find("Fine")->m_Step.Raw(), 0x8000 / 10);

  s->RegisterBool("Flag", true, "2.Debug", nullptr);
  EXPECT_EQ(s->Find("Flag")->m_Step, Real(1));
}

TEST_F(SettingsTest, UnknownNamesReadAsZeroAndWritesToThemAreIgnored) {
  EXPECT_EQ(s->GetU32Value("Nothing"), 0u);
  EXPECT_FALSE(s->GetBoolValue("Nothing"));
  EXPECT_EQ(s->GetRealValue("Nothing"), Real(0));
  s->SetU32Value("Nothing", 4);
  EXPECT_EQ(s->Find("Nothing"), nullptr);
}

TEST_F(SettingsTest, SettersStoreOutOfRangeValuesUnclamped) {
  s->RegisterU32("Level", 1, 1, 5, 1, "!Quests", nullptr);
  s->SetU32Value("Level", 40);
  EXPECT_EQ(s->GetU32Value("Level"), 40u);
  s->RegisterReal("Speed", Real(50), Real(0), Real(100), Real(1), "A3", nullptr);
  s->SetRealValue("Speed", Real(250));
  EXPECT_EQ(s->GetRealValue("Speed"), Real(250));
}

TEST_F(SettingsTest, IntegersFrom32768UpWrapLikeAnyReal) {
  s->RegisterU32("Big", 40000, 0, 50000, 1, "1.Global", nullptr);
  EXPECT_EQ(s->GetS32Value("Big"), 40000 - 65536);
}

TEST_F(SettingsTest, NotifierIsCalledOnChangeOnlyAndNeverReentered) {
  CountingReceiver receiver;
  receiver.settings = s;
  nox::SettingChangedNotifier notifier;
  notifier.m_pReceiver = &receiver;
  notifier.m_pCallback = &CountingReceiver::OnChange;
  s->RegisterU32("Watched", 1, 0, 100, 1, "1.Global", &notifier);

  s->SetU32Value("Watched", 1);  // same value: no call
  EXPECT_EQ(receiver.calls, 0);
  s->SetU32Value("Watched", 2);
  EXPECT_EQ(receiver.calls, 1);
  EXPECT_EQ(s->GetU32Value("Watched"), 99u);  // the receiver's own write went through
  EXPECT_FALSE(notifier.m_bGuard);
}

TEST_F(SettingsTest, GroupsSortAsStringsAndLookupsFindTheFirstMatchInThatOrder) {
  s->RegisterU32("Twice", 2, 0, 9, 1, "2.Debug", nullptr);
  s->RegisterU32("Twice", 1, 0, 9, 1, "1.Global", nullptr);
  EXPECT_EQ(s->GetU32Value("Twice"), 1u);
  std::string order;
  for (const auto& group : s->GetGroups()) order += group.first + ";";
  EXPECT_EQ(order, "1.Global;2.Debug;");
  EXPECT_EQ(s->GetSetting("2.Debug", 0)->m_Value, Real(2));
  EXPECT_THROW(s->GetSetting("2.Debug", 1), std::out_of_range);
}

TEST_F(SettingsTest, PrintValueFormatsEachType) {
  char buffer[64];
  s->RegisterBool("B", true, "g", nullptr);
  s->Find("B")->PrintValue(buffer, sizeof buffer);
  EXPECT_STREQ(buffer, "TRUE");
  s->RegisterReal("R", Real::FromRaw(0x18000), Real(0), Real(10), Real(1), "g", nullptr);
  s->Find("R")->PrintValue(buffer, sizeof buffer);
  EXPECT_STREQ(buffer, "1.500000");
  s->RegisterS32("I", -3, -10, 10, 1, "g", nullptr);
  s->Find("I")->PrintValue(buffer, sizeof buffer);
  EXPECT_STREQ(buffer, "-3");
  s->RegisterChar("C", 'x', 'a', 'z', 1, "g", nullptr);
  s->Find("C")->PrintValue(buffer, sizeof buffer);
  EXPECT_STREQ(buffer, "x");
}
