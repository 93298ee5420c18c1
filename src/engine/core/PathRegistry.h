// Where assets are looked for. One list of directories per asset kind, filled at
// creation from the title directory; the download manager appends each installed
// package's "Files" directory to every list afterwards. FindFile searches a list
// from its last directory to its first, so a directory added later overrides one
// added earlier: packages override the title, a later package an earlier one.
// The lists are public for reading and only ever grow. Singleton, created second at
// start (after the game host) and destroyed last.
#pragma once
#include <string>
#include <vector>
#include "core/NoCopy.h"

namespace nox {

class PathRegistry : public NoCopy {
 public:
  static void Create();
  static void Destroy();
  static PathRegistry* sm_pInstance;

  // The current title directory, asked of the platform on each call.
  std::string GetAppPath() const;
  std::string GetDownloadPath() const;

  // `name` itself if it exists as given; otherwise the first "directory/name" that
  // exists, trying `paths` from last to first. On failure `out` is empty.
  bool FindFile(const std::vector<std::string>& paths, const std::string& name, std::string& out) const;

  // Appends `directory` to every asset list, in the order of the fields below.
  void AddSearchDirectory(const std::string& directory);

  const std::string& GetBasePath() const { return m_BasePath; }
  const std::string& GetCartPath() const { return m_CartPath; }
  // The save directory of the current player for this title.
  const std::string& GetLocalDataPath() const { return m_LocalDataPath; }
  const std::string& GetMusicSuffix() const { return m_MusicSuffix; }
  const std::string& GetSoundSuffix() const { return m_SoundSuffix; }

 private:
  PathRegistry();

  std::string m_BasePath;
  std::string m_CartPath;
  std::string m_LocalDataPath;
  std::string m_MusicSuffix;  // ".ogg"
  std::string m_SoundSuffix;  // ".wav"

 public:
  std::vector<std::string> m_WorldPaths;
  std::vector<std::string> m_ModelPaths;
  std::vector<std::string> m_AnimDataPaths;
  std::vector<std::string> m_AudioPaths;  // Audio, Audio/Music, Audio/SFX, Audio/Dialogue
  std::vector<std::string> m_TexturePaths;
  std::vector<std::string> m_ScriptPaths;
  std::vector<std::string> m_FontPaths;
  std::vector<std::string> m_LocalDataPaths;
  std::vector<std::string> m_LevelPaths;
};

}  // namespace nox
