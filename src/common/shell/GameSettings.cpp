// The game's own tunables: quest cheats, adventure, and each activity's numbers.
#include "core/Settings.h"
#include "shell/GameTitle.h"

namespace game {

void GameTitle::RegisterSettings() {
  noxfw::Title::RegisterSettings();
  nox::Settings* s = nox::Settings::s_pSettings;
  s->RegisterBool("Activate Quest Cheats", false, "!Quests", nullptr);
  s->RegisterU32("Zone Index", 1, 1, 5, 1, "!Quests", nullptr);
  s->RegisterU32("Quest Index", 1, 1, 3, 1, "!Quests", nullptr);
  s->RegisterBool("Automatically Complete Minigames", false, "!Quests", nullptr);
  s->RegisterBool("Activate Quest Progress Cheat", false, "!Quests", nullptr);
  s->RegisterU32("Activate first X conditions", 0, 0, 32, 1, "!Quests", nullptr);

  s->RegisterBool("Unlock All Adventure Zones", false, "A0.Adventure", nullptr);
  s->RegisterBool("Drastically increase Corrin's walk speed", false, "A0.Adventure", nullptr);
  s->RegisterBool("Use Axis To Determine Rub", true, "A0.Adventure", nullptr);
  s->RegisterU32("Axis Crosses For Rub Event", 4, 0, 10, 1, "A0.Adventure", nullptr);
  s->RegisterBool("Use Distance To Determine Rub", false, "A0.Adventure", nullptr);
  s->RegisterU32("Pixels for rub event", 300, 0, 1000, 10, "A0.Adventure", nullptr);
  s->RegisterBool("Unlock The Journal", false, "A0.Adventure", nullptr);
  s->RegisterBool("Unlock The Bow And Arrow", false, "A0.Adventure", nullptr);
  s->RegisterBool("Disable Door Highlights", true, "A0.Adventure", nullptr);
  s->RegisterBool("Disable Most VOs", false, "A0.Adventure", nullptr);

  s->RegisterU32("Minimum Distance Between Obstacles", 500, 0, 2000, 50, "A1.Riding", nullptr);
  s->RegisterU32("How Much Distance Increases Depending on Speed", 500, 0, 2000, 50, "A1.Riding", nullptr);
  s->RegisterU32("Default Completion Time", 90, 0, 360, 5, "A1.Riding", nullptr);
  s->RegisterU32("Default Running Speed", 180, 0, 2500, 10, "A1.Riding", nullptr);
  s->RegisterBool("Auto Jump", false, "A1.Riding", nullptr);
  s->RegisterU32("X Variance of Fixed Bonuses Above Obstacles", 50, 0, 500, 5, "A1.Riding", nullptr);
  s->RegisterU32("Bonus On Top of Obstacle Chance is x %", 70, 0, 100, 5, "A1.Riding", nullptr);
  s->RegisterU32("Bonus Pattern Chace(acctual % is (1-above)*this)", 15, 0, 100, 5, "A1.Riding", nullptr);
  s->RegisterU32("Perfect Bonus", 0, 0, 9000, 10, "A1.Riding", nullptr);
  s->RegisterU32("Wisps are worth: ", 40, 0, 9000, 1, "A1.Riding", nullptr);
  s->RegisterU32("Charms are worth: ", 25, 0, 9000, 1, "A1.Riding", nullptr);

  s->RegisterBool("Guide", false, "A2.Archery", nullptr);
  s->RegisterBool("Skip NIS/Tally screen midgame", false, "A2.Archery", nullptr);
  s->RegisterBool("Rotate arm after shot", false, "A2.Archery", nullptr);
  s->RegisterBool("Invert Aim", false, "A2.Archery", nullptr);

  s->RegisterU32("A3_Level", 0, 0, 3, 1, "A3.Triplets", nullptr);
  s->RegisterU32("A3_SubLevel", 0, 0, 1, 1, "A3.Triplets", nullptr);
  s->RegisterReal("A3_Triplet_Speed", nox::Real(50), nox::Real(0), nox::Real(100), nox::Real(1),
                  "A3.Triplets", nullptr);

  s->RegisterU32("A4_ObjectType", 36, 0, 36, 1, "A4.PinTheTail", nullptr);
  s->RegisterU32("A4_Level", 0, 0, 2, 1, "A4.PinTheTail", nullptr);
}

}  // namespace game
