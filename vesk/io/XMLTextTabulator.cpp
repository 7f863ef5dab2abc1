#include "vesk/io/XMLTextTabulator.h"

namespace vesk {
namespace io {

VESK_IMPLEMENT_CLASS(CXMLTextTabulator, CXMLTextTabulator, "vesk::io::CXMLTextTabulator",
                     "vesk::base::CObject")

CXMLTextTabulator::~CXMLTextTabulator() {}

}  // namespace io
}  // namespace vesk
