// ParseBase64String (FUZZ_WIDE 0) or ParseBase64UnicodeString (FUZZ_WIDE 1)
// on arbitrary text; for the 16-bit form, pairs of input bytes are units. Every result is checked
// against a plain group-by-group decoder written here, and re-encoding the decoded bytes must
// decode to the same bytes again.
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "FuzzCommon.h"
#include "vesk/base/BinaryData.h"
#include "vesk/base/NumberFormatException.h"

using vesk::base::CBinaryData;
using vesk::base::CNumberFormatException;
using vesk::base::CString;
using vesk::base::CUnicodeString;

namespace {

int Value(unsigned unit) {
  if (unit >= 'A' && unit <= 'Z') return unit - 'A';
  if (unit >= 'a' && unit <= 'z') return unit - 'a' + 26;
  if (unit >= '0' && unit <= '9') return unit - '0' + 52;
  if (unit == '+') return 62;
  if (unit == '/') return 63;
  return -1;
}

// Reference: false for a rejected text.
bool Reference(const std::vector<unsigned>& text, std::string* out) {
  if (text.size() % 4) return false;
  for (size_t i = 0; i < text.size(); i += 4) {
    const unsigned* c = &text[i];
    int n = c[3] != '=' ? 4 : c[2] == '=' ? 2 : 3;
    unsigned v = 0;
    for (int k = 0; k < 4; ++k) {
      int d = k < n ? Value(c[k]) : 0;
      if (d < 0) return false;
      v = (v << 6) | d;
    }
    out->push_back(static_cast<char>(v >> 16));
    if (n >= 3) out->push_back(static_cast<char>(v >> 8));
    if (n == 4) out->push_back(static_cast<char>(v));
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* input, size_t size) {
  const bool wide = FUZZ_WIDE;
  std::vector<unsigned> units;
  if (wide) {
    for (size_t i = 0; i + 1 < size; i += 2) units.push_back(input[i] | (input[i + 1] << 8));
  } else {
    for (size_t i = 0; i < size; ++i) units.push_back(input[i]);
  }
  // The strings end at their first zero unit.
  for (size_t i = 0; i < units.size(); ++i) {
    if (units[i] == 0) {
      units.resize(i);
      break;
    }
  }

  std::string expected;
  bool valid = Reference(units, &expected);

  // The text objects are built first: the string pools keep the blocks they
  // draw, so only the decoder's own allocation is measured.
  std::vector<unsigned short> text16(units.begin(), units.end());
  text16.push_back(0);
  std::string text8(units.begin(), units.end());
  CUnicodeString wideText(wide ? text16.data() : nullptr);
  CString narrowText(wide ? nullptr : text8.c_str());

  long live = vesk::platform::LiveAllocations();
  char* data = reinterpret_cast<char*>(1);
  unsigned int length = 12345;
  try {
    if (wide) {
      CBinaryData::ParseBase64UnicodeString(wideText, data, length);
    } else {
      CBinaryData::ParseBase64String(narrowText, data, length);
    }
  } catch (const CNumberFormatException&) {
    FUZZ_CHECK(!valid);
    CheckFailedDecode(data, length, live);
    return 0;
  }
  FUZZ_CHECK(valid);
  FUZZ_CHECK(length == units.size() / 4);
  if (expected.empty()) {
    FUZZ_CHECK(data == nullptr);
  } else {
    FUZZ_CHECK(data != nullptr);
    FUZZ_CHECK(std::memcmp(data, expected.data(), expected.size()) == 0);
  }
  vesk::platform::Free(data);
  FUZZ_CHECK(vesk::platform::LiveAllocations() == live);

  if (!expected.empty()) {
    CString again =
        CBinaryData::ToBase64String(expected.data(), static_cast<unsigned int>(expected.size()));
    FUZZ_CHECK(again.GetLength() == (expected.size() + 2) / 3 * 4);
    CBinaryData::ParseBase64String(again, data, length);
    FUZZ_CHECK(std::memcmp(data, expected.data(), expected.size()) == 0);
    vesk::platform::Free(data);
  }
  return 0;
}
