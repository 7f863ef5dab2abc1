#include "vesk/io/UnknownCharacterException.h"

namespace vesk {
namespace io {

VESK_IMPLEMENT_CLASS(CUnknownCharacterException, CUnknownCharacterException, "vesk::io::CUnknownCharacterException", "vesk::io::CCharConversionException")

CUnknownCharacterException::CUnknownCharacterException(const char* sourceFile, int sourceLine, unsigned short character)
    : CCharConversionException(sourceFile, static_cast<unsigned int>(sourceLine), nullptr, nullptr),
      m_character(character) {}

}  // namespace io
}  // namespace vesk
