// The XML text reader next to its floor and a peer, on the same ~30 MB
// document the writer benchmark writes (a root with 180,000 records, each
// with an integer and a text attribute and escaped text content), read from
// memory:
// - the reader: ReadToken over every token, reading each value (the text of
//   text tokens, every attribute value of start elements);
// - the floor: Xerces-C's progressive scan with the same scanner and
//   settings and empty handlers (the reader cannot beat the scanner it
//   drives);
// - the peer: libxml2's xmlTextReader, reading the same values.
#include <libxml/xmlreader.h>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/XMLPScanToken.hpp>
#include <xercesc/parsers/SAXParser.hpp>
#include <xercesc/sax/HandlerBase.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <string>

#include <benchmark/benchmark.h>

#include "vesk/io/IXMLStartElementToken.h"
#include "vesk/io/MemoryInputStream.h"
#include "vesk/io/MemoryOutputStream.h"
#include "vesk/io/XMLTextReader.h"
#include "vesk/io/XMLTextWriter.h"

namespace {

using namespace vesk::io;

const unsigned short* U(const char16_t* s) { return reinterpret_cast<const unsigned short*>(s); }

// The writer benchmark's document, written by the XML text writer.
const std::string& Document() {
  static const std::string doc = [] {
    CMemoryOutputStream out(40u << 20, 1u << 20);
    const unsigned short lf[] = {'\n', 0};
    CXMLTextWriter writer(&out, "UTF-8", 4096, nullptr, lf, false);
    writer.WriteStartDocument();
    writer.WriteStartElement(U(u"orders"));
    for (int i = 0; i < 180000; ++i) {
      int k = i & 63;
      std::u16string name = u"customer ", text = u"Order ";
      for (char c : std::to_string(k * 7919)) name += c;
      name += u" & sons";
      for (char c : std::to_string(k)) text += c;
      text += u": 3 < 4 items, \"express\" delivery & 'gift' wrap; total > 100 EUR";
      writer.WriteStartElement(U(u"record"));
      writer.WriteAttrLong(U(u"id"), i);
      writer.WriteAttribute(U(u"name"), U(name.c_str()));
      writer.WriteString(U(text.c_str()));
      writer.WriteEndElement();
    }
    writer.WriteEndDocument();
    writer.Flush();
    return std::string(out.GetBuffer(), out.GetBufferSize());
  }();
  return doc;
}

void BM_VeskXMLTextReader(benchmark::State& state) {
  const std::string& doc = Document();
  size_t units = 0;
  for (auto _ : state) {
    CMemoryInputStream in(doc.data(), static_cast<unsigned int>(doc.size()), false);
    CXMLTextReader reader(&in);
    while (reader.ReadToken()) {
      const vesk::base::CRef<IXMLToken>& token = reader.GetCurrentToken();
      if (token->GetType() == XMLStartElement) {
        const CXMLAttributeList& list = dynamic_cast<const IXMLStartElementToken&>(*token).GetAttributes();
        for (unsigned int i = 0; i < list.GetCount(); ++i) units += list.GetAt(i).GetValue().GetLength();
      } else {
        units += token->GetValue().GetLength();
      }
    }
  }
  benchmark::DoNotOptimize(units);
  state.SetBytesProcessed(static_cast<int64_t>(doc.size()) * state.iterations());
}
BENCHMARK(BM_VeskXMLTextReader)->Unit(benchmark::kMillisecond);

void BM_XercesProgressiveScan(benchmark::State& state) {
  const std::string& doc = Document();
  xercesc::XMLPlatformUtils::Initialize();
  {
    xercesc::SAXParser parser;
    parser.useScanner(xercesc::XMLUni::fgWFXMLScanner);
    parser.setDoNamespaces(true);
    parser.setValidationScheme(xercesc::SAXParser::Val_Never);
    xercesc::HandlerBase handler;
    parser.setDocumentHandler(&handler);
    parser.setErrorHandler(&handler);
    for (auto _ : state) {
      xercesc::MemBufInputSource source(reinterpret_cast<const XMLByte*>(doc.data()), doc.size(), "bench");
      xercesc::XMLPScanToken token;
      bool more = parser.parseFirst(source, token);
      while (more) more = parser.parseNext(token);
    }
  }
  xercesc::XMLPlatformUtils::Terminate();
  state.SetBytesProcessed(static_cast<int64_t>(doc.size()) * state.iterations());
}
BENCHMARK(BM_XercesProgressiveScan)->Unit(benchmark::kMillisecond);

void BM_Libxml2TextReader(benchmark::State& state) {
  const std::string& doc = Document();
  size_t bytes = 0;
  for (auto _ : state) {
    xmlTextReaderPtr reader = xmlReaderForMemory(doc.data(), static_cast<int>(doc.size()), "bench", nullptr, 0);
    while (xmlTextReaderRead(reader) == 1) {
      if (xmlTextReaderNodeType(reader) == XML_READER_TYPE_ELEMENT) {
        while (xmlTextReaderMoveToNextAttribute(reader) == 1) {
          const xmlChar* value = xmlTextReaderConstValue(reader);
          if (value) bytes += xmlStrlen(value);
        }
      } else {
        const xmlChar* value = xmlTextReaderConstValue(reader);
        if (value) bytes += xmlStrlen(value);
      }
    }
    xmlFreeTextReader(reader);
  }
  benchmark::DoNotOptimize(bytes);
  state.SetBytesProcessed(static_cast<int64_t>(doc.size()) * state.iterations());
}
BENCHMARK(BM_Libxml2TextReader)->Unit(benchmark::kMillisecond);

}  // namespace
