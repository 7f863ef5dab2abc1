/// \file
/// The host's simple (one code point to one code point) case mappings, used
/// by the narrow and 16-bit text primitives. ICU gives them on POSIX hosts,
/// the system's own tables on Windows.
#ifndef VESK_PLATFORM_CASEMAPPING_H
#define VESK_PLATFORM_CASEMAPPING_H

namespace vesk {
namespace platform {

/// The simple upper-case mapping of a code point (itself when it has none).
int CaseUpper(int codePoint) noexcept;
/// The simple lower-case mapping of a code point (itself when it has none).
int CaseLower(int codePoint) noexcept;
/// The simple case folding of a code point, for comparisons that ignore case.
int CaseFold(int codePoint) noexcept;

}  // namespace platform
}  // namespace vesk

#endif
