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
  virtual ~IClassManager() {}
  virtual void Register(CClass* cls) = 0;
  virtual void Unregister(CClass* cls) = 0;
  /// The class of that qualified name; null for null, "" or an unknown name.
  virtual const CClass* FindClass(const char* name) = 0;
  /// Builds an instance of the named class; CClassNotFoundException when
  /// there is no such class.
  virtual CObject* CreateInstance(const char* name) = 0;
  /// Builds an instance of cls; null for a null cls.
  virtual CObject* CreateInstance(const CClass* cls) = 0;

 protected:
  IClassManager() {}
};

}  // namespace base
}  // namespace vesk

#endif
