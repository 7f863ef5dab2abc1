#include "vesk/platform/Resources.h"

namespace vesk {
namespace platform {

const char* FindResourceString(unsigned int id) noexcept {
  // A handful of entries: a straight search is as fast as anything else.
  for (unsigned int i = 0; i < kResourceStringCount; ++i) {
    if (kResourceStrings[i].id == id) return kResourceStrings[i].text;
  }
  return nullptr;
}

}  // namespace platform
}  // namespace vesk
