// Renders an effect recipe (also the platform's stock sounds) to 16 kHz mono samples.
//
// Each layer plays its note, or its run of notes, with its own waveform, glide, vibrato,
// filters and envelope; the layers are summed, an optional echo is added, the ends are
// faded over a few milliseconds so the sound starts and stops at silence, and the peak
// is set to the recipe's level. Noise is seeded from the effect's name, so two renders
// of one recipe are identical.
#pragma once
#include <cstdint>
#include <vector>

#include "Recipe.h"

namespace soundgen {

std::vector<float> RenderEffect(const EffectRecipe& recipe);

// -1..1 floats to 16-bit samples, rounded and clamped.
std::vector<int16_t> ToPcm16(const std::vector<float>& samples);

}  // namespace soundgen
