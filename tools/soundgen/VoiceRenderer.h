// Speaks a voice line with espeak-ng in its speaker's voice and converts it with sox to
// 16 kHz mono 16-bit samples, normalised to -3 dBFS, with the silence that espeak-ng
// leaves around the words cut down to a short pause:
//
//   espeak-ng -v VOICE -p PITCH -s SPEED -g GAP -b 1 --stdout WORDS
//     | sox -t wav - -t raw -r 16000 -c 1 -b 16 -e signed-integer -L - norm -3 silence ... pad ...
//
// The two programs run connected by a pipe, without a shell, so the words need no
// quoting. Safe to call from several threads at once.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "Recipe.h"

namespace soundgen {

// Bump when the programs' arguments change, so that the build cache speaks every line again.
const int kVoicePipelineVersion = 1;

bool RenderVoice(const std::string& words, const Speaker& speaker, std::vector<int16_t>& samples,
                 std::string& error);

// Whether espeak-ng and sox can be found on the PATH.
bool VoiceToolsAvailable();

}  // namespace soundgen
