/// \file
/// CObject: the universal base class, with run-time class descriptors.
#ifndef VESK_BASE_OBJECT_H
#define VESK_BASE_OBJECT_H

#include "vesk/base/Base.h"
#include "vesk/base/Class.h"

/// Declares the static descriptor m_class<Name> of a class and its GetClass
/// override. Put it in the public part of the class body.
#define VESK_DECLARE_CLASS(Name)                                     \
 public:                                                             \
  /** The descriptor of this class, for IsInstanceOf and lookups. */ \
  static ::vesk::base::CClass m_class##Name;                         \
  const ::vesk::base::CClass* GetClass() const override

/// Defines the descriptor of Qualified (the class as written in code) with
/// its qualified name and the qualified name of its base (a string literal).
#define VESK_IMPLEMENT_CLASS(Qualified, Name, QualifiedName, BaseName)                         \
  ::vesk::base::CClass Qualified::m_class##Name(QualifiedName, BaseName, nullptr, nullptr,     \
                                                sizeof(Qualified), nullptr);                   \
  const ::vesk::base::CClass* Qualified::GetClass() const { return &m_class##Name; }

namespace vesk {
namespace base {

/// Root of every library class with identity.
class VESK_API CObject : public CBase {
 public:
  /// The descriptor of CObject, the root of every class chain.
  static CClass m_classCObject;

  /// Virtual, so a library object may be deleted through any base pointer.
  virtual ~CObject();
  /// The descriptor of the object's dynamic class.
  virtual const CClass* GetClass() const;
  /// Default: the object's address folded to 32 bits.
  virtual int GetHashCode() const;
  /// Default: identity.
  virtual bool Equals(const CObject* other) const;
  /// Default: null (not cloneable). The caller owns a returned object.
  virtual CObject* Clone() const;

  /// Whether the dynamic class is cls or derives from it; false for null.
  bool IsInstanceOf(const CClass* cls) const;

 protected:
  /// Only subclasses are built.
  CObject() {}
  /// Copies nothing: CObject has no data.
  CObject(const CObject& other) : CBase(other) {}
  /// Assigns nothing: CObject has no data.
  CObject& operator=(const CObject&) { return *this; }
};

}  // namespace base
}  // namespace vesk

#endif
