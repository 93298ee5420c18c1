#include "JsonDoc.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

namespace soundgen {

void Diagnostics::Add(const std::string& file, int line, const std::string& what) {
  m_Lines.push_back(file + ":" + std::to_string(line) + ": " + what);
}

std::string Diagnostics::Joined() const {
  std::string all;
  for (const std::string& line : m_Lines) all += line + "\n";
  return all;
}

namespace {

// Hands characters to nlohmann's lexer and records the furthest offset it has looked at.
// The lexer reads strings up to their closing quote and other tokens at most one
// character beyond, so at each SAX event the recorded offset lies on the token's line.
class ReachIterator {
 public:
  using iterator_category = std::input_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char*;
  using reference = const char&;

  ReachIterator(const char* p, const char* base, size_t* reach) : m_p(p), m_Base(base), m_pReach(reach) {}
  reference operator*() const {
    *m_pReach = std::max(*m_pReach, static_cast<size_t>(m_p - m_Base));
    return *m_p;
  }
  ReachIterator& operator++() {
    ++m_p;
    return *this;
  }
  ReachIterator operator++(int) {
    ReachIterator old = *this;
    ++m_p;
    return old;
  }
  bool operator==(const ReachIterator& o) const { return m_p == o.m_p; }
  bool operator!=(const ReachIterator& o) const { return m_p != o.m_p; }

 private:
  const char* m_p;
  const char* m_Base;
  size_t* m_pReach;
};

}  // namespace

class LineTrackingSax {
 public:
  using number_integer_t = Json::number_integer_t;
  using number_unsigned_t = Json::number_unsigned_t;
  using number_float_t = Json::number_float_t;
  using string_t = Json::string_t;
  using binary_t = Json::binary_t;

  LineTrackingSax(JsonDoc& doc, const std::string& text, Diagnostics& diag)
      : m_Doc(doc), m_Text(text), m_Diag(diag) {
    // Offsets of line starts, for a binary search from offset to line.
    m_LineStarts.push_back(0);
    for (size_t i = 0; i < text.size(); ++i) {
      if (text[i] == '\n') m_LineStarts.push_back(i + 1);
    }
  }

  size_t m_Reach = 0;
  bool m_bOk = true;

  bool null() { return Value(Json()); }
  bool boolean(bool v) { return Value(Json(v)); }
  bool number_integer(number_integer_t v) { return Value(Json(v)); }
  bool number_unsigned(number_unsigned_t v) { return Value(Json(v)); }
  bool number_float(number_float_t v, const string_t&) { return Value(Json(v)); }
  bool string(string_t& v) { return Value(Json(v)); }
  bool binary(binary_t&) { return Value(Json()); }
  bool start_object(std::size_t) { return Open(Json::object()); }
  bool start_array(std::size_t) { return Open(Json::array()); }
  bool end_object() { return Close(); }
  bool end_array() { return Close(); }

  bool key(string_t& k) {
    Frame& f = m_Stack.back();
    const int line = CurrentLine();
    if (f.node->contains(k)) {
      m_Diag.Add(m_Doc.m_File, line,
                 "\"" + k + "\" appears twice here (the first is on line " +
                     std::to_string(m_Doc.LineOf(JoinPath(f.path, k))) + ")");
      m_bOk = false;
      return false;
    }
    f.key = k;
    m_Doc.m_Lines[JoinPath(f.path, k)] = line;
    return true;
  }

  bool parse_error(std::size_t position, const std::string&, const nlohmann::detail::exception& ex) {
    // nlohmann's message reads "[json.exception.parse_error.101] parse error at line 3,
    // column 5: syntax error while ..."; keep what follows the position.
    std::string what = ex.what();
    const size_t colon = what.find(": ", what.find("column"));
    if (colon != std::string::npos) what = what.substr(colon + 2);
    m_Diag.Add(m_Doc.m_File, LineAt(position == 0 ? 0 : position - 1), what);
    m_bOk = false;
    return false;
  }

 private:
  struct Frame {
    Json* node;
    std::string path;
    std::string key;  // pending member name of an object
  };

  int LineAt(size_t offset) const {
    auto it = std::upper_bound(m_LineStarts.begin(), m_LineStarts.end(), offset);
    return static_cast<int>(it - m_LineStarts.begin());
  }
  int CurrentLine() const { return LineAt(m_Reach); }

  // Inserts `v` where the parser is now and returns it with its path.
  Json* Insert(Json v, std::string& path) {
    if (m_Stack.empty()) {
      m_Doc.m_Root = std::move(v);
      path = "";
      m_Doc.m_Lines[path] = CurrentLine();
      return &m_Doc.m_Root;
    }
    Frame& f = m_Stack.back();
    if (f.node->is_array()) {
      path = JoinPath(f.path, std::to_string(f.node->size()));
      m_Doc.m_Lines[path] = CurrentLine();
      f.node->push_back(std::move(v));
      return &f.node->back();
    }
    path = JoinPath(f.path, f.key);
    Json& slot = (*f.node)[f.key];
    slot = std::move(v);
    return &slot;
  }

  bool Value(Json v) {
    std::string path;
    Insert(std::move(v), path);
    return true;
  }
  bool Open(Json v) {
    std::string path;
    Json* node = Insert(std::move(v), path);
    // Children go into `node`; its parent is not touched until `node` closes, so the
    // pointer stays valid.
    m_Stack.push_back(Frame{node, path, std::string()});
    return true;
  }
  bool Close() {
    m_Stack.pop_back();
    return true;
  }

  JsonDoc& m_Doc;
  const std::string& m_Text;
  Diagnostics& m_Diag;
  std::vector<size_t> m_LineStarts;
  std::vector<Frame> m_Stack;
};

bool JsonDoc::Parse(const std::string& file, const std::string& text, Diagnostics& diag) {
  m_File = file;
  m_Root = Json();
  m_Lines.clear();
  LineTrackingSax sax(*this, text, diag);
  const char* base = text.data();
  ReachIterator first(base, base, &sax.m_Reach);
  ReachIterator last(base + text.size(), base, &sax.m_Reach);
  const bool parsed = Json::sax_parse(first, last, &sax);
  return parsed && sax.m_bOk;
}

bool JsonDoc::Load(const std::string& path, Diagnostics& diag) {
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    m_File = path;
    diag.Add(path, 0, "cannot read the file");
    return false;
  }
  std::stringstream buffer;
  buffer << in.rdbuf();
  return Parse(path, buffer.str(), diag);
}

int JsonDoc::LineOf(const std::string& path) const {
  std::string p = path;
  for (;;) {
    auto it = m_Lines.find(p);
    if (it != m_Lines.end()) return it->second;
    const size_t slash = p.rfind('/');
    if (slash == std::string::npos) return 1;
    p.resize(slash);
  }
}

void JsonDoc::Complain(Diagnostics& diag, const std::string& path, const std::string& what) const {
  diag.Add(m_File, LineOf(path), what);
}

}  // namespace soundgen
