#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "HostSupport.h"
#include "TestStreams.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/io/MemoryOutputStream.h"
#include "vesk/io/OutputStreamWriter.h"
#include "vesk/platform/Memory.h"

using namespace vesk::base;
using namespace vesk::io;
using namespace vesk_test;

namespace {

typedef std::basic_string<unsigned short> U16String;

std::string IcuUtf8(const U16String& text) { return ReferenceUtf8(text.data(), text.size()); }

TEST(OutputStreamWriterTest, MatchesIcuForRandomTextInRandomWrites) {
  std::mt19937 rng(4711);
  for (int round = 0; round < 60; ++round) {
    U16String text(rng() % 40000, 0);
    for (auto& u : text) {  // one, two and three UTF-8 bytes; no surrogates
      unsigned int kind = rng() % 4;
      do u = static_cast<unsigned short>(kind < 2 ? 1 + rng() % 0x7F
                                         : kind == 2 ? 0x80 + rng() % 0x780
                                                     : 0x800 + rng() % 0xF800);
      while (u >= 0xD800 && u <= 0xDFFF);
    }
    CMemoryOutputStream out;
    {
      COutputStreamWriter writer(&out, "UTF-8", false);
      // Chunks from single units to several times the first buffer, through
      // every write form.
      size_t i = 0;
      while (i < text.size()) {
        size_t maxPiece = rng() % 4 == 0 ? 12000 : 700;
        size_t piece = 1 + rng() % maxPiece;
        if (piece > text.size() - i) piece = text.size() - i;
        unsigned int offset = static_cast<unsigned int>(i);
        unsigned int length = static_cast<unsigned int>(piece);
        unsigned int form = rng() % 4;
        if (form == 0) {
          for (size_t k = 0; k < piece; ++k) writer.Write(text[i + k]);
        } else if (form == 1) {
          writer.Write(text.data(), offset, length);
        } else if (form == 2) {
          writer.Write(text.data() + i, length);
        } else {  // an over-long length is clamped to the text
          CUnicodeString s(text.data(), static_cast<unsigned int>(text.size()));
          writer.Write(s, offset, i + piece == text.size() ? length + 1000 : length);
        }
        i += piece;
      }
      writer.Close();
    }
    ASSERT_EQ(Contents(out), IcuUtf8(text)) << "round " << round;
  }
}

// A call too big for the buffer is held whole: the buffer doubles until it
// takes the call (from 8196 bytes: 16392, 32784 ...), whatever its mix of
// units: surrogate pairs in one call are one '?' each, a high surrogate at
// the end is kept for the next call.
TEST(OutputStreamWriterTest, CallsTooBigForTheBufferDoubleItUntilItFits) {
  struct Row {
    U16String text;
    unsigned int bytes;  // what the call and the '?' of a pending unit encode to
    unsigned int buffer;
  };
  U16String mixed;
  for (int i = 0; i < 20000; ++i) mixed += U16String{0x20AC, 'a', 0xD83D, 0xDE00, 0x3A9};
  mixed += 0xD83D;
  U16String pairs;
  for (int i = 0; i < 60000; ++i) pairs += U16String{0xD83D, 0xDE00};
  const Row rows[] = {{U16String(5000, 0x20AC), 15000, 16392},
                      {U16String(30000, 0x20AC), 90000, 131136},
                      {U16String(65568, 'a'), 65568, 65568},
                      {U16String(65569, 'a'), 65569, 131136},
                      {pairs, 60000, 65568},
                      {mixed, 20000 * 7 + 1, 262272}};
  for (const Row& row : rows) {
    CTestOutputStream out;
    COutputStreamWriter writer(&out, "UTF-8", false);
    writer.Write(row.text.data(), 0, static_cast<unsigned int>(row.text.size()));
    if (row.bytes < row.buffer) EXPECT_TRUE(out.data.empty());
    // Filling the rest of the buffer sends it out in one write of its size.
    U16String fill(row.buffer - row.bytes, 'f');
    writer.Write(fill.data(), 0, static_cast<unsigned int>(fill.size()));
    ASSERT_FALSE(out.writes.empty());
    EXPECT_EQ(static_cast<unsigned int>(out.writes.back()), row.buffer) << row.text.size();
  }
}

TEST(OutputStreamWriterTest, SmallWritesAreCollectedUntilTheBufferFills) {
  CTestOutputStream out;
  COutputStreamWriter writer(&out, "UTF-8", false);
  U16String block(1000, 0xE9);  // 2000 bytes
  for (int i = 0; i < 4; ++i) writer.Write(block.data(), 1000u);
  EXPECT_TRUE(out.data.empty());
  // The fifth block does not fit after 8000 bytes: the 8000 go out first,
  // and the block is converted into the emptied buffer.
  writer.Write(block.data(), 1000u);
  ASSERT_EQ(out.writes.size(), 1u);
  EXPECT_EQ(out.writes[0], 8000);
  writer.Flush();
  EXPECT_EQ(out.data.size(), 10000u);
  EXPECT_EQ(out.flushedAt, std::vector<size_t>{10000});
}

TEST(OutputStreamWriterTest, ByteOrderMarkIsWrittenAtOnce) {
  CMemoryOutputStream withMark, without;
  COutputStreamWriter a(&withMark, "UTF-8", true), b(&without, "UTF-8", false);
  EXPECT_EQ(Contents(withMark), Bytes({0xEF, 0xBB, 0xBF}));
  EXPECT_EQ(without.GetBufferSize(), 0u);
  a.Write(U16("hi").c_str());
  a.Flush();
  EXPECT_EQ(Contents(withMark), Bytes({0xEF, 0xBB, 0xBF, 'h', 'i'}));
  EXPECT_TRUE(b.GetEncoding() == "UTF-8");
}

TEST(OutputStreamWriterTest, ConstructionFailures) {
  CMemoryOutputStream out;
  ExpectEachThrows<CIllegalArgumentException>(
      {[] { COutputStreamWriter w(static_cast<COutputStream*>(nullptr), "UTF-8", false); },
       [] { COutputStreamWriter w(CRef<COutputStream>(), "UTF-8", false); }},
      "Invalid output stream..");
  ExpectEachThrows<CIllegalArgumentException>(
      {[&] { COutputStreamWriter w(&out, "", false); },
       [&] { COutputStreamWriter w(&out, nullptr, false); }},
      "Invalid encoding.");
  ExpectUnsupportedEncoding([&] { COutputStreamWriter w(&out, "utf-8", true); }, "utf-8");
  EXPECT_EQ(out.GetBufferSize(), 0u);  // no mark for an unknown encoding

  // The buffer is the last allocation of the constructor.
  long live = vesk::platform::LiveAllocations();
  unsigned long before = vesk::platform::AllocationCount();
  { COutputStreamWriter probe(&out, "UTF-8", false); }
  unsigned long calls = vesk::platform::AllocationCount() - before;
  ASSERT_GT(calls, 0u);
  vesk::platform::FailAllocationAt(calls);
  ExpectThrow<CMemoryException>([&] { COutputStreamWriter w(&out, "UTF-8", false); }, nullptr);
  vesk::platform::FailAllocationAt(0);
  EXPECT_EQ(vesk::platform::LiveAllocations(), live);
}

TEST(OutputStreamWriterTest, BufferThatCannotGrowReportsMemoryFull) {
  CTestOutputStream out;
  COutputStreamWriter writer(&out, "UTF-8", false);
  U16String big(3000, 0x20AC);  // 9000 bytes: needs the doubled buffer
  vesk::testing::ExpectThrowIfAllocationFails<CIOException>(
      [&] { writer.Write(big.data(), 3000u); }, "Memory full.");
  // The old buffer is still there and the converter starts afresh.
  writer.Write(U16("ok").c_str());
  writer.Write(big.data(), 3000u);
  writer.Flush();
  EXPECT_EQ(out.data.substr(0, 2), "ok");
  EXPECT_EQ(out.data.size(), 9002u);
}

TEST(OutputStreamWriterTest, HighSurrogateAtTheEndOfAWaitsForTheNextWrite) {
  CMemoryOutputStream out;
  COutputStreamWriter writer(&out, "UTF-8", false);
  // A write of only a high surrogate encodes nothing yet and must return.
  writer.Write(static_cast<unsigned short>(0xD83D));
  writer.Write(static_cast<unsigned short>(0xDE00));
  U16String pairInOneCall{'[', 0xD83D, 0xDE00, ']'};
  writer.Write(pairInOneCall.data(), 4u);
  writer.Flush();
  EXPECT_EQ(Contents(out), Bytes({0xF0, 0x9F, 0x98, 0x80, '[', '?', ']'}));
}

// Which constructor keeps the stream alive is checked with the other decorators.
TEST(OutputStreamWriterTest, CloseFlushAndOwnership) {
  Tally tally;
  CTestOutputStream stream(&tally);
  {
    COutputStreamWriter writer(&stream, "UTF-8", false);
    writer.Write(U16("abc").c_str());
    writer.Write(U16("").c_str());
    writer.Close();
    EXPECT_EQ(stream.data, "abc");
    EXPECT_EQ(tally.closed, 1);
    EXPECT_EQ(tally.flushed, 0);
    writer.Close();  // silent
    EXPECT_EQ(tally.closed, 1);
    ExpectEachThrows<CIOException>(
        {[&] { writer.Write(static_cast<unsigned short>('x')); },
         [&] { writer.Write(CUnicodeString()); }, [&] { writer.Flush(); }},
        "Writer closed.");
  }

  // Destruction neither flushes nor closes a borrowed stream.
  CTestOutputStream borrowed;
  {
    COutputStreamWriter writer(&borrowed, "UTF-8", false);
    writer.Write(U16("lost").c_str());
  }
  EXPECT_TRUE(borrowed.data.empty());

  // A failing close still closes the writer, after the bytes went out.
  CTestOutputStream failing;
  failing.failClose = true;
  COutputStreamWriter writer(&failing, "UTF-8", false);
  writer.Write(U16("x").c_str());
  EXPECT_THROW(writer.Close(), CIOException);
  EXPECT_EQ(failing.data, "x");
  ExpectThrow<CIOException>([&] { writer.Flush(); }, "Writer closed.");
}

TEST(OutputStreamWriterTest, NullAndOutOfRangeWritesAreIgnored) {
  CMemoryOutputStream out;
  COutputStreamWriter writer(&out, "UTF-8", false);
  writer.Write(static_cast<const unsigned short*>(nullptr));
  writer.Write(static_cast<const unsigned short*>(nullptr), 5u);
  writer.Write(static_cast<const unsigned short*>(nullptr), 0u, 5u);
  CUnicodeString text("abc");
  writer.Write(text, 3, 1);
  writer.Write(text, 1, 0);
  const U16String units = U16("xyz");
  writer.Write(units.data(), 2u, 0xFFFFFFFFu);  // the range wraps
  writer.Write(text, 1, 100);
  writer.Flush();
  EXPECT_EQ(Contents(out), "bc");
}

}  // namespace
