/// \file
/// Internal: the buffer logic shared by the byte streams and their 16-bit
/// twins (buffered input, pushback, buffered output). Each decorator keeps
/// its own fields; these views borrow them for one operation, so the twins
/// run the same code over char and unsigned short. Not installed.
#ifndef VESK_IO_INTERNAL_STREAMSTATE_H
#define VESK_IO_INTERNAL_STREAMSTATE_H

#include <cstring>

namespace vesk {
namespace io {
namespace internal {

/// Throws the "closed" exception of a decorator; kept out of line so the
/// checks on per-value paths stay small.
template <typename Exception>
[[noreturn]] __attribute__((noinline, cold)) void ThrowClosed(const char* source, unsigned int line,
                                                              const char* message) {
  throw Exception(source, line, message);
}

/// The value a read hands out for a unit: bytes are sign-extended, 16-bit
/// units are not.
inline int UnitValue(char unit) { return static_cast<signed char>(unit); }
inline int UnitValue(unsigned short unit) { return unit; }

template <typename Unit>
inline void CopyUnits(Unit* to, const Unit* from, unsigned int count) {
  std::memcpy(to, from, count * sizeof(Unit));
}

/// Closes the wrapped stream; the decorator counts as closed even when
/// that close fails.
template <typename Source>
inline void CloseWrapped(Source*& stream) {
  Source* wrapped = stream;
  stream = nullptr;
  wrapped->Close();
}

/// The default Skip of the input contracts: reads one unit at a time and
/// answers the count it did not get to skip (0 when it skipped them all).
template <typename Source>
int SkipByReading(Source& source, unsigned int count) {
  unsigned int remaining = count;
  while (remaining > 0 && source.Read() != Source::EOS) --remaining;
  return static_cast<int>(remaining);
}

/// A read buffer over a wrapped source: units [position, count) are
/// buffered. The caller has checked that the decorator is open.
template <typename Unit, typename Source>
struct TReadBuffer {
  Source* stream;
  Unit* buffer;
  unsigned int size;
  unsigned int& count;
  unsigned int& position;

  /// Moves what is left to the front and tops the buffer up with one read
  /// of the wrapped source; a short read is accepted.
  void Fill() {
    if (position < count)
      std::memmove(buffer, buffer + position, (count - position) * sizeof(Unit));
    count -= position;
    position = 0;
    int read = stream->Read(buffer, count, size - count);
    if (read > 0) count += static_cast<unsigned int>(read);
  }

  /// An array read into target (not null). A request longer than the
  /// buffer goes straight to the source, ahead of what is buffered. When
  /// the buffered units cannot serve it, one fill tops it up: appended
  /// after them for the byte stream; for the reader (refillOverwrites) the
  /// fresh units are written over the start of the target and only they
  /// are counted, and a request of exactly the buffered count also refills.
  int Read(Unit* target, unsigned int offset, unsigned int length, bool withOffset,
           bool refillOverwrites) {
    if (length == 0) return 0;
    if (length > size) {
      return withOffset ? stream->Read(target, offset, length) : stream->Read(target, length);
    }
    target += offset;
    unsigned int buffered = count - position;
    if (refillOverwrites ? length < buffered : length <= buffered) {
      CopyUnits(target, buffer + position, length);
      position += length;
      return static_cast<int>(length);
    }
    CopyUnits(target, buffer + position, buffered);
    position = count;
    Fill();
    unsigned int fresh = count - position;
    if (refillOverwrites) {
      unsigned int copied = fresh < length ? fresh : length;
      CopyUnits(target, buffer + position, copied);
      position += copied;
      return static_cast<int>(copied);
    }
    unsigned int wanted = length - buffered;
    unsigned int more = fresh < wanted ? fresh : wanted;
    CopyUnits(target + buffered, buffer + position, more);
    position += more;
    return static_cast<int>(buffered + more);
  }

  /// One unit, or eos at the end of the source.
  int Read(int eos) {
    if (position >= count) {
      Fill();
      if (position >= count) return eos;
    }
    return UnitValue(buffer[position++]);
  }

  /// The buffered units dropped plus what the source's Skip returns.
  int Skip(unsigned int skip) {
    if (skip == 0) return 0;
    unsigned int buffered = count - position;
    if (skip > buffered) {
      count = 0;
      position = 0;
      return stream->Skip(skip - buffered) + static_cast<int>(buffered);
    }
    position += skip;
    return static_cast<int>(skip);
  }

  void Reset() {
    count = 0;
    position = 0;
    stream->Reset();
  }
};

/// A pushback buffer over a wrapped source: units [position, size) were
/// pushed back and are read first. The caller has checked that the
/// decorator is open.
template <typename Unit, typename Source>
struct TPushbackBuffer {
  Source* stream;
  Unit* buffer;
  unsigned int size;
  unsigned int& position;

  int Read(Unit* target, unsigned int offset, unsigned int length) {
    if (length == 0) return 0;
    unsigned int pushed = size - position;
    if (length < pushed) {
      CopyUnits(target + offset, buffer + position, length);
      position += length;
      return static_cast<int>(length);
    }
    CopyUnits(target + offset, buffer + position, pushed);
    position = size;
    // At the end of the wrapped source this gives pushed - 1; callers of
    // the library rely on that figure.
    return stream->Read(target, offset + pushed, length - pushed) + static_cast<int>(pushed);
  }

  int Read() {
    if (position < size) return UnitValue(buffer[position++]);
    return stream->Read();
  }

  /// Skipping exactly the pushed-back units still asks the source to skip 0.
  int Skip(unsigned int skip) {
    if (skip == 0) return 0;
    unsigned int pushed = size - position;
    if (pushed <= skip) {
      position = size;
      return stream->Skip(skip - pushed) + static_cast<int>(pushed);
    }
    position += skip;
    return static_cast<int>(skip);
  }

  void Reset() {
    position = size;
    stream->Reset();
  }

  /// Pushes length units back in front of what is pushed already; the
  /// caller has made sure they fit.
  void Unread(const Unit* units, unsigned int offset, unsigned int length) {
    if (!units || length == 0) return;
    position -= length;
    CopyUnits(buffer + position, units + offset, length);
  }
};

/// A write buffer over a wrapped sink: units [0, count) wait to be written.
template <typename Unit, typename Sink>
struct TWriteBuffer {
  Sink* stream;
  Unit* buffer;
  unsigned int size;
  unsigned int& count;

  void Flush() {
    if (count > 0) {
      stream->Write(buffer, 0, count);
      count = 0;
    }
  }

  /// A write of at least the buffer size flushes and goes straight
  /// through; a range whose end wraps past 2^32 writes nothing.
  void Write(const Unit* units, unsigned int offset, unsigned int length) {
    if (length >= size) {
      Flush();
      stream->Write(units, offset, length);
      return;
    }
    unsigned int end = offset + length;
    if (end < offset) return;
    const Unit* from = units + offset;
    while (length > 0) {
      unsigned int room = size - count;
      unsigned int piece = length < room ? length : room;
      CopyUnits(buffer + count, from, piece);
      count += piece;
      from += piece;
      length -= piece;
      if (count == size) Flush();
    }
  }

  /// Flushes a full buffer first, so the buffer may stay full afterwards.
  void Put(Unit unit) {
    if (count == size) Flush();
    buffer[count++] = unit;
  }
};

}  // namespace internal
}  // namespace io
}  // namespace vesk

/// Throws CIOException with message from the line of the check when stream
/// (the decorator's wrapped stream) is null, i.e. the decorator is closed.
#define VESK_IO_CHECK_OPEN(stream, source, message) \
  if (__builtin_expect(!(stream), 0))               \
  ::vesk::io::internal::ThrowClosed<::vesk::io::CIOException>(source, __LINE__, message)

#endif
