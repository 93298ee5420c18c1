#include "shell/GameSceneData.h"

namespace game {

// Columns: id, name, then the next scene for Back, Quit, Complete, Incomplete,
// Unused, MenuBack, Jump; the way-back column is filled at run time.
const noxfw::SceneData GameSceneData::StoryMode[GameSceneData::kStoryCount] = {
    {13, "Adventure", {28, 28, 13, 28, 0, 28, 13, 0}},
    {14, "AdventureLog", {28, 28, 28, 28, 0, 28, 14, 0}},
    {15, "PicturePartsPicker", {29, 29, 29, 28, 0, 29, 19, 0}},
    {16, "Activity1", {13, 13, 34, 34, 0, 13, 0, 0}},
    {17, "Activity2", {13, 13, 35, 35, 0, 13, 0, 0}},
    {18, "Activity3", {13, 13, 36, 36, 0, 13, 0, 0}},
    {19, "Activity4", {13, 13, 13, 13, 0, 13, 0, 0}},
    {9, "Tessaly", {0, 28, 10, 0, 0, 28, 0, 0}},
    {10, "Morvane", {0, 28, 11, 0, 0, 28, 0, 0}},
    {11, "Quennet", {0, 28, 12, 0, 0, 28, 0, 0}},
    {12, "Title", {0, 28, 28, 0, 0, 28, 0, 0}},
    {28, "MainMenu", {28, 28, 28, 0, 0, 0, 0, 0}},
    {29, "ActivityPicker", {28, 28, 28, 0, 0, 28, 0, 0}},
    {30, "BadgeMenu", {28, 28, 28, 0, 0, 28, 0, 0}},
    {31, "MicromodMenu", {28, 28, 19, 0, 0, 28, 38, 0}},
    {38, "MusicPlayer", {31, 31, 31, 0, 0, 31, 0, 0}},
    {33, "ZonePicker", {28, 28, 28, 0, 0, 28, 0, 0}},
    {20, "A1Intro", {29, 16, 16, 0, 0, 28, 0, 0}},
    {21, "A1Outro", {29, 22, 22, 0, 0, 28, 0, 0}},
    {22, "A2Intro", {29, 17, 17, 0, 0, 28, 0, 0}},
    {23, "A2Outro", {29, 24, 24, 0, 0, 28, 0, 0}},
    {24, "A3Intro", {29, 18, 18, 0, 0, 28, 0, 0}},
    {25, "A3Outro", {29, 26, 26, 0, 0, 28, 0, 0}},
    {26, "A4Intro", {29, 15, 15, 0, 0, 28, 0, 0}},
    {27, "A4Outro", {29, 28, 28, 0, 0, 28, 0, 0}},
    {34, "PlayAgain - A1", {13, 13, 13, 13, 0, 13, 16, 0}},
    {35, "PlayAgain - A2", {13, 13, 13, 13, 0, 13, 17, 0}},
    {36, "PlayAgain - A3", {13, 13, 13, 13, 0, 13, 18, 0}},
    {37, "PlayAgain - A4", {13, 13, 13, 13, 0, 13, 15, 0}},
    {39, "Zone1Intro", {28, 28, 13, 0, 0, 28, 13, 0}},
    {40, "Zone2Intro", {28, 28, 13, 0, 0, 28, 13, 0}},
    {41, "Zone3Intro", {28, 28, 13, 0, 0, 28, 13, 0}},
    {42, "Zone4Intro", {28, 28, 13, 0, 0, 28, 13, 0}},
    {43, "Zone5Intro", {28, 28, 13, 0, 0, 28, 13, 0}},
    {44, "Zone5Outro", {28, 28, 28, 0, 0, 28, 28, 0}},
};

const noxfw::SceneData GameSceneData::ActivityMode[GameSceneData::kActivityCount] = {
    {16, "Activity1", {29, 29, 34, 34, 0, 29, 0, 0}},
    {17, "Activity2", {29, 29, 35, 35, 0, 29, 0, 0}},
    {18, "Activity3", {29, 29, 36, 36, 0, 29, 0, 0}},
    {19, "Activity4", {29, 29, 15, 15, 0, 29, 0, 0}},
    {34, "PlayAgain - A1", {29, 29, 29, 0, 0, 29, 16, 0}},
    {35, "PlayAgain - A2", {29, 29, 29, 0, 0, 29, 17, 0}},
    {36, "PlayAgain - A3", {29, 29, 29, 0, 0, 29, 18, 0}},
    {37, "PlayAgain - A4", {29, 29, 29, 0, 0, 29, 15, 0}},
};

const noxfw::SceneData GameSceneData::MicromodsMode[GameSceneData::kMicromodsCount] = {
    {19, "Activity4", {31, 31, 31, 31, 0, 31, 0, 0}},
};

const SceneData GameSceneData::GameData[GameSceneData::kMusicCount] = {
    {16, "MUS_MiniGame_Riding", 0, "", 0},
    {17, "MUS_MiniGame_Archery", 0, "3", 0},
    {18, "MUS_MiniGame_Triplets", 0, "4", 0},
    {19, "MUS_MiniGame_PinTheTail", 0, "2", 0},
    {28, "MUS_Menu", 0, "", 0},
    {29, "MUS_Menu", 0, "", 0},
    {30, "MUS_Menu", 0, "", 0},
    {31, "MUS_Menu", 0, "", 0},
    {33, "MUS_Menu", 0, "", 0},
    {20, "MUS_NIS", 0, "", 0},
    {21, "MUS_NIS", 0, "", 0},
    {22, "MUS_NIS", 0, "", 0},
    {23, "MUS_NIS", 0, "", 0},
    {24, "MUS_NIS", 0, "", 0},
    {25, "MUS_NIS", 0, "", 0},
    {26, "MUS_NIS", 0, "", 0},
    {27, "MUS_NIS", 0, "", 0},
    {13, "MUS_Kelder_Reel01", 0, "", 0},
    {14, "MUS_Menu", 0, "", 0},
    {15, "MUS_Menu", 0, "", 0},
};

int FindSceneDataIndex(const noxfw::SceneData* table, int count, unsigned long id) {
  for (int i = 0; i < count; ++i) {
    if (table[i].id == id) return i;
  }
  return -1;
}

}  // namespace game
