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
  CStringSet(const CStringSet& other);
  CStringSet& operator=(const CStringSet& other);
  ~CStringSet();

  /// Adds key; a key already present leaves the set unchanged.
  void Put(const char* key);
  /// Removes key; false when it was absent.
  bool Remove(const char* key);
  bool Contains(const char* key) const;
  void Empty();
  bool IsEmpty() const { return m_table.IsEmpty(); }
  unsigned int GetSize() const { return m_table.GetSize(); }
  unsigned int GetBucketCount() const { return m_table.GetBucketCount(); }
  int GetThreshold() const { return m_table.GetThreshold(); }
  float GetLoadFactor() const { return m_table.GetLoadFactor(); }

  /// The keys in the table's order (CStringHashtable<bool>::CKeyEnumeration).
  CEnumeration<vesk::base::CString> GetElements() const;

  /// Union.
  CStringSet& operator+=(const CStringSet& other);
  /// Difference: removes the keys of other.
  CStringSet& operator-=(const CStringSet& other);
  /// Intersection: keeps the keys that other holds too.
  CStringSet& operator*=(const CStringSet& other);
  bool IsSubSetOf(const CStringSet& other) const;
  bool IsSuperSetOf(const CStringSet& other) const { return other.IsSubSetOf(*this); }
  bool operator==(const CStringSet& other) const;
  bool operator!=(const CStringSet& other) const { return !(*this == other); }

 private:
  CStringHashtable<bool> m_table;
};

}  // namespace util
}  // namespace vesk

#endif
