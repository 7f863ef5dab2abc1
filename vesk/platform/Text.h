/// \file
/// Narrow text primitives of the platform layer. Narrow text is UTF-8: every
/// search and step moves over whole characters (a well-formed UTF-8
/// sequence). A byte that does not start a well-formed sequence counts as a
/// character of its own, so malformed input is walked byte by byte and never
/// read past its terminator or its given length.
#ifndef VESK_PLATFORM_TEXT_H
#define VESK_PLATFORM_TEXT_H

#include <cstddef>

#include "vesk/base/Export.h"

namespace vesk {
namespace platform {

/// Case types of comparisons and searches.
enum TextCase {
  kTextIgnoreCase = 0,  ///< simple Unicode case folding per code point
  kTextExactCase = 1    ///< byte for byte
};

/// Decodes the character at text, reading at most available bytes. Returns
/// its byte count (1 to 4; 0 only when available is 0) and stores its code
/// point in *codePoint, or -1 when the byte is malformed (count 1).
/// Overlong forms, surrogates and values above U+10FFFF are malformed.
VESK_API unsigned int Utf8Decode(const char* text, std::size_t available, int* codePoint);
/// Writes the UTF-8 form of a code point (0 to 0x10FFFF, surrogates
/// excluded) to out (room for 4 bytes); returns the byte count, 0 when the
/// code point has no UTF-8 form.
VESK_API unsigned int Utf8Encode(int codePoint, char* out);
/// Byte count of the character at text (a NUL-terminated text): 1 for a
/// NUL, an ASCII byte or a malformed byte.
VESK_API unsigned int TextCharLength(const char* text);
/// The character after the one at text; text itself at the terminator.
VESK_API const char* TextNextChar(const char* text);

/// Compares two texts (a length of -1 means up to the NUL) with a case type.
/// Exact comparison orders by unsigned bytes; ignoring case compares the
/// case-folded code points (malformed bytes compare as themselves, above
/// every character). Returns a negative, zero or positive value.
VESK_API int TextCompare(const char* a, int lengthA, const char* b, int lengthB, int caseType);

/// First character of text that is the single byte c; null when there is
/// none or c is NUL.
VESK_API const char* TextFindChar(const char* text, char c);
/// Last character of text that is the single byte c; null when none.
VESK_API const char* TextFindCharRight(const char* text, char c);
/// First occurrence of needle in text that begins on a character boundary,
/// with a case type; null when there is none. An empty needle matches at text.
VESK_API const char* TextFindSubstring(const char* text, const char* needle, int caseType);

/// Whether the character at text is white space (an ASCII byte for which
/// isspace is true; multi-byte characters never are).
VESK_API bool TextIsSpace(const char* text);
/// The first character of text that is not white space (the terminator
/// when all are).
VESK_API const char* TextSkipSpace(const char* text);
/// Where the trailing run of white space of text begins (the terminator
/// when there is none).
VESK_API const char* TextTrailingSpace(const char* text);
/// The first character of text that does not occur in the character set
/// (set, setLength bytes of UTF-8; a character is in the set when the same
/// byte sequence is one of its characters).
VESK_API const char* TextSkipSet(const char* text, const char* set, std::size_t setLength);
/// Where the trailing run of characters of the set begins.
VESK_API const char* TextTrailingSet(const char* text, const char* set, std::size_t setLength);

/// Maps length bytes of text to upper (or lower) case in place, per code
/// point. The buffer keeps its length: a character whose mapping would have
/// another UTF-8 length is left as it is. Malformed bytes are left alone.
VESK_API void TextMapCase(char* text, std::size_t length, bool upper);
/// Reverses the order of the characters of length bytes of text in place;
/// the bytes of each multi-byte character keep their order.
VESK_API void TextReverse(char* text, std::size_t length);

}  // namespace platform
}  // namespace vesk

#endif
