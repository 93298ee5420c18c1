#include "agents/LevelLoader.h"

#include <cstring>

#include "core/Debug.h"
#include "core/Loader.h"

namespace nox {

LevelLoader::~LevelLoader() {
  delete m_pStream;
}

bool LevelLoader::Load(const char* fileName) {
  m_FileName = fileName ? fileName : "";
  unsigned long size = 0;
  unsigned char* data = fileName ? Loader::LoadFile(fileName, &size) : nullptr;
  if (!data) {
    AutomationPrintf("LevelLoader: %s cannot be read", m_FileName.c_str());
    return false;
  }
  BufferStream(reinterpret_cast<const char*>(data), size);
  Loader::UnloadFile(data);
  CreateElements();
  return true;
}

void LevelLoader::LoadText(const char* name, const char* data, size_t size) {
  m_FileName = name ? name : "";
  BufferStream(data, size);
  CreateElements();
}

void LevelLoader::BufferStream(const char* data, size_t size) {
  const void* zero = std::memchr(data, 0, size);
  const size_t length = zero ? static_cast<size_t>(static_cast<const char*>(zero) - data) : size;
  delete m_pStream;
  m_pStream = new std::istringstream(std::string(data, length));
}

size_t LevelLoader::GetRemaining() const {
  if (!m_pStream || !*m_pStream) return 0;
  const std::streamsize n = m_pStream->rdbuf()->in_avail();
  return n > 0 ? static_cast<size_t>(n) : 0;
}

void LevelLoader::CreateElements() {
  for (;;) {
    unsigned long id = 0;
    *m_pStream >> id;
    if (m_pStream->fail() || m_pStream->bad() || m_pStream->eof()) break;
    LoadElement(id);
  }
  delete m_pStream;
  m_pStream = nullptr;
}

}  // namespace nox
