#include <climits>
#include <cstdio>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "TestStreams.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/String.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/io/PrintWriter.h"

using namespace vesk::base;
using namespace vesk::io;
using namespace vesk_test;

namespace {

typedef std::basic_string<unsigned short> U16String;

/// What one call on a fresh print writer sends to the wrapped writer.
template <class F>
U16String Printed(F call) {
  CTestWriter target;
  CPrintWriter writer(&target);
  call(writer);
  return target.data;
}

TEST(PrintWriterTest, EachPrintFormatsItsValue) {
  U16String all = Printed([](CPrintWriter& w) {
    // The 64-bit print keeps only the low 32 bits.
    PrintEach(w, static_cast<short>(-32768), INT_MIN, 4294967295u, 0x100000005ULL,
              0xFFFFFFFFFFFFFFFFULL, 1.5f, 1.5, -0.1, 0.1f, true, false,
              static_cast<unsigned short>(0x20AC));
    w.PrintInt(-7), w.Print('|'), w.PrintUnsignedInt(3000000000u), w.Print('|');
    w.PrintUnsignedChar(200), w.Print('|'), w.PrintUnsignedShort(65535);
  });
  EXPECT_EQ(all, U16("-32768|-2147483648|4294967295|5|4294967295|1.500000|1.500000|-0.100000|"
                     "0.100000|true|false|") +
                     U16String(1, 0x20AC) + U16("|-7|3000000000|200|65535"));

  // A number longer than the 256-unit format buffer is cut to 255 units.
  char narrow[400];
  std::snprintf(narrow, sizeof narrow, "%f", 1e300);
  U16String cut = Printed([](CPrintWriter& w) { w.Print(1e300); });
  EXPECT_EQ(cut.size(), 255u);
  EXPECT_EQ(cut, U16(std::string(narrow, 255).c_str()));
}

TEST(PrintWriterTest, TextPrints) {
  // Narrow text is UTF-8.
  U16String expected{'h', 0xE9, 0x20AC};
  EXPECT_EQ(Printed([](CPrintWriter& w) { w.Print("h\xC3\xA9\xE2\x82\xAC"); }), expected);
  EXPECT_EQ(Printed([](CPrintWriter& w) { w.Print(CString("h\xC3\xA9\xE2\x82\xAC")); }), expected);
  EXPECT_EQ(Printed([](CPrintWriter& w) { w.Print(static_cast<const char*>(nullptr)); }), U16(""));
  EXPECT_EQ(Printed([](CPrintWriter& w) { w.Print(CString()); }), U16(""));
  EXPECT_EQ(Printed([&](CPrintWriter& w) { w.Print(CUnicodeString(expected.c_str())); }), expected);
  EXPECT_EQ(Printed([&](CPrintWriter& w) { w.Print(expected.c_str()); }), expected);
  EXPECT_EQ(Printed([](CPrintWriter& w) { w.Print(static_cast<const unsigned short*>(nullptr)); }),
            U16(""));
}

TEST(PrintWriterTest, LinesEndInCrLfUnlessToldOtherwise) {
  // A null or empty line end falls back to CR LF.
  const unsigned short lf[] = {'\n', 0}, empty[] = {0};
  const struct {
    const unsigned short* given;
    const char* used;
  } rows[] = {{nullptr, "\r\n"}, {lf, "\n"}, {empty, "\r\n"}};
  for (const auto& row : rows) {
    CTestWriter target;
    CPrintWriter writer(&target, false, row.given);
    writer.Println(5);
    writer.Println();
    EXPECT_EQ(target.data, U16((std::string("5") + row.used + row.used).c_str()));
    EXPECT_EQ(target.tally().flushed, 0);  // no auto flush
    CUnicodeString eol;
    writer.GetEndOfLine(eol);
    EXPECT_EQ(eol.Compare(row.used), 0);
  }

  // Every Println form: the value, then the line end.
  const unsigned short sep[] = {'|', 0};
  CTestWriter all;
  CPrintWriter w(&all, false, sep);
  PrintlnEach(w, true, static_cast<short>(-2), -3, 4u, 0.5f, 0.25, 'c',
              static_cast<unsigned short>('u'), CString("s"), U16("p").c_str(),
              CUnicodeString("q"));
  EXPECT_EQ(all.data, U16("true|-2|-3|4|0.500000|0.250000|c|u|s|p|q|"));
}

TEST(PrintWriterTest, AutoFlushFollowsLineEndsOnly) {
  Tally tally;
  CTestWriter target(&tally);
  CPrintWriter writer(&target, true, nullptr);
  writer.Print(1);
  writer.Print("two");
  writer.Write(U16("three").c_str());
  EXPECT_EQ(tally.flushed, 0);
  writer.Println(4);
  EXPECT_EQ(tally.flushed, 1);
  writer.Println();
  EXPECT_EQ(tally.flushed, 2);
}

TEST(PrintWriterTest, ClosedWriterAndOwnership) {
  for (auto make : {+[] { CPrintWriter w(static_cast<CWriter*>(nullptr)); },
                    +[] { CPrintWriter w{CRef<CWriter>()}; }}) {
    ExpectThrow<CIllegalArgumentException>(make, "Invalid writer.");
  }

  Tally tally;
  auto* target = new CTestWriter(&tally);
  {
    CPrintWriter writer(CRef<CWriter>(target), false, nullptr);
    writer.Print(1);
    writer.Close();
    EXPECT_EQ(tally.flushed, 1);  // flushed, then closed
    EXPECT_EQ(tally.closed, 1);
    writer.Close();
    EXPECT_EQ(tally.closed, 1);
    ExpectEachThrows<CIOException>(
        {[&] { writer.Print(2); }, [&] { writer.Print(CString("")); }, [&] { writer.Println(); },
         [&] { writer.Println(3); }, [&] { writer.Write(static_cast<unsigned short>('x')); },
         [&] { writer.Write(U16("x").c_str(), 0u, 1u); },
         [&] { writer.Write(CUnicodeString("x")); }, [&] { writer.Flush(); }},
        "Writer closed.");
    EXPECT_EQ(target->data, U16("1"));
  }
  EXPECT_EQ(tally.destroyed, 1);

  CTestWriter failing;
  failing.failClose = true;
  CPrintWriter writer(&failing);
  EXPECT_THROW(writer.Close(), CIOException);
  ExpectThrow<CIOException>([&] { writer.Print(true); }, "Writer closed.");
}

/// Counts the units that reach the array write of the print writer itself.
class CCountingPrintWriter : public CPrintWriter {
 public:
  using CPrintWriter::CPrintWriter;
  using CPrintWriter::Write;
  void Write(const unsigned short* chars, unsigned int offset, unsigned int length) override {
    units += length;
    CPrintWriter::Write(chars, offset, length);
  }
  unsigned int units = 0;
};

TEST(PrintWriterTest, NumbersGoThroughTheArrayWrite) {
  CTestWriter target;
  CCountingPrintWriter writer(&target);
  writer.Print(12345);
  writer.Print(false);
  writer.Print(2.0);
  EXPECT_EQ(writer.units, 5u + 5u + 8u);
}

}  // namespace
