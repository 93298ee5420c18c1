// TileAnimation: construction, playback, events, layers and the anchor.
#include "graphics/TileAnimation.h"

#include <climits>

#include "graphics/TileAnimData.h"
#include "graphics/TileAnimFrame.h"

namespace nox {

Real TileAnimation::sm_DefaultFPS = Real(12);

namespace {

constexpr Real kLargestReal = Real::FromRaw(INT32_MAX);

}  // namespace

TileAnimation::TileAnimation(TileAnimData* data) : m_pData(data) {
  SetFramesPerSecond(sm_DefaultFPS);
  const uint16_t callbacks = data ? data->GetMaxCallbackCount() : 0;
  if (callbacks > 0) {
    m_pCallbackNames = new NameHash[callbacks]();
    m_pCallbackValues = new uint32_t[callbacks]();
  }
  const uint16_t layers = data ? data->GetNumLayers() : 0;
  if (layers > 0) {
    m_pLayers = new Layer[layers];
    for (uint16_t i = 0; i < layers; ++i) {
      const TADLayerEntry* entry = data->GetLayerEntry(static_cast<unsigned short>(i));
      m_pLayers[i] = Layer{entry->name, entry->depth, Real(1), true};
    }
  }
  if (data) m_pFrame = data->GetNewFrameHolder();
  if (data && data->GetNumSequences() > 0) {
    m_pCellBoxSeries = data->GetRectSeries(0, kCellBoxHash);
  }
  m_WorldPosition = m_Position;
}

TileAnimation::~TileAnimation() {
  delete[] m_pCallbackNames;
  delete[] m_pCallbackValues;
  delete[] m_pLayers;
  if (m_pData && m_pFrame != m_pData->GetSharedFrameHolder()) delete m_pFrame;
}

void TileAnimation::Update(unsigned long ms) {
  m_FrameClock += Real(ms) * m_PlaybackSpeed;
  if (m_FrameClock >= m_FrameDuration) {
    const uint32_t last = GetTotalFrames() > 0 ? GetTotalFrames() - 1u : 0u;
    if (m_bPlaybackForward) {
      if (m_CurrentFrame < last) {
        ++m_CurrentFrame;
        FillCallbackBuffer();
      } else if (m_bLoop) {
        m_CurrentFrame = 0;
        FillCallbackBuffer();
      } else {
        m_bEnded = true;
      }
    } else {
      if (m_CurrentFrame > 0) {
        --m_CurrentFrame;
        FillCallbackBuffer();
      } else if (m_bLoop) {
        m_CurrentFrame = last;
        FillCallbackBuffer();
      } else {
        m_bEnded = true;
      }
    }
    m_FrameClock = Real::FromRaw(m_FrameClock.Raw() % m_FrameDuration.Raw());
    UpdateWorldPosition();
  }
  if (m_ModulationLength != 0) {
    // clock / length as a Real, in 64 bits so that lengths past 32767 ms neither wrap
    // nor divide by zero; within that range it equals the Real quotient bit for bit.
    const uint64_t quotient = (static_cast<uint64_t>(m_ModulationClock) << 16) / m_ModulationLength;
    const Real t = Real::FromRaw(quotient > INT32_MAX ? INT32_MAX : static_cast<int32_t>(quotient));
    if (t >= Real(1)) {
      m_ModulationLength = 0;
      m_ModulationColor = m_ModulationEnd;
    } else {
      m_ModulationColor = m_ModulationStart * (Real(1) - t) + m_ModulationEnd * t;
      m_ModulationClock += static_cast<uint32_t>(ms);
    }
  }
}

void TileAnimation::ModulateColor(const Vector3& from, const Vector3& to, unsigned long ms) {
  m_ModulationStart = from;
  m_ModulationEnd = to;
  m_ModulationClock = 0;
  m_ModulationLength = static_cast<uint32_t>(ms);
  m_ModulationColor = ms == 0 ? to : from;
}

void TileAnimation::SetFramesPerSecond(Real fps) {
  m_FramesPerSecond = fps;
  m_FrameDuration = fps < Real(1) ? kLargestReal : Real(1000) / fps;
}

void TileAnimation::SetPlaybackSpeed(Real speed) {
  m_PlaybackSpeed = speed;
  m_SavedPlaybackSpeed = speed;
}

unsigned short TileAnimation::GetTotalFrames() const {
  return m_pData ? m_pData->GetSequenceFrameCount(m_SequenceIndex) : 0;
}

void TileAnimation::SetCurrentFrame(unsigned short frame) {
  m_bEnded = false;
  m_CurrentFrame = frame;
  FillCallbackBuffer();
}

void TileAnimation::SetScale(Real scale) {
  m_HScale = scale;
  m_VScale = scale;
}

int TileAnimation::ResolveSequence(NameHash sequence) const {
  if (!m_pData || m_pData->GetNumSequences() == 0) return -1;
  if (sequence == kCurrentSequenceHash) return m_SequenceIndex;
  if (!m_pData->HasSequence(sequence)) return -1;
  return m_pData->GetSequenceIndexByName(sequence);
}

int TileAnimation::ResolveFrame(int sequence, int frame) const {
  if (sequence < 0) return -1;
  const uint32_t f = frame < 0 ? m_CurrentFrame : static_cast<uint32_t>(frame);
  return f < m_pData->GetSequenceFrameCount(static_cast<unsigned>(sequence)) ? static_cast<int>(f) : -1;
}

void TileAnimation::PlayAnimSequence(NameHash sequence) {
  if (!m_pData || m_pData->GetNumSequences() == 0) return;
  m_CurrentFrame = 0;
  if (sequence != kCurrentSequenceHash) m_SequenceIndex = m_pData->GetSequenceIndexByName(sequence);
  m_pCellBoxSeries = m_pData->GetRectSeries(m_SequenceIndex, kCellBoxHash);
  m_pAnchorSeries = m_AnchorHash != 0 ? m_pData->GetPointSeries(m_SequenceIndex, m_AnchorHash) : nullptr;
  m_bEnded = false;
  m_FrameClock = Real();
  FillCallbackBuffer();
}

void TileAnimation::Play(NameHash sequence, int start) {
  m_SequenceHash = sequence;
  if (!m_pData || m_pData->GetNumSequences() == 0) return;
  // The frames of the sequence that will play: sequence 0 stands in for an unknown one.
  const int index = ResolveSequence(sequence);
  const uint32_t count = m_pData->GetSequenceFrameCount(index < 0 ? 0u : static_cast<unsigned>(index));
  const uint32_t magnitude = start < 0 ? 0u - static_cast<uint32_t>(start) : static_cast<uint32_t>(start);
  const uint32_t m = magnitude % count;
  SetPlaybackForward(start >= 0);
  if (m_bAnchorEnabled && index >= 0) m_pAnchorSeries = m_pData->GetPointSeries(index, m_AnchorHash);
  m_PlaybackSpeed = m_SavedPlaybackSpeed;
  PlayAnimSequence(sequence);
  // -count and its multiples come out as frame 0, not one past the end.
  SetCurrentFrame(static_cast<unsigned short>(start < 0 ? (count - m) % count : m));
}

void TileAnimation::Play(NameHash sequence, int start, bool hflip, bool vflip) {
  Play(sequence, start);
  SetHFlip(hflip);
  SetVFlip(vflip);
}

void TileAnimation::Play(bool hflip, bool vflip) {
  Play(m_SequenceHash, static_cast<int>(m_CurrentFrame), hflip, vflip);
}

void TileAnimation::Hold(NameHash sequence, int start, bool hflip, bool vflip) {
  Play(sequence, start, hflip, vflip);
  m_PlaybackSpeed = Real();
}

void TileAnimation::Hold(bool hflip, bool vflip) {
  Hold(m_SequenceHash, static_cast<int>(m_CurrentFrame), hflip, vflip);
}

void TileAnimation::Hold(NameHash sequence) {
  Hold(sequence, 0, GetHFlip(), GetVFlip());
}

// Events.

void TileAnimation::FillCallbackBuffer() {
  if (m_PlaybackSpeed == Real() || !m_pCallbackNames) return;
  const uint16_t slots = m_pData->GetMaxCallbackCount();
  const TADSequenceEntry* seq = m_pData->GetSequenceEntry(m_SequenceIndex);
  const unsigned series = seq ? seq->numCallbackSeries : 0;
  for (unsigned i = 0; i < slots; ++i) {
    if (i < series) {
      m_pCallbackNames[i] = m_pData->GetCallbackName(m_SequenceIndex, i);
      m_pCallbackValues[i] = m_pData->GetCallbackValue(m_SequenceIndex, i, m_CurrentFrame);
    } else {
      m_pCallbackNames[i] = 0;
      m_pCallbackValues[i] = 0;
    }
  }
}

uint32_t TileAnimation::GetCallback(NameHash name) const {
  if (m_PlaybackSpeed == Real() || !m_pCallbackNames) return 0;
  for (uint16_t i = 0; i < m_pData->GetMaxCallbackCount(); ++i) {
    if (m_pCallbackNames[i] == name) return m_pCallbackValues[i];
  }
  return 0;
}

void TileAnimation::ClearPendingCallback(NameHash name) {
  if (!m_pCallbackNames) return;
  for (uint16_t i = 0; i < m_pData->GetMaxCallbackCount(); ++i) {
    if (m_pCallbackNames[i] == name) m_pCallbackValues[i] = 0;
  }
}

// Layers: looked up by name, first hit.

const TileAnimation::Layer* TileAnimation::FindLayer(NameHash name) const {
  const uint16_t count = m_pData ? m_pData->GetNumLayers() : 0;
  for (uint16_t i = 0; i < count; ++i) {
    if (m_pLayers[i].name == name) return &m_pLayers[i];
  }
  return nullptr;
}

TileAnimation::Layer* TileAnimation::FindLayer(NameHash name) {
  return const_cast<Layer*>(static_cast<const TileAnimation*>(this)->FindLayer(name));
}

bool TileAnimation::AnimationHasLayer(NameHash layer) const {
  return FindLayer(layer) != nullptr;
}

void TileAnimation::SetLayerEnabled(NameHash layer, bool enabled) {
  if (Layer* l = FindLayer(layer)) l->enabled = enabled;
}

bool TileAnimation::GetLayerEnabled(NameHash layer) const {
  const Layer* l = FindLayer(layer);
  return l && l->enabled;
}

void TileAnimation::SetLayerDepth(NameHash layer, Real depth) {
  if (Layer* l = FindLayer(layer)) l->depth = depth;
}

Real TileAnimation::GetLayerDepth(NameHash layer) const {
  const Layer* l = FindLayer(layer);
  return l ? l->depth : kLargestReal;
}

void TileAnimation::SetLayerAlpha(NameHash layer, Real alpha) {
  if (Layer* l = FindLayer(layer)) l->alpha = alpha;
}

Real TileAnimation::GetLayerAlpha(NameHash layer) const {
  const Layer* l = FindLayer(layer);
  return l ? l->alpha : kLargestReal;
}

// Position and anchor.

void TileAnimation::SetPosition(const Vector3& position) {
  m_Position = position;
  UpdateWorldPosition();
}

void TileAnimation::SetDepth(Real depth) {
  m_Position.z = depth;
  UpdateWorldPosition();
}

void TileAnimation::SetHFlip(bool mirrored) {
  m_HFlip = mirrored ? -1 : 1;
  UpdateWorldPosition();
}

void TileAnimation::SetVFlip(bool mirrored) {
  m_VFlip = mirrored ? -1 : 1;
  UpdateWorldPosition();
}

void TileAnimation::SetAnchor(NameHash anchor) {
  const TADPointSeries* series = GetAnimInfo()->GetPointSeries(anchor, kCurrentSequenceHash);
  if (series) {
    m_pAnchorSeries = series;
    m_AnchorHash = anchor;
    m_bAnchorEnabled = true;
  } else {
    m_bAnchorEnabled = false;
    m_AnchorHash = 0;
  }
  UpdateWorldPosition();
}

void TileAnimation::SetAnchorEnabled(bool enabled) {
  m_bAnchorEnabled = enabled && m_AnchorHash != 0;
  UpdateWorldPosition();
}

void TileAnimation::UpdateWorldPosition() {
  if (!m_bAnchorEnabled) {
    m_WorldPosition = m_Position;
    return;
  }
  const Vector3 a = GetAnimationPoint(m_pAnchorSeries, static_cast<int>(m_CurrentFrame));
  m_WorldPosition.x = m_HFlip < 0 ? m_Position.x + a.x : m_Position.x - a.x;
  m_WorldPosition.y = m_VFlip < 0 ? m_Position.y + a.y : m_Position.y - a.y;
}

}  // namespace nox
