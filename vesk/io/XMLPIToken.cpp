#include "vesk/io/XMLPIToken.h"

namespace vesk {
namespace io {

using vesk::base::CUnicodeString;

VESK_IMPLEMENT_CLASS(CXMLPIToken, CXMLPIToken, "vesk::io::CXMLPIToken", "vesk::io::CXMLToken")

CXMLPIToken::~CXMLPIToken() {}

}  // namespace io
}  // namespace vesk
