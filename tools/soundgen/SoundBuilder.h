// Makes the sound files of a SoundSet, skipping those the build cache finds up to date:
//
//   voices  -> <title>/Audio/Dialogue/<id>.ogg (and .wav where asked)
//   effects -> <title>/Audio/SFX/<name>.ogg and .wav
//   music   -> <title>/Audio/Music/<name>.ogg
//   stock   -> <stock dir>/<name>.ogg   (the platform's stock sounds, CSystemData::FindAudio)
//
// Each sound is one job; a small pool of threads takes the jobs in order, so espeak-ng
// and sox of several voice lines run side by side with the synthesis of music. Progress
// goes to stdout one line per file; failures become "manifest:line: what" diagnostics.
#pragma once
#include <string>

#include "JsonDoc.h"
#include "Recipe.h"

namespace soundgen {

struct BuildOptions {
  std::string titleDir;
  std::string stockDir;
  std::string cachePath;  // empty: no cache, everything is made
  int jobs = 2;
  bool quiet = false;  // only the summary line
};

struct BuildReport {
  int made = 0;      // files written
  int upToDate = 0;  // files skipped
  int removed = 0;   // files of entries no longer in the manifests
  int failed = 0;    // sounds that could not be made
};

bool BuildSounds(const SoundSet& set, const BuildOptions& options, BuildReport& report, Diagnostics& diag);

}  // namespace soundgen
