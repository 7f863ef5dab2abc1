// Long check (CTest label "long"): a 1 GiB document streams through the XML
// text writer while the process's resident memory stays flat.
#include <cstdio>
#include <string>

#include <gtest/gtest.h>

#include "HostSupport.h"

#include "vesk/io/OutputStream.h"
#include "vesk/io/XMLTextWriter.h"

namespace {

/// Counts the bytes it is given and keeps none.
class CCountingStream : public vesk::io::COutputStream {
 public:
  void Write(const char*, unsigned int, unsigned int length) override { bytes += length; }
  void Write(const char*, unsigned int length) override { bytes += length; }
  void Write(char) override { ++bytes; }
  void Flush() override {}
  void Close() override {}
  unsigned long long bytes = 0;
};

using vesk_test::ResidentBytes;

TEST(XMLWriterStreamingTest, OneGibibyteKeepsResidentMemoryFlat) {
  CCountingStream out;
  const unsigned short lf[] = {'\n', 0};
  vesk::io::CXMLTextWriter writer(&out, "UTF-8", 8192, nullptr, lf, false);
  std::u16string text(900, u'x');
  for (size_t i = 0; i < text.size(); i += 9) text[i] = u"<&>é中ab"[i % 7];
  text += u"\U0001F600";
  const unsigned short* t = reinterpret_cast<const unsigned short*>(text.c_str());
  const unsigned short* name = reinterpret_cast<const unsigned short*>(u"record");
  writer.WriteStartDocument();
  writer.WriteStartElement(reinterpret_cast<const unsigned short*>(u"root"));
  long start = 0;
  long peak = 0;
  for (unsigned long long n = 0; out.bytes < (1ull << 30); ++n) {
    writer.WriteStartElement(name, reinterpret_cast<const unsigned short*>(u"urn:r"));
    writer.WriteAttrLong(reinterpret_cast<const unsigned short*>(u"n"), static_cast<int>(n));
    writer.WriteString(t);
    writer.WriteEndElement();
    if (n == 20000) start = ResidentBytes();  // after the first 20 MB or so
    if (n > 20000 && n % 50000 == 0) {
      long now = ResidentBytes();
      if (now > peak) peak = now;
    }
  }
  writer.WriteEndDocument();
  writer.Close();
  ASSERT_GT(start, 0);
  EXPECT_GE(out.bytes, 1ull << 30);
  EXPECT_LT(peak - start, 4L << 20) << "resident memory grew from " << start << " to " << peak;
}

}  // namespace
