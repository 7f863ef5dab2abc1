#include "vesk/platform/Format16.h"

#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "vesk/platform/Memory.h"
#include "vesk/platform/Utf16.h"

namespace vesk {
namespace platform {

namespace {

// Collects the output: writes what fits below size - 1 and keeps counting the
// rest, so the caller learns how much room the whole result needs.
struct Sink {
  unsigned short* buffer;
  std::size_t size;
  std::size_t count;

  std::size_t Room() const { return (size > 0 && count < size - 1) ? size - 1 - count : 0; }

  void Put(unsigned short unit) {
    if (Room() > 0) buffer[count] = unit;
    ++count;
  }
  void Put(const unsigned short* units, std::size_t n) {
    std::size_t room = Room();
    std::memcpy(buffer + count, units, (n < room ? n : room) * sizeof(unsigned short));
    count += n;
  }
  void Pad(std::size_t n) {
    std::size_t room = Room();
    for (std::size_t i = 0; i < n && i < room; ++i) buffer[count + i] = ' ';
    count += n;
  }
};

enum Length { kNone, kHH, kH, kL, kLL, kJ, kZ, kT, kLongDouble, kI32, kI64, kIPtr, kW };

struct Directive {
  bool left = false;
  bool plus = false;
  bool space = false;
  bool alt = false;
  bool zero = false;
  bool group = false;
  int width = -1;
  int precision = -1;
  Length length = kNone;
};

inline bool IsDigit(unsigned short u) { return u >= '0' && u <= '9'; }

// Reads a decimal number, saturating instead of overflowing.
int ReadNumber(const unsigned short*& p) {
  long value = 0;
  while (IsDigit(*p)) {
    if (value < INT_MAX) value = value * 10 + (*p - '0');
    ++p;
  }
  return value > INT_MAX ? INT_MAX : static_cast<int>(value);
}

// Pads a piece of n units to the directive's width (spaces; text conversions
// ignore the zero flag) around the piece written by put.
template <typename Put>
void PutPadded(Sink& sink, const Directive& d, std::size_t n, Put put) {
  std::size_t pad = (d.width > 0 && static_cast<std::size_t>(d.width) > n) ? d.width - n : 0;
  if (!d.left) sink.Pad(pad);
  put();
  if (d.left) sink.Pad(pad);
}

// Appends n bytes of narrow text (the host code page), already free of a NUL.
bool PutNarrowRaw(Sink& sink, const char* text, std::size_t n) {
  std::size_t i = 0;
  while (i < n && static_cast<unsigned char>(text[i]) < 0x80) sink.Put(text[i++]);
  if (i == n) return true;
  text += i;
  n -= i;
  std::size_t units = NarrowToUtf16(text, static_cast<int>(n), nullptr, 0);
  std::size_t room = sink.Room();
  if (room >= units || room == 0) {
    if (room > 0) NarrowToUtf16(text, static_cast<int>(n), sink.buffer + sink.count, units);
    sink.count += units;
    return true;
  }
  // Only a part fits: convert the whole piece aside and keep what fits.
  unsigned short* scratch =
      static_cast<unsigned short*>(Alloc((units + 1) * sizeof(unsigned short)));
  if (!scratch) return false;
  NarrowToUtf16(text, static_cast<int>(n), scratch, units);
  sink.Put(scratch, units);
  Free(scratch);
  return true;
}

// Prints one numeric or pointer conversion with the narrow formatter, then
// widens the result.
template <typename T>
bool PutNumber(Sink& sink, const Directive& d, const char* length, char conversion, T value) {
  char format[24];
  char* f = format;
  *f++ = '%';
  if (d.left) *f++ = '-';
  if (d.plus) *f++ = '+';
  if (d.space) *f++ = ' ';
  if (d.alt) *f++ = '#';
  if (d.zero) *f++ = '0';
  if (d.group) *f++ = '\'';
  *f++ = '*';
  if (d.precision >= 0) {
    *f++ = '.';
    *f++ = '*';
  }
  while (*length) *f++ = *length++;
  *f++ = conversion;
  *f = '\0';

  int width = d.width < 0 ? 0 : d.width;
  char local[128];
  char* out = local;
  int n = d.precision >= 0 ? std::snprintf(local, sizeof local, format, width, d.precision, value)
                           : std::snprintf(local, sizeof local, format, width, value);
  if (n < 0) return true;  // the host refused the directive: print nothing for it
  if (static_cast<std::size_t>(n) >= sizeof local) {
    out = static_cast<char*>(Alloc(static_cast<std::size_t>(n) + 1));
    if (!out) return false;
    if (d.precision >= 0) {
      std::snprintf(out, static_cast<std::size_t>(n) + 1, format, width, d.precision, value);
    } else {
      std::snprintf(out, static_cast<std::size_t>(n) + 1, format, width, value);
    }
  }
  bool ok = PutNarrowRaw(sink, out, static_cast<std::size_t>(n));
  if (out != local) Free(out);
  return ok;
}

long long SignedArgument(Length length, std::va_list& args) {
  switch (length) {
    case kHH:
      return static_cast<signed char>(va_arg(args, int));
    case kH:
      return static_cast<short>(va_arg(args, int));
    case kL:
      return va_arg(args, long);
    case kLL:
    case kI64:
      return va_arg(args, long long);
    case kJ:
      return static_cast<long long>(va_arg(args, std::intmax_t));
    case kZ:
    case kT:
    case kIPtr:
      return static_cast<long long>(va_arg(args, std::ptrdiff_t));
    default:
      return va_arg(args, int);
  }
}

unsigned long long UnsignedArgument(Length length, std::va_list& args) {
  switch (length) {
    case kHH:
      return static_cast<unsigned char>(va_arg(args, unsigned int));
    case kH:
      return static_cast<unsigned short>(va_arg(args, unsigned int));
    case kL:
      return va_arg(args, unsigned long);
    case kLL:
    case kI64:
      return va_arg(args, unsigned long long);
    case kJ:
      return static_cast<unsigned long long>(va_arg(args, std::uintmax_t));
    case kZ:
    case kT:
    case kIPtr:
      return static_cast<unsigned long long>(va_arg(args, std::size_t));
    default:
      return va_arg(args, unsigned int);
  }
}

void StoreCount(Length length, std::va_list& args, std::size_t count) {
  switch (length) {
    case kHH:
      *va_arg(args, signed char*) = static_cast<signed char>(count);
      break;
    case kH:
      *va_arg(args, short*) = static_cast<short>(count);
      break;
    case kL:
      *va_arg(args, long*) = static_cast<long>(count);
      break;
    case kLL:
    case kI64:
      *va_arg(args, long long*) = static_cast<long long>(count);
      break;
    case kJ:
      *va_arg(args, std::intmax_t*) = static_cast<std::intmax_t>(count);
      break;
    case kZ:
    case kT:
    case kIPtr:
      *va_arg(args, std::ptrdiff_t*) = static_cast<std::ptrdiff_t>(count);
      break;
    default:
      *va_arg(args, int*) = static_cast<int>(count);
      break;
  }
}

const unsigned short kNullText[] = {'(', 'n', 'u', 'l', 'l', ')', 0};

void PutWideString(Sink& sink, const Directive& d, const unsigned short* text) {
  if (!text) text = kNullText;
  std::size_t n = 0;
  if (d.precision >= 0) {
    while (n < static_cast<std::size_t>(d.precision) && text[n]) ++n;
  } else {
    while (text[n]) ++n;
  }
  PutPadded(sink, d, n, [&] { sink.Put(text, n); });
}

bool PutNarrowString(Sink& sink, const Directive& d, const char* text) {
  if (!text) text = "(null)";
  std::size_t n;
  if (d.precision >= 0) {
    // The precision bounds the bytes read, as in the narrow printf; a sequence
    // it would cut is dropped whole.
    n = strnlen(text, static_cast<std::size_t>(d.precision));
    std::size_t lead = n;
    while (lead > 0 && (static_cast<unsigned char>(text[lead - 1]) & 0xC0) == 0x80) --lead;
    if (lead > 0) {
      unsigned char b = static_cast<unsigned char>(text[lead - 1]);
      std::size_t need = b >= 0xF0 ? 4 : b >= 0xE0 ? 3 : b >= 0xC0 ? 2 : 1;
      if (b >= 0x80 && n - (lead - 1) < need) n = lead - 1;
    }
  } else {
    n = std::strlen(text);
  }
  std::size_t units = NarrowToUtf16(text, static_cast<int>(n), nullptr, 0);
  bool ok = true;
  PutPadded(sink, d, units, [&] { ok = PutNarrowRaw(sink, text, n); });
  return ok;
}

void PutCodePoint(Sink& sink, const Directive& d, unsigned int c) {
  unsigned short units[2];
  std::size_t n = 1;
  if (c <= 0xFFFF) {
    units[0] = static_cast<unsigned short>(c);
  } else if (c <= 0x10FFFF) {
    units[0] = static_cast<unsigned short>(0xD800 + ((c - 0x10000) >> 10));
    units[1] = static_cast<unsigned short>(0xDC00 + ((c - 0x10000) & 0x3FF));
    n = 2;
  } else {
    units[0] = '?';
  }
  PutPadded(sink, d, n, [&] { sink.Put(units, n); });
}

}  // namespace

int Utf16VFormat(unsigned short* buffer, std::size_t size, const unsigned short* format,
                 std::va_list args) noexcept {
  Sink sink{buffer, buffer ? size : 0, 0};
  std::va_list ap;
  va_copy(ap, args);
  bool ok = true;
  const unsigned short* p = format;
  while (ok && p && *p) {
    if (*p != '%') {
      const unsigned short* run = p;
      while (*p && *p != '%') ++p;
      sink.Put(run, static_cast<std::size_t>(p - run));
      continue;
    }
    const unsigned short* start = p++;
    Directive d;
    for (;; ++p) {
      if (*p == '-') {
        d.left = true;
      } else if (*p == '+') {
        d.plus = true;
      } else if (*p == ' ') {
        d.space = true;
      } else if (*p == '#') {
        d.alt = true;
      } else if (*p == '0') {
        d.zero = true;
      } else if (*p == '\'') {
        d.group = true;
      } else {
        break;
      }
    }
    if (*p == '*') {
      ++p;
      d.width = va_arg(ap, int);
      if (d.width < 0) {
        d.left = true;
        d.width = d.width == INT_MIN ? INT_MAX : -d.width;
      }
    } else if (IsDigit(*p)) {
      d.width = ReadNumber(p);
    }
    if (*p == '.') {
      ++p;
      if (*p == '*') {
        ++p;
        d.precision = va_arg(ap, int);
        if (d.precision < 0) d.precision = -1;
      } else {
        d.precision = ReadNumber(p);
      }
    }
    switch (*p) {
      case 'h':
        d.length = p[1] == 'h' ? kHH : kH;
        p += d.length == kHH ? 2 : 1;
        break;
      case 'l':
        d.length = p[1] == 'l' ? kLL : kL;
        p += d.length == kLL ? 2 : 1;
        break;
      case 'q':
        d.length = kLL;
        ++p;
        break;
      case 'L':
        d.length = kLongDouble;
        ++p;
        break;
      case 'j':
        d.length = kJ;
        ++p;
        break;
      case 'z':
        d.length = kZ;
        ++p;
        break;
      case 't':
        d.length = kT;
        ++p;
        break;
      case 'w':
        d.length = kW;
        ++p;
        break;
      case 'I':
        if (p[1] == '6' && p[2] == '4') {
          d.length = kI64;
          p += 3;
        } else if (p[1] == '3' && p[2] == '2') {
          d.length = kI32;
          p += 3;
        } else {
          d.length = kIPtr;
          ++p;
        }
        break;
      default:
        break;
    }
    unsigned short conversion = *p;
    if (conversion) ++p;
    switch (conversion) {
      case '%':
        sink.Put('%');
        break;
      case 'd':
      case 'i':
        ok = PutNumber(sink, d, "ll", 'd', SignedArgument(d.length, ap));
        break;
      case 'u':
      case 'o':
      case 'x':
      case 'X':
        ok =
            PutNumber(sink, d, "ll", static_cast<char>(conversion), UnsignedArgument(d.length, ap));
        break;
      case 'f':
      case 'F':
      case 'e':
      case 'E':
      case 'g':
      case 'G':
      case 'a':
      case 'A':
        if (d.length == kLongDouble) {
          ok = PutNumber(sink, d, "L", static_cast<char>(conversion), va_arg(ap, long double));
        } else {
          ok = PutNumber(sink, d, "", static_cast<char>(conversion), va_arg(ap, double));
        }
        break;
      case 'p': {
        Directive pointer;
        pointer.left = d.left;
        pointer.width = d.width;
        ok = PutNumber(sink, pointer, "", 'p', va_arg(ap, void*));
        break;
      }
      case 'c':
        if (d.length == kH) {
          unsigned char c = static_cast<unsigned char>(va_arg(ap, int));
          PutCodePoint(sink, d, c < 0x80 ? c : '?');
        } else {
          PutCodePoint(sink, d, va_arg(ap, unsigned int));
        }
        break;
      case 'C': {
        unsigned char c = static_cast<unsigned char>(va_arg(ap, int));
        PutCodePoint(sink, d, c < 0x80 ? c : '?');
        break;
      }
      case 's':
        if (d.length == kH) {
          ok = PutNarrowString(sink, d, va_arg(ap, const char*));
        } else {
          PutWideString(sink, d, va_arg(ap, const unsigned short*));
        }
        break;
      case 'S':
        ok = PutNarrowString(sink, d, va_arg(ap, const char*));
        break;
      case 'n':
        StoreCount(d.length, ap, sink.count);
        break;
      default:
        // An unknown or unfinished directive is copied as it stands.
        sink.Put(start, static_cast<std::size_t>(p - start));
        break;
    }
  }
  va_end(ap);
  if (sink.size > 0) sink.buffer[sink.count < sink.size - 1 ? sink.count : sink.size - 1] = 0;
  if (!ok) return -1;
  return sink.count > static_cast<std::size_t>(INT_MAX) ? INT_MAX : static_cast<int>(sink.count);
}

int Utf16Format(unsigned short* buffer, std::size_t size, const unsigned short* format,
                ...) noexcept {
  std::va_list args;
  va_start(args, format);
  int n = Utf16VFormat(buffer, size, format, args);
  va_end(args);
  return n;
}

}  // namespace platform
}  // namespace vesk
