// The scrolling background of a world scene: a window onto a tiled picture far larger
// than video memory. The screen is covered by a fixed grid of tile quads (the tiles
// that fit, rounded up, plus a spare row and column on each side); scrolling rewrites
// only their texture coordinates. The tiles under the grid are streamed from the
// ".til" picture into slots of one master texture, and tiles with one picture (one
// key) share one slot, so a repeating sky costs one slot.
//
// Each slot counts the grid cells that show it. The blank slot stands for every tile
// outside the picture and is never freed; it and every slot not yet loaded show the
// red of the master's fill, which is also what a tile that fails to load shows.
//
// Crossing a tile boundary loads one row and one column of tiles and rewrites one
// buffer; moving within a tile only changes the draw offset. Nothing allocates after
// Initialize. The owner sets the position each frame, then calls Update and Draw.
#pragma once
#include <cstdint>
#include <string>

#include "core/NoCopy.h"
#include "core/Real.h"
#include "core/Vector2.h"
#include "graphics/GLBuffer.h"
#include "graphics/GLTexture.h"
#include "graphics/PRect.h"
#include "graphics/TileResourceFile.h"
#include "platform/ScrollableQuad_pf.h"

namespace nox {

class ScrollableQuad : public NoCopy, private ScrollableQuad_pf {
 public:
  struct Slot {
    uint16_t x;  // pixels in the master texture
    uint16_t y;
    int32_t references;  // grid cells showing it (the blank slot one more)
    Real u;              // texture coordinates of its top left, a quarter texel in
    Real v;
    uint32_t key;  // of the tile it holds; TileResourceFile::kNoTileKey while free
  };

  // Sizes the grid for the screen (its whole width and height, swapped when it is
  // sideways) and the master texture. `screen` is the screen id; there is one, 0.
  ScrollableQuad(unsigned short tileSize, unsigned long screen);
  ~ScrollableQuad();

  // Opens the picture `name` (".til" and "-tiled.tex" in the level directories), fills
  // the master with red, puts every slot on the free list and every grid cell on the
  // blank slot, and creates the buffers. A missing or malformed picture, or one of a
  // pixel format the master cannot hold, leaves a picture of no tiles: all red. Call
  // DestroyBuffers before initializing again.
  bool Initialize(const std::string& name);
  void CreateBuffers();
  void DestroyBuffers();

  // Follows the position: streams the tiles that came on screen, frees those that
  // left, and rewrites the texture coordinates.
  void Update();
  void Draw();

  // The slot of world tile (x, y), one reference more; loaded into a free slot when
  // no slot holds its key. Tiles outside the picture answer the blank slot, and so
  // does a tile that finds no free slot.
  Slot* LoadTile(int32_t x, int32_t y);
  // One reference fewer on the tile's slot; a slot with none left is free again.
  void FreeTile(int32_t x, int32_t y);
  // Loads each tile of `rect` (world tiles) into its grid cell.
  void LoadStrip(const PRect& rect);
  // Frees each tile of `rect` (world tiles) and shows the blank slot in its cell.
  void UnloadStrip(const PRect& rect);
  // Moves the grid cells of `rect` (screen tiles) by minus `shift`, walking so that no
  // cell is written before it is read.
  void ShiftRegion(const PRect& rect, const Point& shift);
  void UpdateTexcoordBuffer();
  void CalculateFractional();
  Point WorldTileToScreenTile(const Point& p) const;
  PRect WorldTileToScreenTile(const PRect& r) const;

  // Draws the master texture in the top left corner while its flag is set.
  void DebugRenderMasterTexture();
  void DebugRenderTileKeys() {}
  void PrintScreenTilesMap() const {}

  void SetPosition(const Vector2& position) { m_Position = position; }
  const Vector2& GetPosition() const { return m_Position; }
  void SetDepth(Real depth) { m_Depth = depth; }
  void SetEnabled(bool enabled) { m_bEnabled = enabled; }
  bool IsEnabled() const { return m_bEnabled; }
  void SetDebugFlags(bool drawTileKeys, bool drawMasterTexture) {
    m_bDebugTileKeys = drawTileKeys;
    m_bDebugMasterTexture = drawMasterTexture;
  }

  uint16_t GetColumns() const { return m_Columns; }
  uint16_t GetRows() const { return m_Rows; }
  uint16_t GetTileCount() const { return m_TileCount; }
  uint16_t GetMasterWidth() const { return m_MasterWidth; }
  uint16_t GetMasterHeight() const { return m_MasterHeight; }
  uint16_t GetSlotCount() const { return m_SlotCount; }
  const PRect& GetRegion() const { return m_Region; }
  const Vector2& GetFraction() const { return m_Fraction; }
  const Slot* GetScreenSlot(int32_t column, int32_t row) const {
    return m_pScreenMap[row * m_Columns + column];
  }
  const Slot* GetBlankSlot() const { return m_pBlankSlot; }
  const Slot& GetSlot(uint16_t index) const { return m_pSlots[index]; }
  uint16_t GetFreeSlotCount() const { return m_FreeCount; }
  // Tiles streamed into slots since Initialize.
  uint32_t GetTileLoads() const { return m_TileLoads; }

 private:
  bool IsInWorld(int32_t x, int32_t y) const;
  Slot* FindResident(uint32_t key) const;
  Slot* TakeFreeSlot();
  void ReturnFreeSlot(Slot* slot);
  void FillMaster();
  void ResetSlots();

  uint16_t m_TileSize;  // world units of a tile
  uint16_t m_Columns;   // grid size, tiles
  uint16_t m_Rows;
  uint16_t m_TileCount;
  uint16_t m_IndexCount;
  uint16_t m_TilePixels;   // side of a tile in the master
  uint16_t m_MasterWidth;  // pixels, powers of two
  uint16_t m_MasterHeight;
  uint16_t m_MasterColumns;  // slots
  uint16_t m_MasterRows;
  uint16_t m_SlotCount;
  uint16_t m_VertexCount;  // m_TileCount * 4
  Real m_Depth;
  Real m_Scale;
  GLTexture m_Master;
  Vector2 m_Position;  // world units, set by the owner
  Vector2 m_Fraction;  // the sub-tile shift, negated
  Vector2 m_LastPosition;
  Real* m_pTexCoords = nullptr;  // owned: two per vertex
  PRect m_Region;                // world tiles under the grid
  int32_t m_WorldColumns = 0;
  int32_t m_WorldRows = 0;
  TileResourceFile m_TileFile;
  Slot** m_pFreeSlots = nullptr;  // owned ring of m_SlotCount, oldest first
  uint16_t m_FreeHead = 0;
  uint16_t m_FreeCount = 0;
  GLBuffer m_TexCoordBuffer;
  Slot* m_pSlots = nullptr;       // owned, m_SlotCount in row order of the master
  Slot** m_pScreenMap = nullptr;  // owned, m_TileCount, row by row
  Slot* m_pBlankSlot = nullptr;
  uint32_t m_TileLoads = 0;
  uint16_t m_PixelFormat = PixelFormat::kRGBA5551;
  bool m_bDebugTileKeys = false;
  bool m_bDebugMasterTexture = false;
  bool m_bEnabled = true;
  GLBuffer* m_pIndexBuffer = nullptr;   // owned
  GLBuffer* m_pVertexBuffer = nullptr;  // owned
};

}  // namespace nox
