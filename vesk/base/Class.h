/// \file
/// CClass: the run-time descriptor of a class, registered in the process-wide
/// class registry while it exists.
#ifndef VESK_BASE_CLASS_H
#define VESK_BASE_CLASS_H

#include "vesk/base/Export.h"

namespace vesk {
namespace base {

class CObject;
class CClassManager;

/// Describes one class: its qualified name, the qualified names of up to three
/// bases, its size and an optional factory. Descriptors are static objects;
/// building one registers it, destroying it unregisters it.
class VESK_API CClass {
 public:
  /// A factory: builds a new instance, or returns null.
  typedef CObject* (*Constructor)();

  /// Keeps the names as given (string literals, not copied) and registers the
  /// descriptor. Pass null for unused base names.
  CClass(const char* qualifiedName, const char* baseName1, const char* baseName2,
         const char* baseName3, unsigned int size, Constructor constructor);
  /// Unregisters the descriptor.
  ~CClass();

  /// The qualified name, e.g. "vesk::base::CString".
  const char* GetQualifiedName() const { return m_qualifiedName; }
  /// The part of the qualified name after its last ':'.
  const char* GetName() const;
  ///@{
  /// The qualified name of the first, second or third base, or null.
  const char* GetQualifiedBaseClassName1() const { return m_baseName[0]; }
  const char* GetQualifiedBaseClassName2() const { return m_baseName[1]; }
  const char* GetQualifiedBaseClassName3() const { return m_baseName[2]; }
  ///@}
  ///@{
  /// The base descriptors, looked up by name on first use (a failed lookup
  /// is retried on the next call); null when there is none.
  const CClass* GetBaseClass1() const { return ResolveBase(0); }
  const CClass* GetBaseClass2() const { return ResolveBase(1); }
  const CClass* GetBaseClass3() const { return ResolveBase(2); }
  ///@}
  /// sizeof the class.
  unsigned int GetSize() const { return m_size; }
  /// The factory, or null when the class has none.
  Constructor GetConstructor() const { return m_constructor; }

  /// True when cls is this class or one of its bases, depth first.
  bool IsInstanceOf(const CClass* cls) const;
  /// Builds an instance with the factory. Throws CInstantiationException
  /// when there is none, CMemoryException when it returns null.
  CObject* CreateNewInstance() const;

  /// The registered class of that qualified name, or null.
  static const CClass* FindClass(const char* name);

 private:
  friend class CClassManager;
  CClass(const CClass&);
  CClass& operator=(const CClass&);
  const CClass* ResolveBase(int index) const;

  const char* m_qualifiedName;
  const char* m_baseName[3];
  unsigned int m_size;
  Constructor m_constructor;
  mutable const CClass* m_baseClass[3];
  CClass* m_previous;
  CClass* m_next;
};

}  // namespace base
}  // namespace vesk

#endif
