#include "core/PathRegistry.h"

#include "core/FileSystem.h"
#include "ostra/System.h"
#include "ostra/SystemData.h"

namespace nox {

PathRegistry* PathRegistry::sm_pInstance = nullptr;

void PathRegistry::Create() {
  if (!sm_pInstance) sm_pInstance = new PathRegistry();
}

void PathRegistry::Destroy() {
  delete sm_pInstance;
  sm_pInstance = nullptr;
}

PathRegistry::PathRegistry() : m_MusicSuffix(".ogg"), m_SoundSuffix(".wav") {
  const CSystemData* system = CSystemData::Instance();
  m_BasePath = system->GetBasePath();
  m_CartPath = system->GetCartPath();
  m_LocalDataPath =
      system->GetLocalDataPath(Vantle::CSystem::GetCurrentPlayerID(), system->GetCurrentGamePackageID());

  const std::string title = GetAppPath();
  m_WorldPaths.push_back(title + "/Worlds");
  m_ModelPaths.push_back(title + "/Models");
  m_AnimDataPaths.push_back(title + "/AnimData");
  m_AudioPaths.push_back(title + "/Audio");
  m_AudioPaths.push_back(title + "/Audio/Music");
  m_AudioPaths.push_back(title + "/Audio/SFX");
  m_AudioPaths.push_back(title + "/Audio/Dialogue");
  m_TexturePaths.push_back(title + "/Textures");
  m_ScriptPaths.push_back(title + "/Scripts");
  m_FontPaths.push_back(title + "/Fonts");
  m_LocalDataPaths.push_back(m_LocalDataPath);
  m_LevelPaths.push_back(title + "/Levels");
}

std::string PathRegistry::GetAppPath() const {
  return CSystemData::Instance()->GetCurrentTitlePath();
}

std::string PathRegistry::GetDownloadPath() const {
  return CSystemData::Instance()->GetDownloadsPath();
}

bool PathRegistry::FindFile(const std::vector<std::string>& paths, const std::string& name,
                            std::string& out) const {
  if (FileSystem::FileExists(name.c_str())) {
    out = name;
    return true;
  }
  // Backwards: what was added last overrides.
  for (auto it = paths.rbegin(); it != paths.rend(); ++it) {
    out = *it + "/" + name;
    if (FileSystem::FileExists(out.c_str())) return true;
  }
  out.clear();
  return false;
}

void PathRegistry::AddSearchDirectory(const std::string& directory) {
  m_WorldPaths.push_back(directory);
  m_ModelPaths.push_back(directory);
  m_AnimDataPaths.push_back(directory);
  m_AudioPaths.push_back(directory);
  m_TexturePaths.push_back(directory);
  m_ScriptPaths.push_back(directory);
  m_FontPaths.push_back(directory);
  m_LevelPaths.push_back(directory);
  m_LocalDataPaths.push_back(directory);
}

}  // namespace nox
