// An axis-aligned rectangle of four Reals in the order left, top, right, bottom, in
// virtual pixels (y grows downwards). A plain value; nothing keeps right >= left.
#pragma once
#include "core/Real.h"

namespace nox {

struct Rectangle {
  Real left;
  Real top;
  Real right;
  Real bottom;

  constexpr Rectangle() = default;
  constexpr Rectangle(Real l, Real t, Real r, Real b) : left(l), top(t), right(r), bottom(b) {}

  bool operator==(const Rectangle& o) const {
    return left == o.left && top == o.top && right == o.right && bottom == o.bottom;
  }
  bool operator!=(const Rectangle& o) const { return !(*this == o); }

  Real GetWidth() const { return right - left; }
  Real GetHeight() const { return bottom - top; }
};

}  // namespace nox
