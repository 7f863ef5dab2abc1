// The narrow (FUZZ_WIDE 0) or 16-bit (FUZZ_WIDE 1) binhex decoders on
// arbitrary text. The first input byte picks the form (string object,
// zero-terminated pointer, pointer with length); the rest is the text (for
// the 16-bit forms, pairs of bytes are units). A text is valid exactly when it has an even length
// of 0-9 and A-F; a valid text must encode back to itself.
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "FuzzCommon.h"
#include "vesk/base/BinaryData.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/NumberFormatException.h"

using vesk::base::CBinaryData;
using vesk::base::CException;
using vesk::base::CIllegalArgumentException;
using vesk::base::CNumberFormatException;
using vesk::base::CString;
using vesk::base::CUnicodeString;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* input, size_t size) {
  if (size == 0) return 0;
  const bool wide = FUZZ_WIDE;
  int form = input[0] % 3;
  ++input;
  --size;
  std::vector<unsigned> units;
  if (wide) {
    for (size_t i = 0; i + 1 < size; i += 2) units.push_back(input[i] | (input[i + 1] << 8));
  } else {
    for (size_t i = 0; i < size; ++i) units.push_back(input[i]);
  }
  // Forms other than the explicit length stop at the first zero unit.
  size_t textLength = units.size();
  if (form != 2) {
    for (size_t i = 0; i < units.size(); ++i) {
      if (units[i] == 0) {
        textLength = i;
        break;
      }
    }
  }
  bool valid = textLength % 2 == 0 && !(form == 2 && textLength == 0);
  for (size_t i = 0; i < textLength && valid; ++i) {
    unsigned u = units[i];
    valid = (u >= '0' && u <= '9') || (u >= 'A' && u <= 'F');
  }

  std::vector<unsigned short> text16(units.begin(), units.end());
  text16.push_back(0);
  std::string text8(units.begin(), units.end());
  unsigned int n = static_cast<unsigned int>(units.size());

  // The string objects are built first (the pools keep their blocks), so
  // only the decoder's own allocation is measured.
  CUnicodeString wideText(form == 0 && wide ? text16.data() : nullptr);
  CString narrowText(form == 0 && !wide ? text8.c_str() : nullptr);

  long live = vesk::platform::LiveAllocations();
  char* data = reinterpret_cast<char*>(1);
  unsigned int length = 12345;
  try {
    if (wide) {
      if (form == 0) CBinaryData::ParseBinHexUnicodeString(wideText, data, length);
      if (form == 1) CBinaryData::ParseBinHexUnicodeString(text16.data(), data, length);
      if (form == 2) CBinaryData::ParseBinHexUnicodeString(text16.data(), n, data, length);
    } else {
      if (form == 0) CBinaryData::ParseBinHexString(narrowText, data, length);
      if (form == 1) CBinaryData::ParseBinHexString(text8.c_str(), data, length);
      if (form == 2) CBinaryData::ParseBinHexString(text8.data(), n, data, length);
    }
  } catch (const CNumberFormatException&) {
    FUZZ_CHECK(!valid);
    CheckFailedDecode(data, length, live);
    return 0;
  } catch (const CIllegalArgumentException&) {
    FUZZ_CHECK(!valid && form == 2 && n == 0);
    CheckFailedDecode(data, length, live);
    return 0;
  }
  FUZZ_CHECK(valid);
  FUZZ_CHECK(length == textLength / 2);
  FUZZ_CHECK(vesk::platform::LiveAllocations() == live + (length != 0 ? 1 : 0));
  if (length != 0) {
    CString again = CBinaryData::ToBinHexString(data, length);
    FUZZ_CHECK(again.GetLength() == textLength);
    FUZZ_CHECK(std::memcmp(static_cast<const char*>(again), text8.data(), textLength) == 0);
    CUnicodeString again16 = CBinaryData::ToBinHexUnicodeString(data, length);
    FUZZ_CHECK(again16.GetLength() == textLength);
    FUZZ_CHECK(std::memcmp(static_cast<const unsigned short*>(again16), text16.data(),
                           textLength * 2) == 0);
  } else {
    FUZZ_CHECK(data == nullptr);
  }
  vesk::platform::Free(data);
  return 0;
}
