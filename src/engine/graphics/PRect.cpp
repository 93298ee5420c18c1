#include "graphics/PRect.h"

#include <algorithm>

namespace nox {

namespace {

// The columns of `a` outside [left, right), over the rows of `a`; at most one side
// is non-empty when a and the span have the same width.
PRect ColumnsOutside(const PRect& a, int32_t left, int32_t right) {
  if (a.left < left) return PRect{a.left, a.top, std::min(left, a.right), a.bottom};
  if (a.right > right) return PRect{std::max(right, a.left), a.top, a.right, a.bottom};
  return PRect{a.left, a.top, a.left, a.bottom};
}

// The rows of `a` outside [top, bottom), over the columns [left, right).
PRect RowsOutside(const PRect& a, int32_t top, int32_t bottom, int32_t left, int32_t right) {
  if (a.top < top) return PRect{left, a.top, right, std::min(top, a.bottom)};
  if (a.bottom > bottom) return PRect{left, std::max(bottom, a.top), right, a.bottom};
  return PRect{left, a.top, right, a.top};
}

}  // namespace

bool PRect::Intersect(const PRect& from, const PRect& to, PRect& common, PRect leaving[2], PRect coming[2]) {
  common = PRect{std::max(from.left, to.left), std::max(from.top, to.top), std::min(from.right, to.right),
                 std::min(from.bottom, to.bottom)};
  if (common.IsEmpty()) {
    common = PRect{0, 0, 0, 0};
    return false;
  }
  leaving[0] = ColumnsOutside(from, to.left, to.right);
  leaving[1] = RowsOutside(from, to.top, to.bottom, common.left, common.right);
  coming[0] = ColumnsOutside(to, from.left, from.right);
  coming[1] = RowsOutside(to, from.top, from.bottom, common.left, common.right);
  return true;
}

}  // namespace nox
