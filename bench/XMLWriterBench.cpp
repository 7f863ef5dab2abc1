// The XML text writer next to libxml2's xmlTextWriter: the same ~30 MB
// document (a root with 180,000 records, each with an integer and a text
// attribute and escaped text content) written into memory. Each side gets
// its text in its native form ahead of time (UTF-16 here, UTF-8 for
// libxml2); bytes per second count the document's bytes.
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <libxml/xmlwriter.h>

#include "vesk/io/MemoryOutputStream.h"
#include "vesk/io/XMLTextWriter.h"

namespace {

using vesk::io::CMemoryOutputStream;
using vesk::io::CXMLTextWriter;

constexpr int kRecords = 180000;

struct Record {
  std::string name8, text8;
  std::u16string name16, text16;
};

const std::vector<Record>& Records() {
  static const std::vector<Record> records = [] {
    std::vector<Record> list(64);
    for (size_t i = 0; i < list.size(); ++i) {
      std::string n = "customer " + std::to_string(i * 7919) + " & sons";
      std::string t = "Order " + std::to_string(i) +
                      ": 3 < 4 items, \"express\" delivery & 'gift' wrap; total > 100 EUR";
      list[i].name8 = n;
      list[i].text8 = t;
      list[i].name16.assign(n.begin(), n.end());
      list[i].text16.assign(t.begin(), t.end());
    }
    return list;
  }();
  return records;
}

const unsigned short* U(const std::u16string& s) {
  return reinterpret_cast<const unsigned short*>(s.c_str());
}

void BM_VeskXMLTextWriter(benchmark::State& state) {
  const std::vector<Record>& records = Records();
  CMemoryOutputStream out(40u << 20, 1u << 20);
  const unsigned short lf[] = {'\n', 0};
  const std::u16string root = u"orders", record = u"record", id = u"id", name = u"name";
  size_t bytes = 0;
  for (auto _ : state) {
    out.Reset();
    CXMLTextWriter writer(&out, "UTF-8", 4096, nullptr, lf, false);
    writer.WriteStartDocument();
    writer.WriteStartElement(U(root));
    for (int i = 0; i < kRecords; ++i) {
      const Record& r = records[i & 63];
      writer.WriteStartElement(U(record));
      writer.WriteAttrLong(U(id), i);
      writer.WriteAttribute(U(name), U(r.name16));
      writer.WriteString(U(r.text16));
      writer.WriteEndElement();
    }
    writer.WriteEndDocument();
    writer.Flush();
    bytes = out.GetBufferSize();
    benchmark::DoNotOptimize(out.GetBuffer());
  }
  state.SetBytesProcessed(static_cast<int64_t>(bytes) * state.iterations());
  state.counters["MB"] = static_cast<double>(bytes) / 1e6;
}
BENCHMARK(BM_VeskXMLTextWriter)->Unit(benchmark::kMillisecond);

void BM_Libxml2TextWriter(benchmark::State& state) {
  const std::vector<Record>& records = Records();
  size_t bytes = 0;
  for (auto _ : state) {
    xmlBufferPtr buffer = xmlBufferCreateSize(40u << 20);
    xmlTextWriterPtr writer = xmlNewTextWriterMemory(buffer, 0);
    xmlTextWriterStartDocument(writer, nullptr, "UTF-8", nullptr);
    xmlTextWriterStartElement(writer, BAD_CAST "orders");
    for (int i = 0; i < kRecords; ++i) {
      const Record& r = records[i & 63];
      xmlTextWriterStartElement(writer, BAD_CAST "record");
      xmlTextWriterWriteFormatAttribute(writer, BAD_CAST "id", "%d", i);
      xmlTextWriterWriteAttribute(writer, BAD_CAST "name", BAD_CAST r.name8.c_str());
      xmlTextWriterWriteString(writer, BAD_CAST r.text8.c_str());
      xmlTextWriterEndElement(writer);
    }
    xmlTextWriterEndDocument(writer);
    xmlFreeTextWriter(writer);  // flushes into the buffer
    bytes = xmlBufferLength(buffer);
    benchmark::DoNotOptimize(xmlBufferContent(buffer));
    xmlBufferFree(buffer);
  }
  state.SetBytesProcessed(static_cast<int64_t>(bytes) * state.iterations());
  state.counters["MB"] = static_cast<double>(bytes) / 1e6;
}
BENCHMARK(BM_Libxml2TextWriter)->Unit(benchmark::kMillisecond);

}  // namespace
