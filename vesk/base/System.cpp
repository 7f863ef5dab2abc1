#include "vesk/base/System.h"

namespace vesk {
namespace base {

vesk::io::CDebugPrintStream CSystem::debugOut;

}  // namespace base
}  // namespace vesk
