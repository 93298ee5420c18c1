// A sound played straight from a compressed ".ogg" file by the audio module; nothing of
// it is held in memory here. Load only checks that the file can be found (and says so in
// the automation log when it cannot); the lookup is done again at every Play, where the
// platform's stock sounds are asked too.
#pragma once
#include "sound/Sound.h"

namespace nox {

class StreamingSound : public Sound {
 public:
  StreamingSound() = default;
  StreamingSound(const StreamingSound& other) = default;

  Sound* Copy() const override;
  bool Play() override;
  // Stops, takes the name, and looks for the file; false (with the log line "Failed to
  // find audio: <name>") when the title has no such file.
  virtual bool Load(const std::string& name);
};

}  // namespace nox
