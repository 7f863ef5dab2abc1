/// \file
/// CNonCopyable: base of the classes that own an operating-system resource.
#ifndef VESK_BASE_NONCOPYABLE_H
#define VESK_BASE_NONCOPYABLE_H

#include "vesk/base/Export.h"

namespace vesk {
namespace base {

/// Derive from this to forbid copying.
class VESK_API CNonCopyable {
 protected:
  /// Only subclasses are built.
  CNonCopyable() {}
  /// Not virtual: never deleted through this base.
  ~CNonCopyable() {}

 private:
  CNonCopyable(const CNonCopyable&);
  CNonCopyable& operator=(const CNonCopyable&);
};

}  // namespace base
}  // namespace vesk

#endif
