// Vantle::CPlayerProfile over a small text file, <player dir>/profile.txt:
//   Name=Player 1
//   Grade=3
//   Badges=12,40
// Every call reads the file afresh (profiles change rarely and are read rarely), and every
// change rewrites it through fopenAtomic, so a crash leaves the old or the new profile.
#include "ostra/PlayerProfile.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "ostra/AtomicFile.h"
#include "ostra/BaseUtils.h"
#include "ostra/HostConfig.h"
#include "system/MetaInfoParser.h"

namespace Vantle {
namespace {

struct Profile {
  std::string name;
  U8 grade = Hollin::Ostra::Host::kNoGrade;
  std::vector<U32> badges;  // sorted, unique
};

std::string ProfilePath(U32 playerId) {
  return Hollin::Ostra::Host::PlayerDirectory(playerId) + "/profile.txt";
}

std::vector<U32> ParseBadges(const std::string& text) {
  std::vector<U32> badges;
  size_t pos = 0;
  while (pos < text.size()) {
    size_t comma = text.find(',', pos);
    if (comma == std::string::npos) comma = text.size();
    std::string item = text.substr(pos, comma - pos);
    char* end = nullptr;
    unsigned long value = strtoul(item.c_str(), &end, 10);
    if (!item.empty() && end && *end == '\0' && value <= 0xFFFFFFFFul)
      badges.push_back(static_cast<U32>(value));
    pos = comma + 1;
  }
  std::sort(badges.begin(), badges.end());
  badges.erase(std::unique(badges.begin(), badges.end()), badges.end());
  return badges;
}

Profile Load(U32 playerId) {
  Profile profile;
  profile.name = "Player " + std::to_string(playerId);
  FILE* file = fopen(ProfilePath(playerId).c_str(), "rb");
  if (!file) return profile;
  std::string text(Hollin::Ostra::MetaInfoParser::kMaxFileBytes, '\0');
  text.resize(fread(&text[0], 1, text.size(), file));
  fclose(file);
  auto values = Hollin::Ostra::MetaInfoParser::Parse(text).values;
  if (!values["Name"].empty()) profile.name = values["Name"];
  char* end = nullptr;
  unsigned long grade = strtoul(values["Grade"].c_str(), &end, 10);
  if (!values["Grade"].empty() && *end == '\0' && grade <= 255) profile.grade = static_cast<U8>(grade);
  profile.badges = ParseBadges(values["Badges"]);
  return profile;
}

bool Save(U32 playerId, const Profile& profile) {
  if (!BaseUtils::MakeDirectories(Hollin::Ostra::Host::PlayerDirectory(playerId))) return false;
  std::string text = "# Player profile, kept by the platform\nName=" + profile.name + "\n";
  text += "Grade=" + std::to_string(profile.grade) + "\nBadges=";
  for (size_t i = 0; i < profile.badges.size(); ++i) {
    if (i) text += ",";
    text += std::to_string(profile.badges[i]);
  }
  text += "\n";
  FILE* file = fopenAtomic(ProfilePath(playerId).c_str(), "wb");
  if (!file) return false;
  if (fwrite(text.data(), 1, text.size(), file) != text.size()) {
    fabortAtomic(file);
    return false;
  }
  return fcloseAtomic(file) == 0;
}

}  // namespace

CPlayerProfile::CPlayerProfile(U32 playerId) : m_PlayerId(playerId) {}

U8 CPlayerProfile::GetGrade() const {
  return Load(m_PlayerId).grade;
}

bool CPlayerProfile::SetGrade(U8 grade) {
  Profile profile = Load(m_PlayerId);
  profile.grade = grade;
  return Save(m_PlayerId, profile);
}

std::string CPlayerProfile::GetName() const {
  return Load(m_PlayerId).name;
}

bool CPlayerProfile::AddBadge(U32 platformBadgeId) {
  Profile profile = Load(m_PlayerId);
  if (std::binary_search(profile.badges.begin(), profile.badges.end(), platformBadgeId)) return true;
  profile.badges.insert(std::upper_bound(profile.badges.begin(), profile.badges.end(), platformBadgeId),
                        platformBadgeId);
  return Save(m_PlayerId, profile);
}

bool CPlayerProfile::HasBadge(U32 platformBadgeId) const {
  std::vector<U32> badges = Load(m_PlayerId).badges;
  return std::binary_search(badges.begin(), badges.end(), platformBadgeId);
}

std::vector<U32> CPlayerProfile::GetBadges() const {
  return Load(m_PlayerId).badges;
}

}  // namespace Vantle
