#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "TestStreams.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/io/BufferedOutputStream.h"
#include "vesk/io/DataInputStream.h"
#include "vesk/io/DataOutputStream.h"
#include "vesk/io/IOException.h"
#include "vesk/io/JavaDataInputStream.h"
#include "vesk/io/JavaDataOutputStream.h"
#include "vesk/io/MemoryInputStream.h"
#include "vesk/io/MemoryOutputStream.h"
#include "vesk/platform/Memory.h"

using namespace vesk::base;
using namespace vesk::io;
namespace platform = vesk::platform;

namespace {

using namespace vesk_test;

/// Answers every Skip with 7, so a test can tell it was asked.
struct CSkipSource : CTestInputStream {
  using CTestInputStream::CTestInputStream;
  int Skip(unsigned int count) override {
    skipped += count;
    return 7;
  }
  unsigned int skipped = 0;
};

/// Bytes written by fill through a fresh stream of type S.
template <class S = CDataOutputStream, class F>
std::string Written(F fill) {
  CTestOutputStream sink;
  S out(&sink);
  fill(out);
  return sink.data;
}

// --- wire format ---------------------------------------------------------------------------

// The operators go through the named writers, one Write on the wrapped stream
// per value: numbers big-endian, floating-point values in host (little-endian)
// order.
TEST(DataOutputStream, WireFormat) {
  CTestOutputStream sink;
  CDataOutputStream out(&sink);
  out << true << false << '\x80' << (unsigned char)0xFE << (short)-32768 << 16909060 << -2
      << (unsigned short)43981 << 0xA1B2C3D4u << 1.0f << 1.0;
  EXPECT_EQ(sink.writes.size(), 11u);
  EXPECT_EQ(sink.data, Bytes({1,    0,    0x80, 0xFE, 0x80, 0,    1,    2,    3,    4,   0xFF,
                              0xFF, 0xFF, 0xFE, 0xAB, 0xCD, 0xA1, 0xB2, 0xC3, 0xD4, 0,   0,
                              0x80, 0x3F, 0,    0,    0,    0,    0,    0,    0xF0, 0x3F}));
}

TEST(DataOutputStream, Strings) {
  // Empty strings: the native form writes a zero count for an empty
  // CUnicodeString but nothing at all for an empty or null zero-terminated
  // text; the compatible form always writes its count.
  const unsigned short none[] = {0};
  const auto all = [&](CDataOutputStream& o) {
    o.WriteString(FromU16(u"h\u00E9"));
    o.WriteString(CUnicodeString());
    o.WriteString(none);
    o.WriteString(static_cast<const unsigned short*>(nullptr));
  };
  EXPECT_EQ(Written(all), Bytes({0, 0, 0, 3, 'h', 0xC3, 0xA9, 0, 0, 0, 0}));
  EXPECT_EQ(Written<CJavaDataOutputStream>(all), Bytes({0, 3, 'h', 0xC3, 0xA9, 0, 0, 0, 0, 0, 0}));

  // The operators dispatch through the virtual writers: a compatible
  // stream behind a base reference writes its own form.
  const unsigned short ab[] = {'a', 'b', 0};
  EXPECT_EQ(Written<CJavaDataOutputStream>(
                [&](CDataOutputStream& base) { base << ab << CUnicodeString(ab); }),
            Bytes({0, 2, 'a', 'b', 0, 2, 'a', 'b'}));
}

TEST(JavaDataOutputStream, LengthLimit) {
  CTestOutputStream sink;
  CJavaDataOutputStream out(&sink);
  // 21845 three-byte characters = 65535 bytes: accepted.
  std::u16string max(21845, u'\u20AC');
  out.WriteString(FromU16(max));
  ASSERT_EQ(sink.data.size(), 2u + 65535);
  EXPECT_EQ(sink.data.substr(0, 2), "\xFF\xFF");
  sink.data.clear();
  ExpectThrow<CIOException>([&] { out.WriteString(FromU16(max + u"x")); },
                            "The specified string is too long.", "vesk/io/JavaDataOutputStream");
  EXPECT_EQ(sink.data, "");
  // The native form has no such limit.
  CDataOutputStream native(&sink);
  native.WriteString(FromU16(max + u"x"));
  EXPECT_EQ(sink.data.substr(0, 4), std::string("\x00\x01\x00\x00", 4));
}

// --- reading -------------------------------------------------------------------------------

TEST(DataInputStream, RoundTripsEveryTypeInBothForms) {
  for (bool java : {false, true}) {
    SCOPED_TRACE(java ? "compatible" : "native");
    CMemoryOutputStream memory;
    CDataOutputStream* out =
        java ? new CJavaDataOutputStream(&memory) : new CDataOutputStream(&memory);
    const std::u16string text = u"a\u00E9\u20AC\U0001F600z";
    *out << true << false << '\x85' << (unsigned char)0xC8 << (short)-12345 << -123456789
         << (unsigned short)65000 << 4000000000u << 3.5f << -2.25e300 << FromU16(text)
         << CUnicodeString();
    out->WriteString(FromU16(u"tail"));
    delete out;

    CMemoryInputStream source(memory.GetBuffer(), memory.GetBufferSize(), false);
    CDataInputStream* in = java ? new CJavaDataInputStream(&source) : new CDataInputStream(&source);
    bool t, f;
    char c;
    unsigned char uc;
    short s;
    int i;
    unsigned short us;
    unsigned int ui;
    float fl;
    double d;
    CUnicodeString str, empty;
    *in >> t >> f >> c >> uc >> s >> i >> us >> ui >> fl >> d >> str >> empty;
    EXPECT_EQ(std::make_tuple(t, f, c, uc, s, i, us, ui, fl, d, ToU16(str), ToU16(empty)),
              std::make_tuple(true, false, '\x85', (unsigned char)0xC8, (short)-12345, -123456789,
                              (unsigned short)65000, 4000000000u, 3.5f, -2.25e300, text,
                              std::u16string()));
    EXPECT_EQ(ToU16(in->ReadString()), u"tail");
    EXPECT_EQ(in->GetAvailable(), 0u);
    delete in;
  }
}

TEST(DataInputStream, EndOfDataAndOddBytes) {
  CTestInputStream source(std::string("\x02\x01", 2));
  CDataInputStream in(&source);
  EXPECT_FALSE(in.ReadBool());  // 02 is not true
  EXPECT_TRUE(in.ReadBool());
  // At the end the single-byte reads see EOS (0xFFFF) cut to a byte.
  EXPECT_FALSE(in.ReadBool());
  EXPECT_EQ(in.ReadByte(), '\xFF');
  EXPECT_EQ(in.ReadSByte(), 0xFF);
  // Numbers do not report the end; the value is merely unspecified.
  in.ReadInt32();
  in.ReadDouble();
  EXPECT_TRUE(in.ReadString().IsEmpty());
}

// Each number read takes its bytes from the wrapped stream itself: a subclass
// that changes the unsigned reads does not change the signed ones.
TEST(DataInputStream, SignedReadsDoNotGoThroughTheUnsignedSlots) {
  struct CSwappedUnsigned : CDataInputStream {
    using CDataInputStream::CDataInputStream;
    unsigned short ReadUInt16() override {
      unsigned short v = CDataInputStream::ReadUInt16();
      return static_cast<unsigned short>((v >> 8) | (v << 8));
    }
    unsigned int ReadUInt32() override { return __builtin_bswap32(CDataInputStream::ReadUInt32()); }
  };
  CTestInputStream source(std::string("\xFF\xFE\x01\x02\x03\x04\xFF\xFE", 8));
  CSwappedUnsigned in(&source);
  EXPECT_EQ(in.ReadInt16(), -2);
  EXPECT_EQ(in.ReadInt32(), 0x01020304);
  EXPECT_EQ(in.ReadUInt16(), 0xFEFF);
}

TEST(DataInputStream, StringReads) {
  // A zero byte in the data ends the string; the rest of it is consumed.
  CTestInputStream source(Bytes({0, 0, 0, 5, 'a', 'b', 0, 'c', 'd', 0, 1, 'x'}));
  CDataInputStream in(&source);
  EXPECT_EQ(ToU16(in.ReadString()), u"ab");
  EXPECT_EQ(in.GetAvailable(), 3u);
  CJavaDataInputStream java(&source);
  EXPECT_EQ(ToU16(java.ReadString()), u"x");

  // The count and the bytes each take one read; a count beyond the data,
  // even one of nearly 4 GB from damaged data, yields what arrived without
  // reserving the full count first.
  for (const char* count : {"\x00\x00\x00\x03", "\x00\x00\x00\x40", "\xFF\xFF\xFF\xF0"}) {
    CTestInputStream counted(std::string(count, 4) + "abc");
    CDataInputStream reader(&counted);
    EXPECT_EQ(ToU16(reader.ReadString()), u"abc");
    if (count[3] == 3) EXPECT_EQ(counted.requests.size(), 2u);
  }
}

TEST(DataInputStream, LongStringsArriveInPieces) {
  // 200000 bytes from a stream that hands out at most 1000 per read.
  std::string text(200000, 'x');
  text[123456] = 'y';
  std::string bytes = std::string("\x00\x03\x0D\x40", 4) + text;
  CTestInputStream source(bytes, 1000);
  CDataInputStream in(&source);
  CUnicodeString s = in.ReadString();
  ASSERT_EQ(s.GetLength(), 200000u);
  EXPECT_EQ(ToU16(s)[123456], u'y');
  EXPECT_EQ(in.GetAvailable(), 0u);
}

TEST(DataInputStream, StringBufferAllocationFailure) {
  CTestInputStream source(Bytes({0, 0, 0, 3, 'a', 'b', 'c'}));
  CDataInputStream in(&source);
  long live = platform::LiveAllocations();
  vesk::testing::ExpectThrowIfAllocationFails([&] { in.ReadString(); }, nullptr, nullptr, true);
  EXPECT_EQ(platform::LiveAllocations(), live);
}

// --- serializable objects ------------------------------------------------------------

struct Point : ISerializable {
  int x = 0, y = 0;
  CUnicodeString name;
  void ReadFrom(CDataInputStream& in) override { in >> x >> y >> name; }
  void WriteTo(CDataOutputStream& out) const override { out << x << y << name; }
};

TEST(DataStreams, ObjectsWriteExactlyTheirHooksBytes) {
  Point p;
  p.x = 1;
  p.y = -1;
  p.name = FromU16(u"p");
  std::string bytes = Written([&](CDataOutputStream& o) { o << p; });
  EXPECT_EQ(bytes, std::string("\x00\x00\x00\x01\xFF\xFF\xFF\xFF\x00\x00\x00\x01p", 13));
  EXPECT_EQ(Written([&](CDataOutputStream& o) { o.WriteObject(p); }), bytes);

  CTestInputStream source(bytes);
  CDataInputStream in(&source);
  Point q;
  in >> q;
  EXPECT_EQ(std::make_tuple(q.x, q.y, ToU16(q.name)), std::make_tuple(1, -1, std::u16string(u"p")));
}

// --- construction, forwarding and closing ---------------------------------------------

TEST(DataStreams, ConstructorsRejectMissingStreams) {
  // The two input forms tell apart by their (misspelt) text.
  const char *in = "vesk/io/DataInputStream", *out = "vesk/io/DataOutputStream";
  using E = CIllegalArgumentException;
  ExpectThrow<E>([] { CDataInputStream s{CRef<CInputStream>()}; }, "Invalid input stream.", in);
  ExpectThrow<E>([] { CJavaDataInputStream s((CInputStream*)nullptr); }, "Invalid intput stream.",
                 in);
  ExpectThrow<E>([] { CDataOutputStream s{CRef<COutputStream>()}; }, "Invalid output stream.", out);
  ExpectThrow<E>([] { CJavaDataOutputStream s((COutputStream*)nullptr); },
                 "Invalid output stream.", out);
}

TEST(DataStreams, ForwardingAndClose) {
  CSkipSource source("abcdef");
  CDataInputStream in(&source);
  EXPECT_EQ(in.GetAvailable(), 6u);
  char buf[4] = {};
  EXPECT_EQ(in.Read(buf, 1, 2), 2);
  EXPECT_EQ(std::string(buf + 1, 2), "ab");
  EXPECT_EQ(in.Read(buf, 2), 2);
  EXPECT_EQ(in.Read(), 'e');
  EXPECT_EQ(in.Skip(3), 7);  // whatever the wrapped stream answers
  EXPECT_EQ(source.skipped, 3u);
  in.Reset();
  EXPECT_EQ(source.tally().resets, 1);

  CTestOutputStream sink;
  CDataOutputStream out(&sink);
  out.Write("xyz", 1, 2);
  out.Write("q", 1);
  out.Write('!');
  out.Flush();
  EXPECT_EQ(sink.data, "yzq!");
  EXPECT_EQ(sink.tally().flushed, 1);

  // Closing closes the wrapped stream once; a second close does nothing.
  in.Close();
  in.Close();
  out.Close();
  out.Close();
  EXPECT_EQ(source.tally().closed, 1);
  EXPECT_EQ(sink.tally().closed, 1);

  Point point;
  ExpectEachThrows<CIOException>(
      {[&] { in.GetAvailable(); }, [&] { in.Read(buf, 0, 1); }, [&] { in.Read(buf, 1); },
       [&] { in.Read(); }, [&] { in.Skip(1); }, [&] { in.Reset(); }, [&] { in.ReadBool(); },
       [&] { in.ReadByte(); }, [&] { in.ReadSByte(); }, [&] { in.ReadInt16(); },
       [&] { in.ReadUInt16(); }, [&] { in.ReadInt32(); }, [&] { in.ReadUInt32(); },
       [&] { in.ReadFloat(); }, [&] { in.ReadDouble(); }, [&] { in.ReadString(); },
       [&] { in.ReadObject(point); }},
      "Stream closed.", "vesk/io/DataInputStream");
  const unsigned short text[] = {'a', 0};
  ExpectEachThrows<CIOException>(
      {[&] { out.Write("a", 0, 1); }, [&] { out.Write("a", 1); }, [&] { out.Write('a'); },
       [&] { out.Flush(); }, [&] { out.WriteBool(true); }, [&] { out.WriteByte(1); },
       [&] { out.WriteUByte(1); }, [&] { out.WriteInt16(1); }, [&] { out.WriteUInt16(1); },
       [&] { out.WriteInt32(1); }, [&] { out.WriteUInt32(1); }, [&] { out.WriteFloat(1); },
       [&] { out.WriteDouble(1); }, [&] { out.WriteString(text); },
       [&] { out.WriteString(CUnicodeString()); },
       [&] { out.WriteString(static_cast<const unsigned short*>(nullptr)); },
       [&] { out.WriteObject(Point()); }},
      "Stream closed.", "vesk/io/DataOutputStream");
  EXPECT_EQ(sink.data, "yzq!");

  CTestOutputStream javaSink;
  CJavaDataOutputStream javaOut(&javaSink);
  javaOut.Close();
  ExpectThrow<CIOException>([&] { javaOut.WriteString(text); }, "Stream closed.",
                            "vesk/io/JavaDataOutputStream");
  CJavaDataInputStream javaIn(&source);
  javaIn.Close();
  ExpectThrow<CIOException>([&] { javaIn.ReadString(); }, "Stream closed.",
                            "vesk/io/JavaDataInputStream");
}

TEST(DataStreams, CloseFailureStillCloses) {
  CTestInputStream source("abc");
  source.failClose = true;
  CDataInputStream in(&source);
  EXPECT_THROW(in.Close(), CIOException);
  EXPECT_THROW(in.Read(), CIOException);
  in.Close();
  EXPECT_EQ(source.tally().closed, 1);

  CTestOutputStream sink;
  sink.failClose = true;
  CDataOutputStream out(&sink);
  EXPECT_THROW(out.Close(), CIOException);
  EXPECT_THROW(out.WriteInt32(1), CIOException);
  out.Close();
  EXPECT_EQ(sink.tally().closed, 1);
}

// A buffered stream that counts the array writes it is given.
class CCountingBufferedStream : public CBufferedOutputStream {
 public:
  CCountingBufferedStream(COutputStream* stream) : CBufferedOutputStream(stream, 64) {}
  void Write(const char* buffer, unsigned int length) override {
    ++m_writes;
    CBufferedOutputStream::Write(buffer, length);
  }
  using CBufferedOutputStream::Write;
  int m_writes = 0;
};

// Values written over a buffered stream go into its buffer directly, in the
// same order and across buffer boundaries; a subclass that overrides the
// writes still sees every one of them.
TEST(DataOutputStreamTest, ValuesOverABufferedStreamArriveInOrder) {
  CMemoryOutputStream memory(16, 16);
  CBufferedOutputStream buffered(&memory, 7);
  CDataOutputStream out(&buffered);
  for (int i = 0; i < 10; ++i) {
    out.WriteInt32(0x01020300 + i);
    out.WriteInt16(static_cast<short>(0x0A00 + i));
  }
  out.Flush();
  std::string expected;
  for (int i = 0; i < 10; ++i) expected += Bytes({1, 2, 3, i, 0x0A, i});
  EXPECT_EQ(Contents(memory), expected);

  CMemoryOutputStream sink(16, 16);
  CCountingBufferedStream counting(&sink);
  CDataOutputStream overSubclass(&counting);
  overSubclass.WriteInt32(1);
  overSubclass.WriteInt16(2);
  EXPECT_EQ(2, counting.m_writes);

  buffered.Close();  // closing the buffered stream underneath is noticed
  EXPECT_THROW(out.WriteInt32(5), CIOException);
}

}  // namespace
