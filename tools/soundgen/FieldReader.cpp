#include "FieldReader.h"

#include <cmath>
#include <cstdio>

namespace soundgen {

std::string FormatNumber(double v) {
  char buf[32];
  snprintf(buf, sizeof buf, "%g", v);
  return buf;
}

namespace {

const Json* Find(const Json& root, const std::string& path) {
  const Json* node = &root;
  size_t pos = 0;
  while (pos < path.size()) {
    const size_t next = path.find('/', pos + 1);
    const std::string key =
        path.substr(pos + 1, next == std::string::npos ? std::string::npos : next - pos - 1);
    if (node->is_object()) {
      auto it = node->find(key);
      if (it == node->end()) return nullptr;
      node = &*it;
    } else if (node->is_array()) {
      const size_t index = std::stoul(key);
      if (index >= node->size()) return nullptr;
      node = &(*node)[index];
    } else {
      return nullptr;
    }
    if (next == std::string::npos) break;
    pos = next;
  }
  return node;
}

std::string KnownList(const std::vector<std::string>& known) {
  std::string list;
  for (const std::string& k : known) list += (list.empty() ? "" : ", ") + k;
  return list;
}

}  // namespace

FieldReader::FieldReader(const JsonDoc& doc, const std::string& path, const std::string& what,
                         std::initializer_list<const char*> known, Diagnostics& diag)
    : FieldReader(doc, path, what, std::vector<std::string>(known.begin(), known.end()), diag) {}

FieldReader::FieldReader(const JsonDoc& doc, const std::string& path, const std::string& what,
                         const std::vector<std::string>& known, Diagnostics& diag)
    : m_Doc(doc), m_Path(path), m_What(what), m_Diag(diag) {
  const Json* node = Find(doc.Root(), path);
  if (!node || !node->is_object()) {
    Complain(nullptr, "must be an object { ... }");
    return;
  }
  m_pNode = node;
  for (auto it = node->begin(); it != node->end(); ++it) {
    bool found = false;
    for (const std::string& k : known) found = found || it.key() == k;
    if (!found) {
      m_bOk = false;
      doc.Complain(diag, JoinPath(path, it.key()),
                   what + ": unknown field \"" + it.key() + "\" (known: " + KnownList(known) + ")");
    }
  }
}

bool FieldReader::Has(const char* key) const {
  return m_pNode && m_pNode->contains(key);
}

const Json* FieldReader::Get(const char* key) const {
  if (!m_pNode) return nullptr;
  auto it = m_pNode->find(key);
  return it == m_pNode->end() ? nullptr : &*it;
}

void FieldReader::Complain(const char* key, const std::string& problem) {
  m_bOk = false;
  if (key) {
    m_Doc.Complain(m_Diag, PathOf(key), m_What + ": \"" + key + "\" " + problem);
  } else {
    m_Doc.Complain(m_Diag, m_Path, m_What + " " + problem);
  }
}

bool FieldReader::Missing(const char* key, bool required) {
  if (Has(key)) return false;
  if (required && m_pNode) Complain(nullptr, std::string("needs the field \"") + key + "\"");
  return true;
}

bool FieldReader::Number(const char* key, double lo, double hi, double& out, bool required) {
  if (Missing(key, required)) return false;
  const Json& v = *Get(key);
  const double d = v.is_number() ? v.get<double>() : NAN;
  if (!(d >= lo && d <= hi)) {
    Complain(key, "must be a number from " + FormatNumber(lo) + " to " + FormatNumber(hi));
    return false;
  }
  out = d;
  return true;
}

bool FieldReader::Int(const char* key, int lo, int hi, int& out, bool required) {
  if (Missing(key, required)) return false;
  const Json& v = *Get(key);
  if (!v.is_number_integer() || v.get<long long>() < lo || v.get<long long>() > hi) {
    Complain(key, "must be a whole number from " + std::to_string(lo) + " to " + std::to_string(hi));
    return false;
  }
  out = v.get<int>();
  return true;
}

bool FieldReader::String(const char* key, std::string& out, bool required) {
  if (Missing(key, required)) return false;
  const Json& v = *Get(key);
  if (!v.is_string() || v.get<std::string>().empty()) {
    Complain(key, "must be a text in quotes, not empty");
    return false;
  }
  out = v.get<std::string>();
  return true;
}

bool FieldReader::Choice(const char* key, const std::vector<std::string>& names, int& out, bool required) {
  std::string s;
  if (!String(key, s, required)) return false;
  for (size_t i = 0; i < names.size(); ++i) {
    if (names[i] == s) {
      out = static_cast<int>(i);
      return true;
    }
  }
  std::string list;
  for (const std::string& n : names) list += (list.empty() ? "" : ", ") + n;
  Complain(key, "is \"" + s + "\", which is not one of: " + list);
  return false;
}

}  // namespace soundgen
