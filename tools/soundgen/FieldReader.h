// Reads the fields of one JSON object of a manifest with range checks, reporting each
// problem at the line of the field: unknown fields, wrong types, values out of range and
// missing required fields. `what` names the object in messages ("effect SFX_PageTurn").
//
//   FieldReader f(doc, path, "effect " + name, {"length", "level", "layers"}, diag);
//   f.Number("length", 0.02, 6.0, recipe.length);
//   if (!f.Ok()) ...
#pragma once
#include <initializer_list>
#include <string>
#include <vector>

#include "JsonDoc.h"

namespace soundgen {

class FieldReader {
 public:
  // Complains when the value at `path` is not an object or holds a field not in `known`.
  FieldReader(const JsonDoc& doc, const std::string& path, const std::string& what,
              std::initializer_list<const char*> known, Diagnostics& diag);
  // The same with a list made at run time.
  FieldReader(const JsonDoc& doc, const std::string& path, const std::string& what,
              const std::vector<std::string>& known, Diagnostics& diag);

  bool IsObject() const { return m_pNode != nullptr; }
  bool Has(const char* key) const;
  const Json* Get(const char* key) const;
  std::string PathOf(const char* key) const { return JoinPath(m_Path, key); }

  // Each returns true when the field was present and valid; a missing optional field
  // leaves `out` alone and returns false without a complaint.
  bool Number(const char* key, double lo, double hi, double& out, bool required = false);
  bool Int(const char* key, int lo, int hi, int& out, bool required = false);
  bool String(const char* key, std::string& out, bool required = false);
  // One of `names`; `out` becomes its index.
  bool Choice(const char* key, const std::vector<std::string>& names, int& out, bool required = false);

  // A problem with the value of `key` (or with the object itself when `key` is null).
  void Complain(const char* key, const std::string& problem);
  bool Ok() const { return m_bOk; }
  const std::string& What() const { return m_What; }

 private:
  bool Missing(const char* key, bool required);

  const JsonDoc& m_Doc;
  std::string m_Path;
  std::string m_What;
  Diagnostics& m_Diag;
  const Json* m_pNode = nullptr;
  bool m_bOk = true;
};

// "0.02" rather than "0.020000"
std::string FormatNumber(double v);

}  // namespace soundgen
