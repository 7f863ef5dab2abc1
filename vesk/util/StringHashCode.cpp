#include "vesk/util/StringHashCode.h"

#include <cstring>

#include "vesk/base/String.h"
#include "vesk/base/UnicodeString.h"


namespace vesk {
namespace util {

namespace {

// The one hash rule, over 8-bit or 16-bit units.
template <class Unit>
int HashUnits(const Unit* units, unsigned int length) {
  unsigned int h = 0;
  if (length < 16) {
    for (unsigned int i = 0; i < length; ++i) h = h * 37u + units[i];
  } else {
    unsigned int step = length / 8;
    for (unsigned int i = 0; i < length; i += step) h = h * 39u + units[i];
  }
  return static_cast<int>(h);
}

}  // namespace

int GetStringHashCode(const char* text) {
  if (!text) return 0;
  return HashUnits(reinterpret_cast<const unsigned char*>(text),
                   static_cast<unsigned int>(std::strlen(text)));
}

int GetCStringHashCode(const vesk::base::CString& text) {
  return HashUnits(reinterpret_cast<const unsigned char*>(static_cast<const char*>(text)),
                   text.GetLength());
}

int GetCUnicodeStringHashCode(const vesk::base::CUnicodeString& text) {
  unsigned int length = text.GetLength();
  if (length == 0) return 0;
  return HashUnits(static_cast<const unsigned short*>(text), length);
}

}  // namespace util
}  // namespace vesk
