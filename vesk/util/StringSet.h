/// \file
/// CStringSet: a set of narrow texts with set algebra.
#ifndef VESK_UTIL_STRINGSET_H
#define VESK_UTIL_STRINGSET_H

#include "vesk/util/StringHashtable.h"

namespace vesk {
namespace util {

/// A CStringHashtable<bool> used as a set of texts. Keys are case sensitive;
/// a null or empty key raises CIllegalArgumentException.
class VESK_API CStringSet : public vesk::base::CBase {
 public:
  /// 101 buckets, load factor 0.75 (threshold 75).
  CStringSet();
  /// capacity 0 becomes 11 buckets; a load factor of 0 or less becomes 0.75.
  CStringSet(unsigned int capacity, float loadFactor);
  /// A copy of other's keys, bucket count and load factor.
  CStringSet(const CStringSet& other);
  /// Replaces the contents by a copy of other's.
  CStringSet& operator=(const CStringSet& other);
  /// Frees the table.
  ~CStringSet();

  /// Adds key; a key already present leaves the set unchanged.
  void Put(const char* key);
  /// Removes key; false when it was absent.
  bool Remove(const char* key);
  /// Whether key is in the set; false for null.
  bool Contains(const char* key) const;
  /// Removes every key; the bucket array keeps its size.
  void Empty();
  /// Whether the set holds no key.
  bool IsEmpty() const { return m_table.IsEmpty(); }
  /// Number of keys.
  unsigned int GetSize() const { return m_table.GetSize(); }
  /// Number of buckets of the table.
  unsigned int GetBucketCount() const { return m_table.GetBucketCount(); }
  /// The key count at which the next new key rehashes the table first.
  int GetThreshold() const { return m_table.GetThreshold(); }
  /// The table's load factor.
  float GetLoadFactor() const { return m_table.GetLoadFactor(); }

  /// The keys in the table's order (CStringHashtable<bool>::CKeyEnumeration).
  CEnumeration<vesk::base::CString> GetElements() const;

  /// Union.
  CStringSet& operator+=(const CStringSet& other);
  /// Difference: removes the keys of other.
  CStringSet& operator-=(const CStringSet& other);
  /// Intersection: keeps the keys that other holds too.
  CStringSet& operator*=(const CStringSet& other);
  /// Whether every key of this set is in other (an equal set counts).
  bool IsSubSetOf(const CStringSet& other) const;
  /// Whether every key of other is in this set.
  bool IsSuperSetOf(const CStringSet& other) const { return other.IsSubSetOf(*this); }
  /// Same size and the same keys.
  bool operator==(const CStringSet& other) const;
  /// Not operator==.
  bool operator!=(const CStringSet& other) const { return !(*this == other); }

 private:
  CStringHashtable<bool> m_table;
};

}  // namespace util
}  // namespace vesk

#endif
