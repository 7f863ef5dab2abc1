#include "vesk/platform/CaseMapping.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace vesk {
namespace platform {

namespace {

// Maps one code point with the system's linguistic casing tables of the
// invariant locale (no Turkic dotted and dotless i rules). A mapping that
// needs more than one code point leaves the code point as it is.
int MapCase(int codePoint, DWORD flags) noexcept {
  if (codePoint < 0 || codePoint > 0x10FFFF || (codePoint >= 0xD800 && codePoint <= 0xDFFF))
    return codePoint;
  if (codePoint < 0x80) {
    // ASCII, the common case, without a system call.
    if ((flags & LCMAP_UPPERCASE) && codePoint >= 'a' && codePoint <= 'z') return codePoint - 32;
    if ((flags & LCMAP_LOWERCASE) && codePoint >= 'A' && codePoint <= 'Z') return codePoint + 32;
    return codePoint;
  }
  WCHAR source[2];
  int units = 1;
  if (codePoint >= 0x10000) {
    source[0] = static_cast<WCHAR>(0xD800 + ((codePoint - 0x10000) >> 10));
    source[1] = static_cast<WCHAR>(0xDC00 + ((codePoint - 0x10000) & 0x3FF));
    units = 2;
  } else {
    source[0] = static_cast<WCHAR>(codePoint);
  }
  WCHAR mapped[4];
  int n = LCMapStringEx(LOCALE_NAME_INVARIANT, flags | LCMAP_LINGUISTIC_CASING, source, units,
                        mapped, 4, nullptr, nullptr, 0);
  if (n == 1 && (mapped[0] < 0xD800 || mapped[0] > 0xDFFF)) return mapped[0];
  if (n == 2 && mapped[0] >= 0xD800 && mapped[0] <= 0xDBFF && mapped[1] >= 0xDC00 &&
      mapped[1] <= 0xDFFF)
    return 0x10000 + ((mapped[0] - 0xD800) << 10) + (mapped[1] - 0xDC00);
  return codePoint;
}

}  // namespace

int CaseUpper(int codePoint) noexcept { return MapCase(codePoint, LCMAP_UPPERCASE); }

int CaseLower(int codePoint) noexcept { return MapCase(codePoint, LCMAP_LOWERCASE); }

// The system has no case folding of its own. Folding is the lower case of the
// upper case, which joins the forms that simple folding joins (final and
// medial sigma, long s, the title-case digraphs); the capital I with dot and
// the dotless i have no simple folding and stay themselves.
int CaseFold(int codePoint) noexcept {
  if (codePoint == 0x130 || codePoint == 0x131) return codePoint;
  return CaseLower(CaseUpper(codePoint));
}

}  // namespace platform
}  // namespace vesk
