// The list on the debug settings screen: first the groups of nox::Settings, then the
// settings of one group with their values, drawn as lines of text. The pad moves the
// selection and changes values; the top corners of the screen stand in for B and A.
//
//   up / down      selection, stopping at the ends; held, it repeats every kRepeatMS
//   right          group list: open the group; in a group: value plus its step
//   left           group list: redraw only; in a group: value minus its step
//   B, top left    in a group: back to the group list
//   A, top right   group list: open the selected group
//
// Values stay between the setting's limits and changes notify as Settings' setters
// do. The text is laid out again only after a change. The overlay reads the settings
// singleton and borrows its font from the font manager.
#pragma once
#include <cstdint>
#include <string>

#include "core/NoCopy.h"
#include "graphics/TextSurface.h"

namespace nox {
class Font;
class Setting;
}  // namespace nox

namespace noxfw {

class DebugSettingsOverlay : public nox::NoCopy {
 public:
  static const uint32_t kRepeatMS = 121;
  static const int kCornerPixels = 60;
  static const char* const kRoot;  // "Root", the name of the group list
  static const int kRowCharacters = 63;

  DebugSettingsOverlay();
  ~DebugSettingsOverlay();

  // Sizes the text to the screen; called again when the screen changes.
  void Initialise(nox::Real width, nox::Real height);
  // True when the pad or a corner touch did something here this frame.
  bool HandleInput();
  void Update(unsigned long ms);
  void Draw();

  bool IsAtGroupList() const { return m_GroupName == kRoot; }
  const std::string& GetGroupName() const { return m_GroupName; }
  int GetSelection() const { return m_Selection; }
  int GetFirstVisible() const { return m_FirstVisible; }
  int GetItemCount() const { return m_ItemCount; }
  int GetVisibleRows() const;
  // Null at the group list.
  nox::Setting* GetSelectedSetting() const;
  // The text of a row of the current list, as drawn; "" past the end.
  void GetRowText(int row, char* buffer, size_t size) const;
  nox::TextSurface& GetSurface() { return m_Surface; }

 private:
  bool Step(uint32_t bit);
  void EnterGroup();
  void LeaveGroup();
  void ChangeSelected(int direction);
  void MoveSelection(int delta);
  void CountItems();
  void Redraw();
  nox::Real LineHeight() const;

  nox::TextSurface m_Surface;
  nox::Font* m_pFont = nullptr;  // one reference held at the font manager
  std::string m_GroupName;       // kRoot or a group of the settings
  int m_Selection = 0;
  int m_FirstVisible = 0;
  int m_ItemCount = 0;
  uint32_t m_RepeatMS = 0;  // since the last step
  bool m_bRedraw = true;
};

}  // namespace noxfw
