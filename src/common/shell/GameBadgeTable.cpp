// The game's badge table: badge index, its id in the device's player profile, earned.
#include "shell/GameTitle.h"

namespace game {

noxfw::BadgeManager::Badge GameTitle::s_Badges[GameTitle::kBadgeCount] = {
    {0, 1, 0},   {1, 2, 0},   {2, 3, 0},   {3, 4, 0},   {4, 5, 0},   {5, 6, 0},   {6, 8, 0},
    {7, 9, 0},   {8, 10, 0},  {9, 11, 0},  {10, 12, 0}, {11, 13, 0}, {12, 14, 0}, {13, 15, 0},
    {14, 17, 0}, {15, 18, 0}, {16, 19, 0}, {17, 20, 0}, {18, 21, 0}, {19, 22, 0}, {20, 23, 0},
    {21, 24, 0}, {22, 25, 0}, {23, 26, 0}, {24, 27, 0}, {25, 28, 0}, {26, 29, 0}, {27, 30, 0},
    {28, 31, 0}, {29, 32, 0}, {30, 33, 0}, {31, 34, 0}, {32, 37, 0}, {33, 39, 0}, {34, 49, 0},
};

}  // namespace game
