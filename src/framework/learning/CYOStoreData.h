// One word of a player's own spelling list as the game stores it: exactly 128 bytes,
// which is also its form in "CYOData.bin" (little-endian, one record after another).
// Texts are cut to their field and zero padded; a text that fills its field has no
// terminating zero, so read them with GetWord and GetAudio.
#pragma once
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

namespace noxfw {

struct CYOStoreData {
  static constexpr uint32_t kStatusOpen = 0;
  static constexpr uint32_t kStatusMastered = 1;

  char word[15];
  char audio[100];  // voice clip name
  uint8_t reserved;
  uint32_t index;   // position in the platform's list
  uint32_t count;   // correct spellings so far, up to the completion parameter
  uint32_t status;  // kStatusOpen or kStatusMastered

  std::string GetWord() const { return std::string(word, strnlen(word, sizeof word)); }
  std::string GetAudio() const { return std::string(audio, strnlen(audio, sizeof audio)); }
  void SetWord(const std::string& text) { CopyCut(word, sizeof word, text); }
  void SetAudio(const std::string& text) { CopyCut(audio, sizeof audio, text); }

 private:
  static void CopyCut(char* field, size_t size, const std::string& text) {
    memset(field, 0, size);
    memcpy(field, text.data(), text.size() < size ? text.size() : size);
  }
};

static_assert(sizeof(CYOStoreData) == 128, "one stored word");
static_assert(offsetof(CYOStoreData, word) == 0, "");
static_assert(offsetof(CYOStoreData, audio) == 15, "");
static_assert(offsetof(CYOStoreData, reserved) == 115, "");
static_assert(offsetof(CYOStoreData, index) == 116, "");
static_assert(offsetof(CYOStoreData, count) == 120, "");
static_assert(offsetof(CYOStoreData, status) == 124, "");

}  // namespace noxfw
