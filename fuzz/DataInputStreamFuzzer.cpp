// CDataInputStream and CJavaDataInputStream reading mixed values from
// arbitrary bytes. The first byte picks the stream kind; each following
// byte picks the next value to read, from the same bytes the values are
// read from, until the data runs out.
#include <cstdint>

#include "FuzzCommon.h"
#include "vesk/base/Exception.h"
#include "vesk/io/JavaDataInputStream.h"
#include "vesk/io/MemoryInputStream.h"

using vesk::base::CException;
using vesk::base::CUnicodeString;
using vesk::io::CDataInputStream;
using vesk::io::CJavaDataInputStream;
using vesk::io::CMemoryInputStream;

namespace {

// An object made of a few values, read through ReadObject.
struct Pair : vesk::io::ISerializable {
  int a = 0;
  CUnicodeString b;
  void ReadFrom(CDataInputStream& in) override { in >> a >> b; }
  void WriteTo(vesk::io::CDataOutputStream&) const override {}
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* input, size_t size) {
  if (size == 0) return 0;
  {
    CMemoryInputStream source(reinterpret_cast<const char*>(input + 1),
                              static_cast<unsigned int>(size - 1), false);
    CDataInputStream plain(&source);
    CJavaDataInputStream java(&source);
    CDataInputStream& in = (input[0] & 1) ? static_cast<CDataInputStream&>(java) : plain;
    unsigned sink = 0;
    try {
      for (int steps = 0; steps < 4096 && in.GetAvailable() > 0; ++steps) {
        int op = in.Read();
        if (op == CDataInputStream::EOS) break;
        switch (static_cast<unsigned char>(op) % 12) {
          case 0:
            sink += in.ReadBool();
            break;
          case 1:
            sink += in.ReadByte();
            break;
          case 2:
            sink += in.ReadSByte();
            break;
          case 3:
            sink += in.ReadInt16();
            break;
          case 4:
            sink += in.ReadInt32();
            break;
          case 5:
            sink += in.ReadUInt16();
            break;
          case 6:
            sink += in.ReadUInt32();
            break;
          case 7:
            sink += static_cast<unsigned>(in.ReadFloat() != 0.0f);
            break;
          case 8:
            sink += static_cast<unsigned>(in.ReadDouble() != 0.0);
            break;
          case 9: {
            CUnicodeString s = in.ReadString();
            const unsigned short* p = s;
            for (unsigned i = 0; i < s.GetLength(); ++i) sink += p[i];
            FUZZ_CHECK(p[s.GetLength()] == 0);
            break;
          }
          case 10: {
            Pair pair;
            in.ReadObject(pair);
            sink += pair.a + pair.b.GetLength();
            break;
          }
          case 11: {
            char buffer[8];
            int got = in.Read(buffer, 1, 7);
            FUZZ_CHECK(got == -1 || (got >= 0 && got <= 7));
            break;
          }
        }
      }
    } catch (const CException&) {
      // A string count beyond what can be allocated ends the run here.
    }
    static volatile unsigned keep;
    keep = sink;
    in.Close();
  }
  // Blocks left behind are found by the leak check libFuzzer runs after
  // each input (the string pools keep theirs reachable).
  return 0;
}
