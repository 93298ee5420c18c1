// Reads a level file (".fun") element by element. The file is text: white-space
// separated tokens read with the formatted extractors. Each element starts with the
// unsigned NameHash of its kind; the loader reads that number and hands the stream to
// the callback, which reads the rest of the element. Reading stops when the stream
// fails or ends, so a callback that finds an element malformed puts the stream into
// the failed state to end the load.
//
// The text ends at the first zero byte of the file. The loader knows no element
// kinds itself; scenes supply them through the callback.
#pragma once
#include <sstream>
#include <string>

#include "core/HashString.h"

namespace nox {

class LevelLoader;

// Returns false for an element kind it does not know.
typedef bool (*LevelLoaderCallbackFn)(void* context, LevelLoader* loader, unsigned long id,
                                      std::istringstream& stream);

class LevelLoader {
 public:
  LevelLoader(void* context, LevelLoaderCallbackFn callback) : m_pContext(context), m_pCallback(callback) {}
  ~LevelLoader();

  // False when the file cannot be read; nothing is loaded then.
  bool Load(const char* fileName);
  bool Load(const std::string& fileName) { return Load(fileName.c_str()); }
  // The same over bytes in memory; `name` labels messages.
  void LoadText(const char* name, const char* data, size_t size);

  // The name given to Load or LoadText, for messages.
  const std::string& GetFileName() const { return m_FileName; }
  // Bytes of text not yet read, for checking counts before they are trusted.
  size_t GetRemaining() const;

 private:
  void BufferStream(const char* data, size_t size);
  void CreateElements();
  bool LoadElement(unsigned long id) { return m_pCallback(m_pContext, this, id, *m_pStream); }

  std::istringstream* m_pStream = nullptr;  // owned, alive during a load
  void* m_pContext;
  LevelLoaderCallbackFn m_pCallback;
  std::string m_FileName;
};

// Makes a member function `bool Class::Method(LevelLoader*, unsigned long, std::istringstream&)`
// fit the callback, with the object as context.
template <class Class, bool (Class::*Method)(LevelLoader*, unsigned long, std::istringstream&)>
bool LevelLoaderCallback(void* context, LevelLoader* loader, unsigned long id, std::istringstream& stream) {
  return (static_cast<Class*>(context)->*Method)(loader, id, stream);
}

}  // namespace nox
