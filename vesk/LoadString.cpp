#include "vesk/LoadString.h"

#include "vesk/platform/Resources.h"

namespace vesk {

bool LoadResourceString(unsigned int id, vesk::base::CString& text) {
  const char* found = platform::FindResourceString(id);
  text = found;
  return found != nullptr;
}

}  // namespace vesk
