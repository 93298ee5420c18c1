// A convex polygon with vertices relative to its particle. Each edge keeps its
// outward normal and its extent (the distance of the edge's line from the centre
// along that normal); the normal of edge k is that of the edge ending at vertex k.
// The particle itself always counts as inside: projections start from it.
//
// GetProjectionX is cached and recomputed only when the particle's moved flag or
// the hull's dirty flag is set; the bounding box that rays test first is cached
// likewise and refreshed when the particle moves.
#pragma once
#include <vector>

#include "physics/AbstractHull.h"

namespace nox {

class PolyHull : public AbstractHull {
 public:
  PolyHull() = default;
  PolyHull(Particle* particle, Real elasticity, Real friction, CollisionNotifier* notifier, RTTIBase* owner,
           Real depth, bool sameRTTI);

  // Copies the vertices (relative to the particle), builds normals and extents
  // around the particle, and marks the hull dirty. Allocates.
  void SetVertices(const std::vector<Vector2>& vertices);
  const std::vector<Vector2>& GetVertices() const { return m_Vertices; }
  const std::vector<Vector2>& GetNormals() const { return m_Normals; }
  const std::vector<Real>& GetExtents() const { return m_Extents; }
  // The stored vertices themselves, for tools that reshape a polygon in place; the
  // caller marks the hull dirty when it wants the change seen.
  std::vector<Vector2>& EditVertices() { return m_Vertices; }

  // Rebuilds normals and extents from `points` seen from `centre`. A zero-length
  // edge gets the zero normal.
  void ConvertPointsToExtents(std::vector<Vector2>& points, Vector2 centre);

  // Whether the segments a-b and c-d meet, with the point in `out`. Segments on one
  // line count as meeting at the midpoint of a-b.
  static bool LineIntersect(const Vector2& a, const Vector2& b, const Vector2& c, const Vector2& d,
                            Vector2& out);

  Interval getProjection(const Vector2& axis) const override;
  Interval GetProjectionX() const override;
  void Draw(const Vector2& offset, unsigned long colour) override;

  CollisionInfo collide(AbstractHull& other) override;
  CollisionInfo collide(RectangleHull& other) override;
  CollisionInfo collide(CircleHull& other) override;
  CollisionInfo collide(PolyHull& other) override;
  // The first edge in order that the segment crosses, not the nearest one.
  bool intersectsRay(Vector3 origin, Vector3 destination, Vector3& hit) override;

  // The width of the x projection (GetWidth answers 1.0, as for every shape that has
  // no box of its own).
  virtual Real GetWidtht() const;

 private:
  void RefreshBoundingBox();

  std::vector<Vector2> m_Vertices;  // relative to the particle
  std::vector<Vector2> m_Normals;   // one for each edge
  std::vector<Real> m_Extents;      // one for each edge
  Vector3 m_BoxMin;                 // cached bounding box, world space
  Vector3 m_BoxMax;
  Vector3 m_LastPosition;  // where the box was built
  bool m_bBoxValid = false;
  mutable Interval m_ProjectionX;  // cached GetProjectionX
  mutable bool m_bProjectionXValid = false;
};

}  // namespace nox
