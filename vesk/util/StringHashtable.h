/// \file
/// CStringHashtable<V>: a chained hashtable from narrow text keys to values.
#ifndef VESK_UTIL_STRINGHASHTABLE_H
#define VESK_UTIL_STRINGHASHTABLE_H

#include <cstddef>
#include <cstring>

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/String.h"
#include "vesk/util/Hashtable.h"

namespace vesk {
namespace util {

/// Keys of CStringHashtable: looked up by text with the library's string hash
/// and case-sensitive byte equality, handed out as CString.
///
/// A node keeps its key as text in its own block, right after the node, so
/// that each entry costs one allocation and a lookup reads one block; key
/// enumerations hand out a CString copy of it.
struct CStringHashTraits {
  /// A key's text within the node that holds it: its length, then its bytes
  /// and NUL past the end of this header (see ExtraBytes).
  class CKey {
   public:
    /// Text and length, as a node copy is made from.
    struct CText {
      /// The bytes (need not be NUL-terminated).
      const char* text;
      /// Number of bytes.
      unsigned int length;
    };
    /// Copies text (NUL-terminated) into the bytes after this header.
    explicit CKey(const char* text) { Fill(text, static_cast<unsigned int>(std::strlen(text))); }
    /// Copies the string's text into the bytes after this header.
    explicit CKey(const vesk::base::CString& text) { Fill(text, text.GetLength()); }
    /// Copies length bytes of text into the bytes after this header.
    explicit CKey(const CText& text) { Fill(text.text, text.length); }
    /// Not copyable: a key lives in its node's block.
    CKey(const CKey&) = delete;
    /// Not assignable: a key lives in its node's block.
    CKey& operator=(const CKey&) = delete;

    /// Length of the text in bytes.
    unsigned int GetLength() const { return m_length; }
    /// The NUL-terminated text, right after this header.
    const char* GetText() const { return reinterpret_cast<const char*>(this + 1); }

   private:
    void Fill(const char* text, unsigned int length) {
      m_length = length;
      char* target = reinterpret_cast<char*>(this + 1);
      std::memcpy(target, text, length);
      target[length] = '\0';
    }
    unsigned int m_length;
  };
  /// Nodes keep their keys as CKey text.
  typedef CKey Stored;

  /// The source name of the exceptions the table throws.
  static const char* Source() { return "vesk/util/StringHashtable"; }

  ///@{
  /// The library's string hash of the key's text (GetStringHashCode).
  static unsigned int Hash(const char* key) {
    return static_cast<unsigned int>(GetStringHashCode(key));
  }
  static unsigned int Hash(const vesk::base::CString& key) {
    return static_cast<unsigned int>(GetCStringHashCode(key));
  }
  ///@}
  // Stored keys are never null (Put refuses them), so a null key finds
  // nothing instead of reaching strcmp.
  ///@{
  /// Byte equality of the texts; false for a null key.
  static bool Equals(const CKey& stored, const char* key) {
    return key && std::strcmp(stored.GetText(), key) == 0;
  }
  static bool Equals(const CKey& stored, const vesk::base::CString& key) {
    return stored.GetLength() == key.GetLength() &&
           std::memcmp(stored.GetText(), static_cast<const char*>(key), key.GetLength()) == 0;
  }
  ///@}

  // Room for the text and its NUL past the node.
  ///@{
  /// Room for the key's text and its NUL past the node.
  static std::size_t ExtraBytes(const char* key) { return std::strlen(key) + 1; }
  static std::size_t ExtraBytes(const vesk::base::CString& key) { return key.GetLength() + 1u; }
  static std::size_t ExtraBytes(const CKey::CText& key) { return key.length + 1u; }
  ///@}
  /// The stored text and length, from which a copied node is built.
  static CKey::CText Copyable(const CKey& stored) {
    CKey::CText text = {stored.GetText(), stored.GetLength()};
    return text;
  }
  /// Sets scratch to the stored text and returns it: what key enumerations
  /// hand out.
  static vesk::base::CString& Expose(const CKey& stored, vesk::base::CString& scratch) {
    scratch.Set(stored.GetText(), stored.GetLength());
    return scratch;
  }
};

/// Maps text keys to values by chained hashing, with the bucket, threshold
/// and rehash rules of CHashtable (default 101 buckets, load factor 0.75).
/// A null or empty key raises CIllegalArgumentException ("Invalid key.").
template <class V>
class CStringHashtable : public CHashtable<vesk::base::CString, V, CStringHashTraits> {
  typedef CHashtable<vesk::base::CString, V, CStringHashTraits> Base;

 public:
  /// An empty table; see CHashtable's constructor.
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
