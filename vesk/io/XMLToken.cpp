#include "vesk/io/XMLToken.h"

namespace vesk {
namespace io {

using vesk::base::CUnicodeString;

VESK_IMPLEMENT_CLASS(CXMLToken, CXMLToken, "vesk::io::CXMLToken", "vesk::base::CObject")

CXMLToken::~CXMLToken() {}

CUnicodeString CXMLToken::GetValue() const { return CUnicodeString(); }

}  // namespace io
}  // namespace vesk
