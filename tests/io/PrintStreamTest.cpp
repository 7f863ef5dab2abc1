#include <string>

#include <gtest/gtest.h>

#include "TestStreams.h"
#include "vesk/base/Exception.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/String.h"
#include "vesk/io/CRLFPrintStream.h"
#include "vesk/io/IOException.h"
#include "vesk/io/MemoryOutputStream.h"
#include "vesk/io/PrintStream.h"
#include "vesk/io/XMLException.h"
#include "vesk/platform/LineEnd.h"

using namespace vesk::base;
using namespace vesk::io;
using vesk_test::CTestOutputStream;

namespace {

using vesk_test::ExpectThrow;

template <class F>
std::string Printed(F print) {
  CTestOutputStream sink;
  CPrintStream out(&sink, false);
  print(out);
  return sink.data;
}

TEST(PrintStreamTest, ValuesUseTheirPrintfNotation) {
  std::string all = Printed([](CPrintStream& o) {
    vesk_test::PrintEach(o, 1.5f, 0.1, 1e20, -7, -2147483647 - 1, 4294967295u,
                         static_cast<short>(-32768), true, false, '\0', "text",
                         static_cast<const char*>(nullptr), CString("abc"), CString());
  });
  // A NUL character is a byte of output like any other.
  const char expected[] =
      "1.5|0.1|1e+20|-7|-2147483648|4294967295|-32768|true|false|\0|text||abc||";
  EXPECT_EQ(all, std::string(expected, sizeof expected - 1));
  // Lines end in LF on POSIX hosts, CR LF on Windows.
  const std::string eol = vesk::platform::kLineEnd;
  EXPECT_EQ(Printed([](CPrintStream& o) { o.Println(12), o.Println(), o.Println("a"); }),
            "12" + eol + eol + "a" + eol);
}

TEST(PrintStreamTest, CRLFStreamAutoFlushesOnceAfterTheLineEnd) {
  CTestOutputStream sink;
  CCRLFPrintStream out(&sink, true);
  out.Print(1);
  EXPECT_TRUE(sink.flushedAt.empty()) << "plain Print must not flush";
  out.Println(true);
  EXPECT_EQ(sink.data, "1true\r\n");
  ASSERT_EQ(sink.flushedAt.size(), 1u);
  EXPECT_EQ(sink.flushedAt[0], sink.data.size());
}

TEST(PrintStreamTest, ConstructorsRejectMissingStreams) {
  ExpectThrow<CIllegalArgumentException>(
      [] { CPrintStream out(static_cast<COutputStream*>(nullptr), false); },
      "Invalid output stream.", "vesk/io/PrintStream");
  ExpectThrow<CIllegalArgumentException>([] { CPrintStream out(CRef<COutputStream>(), false); },
                                         "Invalid ooutput stream.", "vesk/io/PrintStream");
  ExpectThrow<CIllegalArgumentException>([] { CCRLFPrintStream out(CRef<COutputStream>(), false); },
                                         "Invalid ooutput stream.", "vesk/io/CRLFPrintStream");
}

TEST(PrintStreamTest, CloseFlushesClosesOnceAndLeavesTheStreamClosed) {
  vesk_test::Tally tally;
  CTestOutputStream sink(&tally);
  sink.failClose = true;
  CPrintStream out(&sink, false);
  EXPECT_THROW(out.Close(), CIOException);
  EXPECT_EQ(tally.flushed, 1);
  EXPECT_EQ(tally.closed, 1);
  out.Close();  // silent the second time
  EXPECT_EQ(tally.closed, 1);
  for (auto op : {+[](CPrintStream& o) { o.Print(1); }, +[](CPrintStream& o) { o.Println(); },
                  +[](CPrintStream& o) { o.Write('x'); }, +[](CPrintStream& o) { o.Flush(); },
                  +[](CPrintStream& o) { o.Println("x"); }}) {
    ExpectThrow<CIOException>([&] { op(out); }, "Stream closed.");
  }
  EXPECT_EQ(sink.data, "");
}

// The report of an exception printed through a CR LF print stream, byte for
// byte, for each combination of the optional blocks.
const char kHeader[] =
    "--- Exception occured ----------------------------------------------------------\r\n";
const char kDetails[] =
    "--- Details --------------------------------------------------------------------\r\n";

std::string Report(const CException& e) {
  CMemoryOutputStream memory(0, 0);
  CCRLFPrintStream out(&memory, false);
  e.Print(out);
  return vesk_test::Contents(memory);
}

TEST(ExceptionReportTest, EachBlockOnlyWhenItsPartIsThere) {
  const std::string bare = std::string(kHeader) + "\tvesk::base::CException\r\n";
  EXPECT_EQ(Report(CException(nullptr, 0, nullptr, nullptr)), bare);
  // Line 0 hides the location, whatever the source.
  EXPECT_EQ(Report(CException("vesk/base/Class", 0, nullptr, nullptr)), bare);
  EXPECT_EQ(Report(CException(nullptr, 12, "What.", nullptr)),
            bare + kDetails + "\tError description :\r\n\t\tWhat.\r\n");
  EXPECT_EQ(Report(CException("vesk/base/Class", 221, nullptr, nullptr)),
            bare + kDetails + "\tLocation :\r\n\t\tvesk/base/Class(221)\r\n");
  EXPECT_EQ(Report(CIOException(nullptr, 0, nullptr, "Disk on fire.")),
            std::string(kHeader) + "\tvesk::io::CIOException\r\n" + kDetails +
                "\tMessage : \r\n\t\tDisk on fire.\r\n");

  // All blocks, under the dynamic class.
  CXMLException xml("vesk/io/XMLTextWriter", 4294967295u, "Invalid name.", "a<b");
  const CException& asBase = xml;
  EXPECT_EQ(Report(asBase), std::string(kHeader) + "\tvesk::io::CXMLException\r\n" + kDetails +
                                "\tLocation :\r\n\t\tvesk/io/XMLTextWriter(-1)\r\n"
                                "\tError description :\r\n\t\tInvalid name.\r\n"
                                "\tMessage : \r\n\t\ta<b\r\n");
}

}  // namespace
