// Where things are on this system: the title directory, the per-player save directory,
// the downloads directory, and the platform's own stock sounds.
#pragma once
#include <string>
#include "ostra/PlatformTypes.h"

class CSystemData {
 public:
  static CSystemData* Instance();

  std::string GetBasePath() const;     // the platform's root directory
  std::string GetCartPath() const;     // the title directory as installed
  std::string GetCurrentTitlePath() const;
  std::string GetDownloadsPath() const;
  std::string GetCurrentGamePackageID() const;
  // The save directory of `player` for `package`; created on first use.
  std::string GetLocalDataPath(U32 player, const std::string& package) const;
  // Full path of a stock sound ("h_OSTM_...") shipped with the platform, or empty.
  std::string FindAudio(const std::string& name) const;

 private:
  CSystemData() {}
};
