#include "tweener/TweenerParam.h"

#include <cstddef>

namespace noxfw {

TweenerParam::TweenerParam() : TweenerParam(nox::Real(500), kTweenLinear, kEaseIn) {}

TweenerParam::TweenerParam(nox::Real duration, short function, short mode, nox::Real delay)
    : m_Duration(duration),
      m_Function(function),
      m_Mode(mode),
      m_Delay(delay),
      m_Time(),
      m_PropertyCount(0),
      m_bTimeBased(true),
      m_bStarted(false),
      m_bDelayDone(delay == nox::Real()),
      m_bSwapOnRepeat(false),
      m_FirstRepeat(-1),
      m_SecondRepeat(-1),
      m_pfnComplete(nullptr),
      m_pfnStep(nullptr) {}

void TweenerParam::AddProperty(nox::Real* target, nox::Real end, nox::Real begin) {
  m_Properties.push_back(TweenerProperty{target, end, begin});
  m_PropertyCount = static_cast<int>(m_Properties.size());
}

bool TweenerParam::SameTween(const TweenerParam& other) const {
  if (m_Duration != other.m_Duration || m_Function != other.m_Function || m_Mode != other.m_Mode) {
    return false;
  }
  if (m_PropertyCount < 1) return true;
  const std::size_t count = static_cast<std::size_t>(m_PropertyCount);
  // A param claiming more properties than it holds cannot be compared safely.
  if (count > m_Properties.size() || count > other.m_Properties.size()) return false;
  for (std::size_t i = 0; i < count; ++i) {
    if (m_Properties[i].m_End != other.m_Properties[i].m_End ||
        m_Properties[i].m_Begin != other.m_Properties[i].m_Begin) {
      return false;
    }
  }
  return true;
}

}  // namespace noxfw
