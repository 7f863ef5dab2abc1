/// \file
/// CStringHashtable<V>: a chained hashtable from narrow text keys to values.
#ifndef VESK_UTIL_STRINGHASHTABLE_H
#define VESK_UTIL_STRINGHASHTABLE_H

#include <cstring>

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/String.h"
#include "vesk/util/Hashtable.h"

namespace vesk {
namespace util {

/// Keys of CStringHashtable: stored as CString, looked up by text with the
/// library's string hash and case-sensitive byte equality.
struct CStringHashTraits {
  static const char* Source() { return "vesk/util/StringHashtable"; }
  static unsigned int Hash(const char* key) {
    return static_cast<unsigned int>(GetStringHashCode(key));
  }
  static unsigned int Hash(const vesk::base::CString& key) {
    return static_cast<unsigned int>(GetCStringHashCode(key));
  }
  static bool Equals(const vesk::base::CString& stored, const char* key) {
    return std::strcmp(stored, key) == 0;
  }
  static bool Equals(const vesk::base::CString& stored, const vesk::base::CString& key) {
    return stored.GetLength() == key.GetLength() && std::strcmp(stored, key) == 0;
  }
};

/// Maps text keys to values by chained hashing, with the bucket, threshold
/// and rehash rules of CHashtable (default 101 buckets, load factor 0.75).
/// A null or empty key raises CIllegalArgumentException ("Invalid key.").
template <class V>
class CStringHashtable : public CHashtable<vesk::base::CString, V, CStringHashTraits> {
  typedef CHashtable<vesk::base::CString, V, CStringHashTraits> Base;

 public:
  explicit CStringHashtable(unsigned int capacity = 101, float loadFactor = 0.75f)
      : Base(capacity, loadFactor) {}

  /// Stores value under key; true when the key was present (its old value
  /// is copied to *previous when given).
  bool Put(const char* key, const V& value, V* previous = nullptr) {
    if (!key || !*key)
      throw vesk::base::CIllegalArgumentException(CStringHashTraits::Source(), __LINE__,
                                                  "Invalid key.");
    return Base::Put(key, value, previous);
  }
};

}  // namespace util
}  // namespace vesk

#endif
