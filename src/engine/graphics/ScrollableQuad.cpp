#include "graphics/ScrollableQuad.h"

#include <utility>

#include "core/Debug.h"
#include "graphics/GLUtils.h"
#include "graphics/Screen.h"
#include "graphics/ScreenManager.h"
#include "graphics/TileFileFormat.h"
#include "graphics/WholePixel.h"

namespace nox {

namespace {

constexpr uint16_t kMinTileSize = 8;  // smaller tiles would need more quads than 16-bit indices reach
constexpr uint16_t kFillRGBA5551 = 0xF801;
constexpr uint16_t kFillRGBA4444 = 0xF00F;
constexpr Real kQuarterTexel = Real::FromRaw(0x4000);

uint16_t FillValue(uint16_t pixelFormat) {
  return pixelFormat == PixelFormat::kRGBA5551 ? kFillRGBA5551 : kFillRGBA4444;
}

}  // namespace

ScrollableQuad::ScrollableQuad(unsigned short tileSize, unsigned long screen)
    : m_TileSize(tileSize < kMinTileSize ? kMinTileSize : tileSize),
      m_Scale(Real(1)),
      m_Master(TextureFormat::kRGBA),
      m_TexCoordBuffer(GLBuffer::kVertices) {
  (void)screen;  // there is one screen
  int32_t width = 480;
  int32_t height = 272;
  if (const Screen* s = ScreenManager::Get()) {
    const Rectangle& r = s->GetVirtualRectangle();
    width = WholeExtentInt(r.left, r.right);
    height = WholeExtentInt(r.top, r.bottom);
    if (s->IsSideways()) std::swap(width, height);
  }
  const int32_t t = m_TileSize;
  m_Columns = static_cast<uint16_t>((width + t - 1) / t + 2);
  m_Rows = static_cast<uint16_t>((height + t - 1) / t + 2);
  m_TileCount = static_cast<uint16_t>(m_Columns * m_Rows);
  m_IndexCount = static_cast<uint16_t>(m_TileCount * 6);
  m_VertexCount = static_cast<uint16_t>(m_TileCount * 4);
  m_TilePixels = m_TileSize;

  // From 32 by 32, the side with fewer slots doubles (width on a tie) until the slots
  // hold every grid tile.
  uint32_t w = 32;
  uint32_t h = 32;
  while ((w / t) * (h / t) < m_TileCount && (w < kMaxTextureSide || h < kMaxTextureSide)) {
    if ((w / t <= h / t && w < kMaxTextureSide) || h >= kMaxTextureSide)
      w *= 2;
    else
      h *= 2;
  }
  m_MasterWidth = static_cast<uint16_t>(w);
  m_MasterHeight = static_cast<uint16_t>(h);
  m_MasterColumns = static_cast<uint16_t>(w / t);
  m_MasterRows = static_cast<uint16_t>(h / t);
  m_SlotCount = static_cast<uint16_t>(m_MasterColumns * m_MasterRows);

  m_pTexCoords = new Real[m_VertexCount * 2];
  m_pSlots = new Slot[m_SlotCount];
  m_pFreeSlots = new Slot*[m_SlotCount];
  m_pScreenMap = new Slot*[m_TileCount];
  ResetSlots();
}

ScrollableQuad::~ScrollableQuad() {
  DestroyBuffers();
  delete[] m_pScreenMap;
  delete[] m_pFreeSlots;
  delete[] m_pSlots;
  delete[] m_pTexCoords;
}

void ScrollableQuad::ResetSlots() {
  for (uint16_t i = 0; i < m_SlotCount; ++i) {
    Slot& slot = m_pSlots[i];
    slot.x = static_cast<uint16_t>((i % m_MasterColumns) * m_TilePixels);
    slot.y = static_cast<uint16_t>((i / m_MasterColumns) * m_TilePixels);
    slot.references = 0;
    slot.u =
        (Real(static_cast<unsigned>(slot.x)) + kQuarterTexel) / Real(static_cast<unsigned>(m_MasterWidth));
    slot.v =
        (Real(static_cast<unsigned>(slot.y)) + kQuarterTexel) / Real(static_cast<unsigned>(m_MasterHeight));
    slot.key = TileResourceFile::kNoTileKey;
    m_pFreeSlots[i] = &slot;
  }
  m_FreeHead = 0;
  m_FreeCount = m_SlotCount;
  m_pBlankSlot = TakeFreeSlot();
  m_pBlankSlot->references = m_TileCount + 1;
  for (uint16_t i = 0; i < m_TileCount; ++i) m_pScreenMap[i] = m_pBlankSlot;
  m_Region = PRect{-m_Columns, -m_Rows, 0, 0};
}

bool ScrollableQuad::Initialize(const std::string& name) {
  bool ok = m_TileFile.Initialize(name);
  m_PixelFormat = PixelFormat::kRGBA5551;
  if (ok && m_TileFile.GetPixelFormat() > PixelFormat::kRGBA5551) {
    // The master is an RGBA texture of 16-bit pixels; 5_6_5 and byte formats do not fit it.
    AutomationPrintf("ScrollableQuad: %s refused: pixel format %u cannot be drawn", name.c_str(),
                     static_cast<unsigned>(m_TileFile.GetPixelFormat()));
    m_TileFile.Release();
    ok = false;
  }
  if (ok) m_PixelFormat = m_TileFile.GetPixelFormat();
  m_WorldColumns = ok ? m_TileFile.GetColumns() : 0;
  m_WorldRows = ok ? m_TileFile.GetRows() : 0;
  m_TileLoads = 0;
  ResetSlots();

  m_Master.Update(m_MasterWidth, m_MasterHeight, m_PixelFormat, nullptr);
  m_Master.Bind();
  SetMasterSampling();
  FillMaster();
  CreateBuffers();
  return ok;
}

void ScrollableQuad::FillMaster() {
  // Row by row: red shows wherever a tile never arrives.
  uint16_t row[kMaxTextureSide];
  const uint16_t fill = FillValue(m_PixelFormat);
  for (uint16_t x = 0; x < m_MasterWidth; ++x) row[x] = fill;
  for (uint16_t y = 0; y < m_MasterHeight; ++y)
    m_Master.UpdateSubRegion(0, y, m_MasterWidth, 1, m_PixelFormat, row);
}

void ScrollableQuad::CreateBuffers() {
  if (m_pVertexBuffer) return;
  int16_t* vertices = new int16_t[m_VertexCount * 2];
  uint16_t* indices = new uint16_t[m_IndexCount];
  const int32_t t = m_TileSize;
  for (int32_t r = 0; r < m_Rows; ++r) {
    for (int32_t c = 0; c < m_Columns; ++c) {
      const int32_t tile = r * m_Columns + c;
      const int16_t x0 = static_cast<int16_t>(c * t), x1 = static_cast<int16_t>((c + 1) * t);
      const int16_t y0 = static_cast<int16_t>(r * t), y1 = static_cast<int16_t>((r + 1) * t);
      const int16_t quad[8] = {x0, y0, x1, y0, x0, y1, x1, y1};
      for (int i = 0; i < 8; ++i) vertices[tile * 8 + i] = quad[i];
      const uint16_t b = static_cast<uint16_t>(tile * 4);
      const uint16_t order[6] = {b,
                                 static_cast<uint16_t>(b + 2),
                                 static_cast<uint16_t>(b + 1),
                                 static_cast<uint16_t>(b + 1),
                                 static_cast<uint16_t>(b + 2),
                                 static_cast<uint16_t>(b + 3)};
      for (int i = 0; i < 6; ++i) indices[tile * 6 + i] = order[i];
    }
  }
  m_pVertexBuffer = new GLBuffer(GLBuffer::kVertices);
  m_pVertexBuffer->Update(m_VertexCount * 2 * sizeof(int16_t), vertices);
  m_pVertexBuffer->UnBind();
  m_pIndexBuffer = new GLBuffer(GLBuffer::kElements);
  m_pIndexBuffer->Update(m_IndexCount * sizeof(uint16_t), indices);
  m_pIndexBuffer->UnBind();
  delete[] vertices;
  delete[] indices;
}

void ScrollableQuad::DestroyBuffers() {
  delete m_pVertexBuffer;
  delete m_pIndexBuffer;
  m_pVertexBuffer = nullptr;
  m_pIndexBuffer = nullptr;
}

bool ScrollableQuad::IsInWorld(int32_t x, int32_t y) const {
  return x >= 0 && y >= 0 && x < m_WorldColumns && y < m_WorldRows;
}

ScrollableQuad::Slot* ScrollableQuad::FindResident(uint32_t key) const {
  // A linear walk: a few hundred slots, and only when a tile comes on screen.
  for (uint16_t i = 0; i < m_SlotCount; ++i) {
    if (m_pSlots[i].key == key && &m_pSlots[i] != m_pBlankSlot) return &m_pSlots[i];
  }
  return nullptr;
}

ScrollableQuad::Slot* ScrollableQuad::TakeFreeSlot() {
  if (m_FreeCount == 0) return nullptr;
  Slot* slot = m_pFreeSlots[m_FreeHead];
  m_FreeHead = static_cast<uint16_t>((m_FreeHead + 1) % m_SlotCount);
  --m_FreeCount;
  return slot;
}

void ScrollableQuad::ReturnFreeSlot(Slot* slot) {
  m_pFreeSlots[(m_FreeHead + m_FreeCount) % m_SlotCount] = slot;
  ++m_FreeCount;
}

ScrollableQuad::Slot* ScrollableQuad::LoadTile(int32_t x, int32_t y) {
  Slot* slot = nullptr;
  if (IsInWorld(x, y)) {
    const uint32_t key = m_TileFile.GetTileKey(static_cast<unsigned>(x), static_cast<unsigned>(y));
    slot = FindResident(key);
    if (!slot && (slot = TakeFreeSlot()) != nullptr) {
      slot->key = key;
      // Filled first, so that a tile that fails to unpack shows the master's red.
      uint16_t pixels[kTileMaxBytes / sizeof(uint16_t)];
      const uint16_t fill = FillValue(m_PixelFormat);
      for (uint16_t& p : pixels) p = fill;
      const unsigned long bytes =
          UploadBytes(m_TilePixels, m_TilePixels, TextureFormat::kRGBA, m_PixelFormat);
      if (bytes <= kTileMaxBytes) {
        m_TileFile.LoadTile(static_cast<unsigned>(x), static_cast<unsigned>(y),
                            reinterpret_cast<unsigned char*>(pixels), bytes);
        m_Master.UpdateSubRegion(slot->x, slot->y, m_TilePixels, m_TilePixels, m_PixelFormat, pixels);
      }
      ++m_TileLoads;
    }
  }
  // Outside the picture, and when no slot is free, the blank slot stands in.
  if (!slot) slot = m_pBlankSlot;
  ++slot->references;
  return slot;
}

void ScrollableQuad::FreeTile(int32_t x, int32_t y) {
  Slot* slot = nullptr;
  if (IsInWorld(x, y))
    slot = FindResident(m_TileFile.GetTileKey(static_cast<unsigned>(x), static_cast<unsigned>(y)));
  if (!slot) {
    --m_pBlankSlot->references;
    return;
  }
  if (--slot->references > 0) return;
  slot->key = TileResourceFile::kNoTileKey;
  ReturnFreeSlot(slot);
}

void ScrollableQuad::LoadStrip(const PRect& rect) {
  for (int32_t y = rect.top; y < rect.bottom; ++y) {
    for (int32_t x = rect.left; x < rect.right; ++x) {
      const Point cell = WorldTileToScreenTile(Point{x, y});
      if (cell.x < 0 || cell.y < 0 || cell.x >= m_Columns || cell.y >= m_Rows) continue;
      m_pScreenMap[cell.y * m_Columns + cell.x] = LoadTile(x, y);
    }
  }
}

void ScrollableQuad::UnloadStrip(const PRect& rect) {
  for (int32_t y = rect.top; y < rect.bottom; ++y) {
    for (int32_t x = rect.left; x < rect.right; ++x) {
      const Point cell = WorldTileToScreenTile(Point{x, y});
      if (cell.x < 0 || cell.y < 0 || cell.x >= m_Columns || cell.y >= m_Rows) continue;
      FreeTile(x, y);
      m_pScreenMap[cell.y * m_Columns + cell.x] = m_pBlankSlot;
    }
  }
}

void ScrollableQuad::ShiftRegion(const PRect& rect, const Point& shift) {
  if (rect.IsEmpty()) return;
  // A cell moves to (c - dx, r - dy). Walking in the direction that the destinations
  // lie behind reads every cell before anything is written over it.
  const int32_t rowStep = shift.y > 0 ? 1 : -1;
  const int32_t columnStep = shift.x > 0 ? 1 : -1;
  const int32_t firstRow = rowStep > 0 ? rect.top : rect.bottom - 1;
  const int32_t firstColumn = columnStep > 0 ? rect.left : rect.right - 1;
  for (int32_t r = firstRow; r >= rect.top && r < rect.bottom; r += rowStep) {
    for (int32_t c = firstColumn; c >= rect.left && c < rect.right; c += columnStep) {
      const int32_t toColumn = c - shift.x;
      const int32_t toRow = r - shift.y;
      if (c < 0 || r < 0 || c >= m_Columns || r >= m_Rows) continue;
      if (toColumn < 0 || toRow < 0 || toColumn >= m_Columns || toRow >= m_Rows) continue;
      m_pScreenMap[toRow * m_Columns + toColumn] = m_pScreenMap[r * m_Columns + c];
    }
  }
}

Point ScrollableQuad::WorldTileToScreenTile(const Point& p) const {
  return Point{p.x - m_Region.left, p.y - m_Region.top};
}

PRect ScrollableQuad::WorldTileToScreenTile(const PRect& r) const {
  return PRect{r.left - m_Region.left, r.top - m_Region.top, r.right - m_Region.left,
               r.bottom - m_Region.top};
}

void ScrollableQuad::Update() {
  const int32_t t = m_TileSize;
  // Whole world units, divided with C's truncation and then moved down by one for a
  // negative position, and down once more for the spare column and row.
  int32_t left = m_Position.x.ToInt() / t;
  if (m_Position.x < Real()) --left;
  --left;
  int32_t top = m_Position.y.ToInt() / t;
  if (m_Position.y < Real()) --top;
  --top;

  if (left != m_Region.left || top != m_Region.top) {
    const PRect next{left, top, left + m_Columns, top + m_Rows};
    PRect common, leaving[2], coming[2];
    if (!PRect::Intersect(m_Region, next, common, leaving, coming)) {
      UnloadStrip(m_Region);
      m_Region = next;
      LoadStrip(m_Region);
    } else {
      UnloadStrip(leaving[0]);
      UnloadStrip(leaving[1]);
      ShiftRegion(WorldTileToScreenTile(common), Point{next.left - m_Region.left, next.top - m_Region.top});
      m_Region = next;
      LoadStrip(coming[0]);
      LoadStrip(coming[1]);
    }
    // The grid shows other slots only after a change of region; otherwise the
    // coordinates in the buffer are still right.
    UpdateTexcoordBuffer();
  }
  m_LastPosition = m_Position;
  CalculateFractional();
}

void ScrollableQuad::CalculateFractional() {
  const int32_t t = m_TileSize;
  int32_t fx = m_Position.x.ToInt() % t;
  if (m_Position.x < Real()) fx += t;
  int32_t fy = m_Position.y.ToInt() % t;
  if (m_Position.y < Real()) fy += t;
  m_Fraction = Vector2(-Real(fx), -Real(fy));
}

void ScrollableQuad::UpdateTexcoordBuffer() {
  const Real tile(static_cast<unsigned>(m_TilePixels));
  const Real du = (tile - kQuarterTexel) / Real(static_cast<unsigned>(m_MasterWidth));
  const Real dv = (tile - kQuarterTexel) / Real(static_cast<unsigned>(m_MasterHeight));
  for (uint16_t i = 0; i < m_TileCount; ++i) {
    const Slot* slot = m_pScreenMap[i];
    Real* c = m_pTexCoords + i * 8;
    c[0] = slot->u;
    c[1] = slot->v;
    c[2] = slot->u + du;
    c[3] = slot->v;
    c[4] = slot->u;
    c[5] = slot->v + dv;
    c[6] = slot->u + du;
    c[7] = slot->v + dv;
  }
  m_TexCoordBuffer.Update(m_VertexCount * 2 * sizeof(Real), m_pTexCoords);
  m_TexCoordBuffer.UnBind();
}

void ScrollableQuad::Draw() {
  if (!m_bEnabled || !m_pVertexBuffer) return;
  const Real t(static_cast<unsigned>(m_TileSize));
  m_Master.Bind();
  DrawTiles(m_Fraction.x - t, m_Fraction.y - t, m_Depth, *m_pVertexBuffer, m_TexCoordBuffer, *m_pIndexBuffer,
            m_IndexCount);
  if (m_bDebugTileKeys) DebugRenderTileKeys();
  GLTexture::UnBind();
  if (m_bDebugMasterTexture) DebugRenderMasterTexture();
}

void ScrollableQuad::DebugRenderMasterTexture() {
  // The master at a quarter of its width, from the top left corner.
  const Real w(static_cast<unsigned>(m_MasterWidth / 4));
  const Real h(static_cast<unsigned>(m_MasterHeight / 4));
  DrawTexture(m_Master, Vector2(Real(), Real()), Vector2(w, h), Vector2(Real(), Real()),
              Vector2(Real(1), Real(1)));
}

}  // namespace nox
