/// \file
/// 16-bit text primitives of the platform layer: UTF-16 code units held in
/// unsigned short, zero-terminated unless a length is given, and the
/// conversions between UTF-16 and UTF-8 or the host's narrow text.
#ifndef VESK_PLATFORM_UTF16_H
#define VESK_PLATFORM_UTF16_H

#include <cstddef>

#include "vesk/base/Export.h"

namespace vesk {
namespace platform {

/// Number of units before the terminating zero; 0 for null.
VESK_API unsigned int Utf16Length(const unsigned short* text);
/// As Utf16Length, but looks at no more than maxUnits units.
VESK_API unsigned int Utf16LengthBounded(const unsigned short* text, unsigned int maxUnits);

/// Compares two texts (a length of -1 means up to the zero unit; null is
/// the empty text) unit by unit with a case type (see TextCase: 1 exact,
/// 0 ignoring case). Ignoring case compares the UTF-16 forms of the
/// simply case-folded code points; unpaired surrogates compare as
/// themselves. Returns a negative, zero or positive value.
VESK_API int Utf16CompareTexts(const unsigned short* a, int lengthA, const unsigned short* b,
                               int lengthB, int caseType);
/// Exact comparison of two zero-terminated texts.
VESK_API int Utf16Compare(const unsigned short* a, const unsigned short* b);
/// Comparison of two zero-terminated texts ignoring case.
VESK_API int Utf16CompareIgnoreCase(const unsigned short* a, const unsigned short* b);

/// First unit c in text; null when there is none or c is 0.
VESK_API const unsigned short* Utf16FindChar(const unsigned short* text, unsigned short c);
/// Last unit c in text; null when there is none or c is 0.
VESK_API const unsigned short* Utf16FindCharRight(const unsigned short* text, unsigned short c);
/// First occurrence of needle in text with a case type; null when there is
/// none. An empty needle matches at text. Ignoring case, a match starts on
/// a code point (never on the low half of a surrogate pair).
VESK_API const unsigned short* Utf16FindSubstring(const unsigned short* text,
                                                  const unsigned short* needle, int caseType);

/// Whether a unit is white space: tab to carriage return, the separators
/// 0x1C to 0x1F, next line (0x85), and the Unicode space, line and paragraph
/// separators.
/// Surrogates never are.
VESK_API bool Utf16IsSpace(unsigned short c);

/// Maps length units of text to upper (or lower) case in place, per code
/// point; a character whose mapping needs another number of units is left
/// as it is.
VESK_API void Utf16MapCase(unsigned short* text, std::size_t length, bool upper);

/// Converts srcUnits units of src (-1: up to the zero unit) to UTF-8. An
/// unpaired surrogate becomes '?'. With target null nothing is written and
/// the result is the number of bytes the whole conversion needs. Otherwise
/// at most targetSize bytes are written, whole characters only, and the
/// result is the number written. No terminator is written.
VESK_API std::size_t Utf16ToUtf8(const unsigned short* src, int srcUnits, char* target,
                                 std::size_t targetSize);
/// Converts srcBytes bytes of UTF-8 (-1: up to the NUL) to UTF-16; every
/// malformed byte becomes '?'. With target null the result is the number of
/// units needed; otherwise at most targetSize units are written, whole
/// characters only, and the result is the number written. No terminator is
/// written.
VESK_API std::size_t Utf8ToUtf16(const char* src, int srcBytes, unsigned short* target,
                                 std::size_t targetSize);

/// Converts srcUnits units of src (-1: up to the zero unit) to the host's
/// narrow text (UTF-8 on POSIX, the ANSI code page on Windows), with the
/// contract of Utf16ToUtf8: what the code page cannot hold becomes '?'.
VESK_API std::size_t Utf16ToNarrow(const unsigned short* src, int srcUnits, char* target,
                                   std::size_t targetSize);
/// Converts srcBytes bytes of the host's narrow text (-1: up to the NUL) to
/// UTF-16, with the contract of Utf8ToUtf16.
VESK_API std::size_t NarrowToUtf16(const char* src, int srcBytes, unsigned short* target,
                                   std::size_t targetSize);

}  // namespace platform
}  // namespace vesk

#endif
