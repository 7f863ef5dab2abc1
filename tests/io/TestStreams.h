// Scripted streams for the stream tests: they record what a decorator does to
// them, count closes, flushes and destructions, and can be told to fail.
#ifndef VESK_TESTS_IO_TESTSTREAMS_H
#define VESK_TESTS_IO_TESTSTREAMS_H

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <initializer_list>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "TestSupport.h"
#include "vesk/base/String.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/io/IOException.h"
#include "vesk/io/IXMLPIToken.h"
#include "vesk/io/IXMLStartElementToken.h"
#include "vesk/io/InputStream.h"
#include "vesk/io/MemoryOutputStream.h"
#include "vesk/io/OutputStream.h"
#include "vesk/io/Reader.h"
#include "vesk/io/UnsupportedEncodingException.h"
#include "vesk/io/Writer.h"
#include "vesk/io/XMLTextReader.h"

namespace vesk_test {

/// What happened to a test stream, kept outside it so it can be read after
/// the stream is gone.
struct Tally {
  int destroyed = 0;
  int closed = 0;
  int flushed = 0;
  int resets = 0;
};

/// What every test stream shares: its tally (its own unless given one) and a
/// Close that can be told to fail.
template <class Base>
class CTallied : public Base {
 public:
  explicit CTallied(Tally* tally) : m_tally(tally ? tally : &m_own) {}
  ~CTallied() override { ++m_tally->destroyed; }
  void Close() override {
    ++m_tally->closed;
    if (failClose) throw vesk::io::CIOException("test", 1, "close failed");
  }
  const Tally& tally() const { return *m_tally; }

  bool failClose = false;

 protected:
  Tally m_own;
  Tally* m_tally;
};

/// Collects bytes or 16-bit units; records the length of every array write
/// (-1 for a single byte write) and the data size at each Flush.
template <class Base, class Unit>
class CTestSink : public CTallied<Base> {
 public:
  explicit CTestSink(Tally* tally = nullptr) : CTallied<Base>(tally) {}

  using Base::Write;
  void Write(const Unit* units, unsigned int offset, unsigned int length) override {
    if (!units) return;
    writes.push_back(static_cast<int>(length));
    data.append(units + offset, length);
  }
  void Flush() override {
    ++this->m_tally->flushed;
    flushedAt.push_back(data.size());
  }

  std::basic_string<Unit> data;
  std::vector<int> writes;
  std::vector<size_t> flushedAt;
};

class CTestOutputStream : public CTestSink<vesk::io::COutputStream, char> {
 public:
  using CTestSink::CTestSink;
  using CTestSink::Write;
  void Write(const char* buffer, unsigned int length) override { Write(buffer, 0, length); }
  void Write(char byte) override {
    writes.push_back(-1);
    data.push_back(byte);
  }
};

using CTestWriter = CTestSink<vesk::io::CWriter, unsigned short>;

/// Hands out a fixed text, at most chunk bytes per array read (0: no limit).
/// Skip is the contract's default.
template <class Base, class Unit>
class CScriptedSource : public CTallied<Base> {
 public:
  CScriptedSource(std::basic_string<Unit> text, unsigned int chunk = 0, Tally* tally = nullptr)
      : CTallied<Base>(tally), data(std::move(text)), m_chunk(chunk) {}

  using Base::Read;
  int Read(Unit* buffer, unsigned int offset, unsigned int length) override {
    requests.push_back(length);
    if (length == 0) return 0;
    if (position >= data.size()) return -1;
    size_t n = data.size() - position;
    if (n > length) n = length;
    if (m_chunk && n > m_chunk) n = m_chunk;
    data.copy(buffer + offset, n, position);
    position += n;
    return static_cast<int>(n);
  }
  void Reset() override {
    ++this->m_tally->resets;
    position = 0;
  }

  std::basic_string<Unit> data;
  size_t position = 0;
  std::vector<unsigned int> requests;  // lengths asked for by array reads

 protected:
  unsigned int m_chunk;
};

class CTestInputStream : public CScriptedSource<vesk::io::CInputStream, char> {
 public:
  using CScriptedSource::CScriptedSource;
  unsigned int GetAvailable() const override {
    return static_cast<unsigned int>(data.size() - position);
  }
};

using CTestReader = CScriptedSource<vesk::io::CReader, unsigned short>;

using vesk::testing::ExpectThrow;

/// Expects each call to throw an E with that description (and throw-site
/// source when given).
template <class E>
void ExpectEachThrows(std::initializer_list<std::function<void()>> calls, const char* description,
                      const char* source = nullptr) {
  int i = 0;
  for (const auto& call : calls) {
    SCOPED_TRACE("call " + std::to_string(i++));
    ExpectThrow<E>(call, description, source);
  }
}

/// Expects op to throw an exception of the library with that description.
template <class F>
void ExpectError(F op, const char* description) {
  ExpectThrow<vesk::base::CException>(op, description);
}

/// Expects op to refuse encoding with the exception that names it.
template <class F>
void ExpectUnsupportedEncoding(F op, const char* encoding) {
  try {
    op();
    ADD_FAILURE() << "no exception for encoding \"" << encoding << "\"";
  } catch (const vesk::io::CUnsupportedEncodingException& e) {
    EXPECT_STREQ(e.GetEncoding(), encoding);
  }
}

/// Prints each value through out.Print, each followed by a '|', so that one
/// string shows the text of every value (print stream and writer tests).
template <class P, class... V>
void PrintEach(P& out, const V&... values) {
  ((out.Print(values), out.Print('|')), ...);
}

/// Prints each value on a line of its own through out.Println.
template <class P, class... V>
void PrintlnEach(P& out, const V&... values) {
  (out.Println(values), ...);
}

/// A byte string from values -128..255.
inline std::string Bytes(std::initializer_list<int> list) {
  std::string s;
  for (int b : list) s.push_back(static_cast<char>(b));
  return s;
}

/// What a memory stream holds, as a string.
inline std::string Contents(const vesk::io::CMemoryOutputStream& out) {
  return std::string(out.GetBuffer() ? out.GetBuffer() : "", out.GetBufferSize());
}

/// A 16-bit string as a standard one, and back.
inline std::u16string ToU16(const vesk::base::CUnicodeString& s) {
  const unsigned short* p = s;
  return std::u16string(reinterpret_cast<const char16_t*>(p), s.GetLength());
}

inline vesk::base::CUnicodeString FromU16(const std::u16string& s) {
  return vesk::base::CUnicodeString(reinterpret_cast<const unsigned short*>(s.c_str()),
                                    static_cast<unsigned int>(s.size()));
}

inline std::basic_string<unsigned short> U16(const char* ascii) {
  std::basic_string<unsigned short> s;
  for (; *ascii; ++ascii) s.push_back(static_cast<unsigned char>(*ascii));
  return s;
}

/// What a shell command (an independent peer) printed; status gets its wait
/// status, -1 when it did not start.
inline std::string CommandOutput(const std::string& command, int* status = nullptr) {
  std::string out;
  FILE* pipe = popen(command.c_str(), "r");
  char buffer[65536];
  for (size_t n; pipe && (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;) out.append(buffer, n);
  int ended = pipe ? pclose(pipe) : -1;
  if (status) *status = ended;
  return out;
}

/// The bytes of a file ("" when it cannot be read).
inline std::string FileBytes(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}


// --- XML reading (reader tests) ----------------------------------------------

/// A text reader over doc, handed out at most chunk bytes per read (0: no
/// limit).
inline vesk::base::CRef<vesk::io::CXMLReader> XMLReaderOn(const std::string& doc, unsigned int chunk = 0) {
  vesk::base::CRef<vesk::io::CInputStream> stream(new CTestInputStream(doc, chunk));
  return vesk::base::CRef<vesk::io::CXMLReader>(new vesk::io::CXMLTextReader(stream));
}

/// A token as short text: <q> and </q> for elements (with {uri}local and
/// attributes when the token has them), 'text', [cdata], #comment, ?target data.
inline std::string DescribeToken(const vesk::base::CRef<vesk::io::IXMLToken>& token) {
  using namespace vesk::io;
  auto utf8 = [](const vesk::base::CUnicodeString& s) { return std::string(s.ToUTF8()); };
  switch (token->GetType()) {
    case XMLStartElement:
    case XMLEndElement: {
      const IXMLElementToken& e = dynamic_cast<const IXMLElementToken&>(*token);
      std::string out = token->GetType() == XMLStartElement ? "<" : "</";
      out += utf8(e.GetQualifiedName());
      if (e.HasNamespace()) out += "{" + utf8(e.GetNamespaceURI()) + "}" + utf8(e.GetLocalName());
      if (token->GetType() == XMLStartElement) {
        const CXMLAttributeList& list = dynamic_cast<const IXMLStartElementToken&>(*token).GetAttributes();
        for (unsigned int i = 0; i < list.GetCount(); ++i) {
          const CXMLAttribute& a = list.GetAt(i);
          out += " " + utf8(a.GetQualifiedName());
          if (!a.GetNamespaceURI().IsEmpty()) out += "{" + utf8(a.GetNamespaceURI()) + "}" + utf8(a.GetLocalName());
          out += "=" + utf8(a.GetValue());
        }
      }
      return out + ">";
    }
    case XMLText:
      return "'" + utf8(token->GetValue()) + "'";
    case XMLCDATA:
      return "[" + utf8(token->GetValue()) + "]";
    case XMLComment:
      return "#" + utf8(token->GetValue());
    case XMLProcessingInstruction: {
      const IXMLPIToken& pi = dynamic_cast<const IXMLPIToken&>(*token);
      return "?" + utf8(pi.GetTarget()) + " " + utf8(pi.GetData());
    }
  }
  return "?";
}

/// Every remaining token of reader, described and joined by spaces.
inline std::string DumpTokens(vesk::io::CXMLReader& reader) {
  std::string out;
  while (reader.ReadToken()) out += (out.empty() ? "" : " ") + DescribeToken(reader.GetCurrentToken());
  return out;
}

}  // namespace vesk_test

#endif
