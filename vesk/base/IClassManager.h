/// \file
/// IClassManager: the contract of the class registry.
#ifndef VESK_BASE_ICLASSMANAGER_H
#define VESK_BASE_ICLASSMANAGER_H

#include "vesk/base/Base.h"

namespace vesk {
namespace base {

class CClass;
class CObject;

/// Registers descriptors and finds them by qualified name.
class VESK_API IClassManager : public CBase {
 public:
  /// Virtual: registries are deleted through the interface.
  virtual ~IClassManager() {}
  /// Adds a descriptor; CClass's constructor calls it.
  virtual void Register(CClass* cls) = 0;
  /// Removes a descriptor; CClass's destructor calls it.
  virtual void Unregister(CClass* cls) = 0;
  /// The class of that qualified name; null for null, "" or an unknown name.
  virtual const CClass* FindClass(const char* name) = 0;
  /// Builds an instance of the named class; CClassNotFoundException when
  /// there is no such class.
  virtual CObject* CreateInstance(const char* name) = 0;
  /// Builds an instance of cls; null for a null cls.
  virtual CObject* CreateInstance(const CClass* cls) = 0;

 protected:
  /// Only implementations are built.
  IClassManager() {}
};

}  // namespace base
}  // namespace vesk

#endif
