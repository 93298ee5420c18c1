// The sprite of the engine: one playing instance of a shared TileAnimData.
//
// A sprite plays one sequence at a time, a frame per frame duration (1000 / frames
// per second ms; 12 frames per second unless told otherwise), forward or backward,
// looping or stopping at the end. It never skips a picture: a slow update steps one
// frame at most and loses the rest of the time. Each frame it fills its event buffer
// from the sequence's callback series, anchors itself by a named point if asked,
// and answers points and rectangles of its frames in world space.
//
// The sprite borrows its data, which must outlive it, and owns its event buffers,
// its layer records and its frame holder (unless the data shares the holder). An
// AnimationEngine holds bare pointers: take a sprite out of it before deleting it.
// A sprite on data that failed to load has no sequences, draws nothing and answers
// zero everywhere.
#pragma once
#include <cstdint>

#include "core/HashString.h"
#include "core/Real.h"
#include "core/Vector2.h"
#include "core/Vector3.h"
#include "graphics/AnimInfo.h"
#include "graphics/Animation.h"
#include "graphics/TileFileFormat.h"
#include "platform/TileAnimation_pf.h"

namespace nox {

class TileAnimData;
class TileAnimFrame;

class TileAnimation : public Animation, public AnimInfo, protected TileAnimation_pf {
 public:
  explicit TileAnimation(TileAnimData* data);
  ~TileAnimation() override;

  // Animation.
  void Update(unsigned long ms) override;
  void Draw() override;
  void DrawBuffered(RenderBuffer2D& buffer) override;
  void UnloadOffscreenResources() override;
  bool IsOnScreen(const Rectangle& view) const override;
  bool HitTest(const Vector2& point) const override;
  bool HitTestBounds(const Vector2& point) const override;

  virtual void SetPosition(const Vector3& position);
  virtual void SetDepth(Real depth);
  virtual bool IsAnimEnded() const { return m_bEnded; }
  // Draw without the z turn, turning by y before x: for sprites in a 3D world.
  virtual void DrawBillboarded();
  // The cell box in world space; without one, the pixel at the position.
  virtual Rectangle GetCellBoundingRect() const;
  virtual bool IsPointInFrameTiles(const Vector2* point) const;
  virtual void SetHFlip(bool mirrored);
  virtual void SetVFlip(bool mirrored);
  virtual bool GetHFlip() const { return m_HFlip < 0; }
  virtual bool GetVFlip() const { return m_VFlip < 0; }
  virtual void SetPlaybackForward(bool forward) { m_bPlaybackForward = forward; }
  virtual bool IsPlaybackForward() const { return m_bPlaybackForward; }
  virtual uint32_t GetCurrentFrame() const { return m_CurrentFrame; }
  virtual unsigned short GetTotalFrames() const;
  virtual void SetCurrentFrame(unsigned short frame);
  virtual void SetScale(Real scale);
  virtual void SetHScale(Real scale) { m_HScale = scale; }
  virtual void SetVScale(Real scale) { m_VScale = scale; }
  virtual Real GetHScale() const { return m_HScale; }
  virtual Real GetVScale() const { return m_VScale; }
  virtual void PlayAnimSequence(NameHash sequence);
  virtual void RestartAnimation() { SetCurrentFrame(0); }
  virtual void SetXRotation(Real degrees) { m_XRotation = degrees; }
  virtual void SetYRotation(Real degrees) { m_YRotation = degrees; }
  virtual void SetZRotation(Real degrees) { m_ZRotation = degrees; }
  virtual Real GetXRotation() const { return m_XRotation; }
  virtual Real GetYRotation() const { return m_YRotation; }
  virtual Real GetZRotation() const { return m_ZRotation; }
  virtual AnimInfo* GetAnimInfo() { return this; }

  // AnimInfo.
  void SetAlpha(Real alpha) override { m_Alpha = alpha; }
  uint32_t GetCallback(NameHash name) const override;
  void ClearPendingCallback(NameHash name) override;
  void SetAnchorHash(NameHash anchor) override { m_AnchorHash = anchor; }
  bool HasPoint(NameHash point, int frame = -1, NameHash sequence = kCurrentSequenceHash) const override;
  bool HasPointSeries(NameHash point, NameHash sequence = kCurrentSequenceHash) const override;
  const TADPointSeries* GetPointSeries(NameHash point,
                                       NameHash sequence = kCurrentSequenceHash) const override;
  Vector3 GetPoint(NameHash point, int frame = -1, NameHash sequence = kCurrentSequenceHash) const override;
  Vector3 GetPoint(const TADPointSeries* series, int frame = -1) const override;
  // (x, y, 0) in animation pixels; zero for a null series or a nil entry.
  virtual Vector3 GetAnimationPoint(const TADPointSeries* series, int frame = -1) const;
  bool HasSequence(NameHash sequence) const override;
  bool HasRect(NameHash rect, int frame = -1, NameHash sequence = kCurrentSequenceHash) const override;
  bool HasRectSeries(NameHash rect, NameHash sequence = kCurrentSequenceHash) const override;
  Rectangle GetRect(NameHash rect, int frame = -1, NameHash sequence = kCurrentSequenceHash) const override;
  Rectangle GetRect(const TADRectSeries* series, int frame = -1) const override;
  // The rectangle as stored, in animation pixels; zero when absent.
  virtual Rectangle GetLocalRect(NameHash rect, int frame = -1,
                                 NameHash sequence = kCurrentSequenceHash) const;
  virtual Rectangle GetLocalRect(const TADRectSeries* series, int frame = -1) const;
  bool AnimationHasLayer(NameHash layer) const override;
  void SetLayerEnabled(NameHash layer, bool enabled) override;
  bool GetLayerEnabled(NameHash layer) const override;
  void SetLayerDepth(NameHash layer, Real depth) override;
  Real GetLayerDepth(NameHash layer) const override;
  void EnableZFlip(bool enable) override {}
  bool IsZFlipEnabled() const override { return false; }
  void SetRelativeLayering(bool relative) override { m_bRelativeLayering = relative; }
  bool GetRelativeLayering() const override { return m_bRelativeLayering; }
  TileAnimData* GetTileAnimData() const override { return m_pData; }

  virtual unsigned short GetCurrentSequenceIndex() const { return m_SequenceIndex; }
  virtual void SetModulationColor(const Vector3& rgb) { m_ModulationColor = rgb; }
  virtual Vector3 GetModulationColor() const { return m_ModulationColor; }
  // Blends the modulation colour from `from` to `to` over `ms` milliseconds.
  virtual void ModulateColor(const Vector3& from, const Vector3& to, unsigned long ms);

  // Playing. A negative start plays backwards from the end: -1 starts on the last
  // frame. An unknown sequence plays sequence 0 after an automation line.
  void Play(NameHash sequence, int start);
  void Play(NameHash sequence, int start, bool hflip, bool vflip);
  // Replays the sequence last asked for from the current frame.
  void Play(bool hflip, bool vflip);
  void Hold(NameHash sequence, int start, bool hflip, bool vflip);
  void Hold(bool hflip, bool vflip);
  void Hold(NameHash sequence);
  void SetLoop(bool loop) { m_bLoop = loop; }
  bool GetLoop() const { return m_bLoop; }
  // Below 1 frame per second the sprite never steps.
  void SetFramesPerSecond(Real fps);
  Real GetFramesPerSecond() const { return m_FramesPerSecond; }
  Real GetFrameDuration() const { return m_FrameDuration; }
  void SetPlaybackSpeed(Real speed);
  Real GetPlaybackSpeed() const { return m_PlaybackSpeed; }
  static void SetDefaultFramesPerSecond(Real fps) { sm_DefaultFPS = fps; }
  static Real GetDefaultFramesPerSecond() { return sm_DefaultFPS; }

  void SetLayerAlpha(NameHash layer, Real alpha);
  // The largest Real when the sprite has no such layer.
  Real GetLayerAlpha(NameHash layer) const;

  // Holds the sprite by a named point of its frames: the point stays at the position
  // while the frames move about it. An unknown point turns the anchor off.
  void SetAnchor(NameHash anchor);
  void SetAnchorEnabled(bool enabled);
  bool IsAnchorEnabled() const { return m_bAnchorEnabled; }

  void SetPosition(Real x, Real y) { SetPosition(Vector3(x, y, m_Position.z)); }
  void SetPosition(Real x, Real y, Real z) { SetPosition(Vector3(x, y, z)); }
  void SetPosition(const Vector2& p) { SetPosition(Vector3(p.x, p.y, m_Position.z)); }
  const Vector3& GetPosition() const { return m_Position; }
  Real GetDepth() const { return m_Position.z; }
  const Vector3& GetWorldPosition() const { return m_WorldPosition; }
  Real GetAlpha() const { return m_Alpha; }

  // Inside that rectangle series of the current frame, edges included.
  bool HitTestBounds(const Vector2& point, NameHash rect) const;
  bool IntersectsTileAnim(const TileAnimation& other) const;
  bool IntersectsTileAnim(const TileAnimation& other, NameHash rect) const;
  // The intersection of the two cell boxes and true; a zero rectangle and false when
  // they do not touch.
  bool GetOverlap(const TileAnimation& other, Rectangle& out) const;
  Vector3 VectorWorldSpaceToAnimation(Vector3 v, int frame = -1) const;
  Vector3 VectorAnimationSpaceToWorld(Vector3 v, int frame = -1) const;

  uint32_t GetSequenceHash() const { return m_SequenceHash; }
  TileAnimFrame* GetFrameHolder() const { return m_pFrame; }

  struct Layer {
    NameHash name;
    Real depth;  // from the file, added to the sprite's z
    Real alpha;  // 1.0
    bool enabled;
  };

 private:
  void FillCallbackBuffer();
  void UpdateWorldPosition();
  // The index of a sequence asked for by hash; -1 when the data lacks it.
  int ResolveSequence(NameHash sequence) const;
  // The frame index asked for within a sequence; -1 when past its end.
  int ResolveFrame(int sequence, int frame) const;
  const Layer* FindLayer(NameHash name) const;
  Layer* FindLayer(NameHash name);
  const TADRect* RectEntry(const TADRectSeries* series, int frame) const;
  // Steps 1 to 3 of drawing: the frame in hand and the cursor on its first layer.
  bool PrepareDraw();
  void InnerDraw();
  void InnerDrawBuffered(RenderBuffer2D& buffer);

  TileAnimData* m_pData;                  // borrowed
  NameHash* m_pCallbackNames = nullptr;   // owned, the data's largest callback count
  uint32_t* m_pCallbackValues = nullptr;  // owned, same length
  uint32_t m_CurrentFrame = 0;
  Real m_FrameClock;               // ms into the current frame
  Real m_PlaybackSpeed = Real(1);  // 0 while held
  Real m_SavedPlaybackSpeed = Real(1);
  Real m_FramesPerSecond;
  Real m_FrameDuration;  // ms
  bool m_bEnded = false;
  bool m_bRelativeLayering = true;  // layers at sprite depth plus layer depth
  bool m_bPlaybackForward = true;
  Layer* m_pLayers = nullptr;  // owned, one per layer of the data
  Real m_XRotation;            // degrees
  Real m_YRotation;
  Real m_ZRotation;
  Real m_HScale = Real(1);
  Real m_VScale = Real(1);
  int8_t m_HFlip = 1;  // -1 when mirrored
  int8_t m_VFlip = 1;
  TileAnimFrame* m_pFrame = nullptr;  // owned unless shared by the data
  const TADRectSeries* m_pCellBoxSeries = nullptr;
  unsigned short m_SequenceIndex = 0;
  Real m_Alpha = Real(1);
  Vector3 m_ModulationColor = Vector3(Real(1), Real(1), Real(1));
  Vector3 m_ModulationStart;
  Vector3 m_ModulationEnd;
  uint32_t m_ModulationClock = 0;   // ms
  uint32_t m_ModulationLength = 0;  // ms, 0 when not blending
  Vector3 m_WorldPosition;          // the position after the anchor
  bool m_bAnchorEnabled = false;
  bool m_bLoop = false;
  NameHash m_SequenceHash = 0;  // the sequence asked for
  NameHash m_AnchorHash = 0;
  const TADPointSeries* m_pAnchorSeries = nullptr;

  static Real sm_DefaultFPS;  // 12.0
};

}  // namespace nox
