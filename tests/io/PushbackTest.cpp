#include <string>

#include <gtest/gtest.h>

#include "TestStreams.h"
#include "vesk/io/IOException.h"
#include "vesk/io/PushbackInputStream.h"
#include "vesk/io/PushbackReader.h"

using namespace vesk::io;
using namespace vesk_test;

namespace {

TEST(PushbackInputStreamTest, LastGivenBackIsReadFirst) {
  CTestInputStream source("rest");
  CPushbackInputStream in(&source, 2);
  in.Unread('a');
  in.Unread(static_cast<char>(0xE9));
  ExpectError([&] { in.Unread('c'); }, "Pushback buffer is full.");
  EXPECT_EQ(in.GetAvailable(), 6u);
  EXPECT_EQ(in.Read(), -23);  // 0xE9 sign-extended
  EXPECT_EQ(in.Read(), 'a');
  EXPECT_EQ(in.Read(), 'r');
}

TEST(PushbackInputStreamTest, ArrayUnreadKeepsOrder) {
  CTestInputStream source("!");
  CPushbackInputStream in(&source, 4);
  in.Unread("xy", 2);
  in.Unread("abc", 2, 1);
  EXPECT_EQ(in.Read(), 'c');
  EXPECT_EQ(in.Read(), 'x');
  ExpectError([&] { in.Unread("12345", 4); }, "Pushback buffer is full.");
  in.Unread(nullptr, 3);  // a null source gives nothing back
  char buffer[8] = {};
  EXPECT_EQ(in.Read(buffer, 8), 2);  // "y" and "!"
  EXPECT_EQ(std::string(buffer, 2), "y!");
}

TEST(PushbackInputStreamTest, ReadAtTheEndGivesPushedBackMinusOne) {
  CTestInputStream source("");
  CPushbackInputStream in(&source, 4);
  char buffer[8] = {};
  EXPECT_EQ(in.Read(buffer, 4), -1);
  in.Unread("ab", 2);
  EXPECT_EQ(in.Read(buffer, 1, 4), 1);  // two handed out, one less reported
  EXPECT_EQ(std::string(buffer + 1, 2), "ab");
  in.Unread("abc", 3);
  EXPECT_EQ(in.Read(buffer, 2), 2);  // fewer than pushed back
  EXPECT_EQ(in.Read(buffer, 0), 0);
  // A null target skips: the one pushed back plus the 4 the wrapped
  // contract's Skip reports as not skipped.
  EXPECT_EQ(in.Read(nullptr, 5), 5);
}

TEST(PushbackInputStreamTest, SkipResetAndClose) {
  Tally tally;
  CTestInputStream source("0123456789", 0, &tally);
  CPushbackInputStream in(&source, 4);
  in.Unread("abc", 3);
  EXPECT_EQ(in.Skip(2), 2);
  EXPECT_EQ(in.Read(), 'c');
  in.Unread("de", 2);
  EXPECT_EQ(in.Skip(4), 0 + 2);  // 2 pushed back + the wrapped skip's "0 not skipped"
  EXPECT_EQ(in.Read(), '2');
  in.Unread('z');
  in.Reset();
  EXPECT_EQ(tally.resets, 1);
  EXPECT_EQ(in.Read(), '0');
  source.failClose = true;
  EXPECT_THROW(in.Close(), CIOException);
  ExpectError([&] { in.Close(); }, "Stream closed.");
  in.Unread('q');  // still allowed after Close
  ExpectError([&] { in.Read(); }, "Stream closed.");
}

TEST(PushbackInputStreamTest, ConstructionErrors) {
  CTestInputStream source("");
  ExpectError([] { CPushbackInputStream in(static_cast<CInputStream*>(nullptr), 2); },
              "Invalid input stream.");
  ExpectError([&] { CPushbackInputStream in(&source, 0); }, "Invalid pushback buffer size.");
}

// The read, skip and end rules are the pushback buffer the byte stream
// shares; the reader's own are its values and texts.
TEST(PushbackReaderTest, UnitsGoBackAndComeOutZeroExtended) {
  CTestReader source(U16("tail"));
  CPushbackReader in(&source, 3);
  in.Unread(0xFFFF);
  const unsigned short pair[] = {0xD83D, 0xDE00};
  in.Unread(pair, 2);
  ExpectError([&] { in.Unread('x'); }, "Pushback buffer is full.");
  for (int unit : {0xD83D, 0xDE00, 0xFFFF, int{'t'}}) EXPECT_EQ(in.Read(), unit);
  ExpectError([] { CPushbackReader r(static_cast<CReader*>(nullptr), 1); }, "Invalid reader.");
  ExpectError([&] { CPushbackReader r(&source, 0); }, "Invalid pushback buffer size.");
  in.Close();
  ExpectError([&] { in.Read(); }, "Reader closed.");
}

}  // namespace
