// The temporary title that the frame benchmarks load their sprites and levels from.
//
// A BenchTitle makes a fresh directory under /tmp with a "title" inside it (AnimData and
// Levels ready), points the host at that title with the virtual clock and no output,
// and creates the GameHost and the PathRegistry over it. Its destructor destroys them
// and removes the directory. The writers fill the title with what a benchmark loads;
// each reports its own failure on stderr and returns false. One BenchTitle at a time.
#pragma once
#include <string>

#include "AnimWriter.h"
#include "Bytes.h"

namespace bench {

class BenchTitle {
 public:
  // `tag` names the directory and starts the messages ("bench_world").
  explicit BenchTitle(const std::string& tag);
  ~BenchTitle();
  BenchTitle(const BenchTitle&) = delete;
  BenchTitle& operator=(const BenchTitle&) = delete;

  const std::string& Path() const { return m_Title; }
  // Whether the directories were made.
  bool Exists() const { return !m_Title.empty(); }

  // `file` relative to the title.
  bool Write(const std::string& file, const assetlib::Bytes& bytes) const;
  bool Write(const std::string& file, const std::string& text) const;
  // AnimData/name.anim and AnimData/name.tex, built by the asset tools' library.
  bool WriteSprite(const std::string& name, const assetlib::AnimDesc& desc,
                   const assetlib::ImageSource& images) const;
  // A walker: "Walk" of `frames` 16 by 32 frames on one sheet of 8-pixel tiles, each
  // frame its own colours, "Feet" at (8, 32) and a "Collision" box whose top bobs a
  // pixel on every other frame.
  bool WriteWalker(const std::string& name, int frames) const;

 private:
  std::string m_Tag;
  std::string m_Dir;    // the temporary directory; empty when it could not be made
  std::string m_Title;  // m_Dir + "/title"
};

}  // namespace bench
