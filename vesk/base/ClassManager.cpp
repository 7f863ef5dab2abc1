#include "vesk/base/ClassManager.h"

#include <cstring>

#include "vesk/base/Class.h"
#include "vesk/base/ClassNotFoundException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Throw.h"
#include "vesk/util/StringHashCode.h"

namespace vesk {
namespace base {

struct CClassManager::Entry {
  int hash;
  const char* key;
  const CClass* value;
  Entry* next;
};

namespace {
bool g_managerGone = false;

// Holds the registry. Being a function-local static built inside the first
// descriptor's constructor, it is destroyed after every descriptor of the
// library; later lookups find no registry and answer null.
struct ManagerHolder {
  CClassManager manager;
  ~ManagerHolder() { g_managerGone = true; }
};

unsigned int BucketOf(int hash, unsigned int bucketCount) {
  return (static_cast<unsigned int>(hash) & 0x7FFFFFFFu) % bucketCount;
}
}  // namespace

IClassManager* CClassManager::GetInstance() {
  if (g_managerGone) return nullptr;
  static ManagerHolder holder;
  return &holder.manager;
}

CClassManager::CClassManager()
    : m_head(nullptr),
      m_count(0),
      m_indexMode(0),
      m_bucketCount(0),
      m_entryCount(0),
      m_threshold(0),
      m_loadFactor(0.75f),
      m_buckets(nullptr) {
  m_indexMode = BuildIndex() ? 1 : 0;
}

CClassManager::~CClassManager() { DropIndex(); }

bool CClassManager::BuildIndex() {
  m_loadFactor = 0.75f;
  m_threshold = 6143;
  m_buckets = static_cast<Entry**>(platform::Alloc(8191 * sizeof(Entry*)));
  if (!m_buckets) {
    m_bucketCount = 0;
    return false;
  }
  m_bucketCount = 8191;
  std::memset(m_buckets, 0, m_bucketCount * sizeof(Entry*));
  try {
    for (CClass* cls = m_head; cls; cls = cls->m_next) IndexInsert(cls->GetName(), cls);
  } catch (...) {
    DropIndex();
    return false;
  }
  return true;
}

void CClassManager::DropIndex() {
  for (unsigned int i = 0; m_buckets && i < m_bucketCount; ++i) {
    for (Entry* e = m_buckets[i]; e;) {
      Entry* next = e->next;
      platform::Free(e);
      e = next;
    }
  }
  platform::Free(m_buckets);
  m_buckets = nullptr;
  m_bucketCount = 0;
  m_entryCount = 0;
}

bool CClassManager::Rehash() {
  unsigned int newCount = 2 * m_bucketCount + 1;
  Entry** fresh = static_cast<Entry**>(platform::Alloc(newCount * sizeof(Entry*)));
  if (!fresh) VESK_THROW("vesk/base/Base", CMemoryException);
  std::memset(fresh, 0, newCount * sizeof(Entry*));
  for (unsigned int i = 0; i < m_bucketCount; ++i) {
    for (Entry* e = m_buckets[i]; e;) {
      Entry* next = e->next;
      unsigned int b = BucketOf(e->hash, newCount);
      e->next = fresh[b];
      fresh[b] = e;
      e = next;
    }
  }
  platform::Free(m_buckets);
  m_buckets = fresh;
  m_bucketCount = newCount;
  m_threshold = static_cast<unsigned int>(newCount * m_loadFactor);
  return true;
}

// Adds or replaces; reports true in both cases, which is what makes the first
// registration give the index up (see Register).
bool CClassManager::IndexInsert(const char* key, const CClass* value) {
  int hash = util::GetStringHashCode(key);
  for (;;) {
    unsigned int b = BucketOf(hash, m_bucketCount);
    for (Entry* e = m_buckets[b]; e; e = e->next) {
      if (e->hash == hash && e->key == key) {
        e->value = value;
        return true;
      }
    }
    if (m_entryCount >= m_threshold) {
      Rehash();
      continue;
    }
    Entry* entry = static_cast<Entry*>(platform::Alloc(sizeof(Entry)));
    if (!entry) VESK_THROW("vesk/base/Base", CMemoryException);
    entry->hash = hash;
    entry->key = key;
    entry->value = value;
    entry->next = m_buckets[b];
    m_buckets[b] = entry;
    ++m_entryCount;
    return true;
  }
}

void CClassManager::IndexRemove(const char* key) {
  int hash = util::GetStringHashCode(key);
  Entry** link = &m_buckets[BucketOf(hash, m_bucketCount)];
  for (Entry* e = *link; e; link = &e->next, e = e->next) {
    if (e->hash == hash && e->key == key) {
      *link = e->next;
      platform::Free(e);
      --m_entryCount;
      return;
    }
  }
}

const CClass* CClassManager::IndexFind(const char* key) const {
  int hash = util::GetStringHashCode(key);
  for (Entry* e = m_buckets[BucketOf(hash, m_bucketCount)]; e; e = e->next)
    if (e->hash == hash && e->key == key) return e->value;
  return nullptr;
}

void CClassManager::Register(CClass* cls) {
  if (!cls) return;
  cls->m_previous = nullptr;
  cls->m_next = m_head;
  if (m_head) m_head->m_previous = cls;
  m_head = cls;
  ++m_count;
  if (m_indexMode == 1) {
    // An insert that succeeds gives the index up for good: the very first
    // registration switches the registry to list lookup. Kept on purpose.
    bool inserted = false;
    try {
      inserted = IndexInsert(cls->GetName(), cls);
    } catch (...) {
      inserted = true;  // a half-built index is of no use either
    }
    if (inserted) {
      DropIndex();
      m_indexMode = 0;
    }
  }
}

void CClassManager::Unregister(CClass* cls) {
  if (!cls) return;
  if (cls->m_previous)
    cls->m_previous->m_next = cls->m_next;
  else if (m_head == cls)
    m_head = cls->m_next;
  else
    return;  // not registered here
  if (cls->m_next) cls->m_next->m_previous = cls->m_previous;
  cls->m_previous = cls->m_next = nullptr;
  --m_count;
  if (m_indexMode == 1) IndexRemove(cls->GetName());
}

const CClass* CClassManager::FindClass(const char* name) {
  if (!name || !*name) return nullptr;
  if (m_indexMode == 1) return IndexFind(name);
  for (const CClass* cls = m_head; cls; cls = cls->m_next)
    if (cls->GetQualifiedName() && std::strcmp(cls->GetQualifiedName(), name) == 0) return cls;
  return nullptr;
}

CObject* CClassManager::CreateInstance(const char* name) {
  const CClass* cls = FindClass(name);
  if (!cls)
    VESK_THROW("vesk/base/ClassManager", CClassNotFoundException,
               "The specified class is not found.", nullptr, name);
  return cls->CreateNewInstance();
}

CObject* CClassManager::CreateInstance(const CClass* cls) {
  return cls ? cls->CreateNewInstance() : nullptr;
}

}  // namespace base
}  // namespace vesk
