// Long-running reader checks (CTest label "long"): a 2 GiB document streamed
// in bounded memory.

#include <algorithm>
#include <string>

#include <gtest/gtest.h>

#include "HostSupport.h"
#include "vesk/base/Exception.h"
#include "vesk/io/XMLTextReader.h"

using namespace vesk::io;

namespace {

// A document made on the fly: <r>, then records, then </r>.
class CGeneratedDocument : public CInputStream {
 public:
  CGeneratedDocument(unsigned long long size, std::string record) : m_record(std::move(record)) {
    // Whole records only, so the document stays well-formed.
    unsigned long long records = (size - m_open.size() - m_close.size()) / m_record.size();
    m_size = m_open.size() + records * m_record.size() + m_close.size();
  }
  unsigned int GetAvailable() const override { return 0; }
  int Read(char* buffer, unsigned int offset, unsigned int length) override {
    unsigned int n = 0;
    while (n < length) {
      const std::string* part;
      unsigned long long at = m_done;
      if (at < m_open.size()) {
        part = &m_open;
      } else if (at < m_size - m_close.size()) {
        part = &m_record;
        at = (at - m_open.size()) % m_record.size();
      } else if (at < m_size) {
        part = &m_close;
        at -= m_size - m_close.size();
      } else {
        break;
      }
      buffer[offset + n++] = (*part)[at];
      ++m_done;
    }
    return n ? static_cast<int>(n) : -1;
  }
  void Reset() override { m_done = 0; }
  void Close() override {}

 private:
  unsigned long long m_size;
  unsigned long long m_done = 0;
  std::string m_record, m_open = "<r>", m_close = "</r>";
};

TEST(XMLTextReaderTest, TwoGiBStreamInBoundedMemory) {
  const unsigned long long size = 2ull << 30;
  CGeneratedDocument doc(size, "<i a='1'>some text &amp; more</i>\n");
  CXMLTextReader reader(&doc);
  long before = vesk_test::ResidentBytes(), peak = before;
  unsigned long long elements = 0;
  try {
    while (reader.ReadToken())
      if (reader.GetCurrentTokenType() == XMLStartElement && ++elements % 100000 == 0)
        peak = std::max(peak, vesk_test::ResidentBytes());
  } catch (const vesk::base::CException& e) {
    ADD_FAILURE() << e.GetErrorDescription() << ": " << (e.GetMessage() ? e.GetMessage() : "");
  }
  EXPECT_GT(elements, size / 40);
  EXPECT_LT(peak - before, 64L << 20) << "bytes of resident memory grew while reading";
}

}  // namespace
