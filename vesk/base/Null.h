/// \file
/// CNull and vesk::null: stands for an empty handle where a CRef<T> or
/// another handle is expected.
#ifndef VESK_BASE_NULL_H
#define VESK_BASE_NULL_H

#include "vesk/base/Export.h"

namespace vesk {
namespace base {

/// Empty marker type; its only instance is vesk::null.
class VESK_API CNull {
 public:
  /// The marker; use vesk::null rather than building another.
  CNull() {}
  /// Assigns nothing: there is no data.
  CNull& operator=(const CNull&) { return *this; }
};

}  // namespace base

/// The empty-handle constant.
extern VESK_API const base::CNull null;

}  // namespace vesk

#endif
