/// \file
/// CSystem: process-wide services of the library.
#ifndef VESK_BASE_SYSTEM_H
#define VESK_BASE_SYSTEM_H

#include "vesk/io/DebugPrintStream.h"

namespace vesk {
namespace base {

/// Holds the library's process-wide streams.
class VESK_API CSystem {
 public:
  /// The debug output stream: exists for the whole life of the library.
  /// Exceptions that escape a thread body and failures inside the string
  /// pools are reported here.
  static vesk::io::CDebugPrintStream debugOut;

 private:
  CSystem();
};

}  // namespace base
}  // namespace vesk

#endif
