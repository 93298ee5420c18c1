// A JSON manifest file read with line numbers, so that every complaint about its content
// can say "file:line: what is wrong".
//
// nlohmann-json builds the tree but keeps no positions, and it silently keeps the last of
// two equal keys. JsonDoc parses through nlohmann's SAX interface with an input iterator
// that remembers how far the lexer has read; each event's position is therefore the end of
// the token just read, which gives the line of every key and value. Equal keys in one
// object are reported rather than merged.
//
// Paths are JSON-pointer-like strings built by joining keys and array indices with '/':
// "/tables/M1Dialogue/KDNA0001". Keys holding '/' make such a path ambiguous, which only
// costs the precision of a line number.
#pragma once
#include <map>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace soundgen {

using Json = nlohmann::ordered_json;

// Collected complaints. Tools print them all, one line each, then exit non-zero.
class Diagnostics {
 public:
  void Add(const std::string& file, int line, const std::string& what);
  bool Empty() const { return m_Lines.empty(); }
  const std::vector<std::string>& Lines() const { return m_Lines; }
  std::string Joined() const;  // all lines, each ending in '\n'

 private:
  std::vector<std::string> m_Lines;
};

class JsonDoc {
 public:
  // Parses `text`, naming it `file` in messages. On a syntax error or an equal key twice
  // in one object, adds to `diag` and returns false; the tree is then unusable.
  bool Parse(const std::string& file, const std::string& text, Diagnostics& diag);
  // Reads the file from disk first; a missing file is one diagnostic at line 0.
  bool Load(const std::string& path, Diagnostics& diag);

  const Json& Root() const { return m_Root; }
  const std::string& File() const { return m_File; }
  // The line of the key (object members) or of the first token (array elements) at
  // `path`; for an unknown path the line of its nearest known parent, at worst 1.
  int LineOf(const std::string& path) const;
  // Convenience for validators: a diagnostic at the line of `path`.
  void Complain(Diagnostics& diag, const std::string& path, const std::string& what) const;

 private:
  friend class LineTrackingSax;
  std::string m_File;
  Json m_Root;
  std::map<std::string, int> m_Lines;
};

// "/a/b" + "c" -> "/a/b/c"
inline std::string JoinPath(const std::string& path, const std::string& key) {
  return path + "/" + key;
}

}  // namespace soundgen
