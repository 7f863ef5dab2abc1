#include "vesk/util/StringMap.h"

#include "vesk/util/internal/StringPairs.h"

namespace vesk {
namespace util {

using vesk::base::CString;

namespace {
const char* const kSource = "vesk/util/StringMap";
}

// The members seen through the implementation the two string maps share.
// Const members only read through it.
#define VESK_PAIRS_OF(map)                                                                        \
  (internal::CStringPairs<CString, char>{(map).m_keysCaseSensitive, (map).m_keys, (map).m_values, \
                                         (map).m_size, (map).m_capacity, (map).m_growthStep,      \
                                         kSource})
#define VESK_PAIRS VESK_PAIRS_OF(*const_cast<CStringMap*>(this))

CString& CStringMap::CKeyIterator::GetNextElement() {
  return internal::NextKey(*m_map, m_index, kSource, __LINE__);
}

const CString& CStringMap::CConstKeyIterator::GetNextElement() {
  return internal::NextKey(*m_map, m_index, kSource, __LINE__);
}

CStringMap::CStringMap(bool keysCaseSensitive, unsigned int initialCapacity,
                       unsigned int growthStep) {
  VESK_PAIRS.Init(keysCaseSensitive, initialCapacity, growthStep, __LINE__);
}

// A failed copy leaves the map empty, and the finished delegated constructor
// then lets the destructor run.
CStringMap::CStringMap(const CStringMap& other)
    : CStringMap(other.m_keysCaseSensitive, 0, other.m_growthStep) {
  VESK_PAIRS.CopyFrom(other.m_keys, other.m_values, other.m_size, __LINE__);
}

CStringMap& CStringMap::operator=(const CStringMap& other) {
  if (this == &other) return *this;
  CStringMap copy(other);
  VESK_PAIRS.Swap(VESK_PAIRS_OF(copy));
  return *this;
}

CStringMap::~CStringMap() { ReleaseBuffer(); }

void CStringMap::AllocBuffer(unsigned int n) { VESK_PAIRS.Allocate(n, __LINE__); }

void CStringMap::CompactBuffer() { VESK_PAIRS.Compact(); }

void CStringMap::ReleaseBuffer() { VESK_PAIRS.Clear(); }

void CStringMap::EnsureCapacity(unsigned int n) { VESK_PAIRS.Ensure(n, __LINE__); }

void CStringMap::TrimToSize() { VESK_PAIRS.Trim(__LINE__); }

void CStringMap::CheckIndex(unsigned int index, int line) const {
  internal::CheckIndex(index, m_size, kSource, line);
}

void CStringMap::Put(const char* key, const char* value) { VESK_PAIRS.Put(key, value, __LINE__); }

CString& CStringMap::Get(const char* key) { return VESK_PAIRS.ValueOf(key, __LINE__); }

const CString& CStringMap::Get(const char* key) const { return VESK_PAIRS.ValueOf(key, __LINE__); }

int CStringMap::GetIndexOfKey(const char* key) const { return VESK_PAIRS.FindKey(key); }

int CStringMap::GetIndexOf(const char* value) const { return VESK_PAIRS.IndexOfValue(value); }

CString& CStringMap::GetKeyAt(unsigned int index) { return VESK_PAIRS.KeyAt(index, __LINE__); }

const CString& CStringMap::GetKeyAt(unsigned int index) const {
  return VESK_PAIRS.KeyAt(index, __LINE__);
}

CString& CStringMap::GetAt(unsigned int index) { return VESK_PAIRS.ValueAt(index, __LINE__); }

const CString& CStringMap::GetAt(unsigned int index) const {
  return VESK_PAIRS.ValueAt(index, __LINE__);
}

bool CStringMap::Remove(const char* key) { return VESK_PAIRS.Remove(key); }

void CStringMap::RemoveAll() { ReleaseBuffer(); }

bool CStringMap::operator==(const CStringMap& other) const {
  return VESK_PAIRS.Equals(VESK_PAIRS_OF(const_cast<CStringMap&>(other)));
}

#undef VESK_PAIRS
#undef VESK_PAIRS_OF

}  // namespace util
}  // namespace vesk
