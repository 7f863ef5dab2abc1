/// \file
/// CWCharToCharUTF8: the UTF-8 converter, registered as "UTF-8".
#ifndef VESK_IO_WCHARTOCHARUTF8_H
#define VESK_IO_WCHARTOCHARUTF8_H

#include "vesk/io/WCharToCharConverter.h"

namespace vesk {
namespace io {

/// Encodes 16-bit units as UTF-8, one to three bytes per unit. Surrogates
/// follow this library's long-standing rules, which callers rely on:
/// - a high surrogate that ends the input of a call is kept pending; when
///   the next call starts with a low surrogate the pair becomes the four
///   bytes of its code point, otherwise the pending unit becomes one "?";
/// - a high surrogate inside the input becomes one "?" and swallows the unit
///   after it, whatever that unit is, so a whole pair inside one call is a
///   single "?";
/// - a lone low surrogate is encoded as three bytes like any other unit.
class VESK_API CWCharToCharUTF8 : public CWCharToCharConverter {
  VESK_DECLARE_CLASS(CWCharToCharUTF8);

  /// The value of the pending unit when none is pending (the code of "0").
  static const unsigned short kNoPendingSurrogate = 48;

  /// A converter named "UTF-8" with nothing pending.
  CWCharToCharUTF8();
  /// Copies the name and any pending high surrogate.
  CWCharToCharUTF8(const CWCharToCharUTF8& other);
  /// Copies the name and any pending high surrogate.
  CWCharToCharUTF8& operator=(const CWCharToCharUTF8& other);
  /// Nothing to release but the name.
  ~CWCharToCharUTF8() override;

  int Convert(const unsigned short* units, unsigned int offset, unsigned int length, char* bytes,
              unsigned int byteOffset, unsigned int byteLength) override;
  /// Drops a pending high surrogate; returns kNoPendingSurrogate.
  unsigned short Reset() override;
  /// EF BB BF.
  void GetByteOrderMark(char* bytes, unsigned int* size) override;

  /// The high surrogate kept from the previous call, or kNoPendingSurrogate.
  unsigned short GetPendingHighSurrogate() const { return m_pendingHighSurrogate; }

 private:
  unsigned short m_pendingHighSurrogate;
};

}  // namespace io
}  // namespace vesk

#endif
