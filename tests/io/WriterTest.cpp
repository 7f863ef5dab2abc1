#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "TestStreams.h"
#include "vesk/base/UnicodeString.h"

using vesk::base::CUnicodeString;
using vesk::io::CWriter;
using vesk_test::CTestWriter;
using vesk_test::U16;

namespace {

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
  EXPECT_EQ(sink.writes, (std::vector<int>{1, 3, 2}));

  sink.data.clear();
  CUnicodeString text("hello");
  out.Write(text);
  out.Write(text, 3, 100);  // clamped to "lo"
  out.Write(text, 5, 1);    // at the end: nothing
  out.Write(CUnicodeString());
  out.Write(CUnicodeString(), 0, 4);
  EXPECT_EQ(sink.data, U16("hellolo"));
}

}  // namespace
