#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "TestStreams.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/io/BufferedInputStream.h"
#include "vesk/io/BufferedOutputStream.h"
#include "vesk/io/BufferedReader.h"
#include "vesk/io/BufferedWriter.h"
#include "vesk/io/IOException.h"

using namespace vesk::io;
using namespace vesk_test;

namespace {

TEST(BufferedInputStreamTest, SizeZeroMeans512) {
  CTestInputStream source(std::string(2000, 'q'));
  CBufferedInputStream in(&source, 0);
  EXPECT_EQ(in.Read(), 'q');
  ASSERT_EQ(source.requests.size(), 1u);
  EXPECT_EQ(source.requests[0], 512u);
  EXPECT_EQ(in.GetAvailable(), 2000u - 1);
}

TEST(BufferedInputStreamTest, LongReadsBypassTheBuffer) {
  CTestInputStream source("ABCDEFGH");
  CBufferedInputStream in(&source, 4);
  EXPECT_EQ(in.Read(), 'A');
  char buffer[8] = {};
  EXPECT_EQ(in.Read(buffer, 5), 4);
  EXPECT_EQ(std::string(buffer, 4), "EFGH");
  // The bytes buffered before come afterwards.
  EXPECT_EQ(in.Read(), 'B');
  EXPECT_EQ(in.Read(buffer, 2, 3), 2);
  EXPECT_EQ(std::string(buffer + 2, 2), "CD");
  // The fill brings nothing: 0 rather than -1.
  EXPECT_EQ(in.Read(buffer, 1), 0);
  EXPECT_EQ(in.Read(), CInputStream::EOS);
}

TEST(BufferedInputStreamTest, ShortReadsTopUpWithOneFill) {
  CTestInputStream source("0123456789", 3);  // at most 3 bytes per read
  CBufferedInputStream in(&source, 8);
  char buffer[8] = {};
  EXPECT_EQ(in.Read(buffer, 2), 2);     // one fill of 3, 1 left buffered
  EXPECT_EQ(in.Read(buffer, 1, 5), 4);  // 1 buffered + one fill of 3
  EXPECT_EQ(std::string(buffer, 5), "02345");
  EXPECT_EQ(in.Read(buffer, 8), 3);
  EXPECT_EQ(std::string(buffer, 3), "678");
  EXPECT_EQ(in.Read(buffer, 8), 1);
  // At the end with nothing buffered: 0, not -1, from the fill path.
  EXPECT_EQ(in.Read(buffer, 8), 0);
  EXPECT_EQ(in.Read(), CInputStream::EOS);
}

TEST(BufferedInputStreamTest, ReadSignExtendsSkipAndReset) {
  CTestInputStream source(std::string("\x90xyz0123456789", 14));
  CBufferedInputStream in(&source, 4);
  EXPECT_EQ(in.Read(), -112);
  EXPECT_EQ(in.Skip(2), 2);  // inside the buffer
  EXPECT_EQ(in.Read(), 'z');
  // Beyond the buffer: the wrapped contract's Skip returns what it did not
  // skip, and that figure is passed on as it is.
  EXPECT_EQ(in.Skip(3), 0);
  EXPECT_EQ(in.Read(), '3');
  EXPECT_EQ(in.Skip(100), 94 + 3);  // 3 buffered, 94 the wrapped stream did not skip
  char b[2];
  EXPECT_EQ(in.Read(nullptr, 0), 0);
  in.Reset();
  EXPECT_EQ(in.Read(), -112);
  EXPECT_EQ(in.Read(nullptr, 2), 2);  // a null target skips
  EXPECT_EQ(in.Read(b, 1), 1);
  EXPECT_EQ(b[0], 'z');
}

TEST(BufferedReaderTest, ReadThatTheBufferCannotServeStrictlyKeepsOnlyTheFill) {
  CTestReader source(U16("ABCDEFGHIJ"));
  CBufferedReader in(&source, 4);
  EXPECT_EQ(in.Read(), 'A');
  unsigned short buffer[8] = {};
  // 3 units buffered, 3 asked for: the fill's units overwrite them.
  EXPECT_EQ(in.Read(buffer, 3), 3);
  EXPECT_EQ(std::basic_string<unsigned short>(buffer, 3), U16("EFG"));
  EXPECT_EQ(in.Read(), 'H');
  // Fewer than buffered: served from the buffer.
  EXPECT_EQ(in.Read(), 'I');
  EXPECT_EQ(in.Read(buffer, 2, 2), 0);  // J lost to the overwrite, end of data
  EXPECT_EQ(buffer[2], 'J');
  EXPECT_EQ(in.Read(), CReader::EOS);
}

// The bypass and skip rules are the read buffer the byte stream shares.
TEST(BufferedReaderTest, Errors) {
  CTestReader source(U16("abcdefgh"));
  CBufferedReader in(&source, 2);
  ExpectError([] { CBufferedReader r(static_cast<CReader*>(nullptr), 2); }, "Invalid reader.");
  ExpectError([&] { CBufferedReader r(&source, 0); }, "Invalid buffer size.");
  in.Close();
  ExpectError([&] { in.Read(); }, "Reader closed.");
  ExpectError([&] { in.Close(); }, "Reader closed.");
}

// The byte and 16-bit buffered writers share one write buffer; each keeps
// its own texts.
struct ByteOut {
  using Decorator = CBufferedOutputStream;
  using Sink = CTestOutputStream;
  using Wrapped = COutputStream;
  static std::string Text(const char* s) { return s; }
  static constexpr const char* kBadSize = "Invaid buffer size.";  // sic
  static constexpr const char* kNoStream = "Invalid output stream.";
  static constexpr const char* kClosed = "Stream closed.";
};
struct UnitOut {
  using Decorator = CBufferedWriter;
  using Sink = CTestWriter;
  using Wrapped = CWriter;
  static std::basic_string<unsigned short> Text(const char* s) { return U16(s); }
  static constexpr const char* kBadSize = "Invalid buffer size.";
  static constexpr const char* kNoStream = "Invalid writer.";
  static constexpr const char* kClosed = "Writer closed.";
};

template <class T>
class BufferedOutTest : public ::testing::Test {};
using BufferedOuts = ::testing::Types<ByteOut, UnitOut>;
TYPED_TEST_SUITE(BufferedOutTest, BufferedOuts);

TYPED_TEST(BufferedOutTest, BuffersShortWritesAndPassesLongOnes) {
  typename TypeParam::Sink sink;
  typename TypeParam::Decorator out(&sink, 4);
  const auto text = TypeParam::Text("abcdefghxyz123456");
  out.Write(text.c_str(), 3);  // size - 1: buffered
  EXPECT_TRUE(sink.data.empty());
  out.Write(text.c_str(), 3, 1);  // fills the buffer: flushed at once
  EXPECT_EQ(sink.writes, std::vector<int>{4});
  out.Write(text.c_str(), 4, 4);  // the buffer size: straight through
  out.Write(text.c_str(), 9, 2);
  out.Write(text.c_str(), 11, 6);  // flushes "yz" first
  EXPECT_EQ(sink.writes, (std::vector<int>{4, 4, 2, 6}));
  out.Write(decltype(text.c_str())(nullptr), 3);
  out.Write(text.c_str(), 0xFFFFFFFFu, 2);  // the range wraps: nothing
  EXPECT_EQ(sink.data, TypeParam::Text("abcdefghyz123456"));
  // Single writes leave a full buffer until the next one.
  typename TypeParam::Decorator units(&sink, 2);
  for (char c : {'a', 'b'}) units.Write(static_cast<decltype(text[0] + 0)>(c));
  EXPECT_EQ(sink.data, TypeParam::Text("abcdefghyz123456"));
  units.Write(static_cast<decltype(text[0] + 0)>('c'));
  EXPECT_EQ(sink.data, TypeParam::Text("abcdefghyz123456ab"));
  units.Flush();
  EXPECT_EQ(sink.data, TypeParam::Text("abcdefghyz123456abc"));
  EXPECT_EQ(sink.tally().flushed, 1);
}

TYPED_TEST(BufferedOutTest, ConstructionAndClose) {
  using D = typename TypeParam::Decorator;
  typename TypeParam::Sink sink;
  ExpectError([&] { D out(&sink, 0); }, TypeParam::kBadSize);
  ExpectError([] { D out(static_cast<typename TypeParam::Wrapped*>(nullptr), 8); },
              TypeParam::kNoStream);
  Tally tally;
  typename TypeParam::Sink failing(&tally);
  failing.failClose = true;
  D out(&failing, 8);
  out.Write(TypeParam::Text("xy").c_str(), 2);
  EXPECT_THROW(out.Close(), CIOException);
  EXPECT_EQ(failing.data, TypeParam::Text("xy"));  // flushed before the close
  out.Close();                                      // already closed: silent
  EXPECT_EQ(tally.closed, 1);
  ExpectError([&] { out.Write(TypeParam::Text("a")[0]); }, TypeParam::kClosed);
  ExpectError([&] { out.Write(TypeParam::Text("a").c_str(), 1); }, TypeParam::kClosed);
  ExpectError([&] { out.Flush(); }, TypeParam::kClosed);
}

TEST(BufferedWriterTest, TextWritesAreClampedToTheText) {
  CTestWriter sink;
  CBufferedWriter out(&sink, 4);
  out.Write(vesk::base::CUnicodeString("xyz"), 1, 10);  // clamped to "yz"
  out.Write(vesk::base::CUnicodeString("xyz"), 3, 1);   // nothing
  out.Write(U16("!").c_str());
  out.Write(static_cast<const unsigned short*>(nullptr));
  out.Flush();
  EXPECT_EQ(sink.data, U16("yz!"));
  out.Close();
  ExpectError([&] { out.Write(vesk::base::CUnicodeString("x")); }, "Writer closed.");
}

}  // namespace
