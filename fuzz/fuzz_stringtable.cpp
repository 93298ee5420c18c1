// Feeds arbitrary text to StringTable::Initialize. A refused table must be empty; an
// accepted one must hold no line ending and answer every index.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "core/StringTable.h"
#include "ostra/HostConfig.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  Hollin::Ostra::Host::HostConfig config;
  config.quiet = true;
  Hollin::Ostra::Host::SetHostConfig(config);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
  noxfw::StringTable table;
  if (!table.Initialize(in, "fuzz")) {
    if (table.GetCount() != 0) std::abort();
    return 0;
  }
  for (unsigned long i = 0; i <= table.GetCount(); ++i) {
    const std::string& entry = table.GetString(i);
    if (entry.find_first_of("\r\n") != std::string::npos) std::abort();
  }
  return 0;
}
