#include "vesk/util/UnicodeStringMap.h"

#include "vesk/util/internal/StringPairs.h"

namespace vesk {
namespace util {

using vesk::base::CUnicodeString;

namespace {
const char* const kSource = "vesk/util/UnicodeStringMap";
}

// The members seen through the implementation the two string maps share.
// Const members only read through it.
#define VESK_PAIRS_OF(map)                                                                     \
  (internal::CStringPairs<CUnicodeString, unsigned short>{                                     \
      (map).m_keysCaseSensitive, (map).m_keys, (map).m_values, (map).m_size, (map).m_capacity, \
      (map).m_growthStep, kSource})
#define VESK_PAIRS VESK_PAIRS_OF(*const_cast<CUnicodeStringMap*>(this))

CUnicodeString& CUnicodeStringMap::CKeyIterator::GetNextElement() {
  return internal::NextKey(*m_map, m_index, kSource, __LINE__);
}

const CUnicodeString& CUnicodeStringMap::CConstKeyIterator::GetNextElement() {
  return internal::NextKey(*m_map, m_index, kSource, __LINE__);
}

CUnicodeStringMap::CUnicodeStringMap(bool keysCaseSensitive, unsigned int initialCapacity,
                                     unsigned int growthStep) {
  VESK_PAIRS.Init(keysCaseSensitive, initialCapacity, growthStep, __LINE__);
}

// A failed copy leaves the map empty, and the finished delegated constructor
// then lets the destructor run.
CUnicodeStringMap::CUnicodeStringMap(const CUnicodeStringMap& other)
    : CUnicodeStringMap(other.m_keysCaseSensitive, 0, other.m_growthStep) {
  VESK_PAIRS.CopyFrom(other.m_keys, other.m_values, other.m_size, __LINE__);
}

CUnicodeStringMap& CUnicodeStringMap::operator=(const CUnicodeStringMap& other) {
  if (this == &other) return *this;
  CUnicodeStringMap copy(other);
  VESK_PAIRS.Swap(VESK_PAIRS_OF(copy));
  return *this;
}

CUnicodeStringMap::~CUnicodeStringMap() { ReleaseBuffer(); }

void CUnicodeStringMap::AllocBuffer(unsigned int n) { VESK_PAIRS.Allocate(n, __LINE__); }

void CUnicodeStringMap::CompactBuffer() { VESK_PAIRS.Compact(); }

void CUnicodeStringMap::ReleaseBuffer() { VESK_PAIRS.Clear(); }

void CUnicodeStringMap::EnsureCapacity(unsigned int n) { VESK_PAIRS.Ensure(n, __LINE__); }

void CUnicodeStringMap::TrimToSize() { VESK_PAIRS.Trim(__LINE__); }

void CUnicodeStringMap::CheckIndex(unsigned int index, int line) const {
  internal::CheckIndex(index, m_size, kSource, line);
}

void CUnicodeStringMap::Put(const unsigned short* key, const unsigned short* value) {
  VESK_PAIRS.Put(key, value, __LINE__);
}

CUnicodeString& CUnicodeStringMap::Get(const unsigned short* key) {
  return VESK_PAIRS.ValueOf(key, __LINE__);
}

const CUnicodeString& CUnicodeStringMap::Get(const unsigned short* key) const {
  return VESK_PAIRS.ValueOf(key, __LINE__);
}

int CUnicodeStringMap::GetIndexOfKey(const unsigned short* key) const {
  return VESK_PAIRS.FindKey(key);
}

int CUnicodeStringMap::GetIndexOf(const unsigned short* value) const {
  return VESK_PAIRS.IndexOfValue(value);
}

CUnicodeString& CUnicodeStringMap::GetKeyAt(unsigned int index) {
  return VESK_PAIRS.KeyAt(index, __LINE__);
}

const CUnicodeString& CUnicodeStringMap::GetKeyAt(unsigned int index) const {
  return VESK_PAIRS.KeyAt(index, __LINE__);
}

CUnicodeString& CUnicodeStringMap::GetAt(unsigned int index) {
  return VESK_PAIRS.ValueAt(index, __LINE__);
}

const CUnicodeString& CUnicodeStringMap::GetAt(unsigned int index) const {
  return VESK_PAIRS.ValueAt(index, __LINE__);
}

bool CUnicodeStringMap::Remove(const unsigned short* key) { return VESK_PAIRS.Remove(key); }

void CUnicodeStringMap::RemoveAll() { ReleaseBuffer(); }

bool CUnicodeStringMap::operator==(const CUnicodeStringMap& other) const {
  return VESK_PAIRS.Equals(VESK_PAIRS_OF(const_cast<CUnicodeStringMap&>(other)));
}

#undef VESK_PAIRS
#undef VESK_PAIRS_OF

}  // namespace util
}  // namespace vesk
