#include "vesk/util/UnicodeStringMap.h"

#include <utility>

#include "vesk/base/ArrayIndexOutOfBoundsException.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/platform/Throw.h"
#include "vesk/util/NoSuchElementException.h"
#include "vesk/util/internal/StringPairs.h"

namespace vesk {
namespace util {

using vesk::base::CArrayIndexOutOfBoundsException;
using vesk::base::CIllegalArgumentException;
using vesk::base::CUnicodeString;

namespace {
const char* const kSource = "vesk/util/UnicodeStringMap";
}

// A view of a map's arrays through the shared pair operations.
#define VESK_PAIRS_OF(map)                                                                     \
  (internal::CStringPairs<CUnicodeString, unsigned short>{                                     \
      (map).m_keysCaseSensitive, (map).m_keys, (map).m_values, (map).m_size, (map).m_capacity, \
      (map).m_growthStep, kSource})
#define VESK_PAIRS VESK_PAIRS_OF(*this)

CUnicodeString& CUnicodeStringMap::CKeyIterator::GetNextElement() {
  if (m_index >= m_map->GetSize()) VESK_THROW(kSource, CNoSuchElementException);
  return m_map->GetKeyAt(m_index++);
}

const CUnicodeString& CUnicodeStringMap::CConstKeyIterator::GetNextElement() {
  if (m_index >= m_map->GetSize()) VESK_THROW(kSource, CNoSuchElementException);
  return m_map->GetKeyAt(m_index++);
}

CUnicodeStringMap::CUnicodeStringMap(bool keysCaseSensitive, unsigned int initialCapacity,
                                     unsigned int growthStep)
    : m_keysCaseSensitive(keysCaseSensitive),
      m_keys(nullptr),
      m_values(nullptr),
      m_size(0),
      m_capacity(0),
      m_growthStep(growthStep == 0 ? 5 : growthStep) {
  AllocBuffer(initialCapacity);
}

CUnicodeStringMap::CUnicodeStringMap(const CUnicodeStringMap& other)
    : CBase(other),
      m_keysCaseSensitive(other.m_keysCaseSensitive),
      m_keys(nullptr),
      m_values(nullptr),
      m_size(0),
      m_capacity(0),
      m_growthStep(other.m_growthStep) {
  VESK_PAIRS.CopyFrom(other.m_keys, other.m_values, other.m_size, __LINE__);
}

CUnicodeStringMap& CUnicodeStringMap::operator=(const CUnicodeStringMap& other) {
  if (this == &other) return *this;
  CUnicodeStringMap copy(other);
  std::swap(m_keysCaseSensitive, copy.m_keysCaseSensitive);
  std::swap(m_keys, copy.m_keys);
  std::swap(m_values, copy.m_values);
  std::swap(m_size, copy.m_size);
  std::swap(m_capacity, copy.m_capacity);
  std::swap(m_growthStep, copy.m_growthStep);
  return *this;
}

CUnicodeStringMap::~CUnicodeStringMap() { ReleaseBuffer(); }

void CUnicodeStringMap::AllocBuffer(unsigned int n) {
  if (n > 0) VESK_PAIRS.Resize(RoundUpToStep(n, m_growthStep), __LINE__);
}

void CUnicodeStringMap::CompactBuffer() { VESK_PAIRS.Compact(); }

void CUnicodeStringMap::ReleaseBuffer() { VESK_PAIRS.Clear(); }

void CUnicodeStringMap::EnsureCapacity(unsigned int n) { VESK_PAIRS.Ensure(n, __LINE__); }

void CUnicodeStringMap::TrimToSize() {
  if (m_size == 0) {
    ReleaseBuffer();
  } else if (m_size < m_capacity) {
    VESK_PAIRS.Resize(m_size, __LINE__);
  }
}

void CUnicodeStringMap::CheckIndex(unsigned int index, int line) const {
  if (index >= m_size) throw CArrayIndexOutOfBoundsException(kSource, static_cast<unsigned>(line));
}

void CUnicodeStringMap::Put(const unsigned short* key, const unsigned short* value) {
  if (!key || !*key) VESK_THROW(kSource, CIllegalArgumentException, "Invalid key.");
  int index = GetIndexOfKey(key);
  if (index >= 0) {
    m_values[index] = value;
    return;
  }
  VESK_PAIRS.Append(key, value, __LINE__);
}

CUnicodeString& CUnicodeStringMap::Get(const unsigned short* key) {
  int index = GetIndexOfKey(key);
  if (index < 0) VESK_THROW(kSource, CNoSuchElementException);
  return m_values[index];
}

const CUnicodeString& CUnicodeStringMap::Get(const unsigned short* key) const {
  int index = GetIndexOfKey(key);
  if (index < 0) VESK_THROW(kSource, CNoSuchElementException);
  return m_values[index];
}

int CUnicodeStringMap::GetIndexOfKey(const unsigned short* key) const {
  // FindKey only reads; the pairs view needs non-const references.
  return VESK_PAIRS_OF(*const_cast<CUnicodeStringMap*>(this)).FindKey(key);
}

int CUnicodeStringMap::GetIndexOf(const unsigned short* value) const {
  if (!value) return -1;
  return internal::FindString(m_values, m_size, value, false);
}

CUnicodeString& CUnicodeStringMap::GetKeyAt(unsigned int index) {
  CheckIndex(index, __LINE__);
  return m_keys[index];
}

const CUnicodeString& CUnicodeStringMap::GetKeyAt(unsigned int index) const {
  CheckIndex(index, __LINE__);
  return m_keys[index];
}

CUnicodeString& CUnicodeStringMap::GetAt(unsigned int index) {
  CheckIndex(index, __LINE__);
  return m_values[index];
}

const CUnicodeString& CUnicodeStringMap::GetAt(unsigned int index) const {
  CheckIndex(index, __LINE__);
  return m_values[index];
}

bool CUnicodeStringMap::Remove(const unsigned short* key) {
  int index = GetIndexOfKey(key);
  if (index < 0) return false;
  VESK_PAIRS.RemoveAt(static_cast<unsigned int>(index));
  return true;
}

void CUnicodeStringMap::RemoveAll() { ReleaseBuffer(); }

bool CUnicodeStringMap::operator==(const CUnicodeStringMap& other) const {
  if (m_size != other.m_size) return false;
  for (unsigned int i = 0; i < m_size; ++i) {
    int index = other.GetIndexOfKey(m_keys[i]);
    if (index < 0 || !(other.m_values[index] == m_values[i])) return false;
  }
  return true;
}

#undef VESK_PAIRS
#undef VESK_PAIRS_OF

}  // namespace util
}  // namespace vesk
