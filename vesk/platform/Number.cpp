#include "vesk/platform/Number.h"

#include <charconv>
#include <limits>
#include <system_error>

#include "vesk/platform/Memory.h"
#include "vesk/platform/Utf16.h"

namespace vesk {
namespace platform {

namespace {

// The ASCII form of a number's text, on the stack when it is short (every
// ordinary number is) and on the heap otherwise. Units beyond ASCII make
// the text invalid.
class AsciiText {
 public:
  explicit AsciiText(const unsigned short* text) : m_text(m_local), m_length(0), m_valid(false) {
    if (!text) return;
    std::size_t length = Utf16Length(text);
    if (length >= sizeof(m_local)) {
      m_text = static_cast<char*>(Alloc(length + 1));
      if (!m_text) {
        m_text = m_local;
        return;
      }
    }
    for (std::size_t i = 0; i < length; ++i) {
      if (text[i] > 0x7F) return;
      m_text[i] = static_cast<char>(text[i]);
    }
    m_text[length] = '\0';
    m_length = length;
    m_valid = length > 0;
  }
  ~AsciiText() {
    if (m_text != m_local) Free(m_text);
  }
  AsciiText(const AsciiText&) = delete;
  AsciiText& operator=(const AsciiText&) = delete;

  bool IsValid() const { return m_valid; }
  const char* Begin() const { return m_text; }
  const char* End() const { return m_text + m_length; }

 private:
  char m_local[128];
  char* m_text;
  std::size_t m_length;
  bool m_valid;
};

// Parses [begin, end) whole as T; a leading '+' is accepted like a '-'.
template <typename T>
bool ParseWhole(const AsciiText& ascii, T* value) {
  if (!ascii.IsValid()) return false;
  const char* begin = ascii.Begin();
  const char* end = ascii.End();
  if (*begin == '+') {
    ++begin;
    if (begin == end || *begin == '-' || *begin == '+') return false;
  }
  std::from_chars_result result;
  if constexpr (std::is_floating_point<T>::value) {
    result = std::from_chars(begin, end, *value, std::chars_format::general);
  } else {
    result = std::from_chars(begin, end, *value, 10);
  }
  return result.ec == std::errc() && result.ptr == end;
}

}  // namespace

bool ParseSigned(const unsigned short* text, long long minimum, long long maximum, long long* value) {
  long long parsed = 0;
  if (!ParseWhole(AsciiText(text), &parsed) || parsed < minimum || parsed > maximum) return false;
  *value = parsed;
  return true;
}

bool ParseUnsigned(const unsigned short* text, unsigned long long maximum, unsigned long long* value) {
  unsigned long long parsed = 0;
  if (!ParseWhole(AsciiText(text), &parsed) || parsed > maximum) return false;
  *value = parsed;
  return true;
}

bool ParseFloat(const unsigned short* text, float* value) {
  float parsed = 0;
  if (!ParseWhole(AsciiText(text), &parsed)) return false;
  *value = parsed;
  return true;
}

bool ParseDouble(const unsigned short* text, double* value) {
  double parsed = 0;
  if (!ParseWhole(AsciiText(text), &parsed)) return false;
  *value = parsed;
  return true;
}

bool ScanUnsigned64(const unsigned short* text, unsigned long long* value) {
  if (!text) return false;
  while (*text && Utf16IsSpace(*text)) ++text;
  bool negative = false;
  if (*text == '+' || *text == '-') negative = *text++ == '-';
  if (*text < '0' || *text > '9') return false;
  const unsigned long long kMax = std::numeric_limits<unsigned long long>::max();
  unsigned long long result = 0;
  bool saturated = false;
  for (; *text >= '0' && *text <= '9'; ++text) {
    unsigned int digit = static_cast<unsigned int>(*text - '0');
    if (result > (kMax - digit) / 10) saturated = true;
    if (!saturated) result = result * 10 + digit;
  }
  // As strtoull: a value beyond the range is the maximum, sign or not.
  *value = saturated ? kMax : negative ? 0 - result : result;
  return true;
}

}  // namespace platform
}  // namespace vesk
