#include "platform/Logger_pf.h"

#include "ostra/LogFile.h"

namespace noxfw {

void Logger_pf::Append(const CLogData& record) {
  CLogFile::Instance()->Append(record);
}

}  // namespace noxfw
