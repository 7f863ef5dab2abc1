/// \file
/// CRegEx: a compiled regular expression.
#ifndef VESK_UTIL_REGEX_REGEX_H
#define VESK_UTIL_REGEX_REGEX_H

#include "vesk/base/Base.h"
#include "vesk/base/Ref.h"
#include "vesk/util/regex/RegExMatch.h"

namespace vesk {
namespace util {
namespace regex {

namespace internal {
class CRegExEngine;
}

/// A compiled pattern of the Xerces-C regular-expression engine, whose
/// pattern language, option letters and matching rules apply unchanged:
/// Matches answers whether the pattern matches anywhere in the text (or in
/// the range), as the engine's `matches` does. Copies share the compiled
/// expression; the last one deletes it. A pattern and its copies belong to
/// one thread at a time.
///
/// Narrow patterns, options and texts are UTF-8 and are converted to UTF-16
/// for the engine; a byte that is not part of a well-formed character counts
/// as one '?'. Narrow ranges and the positions a narrow match records are
/// byte offsets into the UTF-8 text; a range bound inside a multi-byte
/// character stands for the start of that character.
///
/// Cost: the engine backtracks. Nested repetitions such as (a+)*b take time
/// exponential in the length of a text they nearly match; a search that
/// fails at every position, such as a*b over a long run of a's, takes time
/// quadratic in the text. The engine also recurses for every repetition of
/// a group, some hundreds of bytes of stack each: beyond about a thousand
/// units times groups, a match runs on a stack of its own, reserved at 1 KB
/// per unit and group (a million units of ((a)(b))*c touch about 1.6 GB).
/// A pattern that repeats without bound a part that can match the empty
/// text, such as (a*)*b or (a?^)*, can send the engine into endless
/// recursion; such patterns are refused with CRegExParseException (write
/// (a+)*b, (a)*b and the like instead).
class VESK_API CRegEx : public vesk::base::CBase {
 public:
  ///@{
  /// Compiles a pattern with no options. A null or empty pattern throws
  /// CIllegalArgumentException ("Invalid pattern."); a pattern the engine
  /// rejects throws CRegExParseException with the pattern and the engine's
  /// message; any other failure throws CMemoryException.
  CRegEx(const char* pattern);
  CRegEx(const unsigned short* pattern);
  ///@}
  ///@{
  /// Compiles with the engine's option letters ("i", "m", "s", "x", "F",
  /// "H", "X"). Null or empty options throw CIllegalArgumentException
  /// ("Invalid options."), checked after the pattern.
  CRegEx(const char* pattern, const char* options);
  CRegEx(const unsigned short* pattern, const unsigned short* options);
  ///@}
  /// A copy sharing other's compiled expression.
  CRegEx(const CRegEx& other) = default;
  /// Shares other's compiled expression.
  CRegEx& operator=(const CRegEx& other) = default;
  /// Releases its share of the compiled expression.
  ~CRegEx() = default;

  ///@{
  /// Whether the pattern matches the text. A null text throws
  /// CIllegalArgumentException ("Invalid match string."); a failure inside
  /// the engine throws CMemoryException (the engine fails, for one, when it
  /// reaches a back reference to a group the pattern does not have).
  bool Matches(const char* text) const;
  bool Matches(const unsigned short* text) const;
  ///@}
  ///@{
  /// The same over the range from start to end. Unless start < end <= the
  /// text's length, throws CIllegalArgumentException ("Invalid start & end
  /// positons.").
  bool Matches(const char* text, unsigned int start, unsigned int end) const;
  bool Matches(const unsigned short* text, unsigned int start, unsigned int end) const;
  ///@}
  ///@{
  /// The same, recording the group positions in match.
  bool Matches(const char* text, CRegExMatch& match) const;
  bool Matches(const unsigned short* text, CRegExMatch& match) const;
  bool Matches(const char* text, unsigned int start, unsigned int end, CRegExMatch& match) const;
  bool Matches(const unsigned short* text, unsigned int start, unsigned int end,
               CRegExMatch& match) const;
  ///@}

 private:
  void Compile(const char* pattern, const char* options);
  void Compile(const unsigned short* pattern, const unsigned short* options);
  bool MatchNarrow(const char* text, bool range, unsigned int start, unsigned int end,
                   CRegExMatch* match) const;
  bool MatchWide(const unsigned short* text, bool range, unsigned int start, unsigned int end,
                 CRegExMatch* match) const;

  vesk::base::CRef<internal::CRegExEngine> m_expression;
};

}  // namespace regex
}  // namespace util
}  // namespace vesk

#endif
