// The engine's own run-time type information, used instead of the language's. Every
// class in the type tree owns one static `typeInfo` record naming its short class
// name, that name's hash and its parent's record; the records are constant data, so
// they are ready before any static constructor runs. An object answers
// GetTypeInfo(); IsA walks the parent links comparing name hashes (never pointers or
// names, so two classes with the same short name count as one).
//
// A class joins the tree with NOX_RTTI_DECLARE in its body and
// NOX_RTTI_DEFINE(Class, Parent) in its .cpp, inside its namespace. A class without
// its own record answers its parent's.
#pragma once
#include "core/HashString.h"

namespace nox {

struct TypeInfo {
  NameHash m_NameHash;        // HashString(m_pName)
  const TypeInfo* m_pParent;  // null at the root
  const char* m_pName;        // short class name, static text
};

class RTTIBase {
 public:
  virtual const TypeInfo* GetTypeInfo() const { return &typeInfo; }
  virtual ~RTTIBase() = default;

  static const TypeInfo typeInfo;
};

// True when `object`'s type, or one of its ancestors, has the hash of `wanted`.
// A null object is of no type.
inline bool IsA(const RTTIBase* object, const TypeInfo& wanted) {
  if (!object) return false;
  for (const TypeInfo* info = object->GetTypeInfo(); info; info = info->m_pParent) {
    if (info->m_NameHash == wanted.m_NameHash) return true;
  }
  return false;
}

template <class T>
bool IsA(const RTTIBase* object) {
  return IsA(object, T::typeInfo);
}

// The engine's checked down-cast: null unless the object is a T.
template <class T>
T* TypeCast(RTTIBase* object) {
  return IsA(object, T::typeInfo) ? static_cast<T*>(object) : nullptr;
}

template <class T>
const T* TypeCast(const RTTIBase* object) {
  return IsA(object, T::typeInfo) ? static_cast<const T*>(object) : nullptr;
}

}  // namespace nox

#define NOX_RTTI_DECLARE                                \
 public:                                                \
  static const ::nox::TypeInfo typeInfo;                \
  const ::nox::TypeInfo* GetTypeInfo() const override { \
    return &typeInfo;                                   \
  }

#define NOX_RTTI_DEFINE(Class, Parent) \
  const ::nox::TypeInfo Class::typeInfo = {::nox::HashString(#Class), &Parent::typeInfo, #Class}
