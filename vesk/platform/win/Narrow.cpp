#include "vesk/platform/Utf16.h"

#include <cstring>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace vesk {
namespace platform {

namespace {

// Narrow text is in the process's ANSI code page. A process that runs with
// UTF-8 as its ANSI code page gets the library's own UTF-8 conversions, so
// malformed bytes turn into '?' exactly as on POSIX hosts.
bool AnsiIsUtf8() { return GetACP() == CP_UTF8; }

inline bool IsHigh(unsigned int u) { return u >= 0xD800 && u <= 0xDBFF; }
inline bool IsLow(unsigned int u) { return u >= 0xDC00 && u <= 0xDFFF; }

const wchar_t* Wide(const unsigned short* text) { return reinterpret_cast<const wchar_t*>(text); }

// Bytes of the narrow character at src (n bytes left): two for a lead byte of
// a double-byte code page followed by its trail byte, otherwise one.
unsigned int NarrowCharLength(const char* src, std::size_t n) {
  return n >= 2 && IsDBCSLeadByteEx(CP_ACP, static_cast<BYTE>(src[0])) ? 2 : 1;
}

}  // namespace

std::size_t Utf16ToNarrow(const unsigned short* src, int srcUnits, char* target,
                          std::size_t targetSize) {
  if (AnsiIsUtf8()) return Utf16ToUtf8(src, srcUnits, target, targetSize);
  if (!src) return 0;
  std::size_t n = srcUnits < 0 ? Utf16Length(src) : static_cast<std::size_t>(srcUnits);
  // Character by character, so that a short target takes whole characters
  // only and an unpaired surrogate becomes one '?'.
  std::size_t out = 0;
  for (std::size_t i = 0; i < n;) {
    unsigned int units = IsHigh(src[i]) && i + 1 < n && IsLow(src[i + 1]) ? 2 : 1;
    char bytes[8];
    bool unpaired = IsLow(src[i]) || (IsHigh(src[i]) && units == 1);
    BOOL lacking = FALSE;
    int len = !unpaired ? WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, Wide(src + i), static_cast<int>(units),
                                              bytes, sizeof bytes, nullptr, &lacking)
                        : 0;
    // A character the code page lacks is one '?', a surrogate pair included;
    // no look-alike replaces it.
    if (len <= 0 || lacking) {
      bytes[0] = '?';
      len = 1;
    }
    if (target) {
      if (targetSize - out < static_cast<std::size_t>(len)) break;
      std::memcpy(target + out, bytes, static_cast<std::size_t>(len));
    }
    out += static_cast<std::size_t>(len);
    i += units;
  }
  return out;
}

std::size_t NarrowToUtf16(const char* src, int srcBytes, unsigned short* target,
                          std::size_t targetSize) {
  if (AnsiIsUtf8()) return Utf8ToUtf16(src, srcBytes, target, targetSize);
  if (!src) return 0;
  std::size_t n = srcBytes < 0 ? std::strlen(src) : static_cast<std::size_t>(srcBytes);
  std::size_t out = 0;
  for (std::size_t i = 0; i < n;) {
    unsigned int k = NarrowCharLength(src + i, n - i);
    wchar_t units[4];
    int len =
        MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, src + i, static_cast<int>(k), units, 4);
    if (len <= 0) {
      units[0] = L'?';
      len = 1;
    }
    if (target) {
      if (targetSize - out < static_cast<std::size_t>(len)) break;
      for (int u = 0; u < len; ++u) target[out + u] = static_cast<unsigned short>(units[u]);
    }
    out += static_cast<std::size_t>(len);
    i += k;
  }
  return out;
}

}  // namespace platform
}  // namespace vesk
