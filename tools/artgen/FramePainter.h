// Draws recipes with cairo: the shapes of one frame of a sprite's sequence, one layer
// at a time, or a whole background; and turns cairo's pixels into the 16-bit colours
// that the title stores, with ordered dithering so that gradients stay smooth.
#pragma once
#include <cairo.h>

#include "ArtRecipe.h"
#include "Image.h"

namespace artgen {

// Where in its sequence a frame is.
struct FrameTime {
  int frame = 0;
  int frames = 1;
  bool loop = false;
};

// The amount (usually 0 to 1) of `motion` at this frame, through its curve.
double MotionAmount(const Motion& motion, const FrameTime& time);

// Draws the shapes on `layer` (all of them for a negative layer), in order.
void DrawShapes(cairo_t* cr, const std::vector<Shape>& shapes, const FrameTime& time, int layer);

// One layer of one frame of a sequence, on the sprite's canvas, quantised to its format.
assetlib::Image RenderSpriteFrame(const SpriteRecipe& sprite, const SequenceRecipe& sequence, int frame,
                                  unsigned layer);
// The whole background, opaque, quantised to 5551.
assetlib::Image RenderBackground(const BackgroundRecipe& background);

// cairo's premultiplied pixels to straight RGBA, with a filter.
assetlib::Image FromSurface(cairo_surface_t* surface, Filter filter);
// Rounds every pixel to the nearest colour of the 16-bit format, dithering the colour
// channels with a 4 by 4 ordered pattern; alpha is rounded (4444) or cut at half (5551).
void Quantise(assetlib::Image& image, assetlib::PixelFormat16 format);

}  // namespace artgen
