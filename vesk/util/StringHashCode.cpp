#include "vesk/util/StringHashCode.h"

#include <cstring>

namespace vesk {
namespace util {

int GetStringHashCode(const char* text) {
  if (!text) return 0;
  const unsigned char* bytes = reinterpret_cast<const unsigned char*>(text);
  unsigned int length = static_cast<unsigned int>(std::strlen(text));
  unsigned int h = 0;
  if (length < 16) {
    for (unsigned int i = 0; i < length; ++i) h = h * 37u + bytes[i];
  } else {
    unsigned int step = length / 8;
    for (unsigned int i = 0; i < length; i += step) h = h * 39u + bytes[i];
  }
  return static_cast<int>(h);
}

}  // namespace util
}  // namespace vesk
