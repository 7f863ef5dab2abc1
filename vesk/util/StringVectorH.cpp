#include "vesk/util/StringVectorH.h"

#include <cstring>
#include <utility>

#include "vesk/base/ArrayIndexOutOfBoundsException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Throw.h"
#include "vesk/util/CollectionMemory.h"

namespace vesk {
namespace util {

using vesk::base::CArrayIndexOutOfBoundsException;
using vesk::base::CMemoryException;
using vesk::base::CString;

namespace {

const char* const kSource = "vesk/util/StringVectorH";

// Grows (or creates) a handle to hold n bytes rounded up to step.
void EnsureHandle(char**& handle, unsigned int& capacity, unsigned int n, unsigned int step,
                  int line) {
  if (n <= capacity) return;
  unsigned int rounded = RoundUpToStep(n, step);
  if (rounded < n) throw CMemoryException(kSource, static_cast<unsigned int>(line));
  if (!handle) {
    handle = platform::AllocHandle(rounded);
    if (!handle) throw CMemoryException(kSource, static_cast<unsigned int>(line));
  } else if (!platform::ReallocHandle(handle, rounded)) {
    throw CMemoryException(kSource, static_cast<unsigned int>(line));
  }
  capacity = rounded;
}

void ReleaseHandle(char**& handle, unsigned int& capacity) {
  platform::FreeHandle(handle);
  handle = nullptr;
  capacity = 0;
}

// Shrinks a handle to used bytes rounded up to step, at least one step (an
// unused buffer keeps one step too). Best effort: a refused resize keeps it.
void CompactHandle(char**& handle, unsigned int used, unsigned int& capacity, unsigned int step) {
  if (!handle) return;
  unsigned int target = RoundUpToStep(used, step);
  if (target < step) target = step;
  if (target < capacity && platform::ReallocHandle(handle, target)) capacity = target;
}

unsigned int* Offsets(char** index) { return reinterpret_cast<unsigned int*>(*index); }

}  // namespace

CStringVectorH::CStringVectorH(unsigned int initialDataCapacity, unsigned int dataGrowthStep,
                               unsigned int initialIndexCapacity, unsigned int indexGrowthStep)
    : m_count(0),
      m_data(nullptr),
      m_dataUsed(0),
      m_dataCapacity(0),
      m_dataGrowthStep(dataGrowthStep == 0 ? 256 : dataGrowthStep),
      m_index(nullptr),
      m_indexCapacity(0),
      m_indexGrowthStep(indexGrowthStep == 0 ? 1 : indexGrowthStep) {
  EnsureStringDataCapacity(initialDataCapacity);
  try {
    EnsureStringIndexCapacity(initialIndexCapacity);
  } catch (...) {
    ReleaseStringDataBuffer();
    throw;
  }
}

CStringVectorH::CStringVectorH(const CStringVectorH& other)
    : CBase(other),
      m_count(0),
      m_data(nullptr),
      m_dataUsed(0),
      m_dataCapacity(0),
      m_dataGrowthStep(other.m_dataGrowthStep),
      m_index(nullptr),
      m_indexCapacity(0),
      m_indexGrowthStep(other.m_indexGrowthStep) {
  CopyFrom(other);
}

CStringVectorH& CStringVectorH::operator=(const CStringVectorH& other) {
  if (this == &other) return *this;
  CStringVectorH copy(other);
  std::swap(m_count, copy.m_count);
  std::swap(m_data, copy.m_data);
  std::swap(m_dataUsed, copy.m_dataUsed);
  std::swap(m_dataCapacity, copy.m_dataCapacity);
  std::swap(m_dataGrowthStep, copy.m_dataGrowthStep);
  std::swap(m_index, copy.m_index);
  std::swap(m_indexCapacity, copy.m_indexCapacity);
  std::swap(m_indexGrowthStep, copy.m_indexGrowthStep);
  return *this;
}

CStringVectorH::~CStringVectorH() {
  ReleaseStringDataBuffer();
  ReleaseStringIndexBuffer();
}

// Called on a vector without buffers.
void CStringVectorH::CopyFrom(const CStringVectorH& other) {
  if (other.m_count == 0) return;
  try {
    EnsureStringDataCapacity(other.m_dataUsed);
    EnsureStringIndexCapacity(other.m_count);
  } catch (...) {
    ReleaseStringDataBuffer();
    ReleaseStringIndexBuffer();
    throw;
  }
  std::memcpy(*m_data, *other.m_data, other.m_dataUsed);
  std::memcpy(*m_index, *other.m_index, other.m_count * sizeof(unsigned int));
  m_dataUsed = other.m_dataUsed;
  m_count = other.m_count;
}

void CStringVectorH::AddElement(const CString& text) {
  unsigned int length = text.GetLength();
  try {
    EnsureStringDataCapacity(m_dataUsed + length + 1);
  } catch (const CMemoryException&) {
    // Emptied on purpose rather than left half updated.
    ReleaseStringIndexBuffer();
    m_count = 0;
    m_dataUsed = 0;
    throw;
  }
  try {
    EnsureStringIndexCapacity(m_count + 1);
  } catch (const CMemoryException&) {
    ReleaseStringDataBuffer();
    m_count = 0;
    m_dataUsed = 0;
    throw;
  }
  std::memcpy(*m_data + m_dataUsed, static_cast<const char*>(text), length + 1);
  Offsets(m_index)[m_count] = m_dataUsed;
  m_dataUsed += length + 1;
  ++m_count;
}

const char* CStringVectorH::TextAt(unsigned int index) const {
  return *m_data + Offsets(m_index)[index];
}

CString CStringVectorH::GetElementAt(unsigned int index) const {
  if (index >= m_count) VESK_THROW(kSource, CArrayIndexOutOfBoundsException);
  return CString(TextAt(index));
}

void CStringVectorH::GetElementAt(unsigned int index, CString& target) const {
  if (index >= m_count) VESK_THROW(kSource, CArrayIndexOutOfBoundsException);
  target = TextAt(index);
}

int CStringVectorH::GetIndexOf(const char* text) const {
  if (!text) return -1;
  for (unsigned int i = 0; i < m_count; ++i) {
    if (std::strcmp(TextAt(i), text) == 0) return static_cast<int>(i);
  }
  return -1;
}

int CStringVectorH::GetLastIndexOf(const char* text) const {
  if (!text) return -1;
  for (unsigned int i = m_count; i-- > 0;) {
    if (std::strcmp(TextAt(i), text) == 0) return static_cast<int>(i);
  }
  return -1;
}

void CStringVectorH::RemoveAllElements() {
  m_count = 0;
  m_dataUsed = 0;
  ReleaseStringDataBuffer();
  ReleaseStringIndexBuffer();
}

void CStringVectorH::EnsureStringDataCapacity(unsigned int n) {
  EnsureHandle(m_data, m_dataCapacity, n, m_dataGrowthStep, __LINE__);
}

void CStringVectorH::EnsureStringIndexCapacity(unsigned int n) {
  if (n > 0x3FFFFFFFu) VESK_THROW(kSource, CMemoryException);
  unsigned int bytes = m_indexCapacity * sizeof(unsigned int);
  if (n <= m_indexCapacity) return;
  unsigned int entries = RoundUpToStep(n, m_indexGrowthStep);
  if (entries < n || entries > 0x3FFFFFFFu) VESK_THROW(kSource, CMemoryException);
  EnsureHandle(m_index, bytes, entries * sizeof(unsigned int), 1, __LINE__);
  m_indexCapacity = entries;
}

void CStringVectorH::CompactStringDataBuffer() {
  CompactHandle(m_data, m_dataUsed, m_dataCapacity, m_dataGrowthStep);
}

void CStringVectorH::CompactStringIndexBuffer() {
  if (!m_index) return;
  unsigned int target = RoundUpToStep(m_count, m_indexGrowthStep);
  if (target < m_indexGrowthStep) target = m_indexGrowthStep;
  if (target < m_indexCapacity && platform::ReallocHandle(m_index, target * sizeof(unsigned int)))
    m_indexCapacity = target;
}

void CStringVectorH::ReleaseStringDataBuffer() {
  // The strings live in the buffer: releasing it forgets them.
  ReleaseHandle(m_data, m_dataCapacity);
  m_dataUsed = 0;
  m_count = 0;
}

void CStringVectorH::ReleaseStringIndexBuffer() {
  unsigned int bytes = 0;
  ReleaseHandle(m_index, bytes);
  m_indexCapacity = 0;
  m_count = 0;
}

}  // namespace util
}  // namespace vesk
