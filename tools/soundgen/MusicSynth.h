// Renders a music recipe to one seamless loop of 16 kHz mono samples.
//
// A track is `bars` bars of a chord progression with three parts over it: the melody on
// the lead instrument, a bass line in the chosen pattern and a soft pad holding each
// bar's triad; drums are optional. Notes that ring past the end of the loop are added
// to its start, so the last sample leads into the first as any two neighbours do and
// the loop joins without a click when the game plays the file again from the top.
#pragma once
#include <vector>

#include "Recipe.h"

namespace soundgen {

std::vector<float> RenderMusic(const MusicRecipe& recipe);

// Exactly the number of samples RenderMusic returns.
size_t MusicLoopSamples(const MusicRecipe& recipe);

}  // namespace soundgen
