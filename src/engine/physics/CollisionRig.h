// Moving boxes that follow the rectangles of a sprite: a rig named by a prefix has
// one box for each rectangle series "<prefix>0", "<prefix>1"... (at most ten, up to
// the first digit missing from every sequence). Each frame UpdateRig sets each box
// to its rectangle of the current frame; a frame without that rectangle disables
// the box. The particles are kinematic: they are not listed with the engine and
// only ever move by UpdateRig.
//
// The rig owns its particles and boxes (allocated once in Initialize) and puts the
// boxes into one pool. Contacts come back to the owner as callback(owner, index,
// info), with the index of the box touched. Destroy the rig outside steps, before
// its pool.
#pragma once
#include "core/HashString.h"
#include "core/NoCopy.h"
#include "core/Vector2.h"
#include "graphics/Rectangle.h"
#include "physics/CollisionNotifier.h"
#include "physics/Particle.h"
#include "physics/RectSeriesSource.h"
#include "physics/RectangleHull.h"

namespace nox {

class AnimInfo;
class CollisionPool;

class CollisionRig : public NoCopy {
 public:
  static constexpr int kMaxElements = 10;

  CollisionRig() = default;
  virtual ~CollisionRig();

  // Counts the series, makes one particle and one disabled box for each, and puts
  // the boxes into `pool` (if any). `rtti` owns the boxes for the same-owner rule.
  // Allocates; the sprite is borrowed.
  void Initialize(AnimInfo* sprite, const char* prefix, CollisionPool* pool, CollisionRigFunction callback,
                  void* owner, RTTIBase* rtti);
  // The same for any source of rectangles.
  void Initialize(RectSeriesSource* sprite, const char* prefix, CollisionPool* pool,
                  CollisionRigFunction callback, void* owner, RTTIBase* rtti);
  // Moves each box onto its rectangle at depth `z`, `depth` deep. Only while enabled.
  void UpdateRig(Real z, Real depth);
  // Turns the rig on and updates it at once.
  void Enable(Real z, Real depth);
  // Turns the rig off and disables every box.
  void Disable();
  void SetHullsCollidable(bool collidable);
  void SetHullsCollidableWithSameRTTI(bool same);

  int GetHullCount() const { return m_Count; }
  // Null out of range.
  RectangleHull* GetHullAtIndex(int index);
  NameHash GetSeriesAtIndex(int index) const;
  // The largest width and the largest height of the rectangles last seen.
  Vector2 GetMaxWidthHeight() const;
  Vector2 GetRigWidthHeight(int index) const;
  // The union of the rectangles last seen (zero ones left out).
  Rectangle GetMaxExtents() const;
  Rectangle GetRigExtents(int index) const;
  bool IsEnabled() const { return m_bEnabled; }
  bool IsInitialized() const { return m_bInitialized; }

  void OnCollision(const CollisionInfo& info);

 private:
  struct Element {
    Particle m_Particle;
    RectangleHull m_Hull;  // on m_Particle
    NameHash m_Series = 0;
  };

  void Release();

  bool m_bEnabled = false;
  RectSeriesSource* m_pSprite = nullptr;  // borrowed, or m_AnimSource
  AnimInfoRectSource m_AnimSource;        // reads the sprite given as an AnimInfo
  int m_Count = 0;
  Element* m_pElements = nullptr;    // owned, m_Count of them
  CollisionPool* m_pPool = nullptr;  // borrowed
  void* m_pOwner = nullptr;          // borrowed, passed back to the callback
  CollisionRigFunction m_pCallback = nullptr;
  CollisionNotifier m_Notifier;     // the head of every box's list
  Real* m_pWidths = nullptr;        // owned, one for each element
  Real* m_pHeights = nullptr;       // owned
  Rectangle* m_pExtents = nullptr;  // owned
  bool m_bInitialized = false;
};

}  // namespace nox
