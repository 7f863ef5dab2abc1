#include "vesk/platform/Xerces.h"

#include <xercesc/util/PlatformUtils.hpp>

namespace vesk {
namespace platform {

namespace {

// One start of Xerces-C, ended when the library is unloaded (the static is
// destroyed with the module's other statics).
struct XercesRuntime {
  XercesRuntime() { xercesc::XMLPlatformUtils::Initialize(); }
  ~XercesRuntime() { xercesc::XMLPlatformUtils::Terminate(); }
};

}  // namespace

bool EnsureXerces() noexcept {
  try {
    // A function-local static: started by the first caller, other threads
    // wait for it; a start that throws is tried again by the next caller.
    static XercesRuntime runtime;
    return true;
  } catch (...) {
    return false;
  }
}

}  // namespace platform
}  // namespace vesk
