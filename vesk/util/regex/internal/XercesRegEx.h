// The Xerces-C objects behind CRegEx and CRegExMatch, and the UTF-8 side of
// narrow matching. Only the regex sources include this file.
#ifndef VESK_UTIL_REGEX_INTERNAL_XERCESREGEX_H
#define VESK_UTIL_REGEX_INTERNAL_XERCESREGEX_H

#include <cstddef>

#include <xercesc/util/regx/Match.hpp>
#include <xercesc/util/regx/RegularExpression.hpp>

namespace vesk {
namespace util {
namespace regex {
namespace internal {

/// A compiled expression, made with the engine's default memory manager (its
/// class-level new and delete).
class CRegExEngine : public xercesc::RegularExpression {
 public:
  CRegExEngine(const XMLCh* pattern, const XMLCh* options) : RegularExpression(pattern, options) {}
  /// Whether the pattern repeats without bound a part that can match the
  /// empty text: the engine can recurse without end on such a loop.
  bool HasEmptyLoop() const;
  /// Number of groups, the whole match (group 0) included.
  int GetGroupCount() const { return fNoGroups; }
  /// After a successful match into record: a pattern that is one literal
  /// string is matched by the engine's string search, which ends the match
  /// the pattern's length (escapes included) after its start, past the text
  /// for "\\+". The end is set from the literal itself.
  void RepairLiteralEnd(xercesc::Match* record) const;
};

/// A match record, made with the engine's default memory manager.
class CMatchRecord : public xercesc::Match {};

/// The UTF-16 form of a narrow (UTF-8) text. Short texts stay in the object;
/// longer ones take a block from the library heap (CMemoryException from
/// source when it is refused).
class CWideText {
 public:
  CWideText(const char* text, std::size_t bytes, const char* source);
  ~CWideText();
  CWideText(const CWideText&) = delete;
  CWideText& operator=(const CWideText&) = delete;

  const XMLCh* Get() const { return m_text; }
  std::size_t GetLength() const { return m_length; }
  /// Whether every character took one unit and one byte (offsets agree).
  bool IsOneToOne() const { return m_length == m_bytes; }

 private:
  XMLCh m_small[256];
  XMLCh* m_text;
  std::size_t m_length;
  std::size_t m_bytes;
};

/// Units of the UTF-16 form of the characters wholly before byte offset
/// bytes of a UTF-8 text of length bytes.
std::size_t UnitOffset(const char* text, std::size_t length, std::size_t offset);
/// Byte offset of the character that begins at unit offset units of the
/// UTF-16 form (a unit inside a character stands for its start).
std::size_t ByteOffset(const char* text, std::size_t length, std::size_t units);

}  // namespace internal
}  // namespace regex
}  // namespace util
}  // namespace vesk

#endif
