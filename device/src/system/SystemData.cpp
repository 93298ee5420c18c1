// CSystemData: the paths of this system, all derived from the host configuration.
#include "ostra/SystemData.h"

#include "ostra/BaseUtils.h"
#include "ostra/HostConfig.h"
#include "ostra/MetaInfo.h"

namespace {

using Hollin::Ostra::Host::GetHostConfig;

bool HasSuffix(const std::string& name, const char* suffix) {
  std::string s(suffix);
  return name.size() >= s.size() && name.compare(name.size() - s.size(), s.size(), s) == 0;
}

}  // namespace

CSystemData* CSystemData::Instance() {
  static CSystemData s_Instance;
  return &s_Instance;
}

std::string CSystemData::GetBasePath() const {
  return Hollin::Ostra::Host::DefaultDataRoot();
}

std::string CSystemData::GetCartPath() const {
  return GetHostConfig().titlePath;
}

std::string CSystemData::GetCurrentTitlePath() const {
  return GetHostConfig().titlePath;
}

std::string CSystemData::GetDownloadsPath() const {
  const std::string& path = GetHostConfig().downloadsPath;
  return path.empty() ? GetBasePath() + "/downloads" : path;
}

std::string CSystemData::GetCurrentGamePackageID() const {
  // A title without valid meta information still gets a save directory of its own.
  Vantle::CMetaInfo meta(GetCurrentTitlePath());
  return meta.IsValid() ? meta.GetPackageId() : std::string("UNKNOWN");
}

std::string CSystemData::GetLocalDataPath(U32 player, const std::string& package) const {
  std::string path = Hollin::Ostra::Host::PlayerDirectory(player) + "/" + package;
  BaseUtils::MakeDirectories(path);
  return path;
}

std::string CSystemData::FindAudio(const std::string& name) const {
  if (name.empty() || name.find('/') != std::string::npos) return std::string();
  const std::string& configured = GetHostConfig().stockAudioPath;
  std::string dir = configured.empty() ? GetBasePath() + "/StockAudio" : configured;
  std::string path = dir + "/" + name;
  if (BaseUtils::FileExists(path)) return path;
  if (!HasSuffix(name, ".ogg") && !HasSuffix(name, ".wav")) {
    for (const char* suffix : {".ogg", ".wav"}) {
      if (BaseUtils::FileExists(path + suffix)) return path + suffix;
    }
  }
  return std::string();
}
