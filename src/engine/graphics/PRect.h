// Whole-number points and rectangles in tile units, for the scrolling background.
// A PRect spans left <= x < right and top <= y < bottom: right and bottom are the
// first column and row outside it.
#pragma once
#include <cstdint>

namespace nox {

struct Point {
  int32_t x;
  int32_t y;
};

struct PRect {
  int32_t left;
  int32_t top;
  int32_t right;
  int32_t bottom;

  bool operator==(const PRect& o) const {
    return left == o.left && top == o.top && right == o.right && bottom == o.bottom;
  }
  bool IsEmpty() const { return right <= left || bottom <= top; }

  // Splits a move of a rectangle from `from` to `to`. `common` is what both cover.
  // leaving[0] is the columns of `from` that `to` lacks, over all of from's rows;
  // leaving[1] the rows of `from` that `to` lacks, over the common columns only; so
  // together they hold each tile that leaves exactly once. coming[0] and coming[1]
  // are the same for `to`. Strips may be empty. False, with only `common` set (empty),
  // when the two do not overlap.
  static bool Intersect(const PRect& from, const PRect& to, PRect& common, PRect leaving[2], PRect coming[2]);
};

}  // namespace nox
