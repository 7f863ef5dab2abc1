/// \file
/// CPushbackReader: a reader to which 16-bit units can be given back.
#ifndef VESK_IO_PUSHBACKREADER_H
#define VESK_IO_PUSHBACKREADER_H

#include "vesk/base/Ref.h"
#include "vesk/io/Reader.h"

namespace vesk {
namespace io {

/// A decorator with a pushback buffer of 16-bit units: units given back with
/// Unread are read again before the wrapped reader is read, the last one
/// given back first. The CRef constructor keeps the wrapped reader alive;
/// the pointer constructor borrows it.
class VESK_API CPushbackReader : public CReader {
  VESK_DECLARE_CLASS(CPushbackReader);

  /// Borrows reader; size is the room for units given back. Throws
  /// CIllegalArgumentException for null or a size of 0, CMemoryException
  /// when the buffer cannot be allocated.
  CPushbackReader(CReader* reader, unsigned int size);
  /// Shares reader; otherwise as above.
  CPushbackReader(const vesk::base::CRef<CReader>& reader, unsigned int size);
  /// Frees the pushback buffer; does not close the wrapped reader.
  ~CPushbackReader() override;

  /// Units given back first, then the wrapped reader; when that is at its
  /// end the result is the number given back minus one.
  int Read(unsigned short* buffer, unsigned int offset, unsigned int length) override;
  int Read(unsigned short* buffer, unsigned int length) override;
  /// One unit, or EOS.
  int Read() override;
  int Skip(unsigned int count) override;
  /// Drops the units given back and resets the wrapped reader.
  void Reset() override;
  /// Closes the wrapped reader; the decorator is closed even when that
  /// fails. Closing twice throws.
  void Close() override;

  /// Gives one unit back. CIOException "Pushback buffer is full." when there
  /// is no room. Works on a closed reader too.
  void Unread(unsigned short ch);
  /// Gives units back so that chars[0] is read first. CIOException when
  /// length exceeds the room left; a null source gives nothing back.
  void Unread(const unsigned short* chars, unsigned int length);
  /// Gives back length units from chars + offset, so that chars[offset] is
  /// read first. CIOException "Pushback buffer is full." when length exceeds
  /// the room left.
  void Unread(const unsigned short* chars, unsigned int offset, unsigned int length);

 private:
  CPushbackReader(const CPushbackReader&);
  CPushbackReader& operator=(const CPushbackReader&);

  void Init(CReader* reader, unsigned int size);

  CReader* m_stream;
  vesk::base::CRef<CReader> m_streamRef;
  unsigned short* m_buffer;
  unsigned int m_bufferSize;
  unsigned int m_position;
};

}  // namespace io
}  // namespace vesk

#endif
