#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "TestStreams.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/io/BufferedWriter.h"
#include "vesk/io/IOException.h"

using vesk::base::CUnicodeString;
using vesk::io::CBufferedWriter;
using vesk::io::CIOException;
using vesk::io::CWriter;
using vesk_test::CTestWriter;
using vesk_test::U16;

namespace {

using vesk_test::ExpectError;

TEST(WriterContractTest, DefaultsGoThroughTheArrayWrite) {
  CTestWriter sink;
  CWriter& out = sink;
  const std::basic_string<unsigned short> abc = U16("abc");
  out.Write(static_cast<unsigned short>(0xFFFF));
  out.Write(abc.c_str());
  out.Write(abc.c_str(), 2);
  out.Write(static_cast<const unsigned short*>(nullptr));
  out.Write(static_cast<const unsigned short*>(nullptr), 3);
  EXPECT_EQ(sink.data, std::basic_string<unsigned short>{0xFFFF} + U16("abcab"));
  EXPECT_EQ(sink.writes, (std::vector<unsigned int>{1, 3, 2}));

  sink.data.clear();
  CUnicodeString text("hello");
  out.Write(text);
  out.Write(text, 3, 100);  // clamped to "lo"
  out.Write(text, 5, 1);    // at the end: nothing
  out.Write(CUnicodeString());
  out.Write(CUnicodeString(), 0, 4);
  EXPECT_EQ(sink.data, U16("hellolo"));
}

TEST(BufferedWriterTest, BuffersShortWritesAndPassesLongOnes) {
  CTestWriter sink;
  CBufferedWriter out(&sink, 4);
  const std::basic_string<unsigned short> text = U16("abcdefgh");
  out.Write(text.c_str(), 3);  // size - 1: buffered
  EXPECT_TRUE(sink.writes.empty());
  out.Write(text.c_str(), 3, 1);  // fills the buffer: flushed at once
  out.Write(text.c_str(), 4, 4);  // the buffer size: straight through
  EXPECT_EQ(sink.writes, (std::vector<unsigned int>{4, 4}));
  out.Write(CUnicodeString("xyz"), 1, 10);  // clamped to "yz"
  out.Write(CUnicodeString("xyz"), 3, 1);   // nothing
  out.Write(U16("!").c_str());
  out.Write(static_cast<const unsigned short*>(nullptr));
  out.Write(text.c_str(), 0xFFFFFFFFu, 2);  // the range wraps: nothing
  out.Flush();
  EXPECT_EQ(sink.data, U16("abcdefghyz!"));
  EXPECT_EQ(sink.writes, (std::vector<unsigned int>{4, 4, 3}));
}

TEST(BufferedWriterTest, SingleUnitWritesLeaveAFullBuffer) {
  CTestWriter sink;
  CBufferedWriter out(&sink, 2);
  out.Write(static_cast<unsigned short>('a'));
  out.Write(static_cast<unsigned short>('b'));
  EXPECT_TRUE(sink.data.empty());
  out.Write(static_cast<unsigned short>('c'));
  EXPECT_EQ(sink.data, U16("ab"));
}

TEST(BufferedWriterTest, ConstructionAndClose) {
  CTestWriter sink;
  ExpectError([] { CBufferedWriter out(static_cast<CWriter*>(nullptr), 4); }, "Invalid writer.");
  ExpectError([&] { CBufferedWriter out(&sink, 0); }, "Invalid buffer size.");
  vesk_test::Tally tally;
  CTestWriter failing(&tally);
  failing.failClose = true;
  CBufferedWriter out(&failing, 8);
  out.Write(U16("pending").c_str());
  EXPECT_THROW(out.Close(), CIOException);
  EXPECT_EQ(failing.data, U16("pending"));
  out.Close();  // silent once closed
  EXPECT_EQ(tally.closed, 1);
  ExpectError([&] { out.Write(static_cast<unsigned short>('x')); }, "Writer closed.");
  ExpectError([&] { out.Write(CUnicodeString("x")); }, "Writer closed.");
  ExpectError([&] { out.Flush(); }, "Writer closed.");
}

}  // namespace
