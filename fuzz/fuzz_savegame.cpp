// Feeds arbitrary bytes to the two files a player's progress is read from. The first
// byte picks the case:
//   even: SaveGame.bin is the rest (odd second bit: the rest split in two halves, the
//         first the main file, the second its ".bak");
//   odd:  a word list and CYOData.bin: two bytes (little-endian) give the length of
//         the word list text, which follows; the remaining bytes are CYOData.bin.
// Whatever the files hold, the save must end valid (loaded or new), write and read
// back unchanged, and the word list must give records within their limits.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "core/GameHost.h"
#include "core/PathRegistry.h"
#include "learning/CYO.h"
#include "ostra/BaseUtils.h"
#include "ostra/Cyo.h"
#include "ostra/HostConfig.h"
#include "save/GameSaveGame.h"

namespace {

std::string s_Root;

void WriteFile(const std::string& path, const uint8_t* data, size_t size) {
  FILE* file = fopen(path.c_str(), "wb");
  if (!file) std::abort();
  if (size && fwrite(data, 1, size, file) != size) std::abort();
  fclose(file);
}

void ExerciseSave(const uint8_t* data, size_t size, bool withBackup) {
  const std::string path =
      nox::PathRegistry::sm_pInstance->GetLocalDataPath() + game::GameSaveGame::kFileName;
  size_t mainSize = withBackup ? size / 2 : size;
  WriteFile(path, data, mainSize);
  if (withBackup) {
    WriteFile(path + ".bak", data + mainSize, size - mainSize);
  } else {
    remove((path + ".bak").c_str());
  }

  game::GameSaveGame save;
  bool loaded = save.ReadAllData();
  if (!save.ValidateData()) std::abort();
  if (!loaded && !save.IsNewGame()) std::abort();
  // Every accessor by every index, inside and outside the arrays.
  unsigned sum = 0;
  for (int i = -1; i <= 45; ++i) {
    sum += save.GetData_ActivityLevel(i) + save.GetData_ActivitySublevel(i) + save.GetData_ActivityRound(i) +
           save.GetData_ActivityCa(i) + save.GetData_ActivityWa(i) + save.GetData_ActivityPlayedTutorial(i) +
           save.GetData_Badge(i) + save.GetData_RandomExhaustIndex(i) + save.GetData_RandomExhaustSeed(i) +
           save.GetData_SceneUnlocked(i) + save.GetData_SceneCompleted(i) + save.GetData_SceneCount(i) +
           static_cast<unsigned>(save.GetQuestConditions(i)) + save.GetHeroinePosition(i).x.Raw() +
           save.GetStoryFlag(i);
  }
  volatile unsigned sink = sum;
  (void)sink;
  if (save.GetCurrentZone() < 0 || save.GetCurrentZone() > 4) std::abort();

  save.SetData_ModCount(save.GetData_ModCount() + 1);
  if (!save.WriteAllData()) std::abort();
  game::GameSaveGame again;
  if (!again.ReadAllData()) std::abort();
  if (memcmp(&again.GetBlock(), &save.GetBlock(), sizeof(game::GameSaveData)) != 0) std::abort();
}

void ExerciseWordList(const uint8_t* data, size_t size) {
  if (size < 2) return;
  size_t textSize = data[0] | data[1] << 8;
  if (textSize > size - 2) textSize = size - 2;
  WriteFile(Vantle::CCyo::PathFor(1), data + 2, textSize);
  const std::string store =
      nox::PathRegistry::sm_pInstance->GetLocalDataPath() + "/" + noxfw::CYOData::kFileName;
  WriteFile(store, data + 2 + textSize, size - 2 - textSize);

  noxfw::CYO cyo;
  int status = cyo.GetStatus();
  if (status != noxfw::CYO::kReady && status != noxfw::CYO::kStoreFailed && status != noxfw::CYO::kNoList &&
      status != noxfw::CYO::kAllMastered) {
    std::abort();
  }
  if (status != noxfw::CYO::kReady) return;
  const uint32_t count = cyo.GetData().GetCount();
  for (int i = 0; i < 12; ++i) {
    noxfw::CYOStoreData word = cyo.GetNextWordData();
    if (word.index >= count || word.GetWord().empty() || word.GetWord().size() > 15) std::abort();
    if (i % 2) cyo.CurrWordSpelledCorrectly();
    if (cyo.GetData().GetWordCACount(word.index) > cyo.GetCompletionParam()) std::abort();
  }
  // A word is mastered exactly when its count reached the parameter.
  for (uint32_t i = 0; i < count; ++i) {
    const noxfw::CYOStoreData* record = cyo.GetData().GetRecord(i);
    bool full = record->count == cyo.GetCompletionParam();
    if (full != (record->status == noxfw::CYOStoreData::kStatusMastered)) std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  const char* base = access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp";
  s_Root = std::string(base) + "/fuzz-savegame-" + std::to_string(getpid());
  Hollin::Ostra::Host::HostConfig config;
  config.titlePath = s_Root + "/title";
  config.saveRoot = s_Root + "/players";
  config.playerId = 1;
  config.quiet = true;
  Hollin::Ostra::Host::SetHostConfig(config);
  BaseUtils::MakeDirectories(s_Root + "/players/1");
  nox::GameHost::Create();
  nox::PathRegistry::Create();
  atexit([] {
    std::string command = "rm -rf '" + s_Root + "'";
    if (system(command.c_str()) != 0) return;
  });
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 1) return 0;
  if (data[0] & 1) {
    ExerciseWordList(data + 1, size - 1);
  } else {
    ExerciseSave(data + 1, size - 1, (data[0] & 2) != 0);
  }
  return 0;
}
