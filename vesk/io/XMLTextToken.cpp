#include "vesk/io/XMLTextToken.h"

namespace vesk {
namespace io {

using vesk::base::CUnicodeString;

VESK_IMPLEMENT_CLASS(CXMLTextToken, CXMLTextToken, "vesk::io::CXMLTextToken", "vesk::io::CXMLToken")

CXMLTextToken::~CXMLTextToken() {}

}  // namespace io
}  // namespace vesk
