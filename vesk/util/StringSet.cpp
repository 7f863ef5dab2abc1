#include "vesk/util/StringSet.h"

namespace vesk {
namespace util {

using vesk::base::CString;

namespace {
typedef CStringHashTraits::CKey CKey;
}

CStringSet::CStringSet() : m_table(101, 0.75f) {}

CStringSet::CStringSet(unsigned int capacity, float loadFactor) : m_table(capacity, loadFactor) {}

CStringSet::CStringSet(const CStringSet& other) : CBase(other), m_table(other.m_table) {}

CStringSet& CStringSet::operator=(const CStringSet& other) {
  m_table = other.m_table;
  return *this;
}

CStringSet::~CStringSet() {}

void CStringSet::Put(const char* key) { m_table.Put(key, true); }

bool CStringSet::Remove(const char* key) { return key && m_table.Remove(key); }

bool CStringSet::Contains(const char* key) const { return key && m_table.ContainsKey(key); }

void CStringSet::Empty() { m_table.Empty(); }

CEnumeration<CString> CStringSet::GetElements() const { return m_table.GetKeys(); }

CStringSet& CStringSet::operator+=(const CStringSet& other) {
  if (this == &other) return *this;
  other.m_table.ForEach([this](const CKey& key, bool) { m_table.Put(key.GetText(), true); });
  return *this;
}

CStringSet& CStringSet::operator-=(const CStringSet& other) {
  if (this == &other) {
    m_table.Empty();
    return *this;
  }
  other.m_table.ForEach([this](const CKey& key, bool) { m_table.Remove(key.GetText()); });
  return *this;
}

CStringSet& CStringSet::operator*=(const CStringSet& other) {
  if (this == &other) return *this;
  m_table.RemoveIf(
      [&other](const CKey& key, bool) { return !other.m_table.ContainsKey(key.GetText()); });
  return *this;
}

bool CStringSet::IsSubSetOf(const CStringSet& other) const {
  if (GetSize() > other.GetSize()) return false;
  bool subset = true;
  m_table.ForEach([&](const CKey& key, bool) {
    if (subset && !other.m_table.ContainsKey(key.GetText())) subset = false;
  });
  return subset;
}

bool CStringSet::operator==(const CStringSet& other) const {
  return GetSize() == other.GetSize() && IsSubSetOf(other);
}

}  // namespace util
}  // namespace vesk
