#include "platform/CYO_pf.h"

namespace noxfw {

CYO_pf::CYO_pf()
    : m_Cyo(),
      m_CompletionParam(m_Cyo.GetCompletionParameters()),
      m_bLoaded(m_Cyo.IsLoaded()),
      m_Size(m_Cyo.size()) {}

}  // namespace noxfw
