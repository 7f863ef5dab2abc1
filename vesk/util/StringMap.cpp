#include "vesk/util/StringMap.h"

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
using vesk::base::CString;

namespace {
const char* const kSource = "vesk/util/StringMap";
}

// A view of a map's arrays through the shared pair operations.
#define VESK_PAIRS_OF(map)                                                                \
  (internal::CStringPairs<CString, char>{(map).m_keysCaseSensitive, (map).m_keys,         \
                                         (map).m_values, (map).m_size, (map).m_capacity, \
                                         (map).m_growthStep, kSource})
#define VESK_PAIRS VESK_PAIRS_OF(*this)

CString& CStringMap::CKeyIterator::GetNextElement() {
  if (m_index >= m_map->GetSize()) VESK_THROW(kSource, CNoSuchElementException);
  return m_map->GetKeyAt(m_index++);
}

const CString& CStringMap::CConstKeyIterator::GetNextElement() {
  if (m_index >= m_map->GetSize()) VESK_THROW(kSource, CNoSuchElementException);
  return m_map->GetKeyAt(m_index++);
}

CStringMap::CStringMap(bool keysCaseSensitive, unsigned int initialCapacity,
                       unsigned int growthStep)
    : m_keysCaseSensitive(keysCaseSensitive),
      m_keys(nullptr),
      m_values(nullptr),
      m_size(0),
      m_capacity(0),
      m_growthStep(growthStep == 0 ? 5 : growthStep) {
  AllocBuffer(initialCapacity);
}

CStringMap::CStringMap(const CStringMap& other)
    : CBase(other),
      m_keysCaseSensitive(other.m_keysCaseSensitive),
      m_keys(nullptr),
      m_values(nullptr),
      m_size(0),
      m_capacity(0),
      m_growthStep(other.m_growthStep) {
  VESK_PAIRS.CopyFrom(other.m_keys, other.m_values, other.m_size, __LINE__);
}

CStringMap& CStringMap::operator=(const CStringMap& other) {
  if (this == &other) return *this;
  CStringMap copy(other);
  std::swap(m_keysCaseSensitive, copy.m_keysCaseSensitive);
  std::swap(m_keys, copy.m_keys);
  std::swap(m_values, copy.m_values);
  std::swap(m_size, copy.m_size);
  std::swap(m_capacity, copy.m_capacity);
  std::swap(m_growthStep, copy.m_growthStep);
  return *this;
}

CStringMap::~CStringMap() { ReleaseBuffer(); }

void CStringMap::AllocBuffer(unsigned int n) {
  if (n > 0) VESK_PAIRS.Resize(RoundUpToStep(n, m_growthStep), __LINE__);
}

void CStringMap::CompactBuffer() { VESK_PAIRS.Compact(); }

void CStringMap::ReleaseBuffer() { VESK_PAIRS.Clear(); }

void CStringMap::EnsureCapacity(unsigned int n) { VESK_PAIRS.Ensure(n, __LINE__); }

void CStringMap::TrimToSize() {
  if (m_size == 0) {
    ReleaseBuffer();
  } else if (m_size < m_capacity) {
    VESK_PAIRS.Resize(m_size, __LINE__);
  }
}

void CStringMap::CheckIndex(unsigned int index, int line) const {
  if (index >= m_size) throw CArrayIndexOutOfBoundsException(kSource, static_cast<unsigned>(line));
}

void CStringMap::Put(const char* key, const char* value) {
  if (!key || !*key) VESK_THROW(kSource, CIllegalArgumentException, "Invalid key.");
  int index = GetIndexOfKey(key);
  if (index >= 0) {
    m_values[index] = value;
    return;
  }
  VESK_PAIRS.Append(key, value, __LINE__);
}

CString& CStringMap::Get(const char* key) {
  int index = GetIndexOfKey(key);
  if (index < 0) VESK_THROW(kSource, CNoSuchElementException);
  return m_values[index];
}

const CString& CStringMap::Get(const char* key) const {
  int index = GetIndexOfKey(key);
  if (index < 0) VESK_THROW(kSource, CNoSuchElementException);
  return m_values[index];
}

int CStringMap::GetIndexOfKey(const char* key) const {
  // FindKey only reads; the pairs view needs non-const references.
  return VESK_PAIRS_OF(*const_cast<CStringMap*>(this)).FindKey(key);
}

int CStringMap::GetIndexOf(const char* value) const {
  if (!value) return -1;
  return internal::FindString(m_values, m_size, value, false);
}

CString& CStringMap::GetKeyAt(unsigned int index) {
  CheckIndex(index, __LINE__);
  return m_keys[index];
}

const CString& CStringMap::GetKeyAt(unsigned int index) const {
  CheckIndex(index, __LINE__);
  return m_keys[index];
}

CString& CStringMap::GetAt(unsigned int index) {
  CheckIndex(index, __LINE__);
  return m_values[index];
}

const CString& CStringMap::GetAt(unsigned int index) const {
  CheckIndex(index, __LINE__);
  return m_values[index];
}

bool CStringMap::Remove(const char* key) {
  int index = GetIndexOfKey(key);
  if (index < 0) return false;
  VESK_PAIRS.RemoveAt(static_cast<unsigned int>(index));
  return true;
}

void CStringMap::RemoveAll() { ReleaseBuffer(); }

bool CStringMap::operator==(const CStringMap& other) const {
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
