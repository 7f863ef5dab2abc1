/// \file
/// CHashtable<K, V>: a chained hashtable with exact bucket counts, the
/// generic form of CStringHashtable (same growth rules).
#ifndef VESK_UTIL_HASHTABLE_H
#define VESK_UTIL_HASHTABLE_H

#include <cstddef>
#include <new>

#include "vesk/base/Base.h"
#include "vesk/base/MemoryException.h"
#include "vesk/util/CollectionMemory.h"
#include "vesk/util/Enumeration.h"
#include "vesk/util/NoSuchElementException.h"
#include "vesk/util/StringHashCode.h"

namespace vesk {
namespace util {

/// How CHashtable hashes, compares and stores keys. A lookup key of type Q
/// may differ from the key type K: then GetHashCodeOf(Q) must equal
/// GetHashCodeOf(K) for equal keys and K == Q must be defined.
///
/// A traits class may also store keys in another form than K (Stored), for
/// instance as text in the node itself: then ExtraBytes tells how many bytes
/// past the node a key needs, Copyable turns a stored key back into
/// something a node can be built from, and Expose gives the K that key
/// enumerations hand out.
template <class K>
struct CHashTraits {
  /// The form of a key inside a node (the node's last member).
  typedef K Stored;
  /// The source name of the exceptions the table throws.
  static const char* Source() { return "vesk/util/Hashtable"; }
  /// Bytes a key needs past the node: none here.
  template <class Q>
  static std::size_t ExtraBytes(const Q&) {
    return 0;
  }
  /// What a copied node is built from: the key itself.
  static const K& Copyable(const K& stored) { return stored; }
  /// The key an enumeration hands out: the stored key itself (the scratch is
  /// unused).
  static K& Expose(K& stored, K&) { return stored; }
  /// GetHashCodeOf(key).
  template <class Q>
  static unsigned int Hash(const Q& key) {
    return static_cast<unsigned int>(GetHashCodeOf(key));
  }
  /// stored == key.
  template <class Q>
  static bool Equals(const K& stored, const Q& key) {
    return stored == key;
  }
};

/// Maps keys to values by chained hashing. The bucket array has exactly the
/// requested number of buckets (0 becomes 11); a load factor of 0 or less
/// becomes 0.75; threshold = integer part of buckets * load factor. A put
/// that finds the table at its threshold rehashes to 2 * buckets + 1 first,
/// which reverses the order within each chain. New entries go to the head
/// of their chain.
template <class K, class V, class Traits = CHashTraits<K>>
class CHashtable : public vesk::base::CBase {
 public:
  /// The form keys take inside a node (Traits::Stored).
  typedef typename Traits::Stored StoredKey;

  /// One node, allocated in one block: the stored hash of its key, the next
  /// node of the same bucket, the value and the key. The key comes last, so
  /// that a key kept as text can run on past the node in the same block.
  struct CEntry {
    /// A node for key and value at the head of the chain next.
    template <class Q>
    CEntry(unsigned int hash, const Q& key, const V& value, CEntry* next)
        : m_hash(hash), m_next(next), m_value(value), m_key(key) {}
    /// The hash of the key, kept for rehashing and quick rejects.
    unsigned int m_hash;
    /// The next node of the same bucket, or null.
    CEntry* m_next;
    /// The value.
    V m_value;
    /// The key, in its stored form.
    StoredKey m_key;
  };

  /// Walks the buckets from first to last and each chain from its head,
  /// returning each key in turn. The table must outlive the enumeration and
  /// stay unchanged while it is walked. When the table keeps its keys in
  /// another form than K, the key returned is the enumeration's own copy,
  /// valid until the next call.
  class CKeyEnumeration : public IEnumeration<K> {
   public:
    /// Starts before the first key of table.
    explicit CKeyEnumeration(const CHashtable& table) : m_table(&table), m_bucket(0), m_next(0) {
      Advance(nullptr);
    }
    bool HasMoreElements() const override { return m_next != nullptr; }
    K& GetNextElement() override {
      if (!m_next) throw CNoSuchElementException(Traits::Source(), __LINE__);
      K& key = Traits::Expose(m_next->m_key, m_current);
      Advance(m_next);
      return key;
    }

   private:
    void Advance(CEntry* from) {
      if (from && from->m_next) {
        m_next = from->m_next;
        return;
      }
      if (from) ++m_bucket;
      m_next = nullptr;
      while (m_bucket < m_table->m_bucketCount) {
        if ((m_next = m_table->m_buckets[m_bucket]) != nullptr) return;
        ++m_bucket;
      }
    }
    const CHashtable* m_table;
    unsigned int m_bucket;
    CEntry* m_next;
    K m_current;  // the key last handed out, when keys are stored in another form
  };

  /// An empty table of exactly capacity buckets (0 becomes 11); a loadFactor
  /// of 0 or less becomes 0.75. Throws CMemoryException when the buckets
  /// cannot be allocated.
  explicit CHashtable(unsigned int capacity = 101, float loadFactor = 0.75f)
      : m_buckets(nullptr), m_bucketCount(0), m_count(0), m_threshold(0), m_loadFactor(0) {
    if (loadFactor <= 0) loadFactor = 0.75f;
    if (capacity == 0) capacity = 11;
    m_loadFactor = loadFactor;
    m_buckets = AllocBuckets(capacity);
    m_bucketCount = capacity;
    m_threshold = ThresholdFor(capacity);
  }

  /// Same bucket count, every node copied chain by chain with its stored
  /// hash. A failed copy frees what it made and passes the exception on.
  CHashtable(const CHashtable& other)
      : vesk::base::CBase(other),
        m_buckets(nullptr),
        m_bucketCount(0),
        m_count(0),
        m_threshold(other.m_threshold),
        m_loadFactor(other.m_loadFactor) {
    CopyFrom(other);
  }

  /// Replaces the contents by a copy of other's (buckets, load factor and
  /// nodes); on failure the table is unchanged.
  CHashtable& operator=(const CHashtable& other) {
    if (this != &other) {
      CHashtable copy(other);
      Swap(copy);
    }
    return *this;
  }

  /// Deletes every node and the bucket array.
  ~CHashtable() {
    Clear();
    FreeBlock(m_buckets);
  }

  /// Number of entries.
  unsigned int GetSize() const { return m_count; }
  /// Whether there are no entries.
  bool IsEmpty() const { return m_count == 0; }
  /// Number of buckets.
  unsigned int GetBucketCount() const { return m_bucketCount; }
  /// The entry count at which the next new key rehashes first.
  int GetThreshold() const { return m_threshold; }
  /// The load factor the threshold is computed with.
  float GetLoadFactor() const { return m_loadFactor; }

  /// Stores value under key. Returns true when the key was present: its
  /// value is replaced and the old one copied to *previous when given.
  template <class Q>
  bool Put(const Q& key, const V& value, V* previous = nullptr) {
    unsigned int hash = Traits::Hash(key);
    for (;;) {
      unsigned int index = (hash & 0x7FFFFFFFu) % m_bucketCount;
      for (CEntry* e = m_buckets[index]; e; e = e->m_next) {
        if (e->m_hash == hash && Traits::Equals(e->m_key, key)) {
          if (previous) *previous = e->m_value;
          e->m_value = value;
          return true;
        }
      }
      if (static_cast<long long>(m_count) < m_threshold) {
        m_buckets[index] = NewEntry(hash, key, value, m_buckets[index]);
        ++m_count;
        return false;
      }
      Rehash();
    }
  }

  ///@{
  /// The value stored under key, or null.
  template <class Q>
  V* Find(const Q& key) {
    CEntry* e = FindEntry(key);
    return e ? &e->m_value : nullptr;
  }
  /// The value stored under key, or null.
  template <class Q>
  const V* Find(const Q& key) const {
    CEntry* e = FindEntry(key);
    return e ? &e->m_value : nullptr;
  }
  ///@}
  /// Copies the value stored under key into value; false when absent.
  template <class Q>
  bool Get(const Q& key, V& value) const {
    CEntry* e = FindEntry(key);
    if (!e) return false;
    value = e->m_value;
    return true;
  }
  /// Whether key is present.
  template <class Q>
  bool ContainsKey(const Q& key) const {
    return FindEntry(key) != nullptr;
  }

  /// Removes key; returns false when it was absent. The removed value is
  /// copied to *removed when given.
  template <class Q>
  bool Remove(const Q& key, V* removed = nullptr) {
    unsigned int hash = Traits::Hash(key);
    CEntry** link = &m_buckets[(hash & 0x7FFFFFFFu) % m_bucketCount];
    for (CEntry* e = *link; e; link = &e->m_next, e = e->m_next) {
      if (e->m_hash == hash && Traits::Equals(e->m_key, key)) {
        if (removed) *removed = e->m_value;
        *link = e->m_next;
        --m_count;
        DeleteEntry(e);
        return true;
      }
    }
    return false;
  }

  /// Removes every entry for which remove(key, value) is true.
  template <class F>
  void RemoveIf(F remove) {
    for (unsigned int i = 0; i < m_bucketCount; ++i) {
      CEntry** link = &m_buckets[i];
      while (CEntry* e = *link) {
        if (remove(static_cast<const StoredKey&>(e->m_key), static_cast<const V&>(e->m_value))) {
          *link = e->m_next;
          --m_count;
          DeleteEntry(e);
        } else {
          link = &e->m_next;
        }
      }
    }
  }

  /// Removes every entry; the bucket array keeps its size.
  void Empty() { Clear(); }

  /// The keys, in the table's own order (see CKeyEnumeration).
  CEnumeration<K> GetKeys() const {
    return CEnumeration<K>(new (Traits::Source(), __LINE__) CKeyEnumeration(*this));
  }

  /// Calls visit(key, value) for every entry in the table's order (the key in
  /// its stored form).
  template <class F>
  void ForEach(F visit) const {
    for (unsigned int i = 0; i < m_bucketCount; ++i) {
      for (CEntry* e = m_buckets[i]; e; e = e->m_next) visit(e->m_key, e->m_value);
    }
  }

 protected:
  /// The node of key, or null.
  template <class Q>
  CEntry* FindEntry(const Q& key) const {
    unsigned int hash = Traits::Hash(key);
    for (CEntry* e = m_buckets[(hash & 0x7FFFFFFFu) % m_bucketCount]; e; e = e->m_next) {
      if (e->m_hash == hash && Traits::Equals(e->m_key, key)) return e;
    }
    return nullptr;
  }

  /// Exchanges the whole contents with other; never throws.
  void Swap(CHashtable& other) {
    CEntry** buckets = m_buckets;
    m_buckets = other.m_buckets;
    other.m_buckets = buckets;
    unsigned int n = m_bucketCount;
    m_bucketCount = other.m_bucketCount;
    other.m_bucketCount = n;
    n = m_count;
    m_count = other.m_count;
    other.m_count = n;
    int t = m_threshold;
    m_threshold = other.m_threshold;
    other.m_threshold = t;
    float f = m_loadFactor;
    m_loadFactor = other.m_loadFactor;
    other.m_loadFactor = f;
  }

 private:
  friend class CKeyEnumeration;

  int ThresholdFor(unsigned int buckets) const {
    return static_cast<int>(static_cast<float>(buckets) * m_loadFactor);
  }

  static CEntry** AllocBuckets(unsigned int count) {
    void* block = AllocBlock(static_cast<std::size_t>(count) * sizeof(CEntry*));
    if (!block) throw vesk::base::CMemoryException(Traits::Source(), __LINE__);
    CEntry** buckets = static_cast<CEntry**>(block);
    for (unsigned int i = 0; i < count; ++i) buckets[i] = nullptr;
    return buckets;
  }

  template <class Q>
  static CEntry* NewEntry(unsigned int hash, const Q& key, const V& value, CEntry* next) {
    void* block = AllocBlock(sizeof(CEntry) + Traits::ExtraBytes(key));
    if (!block) throw vesk::base::CMemoryException(Traits::Source(), __LINE__);
    try {
      return ::new (block) CEntry(hash, key, value, next);
    } catch (...) {
      FreeBlock(block);
      throw;
    }
  }

  static void DeleteEntry(CEntry* e) {
    e->~CEntry();
    FreeBlock(e);
  }

  void Rehash() {
    unsigned int oldCount = m_bucketCount;
    unsigned int newCount = 2 * oldCount + 1;
    if (newCount <= oldCount) throw vesk::base::CMemoryException(Traits::Source(), __LINE__);
    CEntry** buckets = AllocBuckets(newCount);
    for (unsigned int i = 0; i < oldCount; ++i) {
      CEntry* e = m_buckets[i];
      while (e) {
        CEntry* next = e->m_next;
        unsigned int index = (e->m_hash & 0x7FFFFFFFu) % newCount;
        e->m_next = buckets[index];
        buckets[index] = e;
        e = next;
      }
    }
    FreeBlock(m_buckets);
    m_buckets = buckets;
    m_bucketCount = newCount;
    m_threshold = ThresholdFor(newCount);
  }

  void Clear() {
    for (unsigned int i = 0; i < m_bucketCount; ++i) {
      CEntry* e = m_buckets[i];
      m_buckets[i] = nullptr;
      while (e) {
        CEntry* next = e->m_next;
        DeleteEntry(e);
        e = next;
      }
    }
    m_count = 0;
  }

  // Called on a table without buckets.
  void CopyFrom(const CHashtable& other) {
    m_buckets = AllocBuckets(other.m_bucketCount);
    m_bucketCount = other.m_bucketCount;
    try {
      for (unsigned int i = 0; i < other.m_bucketCount; ++i) {
        CEntry** tail = &m_buckets[i];
        for (CEntry* e = other.m_buckets[i]; e; e = e->m_next) {
          *tail = NewEntry(e->m_hash, Traits::Copyable(e->m_key), e->m_value, nullptr);
          tail = &(*tail)->m_next;
          ++m_count;
        }
      }
    } catch (...) {
      Clear();
      FreeBlock(m_buckets);
      m_buckets = nullptr;
      m_bucketCount = 0;
      throw;
    }
  }

  CEntry** m_buckets;
  unsigned int m_bucketCount;
  unsigned int m_count;
  int m_threshold;
  float m_loadFactor;
};

}  // namespace util
}  // namespace vesk

#endif
