/// \file
/// CUnicodeStringMap: a small ordered map from 16-bit text to 16-bit text.
#ifndef VESK_UTIL_UNICODESTRINGMAP_H
#define VESK_UTIL_UNICODESTRINGMAP_H

#include "vesk/base/Base.h"
#include "vesk/base/UnicodeString.h"

namespace vesk {
namespace util {

/// Keys and values in two parallel arrays, in insertion order, searched
/// linearly; keys compare case sensitively or not, as chosen at
/// construction. Capacity moves in multiples of the growth step.
class VESK_API CUnicodeStringMap : public vesk::base::CBase {
 public:
  /// Steps through the keys in index order.
  class VESK_API CKeyIterator {
   public:
    /// Starts before the first key of map, which must outlive the iterator.
    explicit CKeyIterator(CUnicodeStringMap& map) : m_map(&map), m_index(0) {}
    /// Whether GetNextElement has another key.
    bool HasMoreElements() const { return m_index < m_map->GetSize(); }
    /// CNoSuchElementException after the last key.
    vesk::base::CUnicodeString& GetNextElement();

   private:
    CUnicodeStringMap* m_map;
    unsigned int m_index;
  };
  /// Steps through the keys of a const map in index order.
  class VESK_API CConstKeyIterator {
   public:
    /// Starts before the first key of map, which must outlive the iterator.
    explicit CConstKeyIterator(const CUnicodeStringMap& map) : m_map(&map), m_index(0) {}
    /// Whether GetNextElement has another key.
    bool HasMoreElements() const { return m_index < m_map->GetSize(); }
    /// CNoSuchElementException after the last key.
    const vesk::base::CUnicodeString& GetNextElement();

   private:
    const CUnicodeStringMap* m_map;
    unsigned int m_index;
  };

  /// A growth step of 0 becomes 5; a non-zero initial capacity is allocated
  /// at once.
  explicit CUnicodeStringMap(bool keysCaseSensitive = true, unsigned int initialCapacity = 0,
                             unsigned int growthStep = 5);
  /// A copy of other's pairs, key rule and growth step.
  CUnicodeStringMap(const CUnicodeStringMap& other);
  /// Replaces the contents by a copy of other's; on failure nothing changes.
  CUnicodeStringMap& operator=(const CUnicodeStringMap& other);
  /// Releases both arrays.
  ~CUnicodeStringMap();

  /// Whether keys compare case sensitively.
  bool IsKeyCaseSensitive() const { return m_keysCaseSensitive; }
  /// Whether there are no pairs.
  bool IsEmpty() const { return m_size == 0; }
  /// Number of pairs.
  unsigned int GetSize() const { return m_size; }
  /// Pairs the arrays hold without growing.
  unsigned int GetCapacity() const { return m_capacity; }
  /// The step the capacity moves in.
  unsigned int GetGrowthStep() const { return m_growthStep; }

  /// Replaces the value of an existing key, else appends the pair. A null
  /// value stores the empty string; a null or empty key raises
  /// CIllegalArgumentException ("Invalid key.").
  void Put(const unsigned short* key, const unsigned short* value);
  ///@{
  /// The value of key; CNoSuchElementException when the key is absent.
  vesk::base::CUnicodeString& Get(const unsigned short* key);
  const vesk::base::CUnicodeString& Get(const unsigned short* key) const;
  ///@}
  /// Whether key is present (by the map's key rule); false for null.
  bool ContainsKey(const unsigned short* key) const { return GetIndexOfKey(key) >= 0; }
  /// Whether some value equals value (case sensitively).
  bool Contains(const unsigned short* value) const { return GetIndexOf(value) >= 0; }
  /// Index of key (by the map's key rule), or -1; -1 for null.
  int GetIndexOfKey(const unsigned short* key) const;
  /// Index of the first value equal to value (case sensitively), or -1; -1
  /// for null.
  int GetIndexOf(const unsigned short* value) const;
  ///@{
  /// Key or value by index; CArrayIndexOutOfBoundsException when index >= size.
  vesk::base::CUnicodeString& GetKeyAt(unsigned int index);
  const vesk::base::CUnicodeString& GetKeyAt(unsigned int index) const;
  vesk::base::CUnicodeString& GetAt(unsigned int index);
  const vesk::base::CUnicodeString& GetAt(unsigned int index) const;
  ///@}

  /// Removes the pair of key (later pairs move up); false when absent.
  bool Remove(const unsigned short* key);
  /// Removes every pair and releases both arrays.
  void RemoveAll();

  /// Makes room for n pairs (rounded up to the growth step).
  void EnsureCapacity(unsigned int n);
  /// Shrinks the arrays to exactly the size (releases them when empty).
  void TrimToSize();

  /// Equal sizes, and every key of this map is in other with an equal value
  /// (by other's key rule; order does not matter).
  bool operator==(const CUnicodeStringMap& other) const;
  /// Not operator==.
  bool operator!=(const CUnicodeStringMap& other) const { return !(*this == other); }

  ///@{
  /// An iterator over the keys in index order.
  CKeyIterator GetKeyIterator() { return CKeyIterator(*this); }
  CConstKeyIterator GetKeyIterator() const { return CConstKeyIterator(*this); }
  ///@}

 private:
  void AllocBuffer(unsigned int n);
  void CompactBuffer();
  void ReleaseBuffer();
  void Resize(unsigned int capacity);
  void CheckIndex(unsigned int index, int line) const;

  bool m_keysCaseSensitive;
  vesk::base::CUnicodeString* m_keys;
  vesk::base::CUnicodeString* m_values;
  unsigned int m_size;
  unsigned int m_capacity;
  unsigned int m_growthStep;
};

}  // namespace util
}  // namespace vesk

#endif
