/// \file
/// CRegExMatch: the group positions of the last match made with it.
#ifndef VESK_UTIL_REGEX_REGEXMATCH_H
#define VESK_UTIL_REGEX_REGEXMATCH_H

#include "vesk/base/Base.h"
#include "vesk/base/Ref.h"

namespace vesk {
namespace util {
namespace regex {

class CRegEx;
namespace internal {
class CMatchRecord;
}

/// A match record: CRegEx::Matches fills it with the start and end of every
/// group of the pattern, group 0 being the whole match. Copies share one
/// record, so a match made through one copy shows in all.
///
/// Positions count the units of the text that was matched: bytes of the
/// UTF-8 text for the narrow Matches, 16-bit units for the 16-bit ones. A
/// group that took no part in the match reports 0xFFFFFFFF (-1) for both.
class VESK_API CRegExMatch : public vesk::base::CBase {
 public:
  /// A fresh record that holds no match yet. Allocation failures throw
  /// CMemoryException.
  CRegExMatch();
  /// A copy that shares other's record: a later match through either shows
  /// in both.
  CRegExMatch(const CRegExMatch& other) = default;
  /// Shares other's record.
  CRegExMatch& operator=(const CRegExMatch& other) = default;
  /// Releases its share of the record.
  ~CRegExMatch() = default;

  /// Number of groups of the last match, group 0 included; 0 before the
  /// first match.
  unsigned int GetGroupCount() const;
  /// Start of a group. CNullReferenceException before the first match,
  /// CArrayIndexOutOfBoundsException for a group not below GetGroupCount().
  unsigned int GetStartPosOfGroup(unsigned int group) const;
  /// End of a group (one past its last unit); as GetStartPosOfGroup.
  unsigned int GetEndPosOfGroup(unsigned int group) const;

 private:
  friend class CRegEx;
  unsigned int GetPosition(unsigned int group, bool end) const;

  vesk::base::CRef<internal::CMatchRecord> m_match;
};

}  // namespace regex
}  // namespace util
}  // namespace vesk

#endif
