#include "vesk/platform/CaseMapping.h"

#include <unicode/uchar.h>

namespace vesk {
namespace platform {

int CaseUpper(int codePoint) noexcept { return static_cast<int>(u_toupper(codePoint)); }

int CaseLower(int codePoint) noexcept { return static_cast<int>(u_tolower(codePoint)); }

int CaseFold(int codePoint) noexcept {
  return static_cast<int>(u_foldCase(codePoint, U_FOLD_CASE_DEFAULT));
}

}  // namespace platform
}  // namespace vesk
