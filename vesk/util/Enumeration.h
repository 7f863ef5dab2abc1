/// \file
/// IEnumeration<T>: a read-only, forward-only pass over a collection, and
/// CEnumeration<T>: the value handed out by the collections' GetElements.
#ifndef VESK_UTIL_ENUMERATION_H
#define VESK_UTIL_ENUMERATION_H

#include "vesk/base/Base.h"
#include "vesk/base/Ref.h"

namespace vesk {
namespace util {

/// One pass over the elements of a collection. The collection is not copied:
/// changing it while an enumeration walks it is not supported.
template <class T>
class IEnumeration : public vesk::base::CBase {
 public:
  /// Virtual: enumerations are deleted through the interface.
  virtual ~IEnumeration() {}
  /// Whether GetNextElement has another element to return.
  virtual bool HasMoreElements() const = 0;
  /// Steps to the next element and returns it; throws
  /// CNoSuchElementException when there is none.
  virtual T& GetNextElement() = 0;
};

/// A shared handle to one enumeration: copies step the same enumeration.
template <class T>
class CEnumeration {
 public:
  /// An enumeration without elements.
  CEnumeration() {}
  /// Takes ownership of an enumeration allocated with VESK_NEW (it is deleted
  /// at once when the handle cannot be allocated).
  explicit CEnumeration(IEnumeration<T>* enumeration) : m_enumeration(enumeration) {}

  /// Whether GetNextElement has another element; false for an empty handle.
  bool HasMoreElements() const {
    return !m_enumeration.IsNull() && m_enumeration.Get()->HasMoreElements();
  }
  /// Throws CNoSuchElementException when no element is left (or when the
  /// handle holds no enumeration).
  T& GetNextElement();

 private:
  vesk::base::CRef<IEnumeration<T> > m_enumeration;
};

}  // namespace util
}  // namespace vesk

#include "vesk/util/NoSuchElementException.h"

template <class T>
T& vesk::util::CEnumeration<T>::GetNextElement() {
  if (m_enumeration.IsNull()) throw CNoSuchElementException("vesk/util/Enumeration", __LINE__);
  return m_enumeration.Get()->GetNextElement();
}

#endif
