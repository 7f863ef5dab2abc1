#include "vesk/util/regex/RegExMatch.h"


#include "vesk/base/ArrayIndexOutOfBoundsException.h"
#include "vesk/base/NullReferenceException.h"
#include "vesk/platform/Throw.h"
#include "vesk/platform/Xerces.h"
#include "vesk/util/regex/internal/XercesRegEx.h"

namespace vesk {
namespace util {
namespace regex {

namespace {
const char kSource[] = "vesk/util/regex/RegExMatch";
}  // namespace

CRegExMatch::CRegExMatch() {
  if (!platform::EnsureXerces()) VESK_THROW(kSource, vesk::base::CMemoryException);
  internal::CMatchRecord* record;
  try {
    record = new internal::CMatchRecord();
  } catch (...) {
    VESK_THROW(kSource, vesk::base::CMemoryException);
  }
  m_match = record;
}

unsigned int CRegExMatch::GetGroupCount() const {
  const internal::CMatchRecord* record = m_match.Get();
  if (!record) VESK_THROW(kSource, vesk::base::CNullReferenceException);
  int groups = record->getNoGroups();
  return groups > 0 ? static_cast<unsigned int>(groups) : 0;
}

unsigned int CRegExMatch::GetStartPosOfGroup(unsigned int group) const {
  return GetPosition(group, false);
}

unsigned int CRegExMatch::GetEndPosOfGroup(unsigned int group) const {
  return GetPosition(group, true);
}

unsigned int CRegExMatch::GetPosition(unsigned int group, bool end) const {
  const internal::CMatchRecord* record = m_match.Get();
  // A record that holds no match yet has no positions to give.
  if (!record || record->getNoGroups() <= 0)
    VESK_THROW(kSource, vesk::base::CNullReferenceException);
  if (group >= static_cast<unsigned int>(record->getNoGroups()))
    VESK_THROW(kSource, vesk::base::CArrayIndexOutOfBoundsException);
  int index = static_cast<int>(group);
  return static_cast<unsigned int>(end ? record->getEndPos(index) : record->getStartPos(index));
}

}  // namespace regex
}  // namespace util
}  // namespace vesk
