// Fire-and-forget sounds of the shell: a click, a prompt, a name said once. The sound
// manager plays a copy of a streaming sound made on the spot, so the caller keeps no
// sound object and the copy ends by itself.
#pragma once
#include <cstdint>

namespace game {

// Plays `name` in `category` as a copy; does nothing without a sound manager.
void PlayCopy(const char* name, uint32_t category);

// True for a voice name that is to be said: not null, not empty, not the marker "NONE".
bool IsSpoken(const char* voice);

}  // namespace game
