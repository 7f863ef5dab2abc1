/// \file
/// vesk::io::CUnknownCharacterException
#ifndef VESK_IO_UNKNOWNCHARACTEREXCEPTION_H
#define VESK_IO_UNKNOWNCHARACTEREXCEPTION_H

#include "vesk/io/CharConversionException.h"

namespace vesk {
namespace io {

/// Exception class vesk::io::CUnknownCharacterException (base vesk::io::CCharConversionException).
class VESK_API CUnknownCharacterException : public vesk::io::CCharConversionException {
  VESK_DECLARE_CLASS(CUnknownCharacterException);

  /// Records the throw site and the unit; description and message are null.
  CUnknownCharacterException(const char* sourceFile, int sourceLine, unsigned short character);
  /// The UTF-16 code unit that could not be converted.
  unsigned short GetCharacter() const { return m_character; }

 private:
  unsigned short m_character;
};

}  // namespace io
}  // namespace vesk

#endif
