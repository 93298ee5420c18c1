#include "physics/RectSeriesSource.h"

#include "graphics/AnimInfo.h"
#include "graphics/TileAnimData.h"

namespace nox {

bool AnimInfoRectSource::HasRectSeriesInAnySequence(NameHash series) const {
  const TileAnimData* data = m_pInfo ? m_pInfo->GetTileAnimData() : nullptr;
  if (!data) return false;
  for (uint32_t sequence = 0; sequence < data->GetNumSequences(); ++sequence) {
    if (data->GetRectSeries(sequence, series)) return true;
  }
  return false;
}

Rectangle AnimInfoRectSource::GetCurrentRect(NameHash series) const {
  return m_pInfo ? m_pInfo->GetRect(series, -1, kCurrentSequenceHash) : Rectangle();
}

}  // namespace nox
