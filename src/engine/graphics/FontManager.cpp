#include "graphics/FontManager.h"

#include <cstdio>
#include <cstring>

#include "graphics/Font.h"

namespace nox {

FontManager* FontManager::sm_pInstance = nullptr;

void FontManager::Create() {
  if (!sm_pInstance) sm_pInstance = new FontManager();
}

void FontManager::Destroy() {
  delete sm_pInstance;
  sm_pInstance = nullptr;
}

FontManager::~FontManager() {
  for (auto& item : m_Fonts) delete item.second.font;
}

NameHash FontManager::KeyOf(const char* name, unsigned long size) {
  char key[64];
  snprintf(key, sizeof(key), "%s_%u", name, static_cast<unsigned>(size));
  return HashString(key);
}

Font* FontManager::GetFont(const char* name, unsigned long size) {
  const NameHash key = KeyOf(name, size);
  auto it = m_Fonts.find(key);
  if (it != m_Fonts.end()) {
    ++it->second.references;
    return it->second.font;
  }
  Entry entry;
  snprintf(entry.name, sizeof(entry.name), "%s", name);
  entry.size = static_cast<uint32_t>(size);
  entry.font = new Font(name, size);
  entry.references = 1;
  entry.hash = key;
  m_Fonts.emplace(key, entry);
  return entry.font;
}

void FontManager::ReleaseFont(Font* font) {
  for (auto it = m_Fonts.begin(); it != m_Fonts.end(); ++it) {
    if (it->second.font != font) continue;
    if (it->second.references > 1) {
      --it->second.references;
    } else {
      m_Fonts.erase(it);
      delete font;
    }
    return;
  }
}

int32_t FontManager::GetReferenceCount(const Font* font) const {
  for (const auto& item : m_Fonts) {
    if (item.second.font == font) return item.second.references;
  }
  return 0;
}

}  // namespace nox
