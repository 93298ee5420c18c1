#include "LevelReader.h"

#include <cstdint>
#include <set>

#include "FieldReader.h"
#include "core/HashString.h"

namespace levelc {
namespace {

using soundgen::FieldReader;
using soundgen::JoinPath;
using soundgen::Json;

constexpr size_t kMaxArenaAgents = 75;  // what an arena's lists hold without growing

class Reader {
 public:
  Reader(const soundgen::JsonDoc& doc, soundgen::Diagnostics& diag) : m_Doc(doc), m_Diag(diag) {}

  void Level(LevelSource& level);

 private:
  void Complain(const std::string& path, const std::string& what) {
    m_Doc.Complain(m_Diag, path, what);
    m_bOk = false;
  }
  const Json* Array(const FieldReader& f, const char* key, bool required);
  bool Int32(const Json& v, const std::string& path, const std::string& what, int32_t& out);
  bool Value(const Json& v, const std::string& path, const std::string& what, int32_t& out);
  bool Word(const std::string& text, const std::string& path, const std::string& what);
  bool Pair(const Json& v, const std::string& path, const std::string& what, int32_t& a, int32_t& b);
  void Strings(const Json& list, const std::string& path, LevelSource& level);
  void Path(const std::string& path, PathSource& out);
  void Wall(const std::string& path, WallSource& out);
  void Arena(const std::string& path, const std::string& what, ArenaSource& out);
  void Agent(const std::string& path, const std::string& what, AgentSource& out);
  void Actions(const Json& lists, const std::string& path, const std::string& what, ArenaSource& arena);

 public:
  bool m_bOk = true;

 private:
  const soundgen::JsonDoc& m_Doc;
  soundgen::Diagnostics& m_Diag;
};

const Json* Reader::Array(const FieldReader& f, const char* key, bool required) {
  const Json* v = f.Get(key);
  if (!v) {
    if (required) Complain(f.PathOf(key), f.What() + " needs the field \"" + key + "\"");
    return nullptr;
  }
  if (!v->is_array()) {
    Complain(f.PathOf(key), f.What() + ": \"" + key + "\" must be a list [ ... ]");
    return nullptr;
  }
  return v;
}

bool Reader::Int32(const Json& v, const std::string& path, const std::string& what, int32_t& out) {
  if (!v.is_number_integer() || v.get<long long>() < INT32_MIN || v.get<long long>() > INT32_MAX) {
    Complain(path, what + " must be a whole number from -2147483648 to 2147483647");
    return false;
  }
  out = static_cast<int32_t>(v.get<long long>());
  return true;
}

bool Reader::Value(const Json& v, const std::string& path, const std::string& what, int32_t& out) {
  if (v.is_boolean()) {
    out = v.get<bool>() ? 1 : 0;
    return true;
  }
  if (v.is_string()) {
    // The hash's 32 bits, written as the signed number the game reads.
    out = static_cast<int32_t>(nox::HashString(v.get<std::string>()));
    return true;
  }
  if (v.is_number_integer()) return Int32(v, path, what, out);
  Complain(path, what + " must be a whole number, true or false, or a name in quotes");
  return false;
}

bool Reader::Word(const std::string& text, const std::string& path, const std::string& what) {
  if (text.empty() || text.size() > 63 || text.find_first_of(" \t\r\n\v\f") != std::string::npos) {
    Complain(path, what + " \"" + text + "\" must be one word of 1 to 63 characters without spaces");
    return false;
  }
  return true;
}

bool Reader::Pair(const Json& v, const std::string& path, const std::string& what, int32_t& a, int32_t& b) {
  if (!v.is_array() || v.size() != 2) {
    Complain(path, what + " must be a pair [x, y]");
    return false;
  }
  return Int32(v[0], JoinPath(path, "0"), what + " x", a) & Int32(v[1], JoinPath(path, "1"), what + " y", b);
}

void Reader::Level(LevelSource& level) {
  FieldReader root(m_Doc, "", "the level", {"strings", "paths", "walls", "global", "arenas"}, m_Diag);
  if (!root.IsObject()) {
    m_bOk = false;
    return;
  }
  m_bOk = m_bOk && root.Ok();
  if (const Json* strings = Array(root, "strings", false)) Strings(*strings, root.PathOf("strings"), level);
  if (const Json* paths = Array(root, "paths", false)) {
    level.paths.resize(paths->size());
    for (size_t i = 0; i < paths->size(); ++i)
      Path(JoinPath(root.PathOf("paths"), std::to_string(i)), level.paths[i]);
  }
  if (const Json* walls = Array(root, "walls", false)) {
    level.walls.resize(walls->size());
    for (size_t i = 0; i < walls->size(); ++i)
      Wall(JoinPath(root.PathOf("walls"), std::to_string(i)), level.walls[i]);
  }
  if (root.Has("global")) {
    level.hasGlobal = true;
    Arena(root.PathOf("global"), "the global arena", level.global);
  }
  if (const Json* arenas = Array(root, "arenas", true)) {
    level.arenas.resize(arenas->size());
    for (size_t i = 0; i < arenas->size(); ++i) {
      Arena(JoinPath(root.PathOf("arenas"), std::to_string(i)), "arena " + std::to_string(i),
            level.arenas[i]);
    }
  }
}

void Reader::Strings(const Json& list, const std::string& path, LevelSource& level) {
  for (size_t i = 0; i < list.size(); ++i) {
    const std::string p = JoinPath(path, std::to_string(i));
    if (!list[i].is_string()) {
      Complain(p, "string " + std::to_string(i) + " must be a text in quotes");
      continue;
    }
    const std::string text = list[i].get<std::string>();
    if (text.find_first_of("\r\n") != std::string::npos) {
      Complain(p, "string " + std::to_string(i) + " holds a line break; each string is one line");
      continue;
    }
    level.strings.push_back(text);
  }
}

void Reader::Path(const std::string& path, PathSource& out) {
  FieldReader f(m_Doc, path, "path " + path.substr(path.rfind('/') + 1), {"points", "triggers"}, m_Diag);
  m_bOk = m_bOk && f.Ok();
  if (const Json* points = Array(f, "points", true)) {
    if (points->size() < 2) Complain(f.PathOf("points"), f.What() + " needs two points or more");
    for (size_t i = 0; i < points->size(); ++i) {
      const std::string p = JoinPath(f.PathOf("points"), std::to_string(i));
      const Json& point = (*points)[i];
      if (!point.is_array() || point.size() != 6) {
        Complain(p, f.What() + ": point " + std::to_string(i) + " must be [x, y, dx, dy, extra, arc]");
        continue;
      }
      std::vector<int32_t> values(6);
      bool ok = true;
      for (size_t k = 0; k < 6; ++k) ok = Int32(point[k], p, f.What() + " point value", values[k]) && ok;
      if (!ok) continue;
      if (out.points.empty() && values[5] != 0) Complain(p, f.What() + ": the first point's arc must be 0");
      if (!out.points.empty() && values[5] <= out.points.back()[5]) {
        Complain(p,
                 f.What() + ": arc " + std::to_string(values[5]) + " does not rise above the point before");
      }
      out.points.push_back(values);
    }
  }
  if (const Json* triggers = Array(f, "triggers", false)) {
    for (size_t i = 0; i < triggers->size(); ++i) {
      const std::string p = JoinPath(f.PathOf("triggers"), std::to_string(i));
      FieldReader t(m_Doc, p, f.What() + " trigger " + std::to_string(i), {"at", "id"}, m_Diag);
      int at = 0;
      std::string id;
      const bool ok = t.Int("at", INT32_MIN, INT32_MAX, at, true) & t.String("id", id, true);
      m_bOk = m_bOk && t.Ok() && ok;
      if (ok) out.triggers.emplace_back(at, nox::HashString(id));
    }
  }
}

void Reader::Wall(const std::string& path, WallSource& out) {
  FieldReader f(m_Doc, path, "wall " + path.substr(path.rfind('/') + 1), {"name", "kind", "depth", "shapes"},
                m_Diag);
  int kind = 0;
  if (f.String("name", out.name, true)) Word(out.name, f.PathOf("name"), f.What() + " name");
  if (f.Choice("kind", {"shapes", "open", "closed"}, kind)) out.kind = static_cast<WallKind>(kind);
  int depth = 0;
  if (f.Int("depth", INT32_MIN, INT32_MAX, depth)) {
    out.hasDepth = true;
    out.depth = depth;
  }
  m_bOk = m_bOk && f.Ok();
  const Json* shapes = Array(f, "shapes", true);
  if (!shapes) return;
  const size_t least = out.kind == WallKind::Shapes ? 3 : 2;
  for (size_t i = 0; i < shapes->size(); ++i) {
    const std::string p = JoinPath(f.PathOf("shapes"), std::to_string(i));
    const Json& shape = (*shapes)[i];
    if (!shape.is_array() || shape.size() < least) {
      Complain(p, f.What() + ": shape " + std::to_string(i) + " must be a list of " + std::to_string(least) +
                      " or more points [x, y]");
      continue;
    }
    std::vector<std::pair<int32_t, int32_t>> vertices(shape.size());
    for (size_t k = 0; k < shape.size(); ++k) {
      Pair(shape[k], JoinPath(p, std::to_string(k)), f.What() + " point", vertices[k].first,
           vertices[k].second);
    }
    out.shapes.push_back(vertices);
  }
}

void Reader::Arena(const std::string& path, const std::string& what, ArenaSource& out) {
  FieldReader f(m_Doc, path, what, {"name", "bounds", "agents", "actions"}, m_Diag);
  if (!f.IsObject()) {
    m_bOk = false;
    return;
  }
  if (f.String("name", out.name, true)) Word(out.name, f.PathOf("name"), what + " name");
  m_bOk = m_bOk && f.Ok();
  const std::string label = out.name.empty() ? what : what + " \"" + out.name + "\"";
  if (const Json* bounds = Array(f, "bounds", true)) {
    if (bounds->size() != 4) {
      Complain(f.PathOf("bounds"), label + ": \"bounds\" must be [left, top, right, bottom]");
    } else {
      for (size_t i = 0; i < 4; ++i) Int32((*bounds)[i], f.PathOf("bounds"), label + " bound", out.bounds[i]);
    }
  }
  if (const Json* agents = Array(f, "agents", false)) {
    if (agents->size() > kMaxArenaAgents) {
      Complain(f.PathOf("agents"),
               label + " has " + std::to_string(agents->size()) + " agents; an arena holds 75");
    }
    out.agents.resize(agents->size());
    std::set<std::string> names;
    for (size_t i = 0; i < agents->size(); ++i) {
      const std::string p = JoinPath(f.PathOf("agents"), std::to_string(i));
      Agent(p, label + " agent " + std::to_string(i), out.agents[i]);
      const std::string& name = out.agents[i].name;
      if (name != "-" && !names.insert(name).second) {
        Complain(p, label + ": two agents are named \"" + name + "\"");
      }
    }
  }
  if (const Json* lists = Array(f, "actions", false)) Actions(*lists, f.PathOf("actions"), label, out);
}

void Reader::Agent(const std::string& path, const std::string& what, AgentSource& out) {
  FieldReader f(m_Doc, path, what, {"type", "name", "style", "at", "attributes"}, m_Diag);
  if (!f.IsObject()) {
    m_bOk = false;
    return;
  }
  std::string type, style;
  if (f.String("type", type, true)) out.type = nox::HashString(type);
  if (f.String("style", style)) out.style = nox::HashString(style);
  out.name = "-";
  std::string name;
  if (f.String("name", name) && Word(name, f.PathOf("name"), what + " name")) {
    out.name = name;
    out.attributes.push_back({nox::HashString("id"), static_cast<int32_t>(nox::HashString(name))});
  }
  m_bOk = m_bOk && f.Ok();
  if (const Json* at = f.Get("at")) {
    Pair(*at, f.PathOf("at"), what + " \"at\"", out.x, out.y);
  } else {
    Complain(path, what + " needs the field \"at\"");
  }
  if (const Json* attributes = f.Get("attributes")) {
    if (!attributes->is_object()) {
      Complain(f.PathOf("attributes"), what + ": \"attributes\" must be an object { \"name\": value }");
      return;
    }
    for (auto it = attributes->begin(); it != attributes->end(); ++it) {
      Attribute a{nox::HashString(it.key()), 0};
      if (Value(*it, JoinPath(f.PathOf("attributes"), it.key()), what + " attribute \"" + it.key() + "\"",
                a.value)) {
        out.attributes.push_back(a);
      }
    }
  }
}

void Reader::Actions(const Json& lists, const std::string& path, const std::string& what,
                     ArenaSource& arena) {
  arena.actionLists.resize(lists.size());
  for (size_t l = 0; l < lists.size(); ++l) {
    const std::string lp = JoinPath(path, std::to_string(l));
    if (!lists[l].is_array()) {
      Complain(lp, what + ": action list " + std::to_string(l) + " must be a list [ ... ]");
      continue;
    }
    for (size_t i = 0; i < lists[l].size(); ++i) {
      const std::string p = JoinPath(lp, std::to_string(i));
      const std::string label = what + " action " + std::to_string(l) + "." + std::to_string(i);
      FieldReader f(m_Doc, p, label, {"agent", "code", "value"}, m_Diag);
      if (!f.IsObject()) {
        m_bOk = false;
        continue;
      }
      ActionSource action{0, 0, 0};
      std::string code;
      if (f.String("code", code, true)) action.code = nox::HashString(code);
      m_bOk = m_bOk && f.Ok();
      if (const Json* value = f.Get("value"))
        Value(*value, f.PathOf("value"), label + " \"value\"", action.argument);
      const Json* agent = f.Get("agent");
      if (!agent) {
        Complain(p, label + " needs the field \"agent\"");
      } else if (agent->is_number_unsigned() && agent->get<unsigned long long>() < arena.agents.size()) {
        action.agent = static_cast<uint32_t>(agent->get<unsigned long long>());
      } else if (agent->is_string()) {
        const std::string name = agent->get<std::string>();
        size_t k = 0;
        while (k < arena.agents.size() && arena.agents[k].name != name) ++k;
        if (k == arena.agents.size()) {
          Complain(f.PathOf("agent"), label + ": no agent of this arena is named \"" + name + "\"");
        }
        action.agent = static_cast<uint32_t>(k);
      } else {
        Complain(f.PathOf("agent"), label + ": \"agent\" must be an agent's name or its index from 0 to " +
                                        std::to_string(arena.agents.size()) + " (excluded)");
      }
      arena.actionLists[l].push_back(action);
    }
  }
}

}  // namespace

bool ReadLevelSource(const soundgen::JsonDoc& doc, LevelSource& level, soundgen::Diagnostics& diag) {
  Reader reader(doc, diag);
  reader.Level(level);
  return reader.m_bOk && diag.Empty();
}

}  // namespace levelc
