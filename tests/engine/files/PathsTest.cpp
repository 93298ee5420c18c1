// Finding assets across the title and download packages, the package records, the
// whole-file loader and the build stamp.
#include <gtest/gtest.h>
#include <utime.h>

#include <ctime>

#include "TestFiles.h"
#include "core/DownloadManager.h"
#include "core/FileSystem.h"
#include "core/Loader.h"
#include "core/PathRegistry.h"

namespace {

using nox::DownloadManager;
using nox::PathRegistry;

class PathsTest : public ::testing::Test {
 protected:
  PathsTest() : m_Title(m_Dir / "title"), m_Downloads(m_Dir / "downloads"), m_Log(m_Dir, Config()) {}

  Hollin::Ostra::Host::HostConfig Config() const {
    Hollin::Ostra::Host::HostConfig config;
    config.titlePath = m_Title;
    config.downloadsPath = m_Downloads;
    config.playerId = 2;
    return config;
  }

  void TearDown() override {
    DownloadManager::Destroy();
    PathRegistry::Destroy();
  }

  void Package(const std::string& dir, const std::string& metaInf) {
    testfiles::WriteText(m_Downloads + "/" + dir + "/meta.inf", metaInf);
  }
  void Put(const std::string& path, const std::string& text) { testfiles::WriteText(path, text); }

  // The contents of what FindFile finds for `name` in `paths`, or "none".
  std::string Found(const std::vector<std::string>& paths, const std::string& name) {
    std::string out;
    if (!PathRegistry::sm_pInstance->FindFile(paths, name, out))
      return out.empty() ? "none" : "none, not empty";
    return testfiles::ReadText(out);
  }

  testfiles::TempDir m_Dir;
  std::string m_Title;
  std::string m_Downloads;
  testfiles::AutomationLog m_Log;
};

TEST_F(PathsTest, TheRegistryStartsWithTheTitlesDirectoriesAndThePlayersSaveDirectory) {
  Put(m_Title + "/meta.inf", "PackageId=com.example.corrin\n");
  PathRegistry::Create();
  PathRegistry* paths = PathRegistry::sm_pInstance;
  EXPECT_EQ(paths->GetAppPath(), m_Title);
  EXPECT_EQ(paths->GetDownloadPath(), m_Downloads);
  EXPECT_EQ(paths->GetLocalDataPath(), m_Dir / "players/2/com.example.corrin");
  EXPECT_TRUE(testfiles::Exists(paths->GetLocalDataPath()));
  EXPECT_EQ(paths->GetMusicSuffix(), ".ogg");
  EXPECT_EQ(paths->GetSoundSuffix(), ".wav");
  EXPECT_EQ(paths->m_AudioPaths,
            (std::vector<std::string>{m_Title + "/Audio", m_Title + "/Audio/Music", m_Title + "/Audio/SFX",
                                      m_Title + "/Audio/Dialogue"}));
  EXPECT_EQ(paths->m_TexturePaths, (std::vector<std::string>{m_Title + "/Textures"}));
  EXPECT_EQ(paths->m_LocalDataPaths, (std::vector<std::string>{paths->GetLocalDataPath()}));
}

TEST_F(PathsTest, FindFileSearchesFromTheLastDirectoryToTheFirst) {
  PathRegistry::Create();
  PathRegistry* paths = PathRegistry::sm_pInstance;
  Put(m_Title + "/Audio/hello.wav", "audio");
  Put(m_Title + "/Audio/Music/hello.wav", "music");
  Put(m_Title + "/Audio/Dialogue/hello.wav", "dialogue");
  Put(m_Title + "/Audio/SFX/boom.wav", "sfx");
  Put(m_Title + "/Audio/boom.wav", "audio");
  EXPECT_EQ(Found(paths->m_AudioPaths, "hello.wav"), "dialogue");
  EXPECT_EQ(Found(paths->m_AudioPaths, "boom.wav"), "sfx");
  EXPECT_EQ(Found(paths->m_AudioPaths, "absent.wav"), "none");

  // A name that exists as given wins, whatever the list.
  std::string direct = m_Dir / "direct.bin";
  Put(direct, "direct");
  std::string out;
  EXPECT_TRUE(paths->FindFile(std::vector<std::string>{}, direct, out));
  EXPECT_EQ(out, direct);
}

TEST_F(PathsTest, DownloadPackagesOverrideTheTitleAndALaterPackageAnEarlierOne) {
  Put(m_Title + "/meta.inf", "PackageId=com.example.corrin\n");
  Package("pkgA", "PackageId=com.example.a\nShortName=Alpha\n");
  Package("pkgB", "PackageId=com.example.b\nShortName=Beta\n");
  Package("pkgC", "PackageId=com.example.c\n");  // no Files directory
  const char* kinds[] = {"Worlds", "Models", "AnimData", "Audio", "Textures", "Scripts", "Fonts", "Levels"};
  for (const char* kind : kinds) Put(m_Title + "/" + kind + "/asset.bin", "title");
  Put(m_Title + "/Textures/both.tex", "title");
  Put(m_Downloads + "/pkgA/Files/asset.bin", "A");
  Put(m_Downloads + "/pkgA/Files/both.tex", "A");
  Put(m_Downloads + "/pkgB/Files/both.tex", "B");

  PathRegistry::Create();
  PathRegistry* paths = PathRegistry::sm_pInstance;
  EXPECT_EQ(Found(paths->m_TexturePaths, "both.tex"), "title");
  DownloadManager::Create();

  const std::vector<std::string>* lists[] = {
      &paths->m_WorldPaths,   &paths->m_ModelPaths,  &paths->m_AnimDataPaths, &paths->m_AudioPaths,
      &paths->m_TexturePaths, &paths->m_ScriptPaths, &paths->m_FontPaths,     &paths->m_LevelPaths};
  for (const auto* list : lists) EXPECT_EQ(Found(*list, "asset.bin"), "A") << list->front();
  EXPECT_EQ(Found(paths->m_TexturePaths, "both.tex"), "B");
  EXPECT_EQ(Found(paths->m_LocalDataPaths, "both.tex"), "B");

  // Two packages with Files each add their own directory, itself, to every list.
  EXPECT_EQ(paths->m_TexturePaths,
            (std::vector<std::string>{m_Title + "/Textures", m_Downloads + "/pkgA/Files",
                                      m_Downloads + "/pkgB/Files"}));
  EXPECT_EQ(paths->m_AudioPaths.size(), 6u);
  EXPECT_EQ(paths->m_LocalDataPaths.size(), 3u);

  DownloadManager* downloads = DownloadManager::Get();
  EXPECT_EQ(downloads->GetPackageCount(), 3u);
  EXPECT_TRUE(downloads->IsDownloaded("com.example.c"));
  EXPECT_FALSE(downloads->IsDownloaded("com.example.corrin"));
  EXPECT_EQ(downloads->GetPath("com.example.b"), m_Downloads + "/pkgB");
  EXPECT_STREQ(downloads->GetRecord("com.example.a")->m_ShortName, "Alpha");
  EXPECT_EQ(downloads->GetPath("com.example.unknown"), "");
}

TEST_F(PathsTest, APackageWithAnUnreadableMetaInfIsSkippedWithOneLine) {
  Package("pkgBad", "ShortName=No id here\n");
  Put(m_Downloads + "/pkgBad/Files/asset.bin", "bad");
  Package("pkgGood", "PackageId=com.example.good\n");
  PathRegistry::Create();
  DownloadManager::Create();
  EXPECT_EQ(DownloadManager::Get()->GetPackageCount(), 1u);
  EXPECT_EQ(PathRegistry::sm_pInstance->m_TexturePaths.size(), 1u);
  std::string metaInf = m_Downloads + "/pkgBad/meta.inf";
  int mine = 0;
  for (const std::string& line : m_Log.Lines()) mine += line.rfind("DownloadManager", 0) == 0;
  EXPECT_EQ(mine, 1);
  EXPECT_GE(m_Log.Count(metaInf), 1);
}

TEST_F(PathsTest, RecordsCutLongTextAndASecondPackageWithTheSameIdTakesItOver) {
  Package("pkg1", "PackageId=com.example.same\n");
  Package("pkg2", "PackageId=com.example.same\nShortName=Second\n");
  Package("pkg3", "PackageId=com.example.long\nShortName=" + std::string(40, 'n') + "\n");
  const std::string deep = std::string(60, 'd');
  Package(deep, "PackageId=com.example.deep\n");
  Put(m_Downloads + "/pkg1/Files/x.bin", "1");
  Put(m_Downloads + "/pkg2/Files/x.bin", "2");
  Put(m_Downloads + "/" + deep + "/Files/y.bin", "deep");
  PathRegistry::Create();
  DownloadManager::Create();
  DownloadManager* downloads = DownloadManager::Get();
  EXPECT_EQ(downloads->GetPackageCount(), 3u);
  EXPECT_EQ(downloads->GetPath("com.example.same"), m_Downloads + "/pkg2");
  EXPECT_STREQ(downloads->GetRecord("com.example.same")->m_ShortName, "Second");
  EXPECT_EQ(Found(PathRegistry::sm_pInstance->m_ScriptPaths, "x.bin"), "2");
  EXPECT_EQ(std::string(downloads->GetRecord("com.example.long")->m_ShortName), std::string(31, 'n'));

  // A package path is kept to 63 characters; cut, its Files directory is not found.
  const std::string full = m_Downloads + "/" + deep;
  EXPECT_TRUE(downloads->IsDownloaded("com.example.deep"));
  EXPECT_EQ(downloads->GetPath("com.example.deep"), full.substr(0, 63));
  EXPECT_EQ(Found(PathRegistry::sm_pInstance->m_ScriptPaths, "y.bin"), "none");
  EXPECT_EQ(m_Log.Count("cut to 63"), 1);
}

TEST_F(PathsTest, LoaderReadsWholeFilesWithATerminatorAfterThem) {
  std::string path = m_Dir / "level.fun";
  Put(path, "123 456");
  unsigned long size = 0;
  unsigned char* data = nox::Loader::LoadFile(path, &size);
  ASSERT_NE(data, nullptr);
  EXPECT_EQ(size, 7u);
  EXPECT_STREQ(reinterpret_cast<char*>(data), "123 456");
  nox::Loader::UnloadFile(data);
  EXPECT_EQ(nox::Loader::GetFileSize(path.c_str()), 7u);

  Put(path, "");
  data = nox::Loader::LoadFile(path, &size);
  ASSERT_NE(data, nullptr);
  EXPECT_EQ(size, 0u);
  EXPECT_EQ(data[0], 0);
  nox::Loader::UnloadFile(data);

  EXPECT_EQ(nox::Loader::LoadFile(m_Dir / "absent", &size), nullptr);
  EXPECT_EQ(nox::Loader::LoadFile(m_Dir.Path(), &size), nullptr);  // a directory
  EXPECT_EQ(nox::Loader::GetFileSize((m_Dir / "absent").c_str()), 0u);
  nox::Loader::UnloadFile(nullptr);
}

TEST_F(PathsTest, BuildTimestampIsTheAppsModificationTime) {
  char stamp[64] = "unchanged";
  nox::FileSystem::GetBuildTimestamp(stamp, sizeof stamp);
  EXPECT_STREQ(stamp, "");  // no App.so

  Put(m_Title + "/App.so", "elf");
  struct tm when = {};
  when.tm_year = 2011 - 1900;
  when.tm_mon = 5;
  when.tm_mday = 3;
  when.tm_hour = 9;
  when.tm_min = 5;
  when.tm_sec = 7;
  when.tm_isdst = -1;
  struct utimbuf times;
  times.actime = times.modtime = mktime(&when);
  ASSERT_EQ(utime((m_Title + "/App.so").c_str(), &times), 0);
  nox::FileSystem::GetBuildTimestamp(stamp, sizeof stamp);
  EXPECT_STREQ(stamp, "Jun 3 2011 09:05:07");
  EXPECT_TRUE(nox::FileSystem::FileExists(m_Title.c_str()));
  EXPECT_FALSE(nox::FileSystem::FileExists((m_Title + "/nothing").c_str()));
}

}  // namespace
