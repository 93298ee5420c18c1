// Shares fonts by name and size. Each entry counts its users: GetFont hands out the
// same Font* for the same name and size and counts one more user; ReleaseFont counts
// one fewer and deletes the font with its last user. The manager owns every font it
// made; what is left at its destruction is deleted then. A singleton, created after
// the input and before the debug overlay, destroyed after the overlay.
#pragma once
#include <cstdint>
#include <map>

#include "core/HashString.h"
#include "core/NoCopy.h"

namespace nox {

class Font;

class FontManager : public NoCopy {
 public:
  static void Create();
  static void Destroy();
  static FontManager* Get() { return sm_pInstance; }

  virtual ~FontManager();

  void Initialize() {}
  // The shared font "<name>_<size>", loaded on first use. Never null: a font whose
  // files are missing or malformed comes back empty and draws nothing.
  Font* GetFont(const char* name, unsigned long size);
  // One user fewer; the last one deletes the font. A font not made here is ignored.
  void ReleaseFont(Font* font);

  // Users of the font; 0 when the manager does not hold it.
  int32_t GetReferenceCount(const Font* font) const;

 private:
  struct Entry {
    char name[32];  // cut to 31 characters
    uint32_t size;
    Font* font;  // owned
    int32_t references;
    NameHash hash;  // of "<name>_<size>"
  };

  FontManager() = default;
  static NameHash KeyOf(const char* name, unsigned long size);

  static FontManager* sm_pInstance;
  std::map<NameHash, Entry> m_Fonts;
};

}  // namespace nox
