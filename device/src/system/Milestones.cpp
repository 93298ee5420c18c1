// CMilestones over "milestones.txt" in the player's directory: one name a line, oldest
// first. Read afresh on every call (milestones are few and asked for rarely); Add
// rewrites the whole file through fopenAtomic, so a crash keeps the old list or the new.
#include "ostra/Milestones.h"

#include <algorithm>
#include <cstdio>

#include "ostra/AtomicFile.h"
#include "ostra/BaseUtils.h"
#include "ostra/HostConfig.h"
#include "ostra/System.h"

namespace {

const size_t kMaxFileBytes = 256 * 1024;

std::string MilestonesPath(U32 playerId) {
  return Hollin::Ostra::Host::PlayerDirectory(playerId) + "/milestones.txt";
}

}  // namespace

std::vector<std::string> CMilestones::Get() {
  return Get(Vantle::CSystem::GetCurrentPlayerID());
}

std::vector<std::string> CMilestones::Get(U32 playerId) {
  std::vector<std::string> names;
  FILE* file = fopen(MilestonesPath(playerId).c_str(), "rb");
  if (!file) return names;
  std::string text(kMaxFileBytes, '\0');
  text.resize(fread(&text[0], 1, text.size(), file));
  fclose(file);
  size_t pos = 0;
  while (pos < text.size()) {
    size_t end = text.find('\n', pos);
    if (end == std::string::npos) end = text.size();
    std::string name = text.substr(pos, end - pos);
    pos = end + 1;
    if (!name.empty() && name.back() == '\r') name.pop_back();
    if (!name.empty() && name.size() <= kMaxNameBytes && name.find('\0') == std::string::npos) {
      names.push_back(name);
    }
  }
  return names;
}

bool CMilestones::Add(const std::string& name) {
  return Add(Vantle::CSystem::GetCurrentPlayerID(), name);
}

bool CMilestones::Add(U32 playerId, const std::string& name) {
  if (name.empty() || name.size() > kMaxNameBytes || name.find_first_of("\r\n") != std::string::npos ||
      name.find('\0') != std::string::npos) {
    return false;
  }
  std::vector<std::string> names = Get(playerId);
  if (std::find(names.begin(), names.end(), name) != names.end()) return true;
  names.push_back(name);
  if (!BaseUtils::MakeDirectories(Hollin::Ostra::Host::PlayerDirectory(playerId))) return false;
  std::string text;
  for (const std::string& n : names) text += n + "\n";
  FILE* file = fopenAtomic(MilestonesPath(playerId).c_str(), "wb");
  if (!file) return false;
  if (fwrite(text.data(), 1, text.size(), file) != text.size()) {
    fabortAtomic(file);
    return false;
  }
  return fcloseAtomic(file) == 0;
}
