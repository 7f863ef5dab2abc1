// Typed data streams: a record written to a file in the Java-compatible
// format and read back. A JVM reads the same bytes with
//
//   DataInputStream in = new DataInputStream(new FileInputStream("record.bin"));
//   int id = in.readInt(); short year = in.readShort(); boolean active = in.readBoolean();
//   String name = in.readUTF();
//
// (floating-point values keep the host byte order in both formats, so a record
// meant for a JVM carries numbers as integers).
#include <cstdio>

#include <vesk/Library.h>
#include <vesk/base/String.h>
#include <vesk/base/UnicodeString.h>
#include <vesk/io/FileInputStream.h>
#include <vesk/io/FileOutputStream.h>
#include <vesk/io/IOException.h>
#include <vesk/io/JavaDataInputStream.h>
#include <vesk/io/JavaDataOutputStream.h>

using vesk::base::CString;
using vesk::base::CUnicodeString;

int main(int argc, char** argv) {
  vesk::Initialize();
  const char* path = argc > 1 ? argv[1] : "record.bin";
  int status = 0;
  try {
    {
      vesk::io::CFileOutputStream file(IO::Location(path), false);
      vesk::io::CJavaDataOutputStream out(&file);  // borrows the file stream
      out << 4711 << static_cast<short>(1969) << true;
      out.WriteString(CUnicodeString("Grüße aus VESK"));
      out.Close();  // closes the file as well
    }
    vesk::io::CFileInputStream file((IO::Location(path)));
    vesk::io::CJavaDataInputStream in(&file);
    int id = in.ReadInt32();
    short year = in.ReadInt16();
    bool active = in.ReadBool();
    CString name(in.ReadString());
    in.Close();
    std::printf("read back: id %d, year %d, active %s, name \"%s\"\n", id, year,
                active ? "true" : "false", static_cast<const char*>(name));
  } catch (const vesk::io::CIOException& e) {
    std::printf("I/O failure: %s\n", e.GetErrorDescription() ? e.GetErrorDescription() : "");
    status = 1;
  }
  std::remove(path);
  vesk::Terminate();
  return status;
}
