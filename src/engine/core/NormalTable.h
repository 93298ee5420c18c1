// The table of 162 unit normals that packed model vertices index (the MD2 vertex
// normal table in its published order, each component times 65536 cut toward zero).
// The vertex pipeline defines and fills it at start-up; Matrix4 reads it to transform
// a normal by index.
#pragma once
#include "core/Vector3.h"

namespace nox {

constexpr unsigned kNormalTableSize = 162;

extern Vector3 g_NormalTable[kNormalTableSize];

}  // namespace nox
